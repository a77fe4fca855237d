#pragma once

#include <plix/platform/base/Handle.h>
#include <plix/platform/base/NSDate.h>
#include <plix/platform/host/desktop/SoundDecoder.h>

struct _SDL_AudioStream;

namespace plix {

template <> struct HandleDeleter<_SDL_AudioStream> {
    void operator()(_SDL_AudioStream*) const;
};

/// Reads a sound as the output wants it: two channels at a rate of its own. May be used on any one thread at a time.
class SoundReader {
public:
    static constexpr int rate = 48000;

    explicit SoundReader(std::unique_ptr<SoundDecoder>);
    ~SoundReader();

    NSTimeInterval duration() const;
    /// Fills with samples, and answers how many these are: fewer than wanted at the end only.
    std::size_t read(std::span<float> stereo);
    /// Goes back to the start.
    bool rewind();
    /// Whether it came to an end before the one that the file promised.
    bool isBroken() const;

private:
    bool readMore();
    std::size_t fetch(std::span<float> stereo);

    std::unique_ptr<SoundDecoder> m_decoder;
    Handle<_SDL_AudioStream> m_stream;
    std::vector<float> m_decoded;
    std::int64_t m_framesIn { 0 };
    std::int64_t m_framesOut { 0 };
    bool m_isAtEnd { false };
};

}

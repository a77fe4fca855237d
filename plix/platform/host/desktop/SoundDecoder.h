#pragma once

#include <plix/platform/host/sound_file_bytes.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace plix {

/// Reads the samples of a sound file: WAV, AIFF, AU, CAF, FLAC, Ogg and, with newer versions of the library below, MP3. That
/// library is loaded with the first sound. May be used on any one thread at a time.
class SoundDecoder {
public:
    /// The extensions of files that it reads; none where the library is missing.
    static std::vector<std::string> const& fileTypes();

    /// Null for what is no sound of these kinds, or one that no machine could play.
    static std::unique_ptr<SoundDecoder> open(std::unique_ptr<SoundFileBytes>);
    ~SoundDecoder();

    int rate() const { return m_rate; }
    int channels() const { return m_channels; }
    /// Moments of sound, each with a sample of every channel; as the file says.
    std::int64_t frames() const { return m_frames; }

    /// Reads whole frames, and answers how many samples these are: 0 at the end and where the file is damaged.
    std::size_t read(std::span<float> samples);
    /// Goes back to the start; false where the file can't be read any more.
    bool rewind();

private:
    struct File;

    explicit SoundDecoder(std::unique_ptr<File>);

    std::unique_ptr<File> m_file;
    int m_rate { 0 };
    int m_channels { 0 };
    std::int64_t m_frames { 0 };
};

}

#include <plix/platform/host/desktop/SoundReader.h>

#include <plix/platform/host/desktop/sdl_handles.h>
#include <plix/platform/host/sound_mixing.h>

#include <algorithm>

namespace plix {

namespace {

constexpr std::size_t framesAtOnce = 2048;
/// SDL's conversion of rates looks that far ahead, and keeps so much back for good.
constexpr std::size_t framesKeptBack = 1024;

int bytesOf(std::size_t samples)
{
    return static_cast<int>(samples * sizeof(float));
}

}

void HandleDeleter<_SDL_AudioStream>::operator()(_SDL_AudioStream* stream) const
{
    SDL_FreeAudioStream(stream);
}

SoundReader::SoundReader(std::unique_ptr<SoundDecoder> decoder)
    : m_decoder(std::move(decoder))
    , m_stream(SDL_NewAudioStream(AUDIO_F32SYS, 2, m_decoder->rate(), AUDIO_F32SYS, 2, rate))
    , m_decoded(framesAtOnce * static_cast<std::size_t>(m_decoder->channels()))
    , m_isAtEnd(!m_stream)
{
}

SoundReader::~SoundReader() = default;

NSTimeInterval SoundReader::duration() const
{
    return static_cast<NSTimeInterval>(m_decoder->frames()) / m_decoder->rate();
}

std::size_t SoundReader::read(std::span<float> stereo)
{
    std::size_t filled = 0;
    while (filled < stereo.size() && m_stream) {
        auto const count = fetch(stereo.subspan(filled));
        filled += count;
        if (count == 0 && (m_isAtEnd || !readMore()))
            break;
    }
    return filled;
}

std::size_t SoundReader::fetch(std::span<float> stereo)
{
    // What was put in to get the end out again does not count.
    if (m_isAtEnd) {
        auto const rest = (m_framesIn * rate + m_decoder->rate() - 1) / m_decoder->rate() - m_framesOut;
        stereo = stereo.first(std::min(stereo.size(), 2 * static_cast<std::size_t>(std::max<std::int64_t>(rest, 0))));
    }
    auto const bytes = stereo.empty() ? 0 : SDL_AudioStreamGet(m_stream.get(), stereo.data(), bytesOf(stereo.size()));
    auto const count = bytes > 0 ? static_cast<std::size_t>(bytes) / sizeof(float) : 0;
    m_framesOut += static_cast<std::int64_t>(count / 2);
    return count;
}

bool SoundReader::readMore()
{
    auto const count = m_decoder->read(m_decoded);
    if (count == 0) {
        m_isAtEnd = true;
        std::vector<float> const silence(
            2 * std::max(framesKeptBack, framesKeptBack * static_cast<std::size_t>(m_decoder->rate()) / rate));
        return SDL_AudioStreamPut(m_stream.get(), silence.data(), bytesOf(silence.size())) == 0
            && SDL_AudioStreamFlush(m_stream.get()) == 0;
    }
    auto const stereo = stereoSamples(std::span(m_decoded).first(count), m_decoder->channels());
    m_framesIn += static_cast<std::int64_t>(stereo.size() / 2);
    return SDL_AudioStreamPut(m_stream.get(), stereo.data(), bytesOf(stereo.size())) == 0;
}

bool SoundReader::isBroken() const
{
    // Some kinds of files know how long they are only nearly.
    auto const tolerance = m_decoder->rate() / 10;
    return m_isAtEnd && m_framesIn + tolerance < m_decoder->frames();
}

bool SoundReader::rewind()
{
    if (m_stream)
        SDL_AudioStreamClear(m_stream.get());
    m_framesIn = m_framesOut = 0;
    m_isAtEnd = !m_stream || !m_decoder->rewind();
    return !m_isAtEnd;
}

}

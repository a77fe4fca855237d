#include <plix/platform/host/desktop/SoundReader.h>

#include <plix/platform/host/desktop/sdl_handles.h>
#include <plix/platform/host/sound_mixing.h>

namespace plix {

namespace {

constexpr std::size_t framesAtOnce = 2048;

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
        auto const rest = stereo.subspan(filled);
        auto const bytes = SDL_AudioStreamGet(m_stream.get(), rest.data(), bytesOf(rest.size()));
        if (bytes > 0)
            filled += static_cast<std::size_t>(bytes) / sizeof(float);
        else if (m_isAtEnd || !readMore())
            break;
    }
    return filled;
}

bool SoundReader::readMore()
{
    auto const count = m_decoder->read(m_decoded);
    if (count == 0) {
        m_isAtEnd = true;
        return SDL_AudioStreamFlush(m_stream.get()) == 0;
    }
    auto const stereo = stereoSamples(std::span(m_decoded).first(count), m_decoder->channels());
    return SDL_AudioStreamPut(m_stream.get(), stereo.data(), bytesOf(stereo.size())) == 0;
}

bool SoundReader::rewind()
{
    if (m_stream)
        SDL_AudioStreamClear(m_stream.get());
    m_isAtEnd = !m_stream || !m_decoder->rewind();
    return !m_isAtEnd;
}

}

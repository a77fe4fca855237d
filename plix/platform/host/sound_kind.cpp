#include <plix/platform/host/sound_kind.h>

#include <algorithm>
#include <string_view>

namespace plix {

namespace {

bool hasAt(std::span<std::uint8_t const> bytes, std::size_t place, std::string_view text)
{
    return bytes.size() >= place + text.size()
        && std::equal(text.begin(), text.end(), bytes.begin() + static_cast<std::ptrdiff_t>(place),
            [](char character, std::uint8_t byte) { return static_cast<std::uint8_t>(character) == byte; });
}

/// An MPEG audio frame's header (ISO 11172-3, 2.4.1.3) of layer III, or a tag before the first one.
bool beginsAsMP3(std::span<std::uint8_t const> bytes)
{
    if (hasAt(bytes, 0, "ID3"))
        return true;
    if (bytes.size() < 4)
        return false;
    bool const isSynchronised = bytes[0] == 0xFF && (bytes[1] & 0xE0) == 0xE0;
    bool const hasVersion = (bytes[1] & 0x18) != 0x08;
    bool const isLayerIII = (bytes[1] & 0x06) == 0x02;
    bool const hasBitRate = (bytes[2] & 0xF0) != 0xF0;
    bool const hasSampleRate = (bytes[2] & 0x0C) != 0x0C;
    return isSynchronised && hasVersion && isLayerIII && hasBitRate && hasSampleRate;
}

}

std::optional<SoundKind> soundKind(std::span<std::uint8_t const> bytes)
{
    if ((hasAt(bytes, 0, "RIFF") || hasAt(bytes, 0, "RIFX") || hasAt(bytes, 0, "RF64")) && hasAt(bytes, 8, "WAVE"))
        return SoundKind::WAV;
    if (hasAt(bytes, 0, "FORM") && (hasAt(bytes, 8, "AIFF") || hasAt(bytes, 8, "AIFC")))
        return SoundKind::AIFF;
    if (hasAt(bytes, 0, ".snd"))
        return SoundKind::AU;
    if (hasAt(bytes, 0, "caff"))
        return SoundKind::CAF;
    if (hasAt(bytes, 0, "fLaC"))
        return SoundKind::FLAC;
    if (hasAt(bytes, 0, "OggS"))
        return SoundKind::Ogg;
    if (beginsAsMP3(bytes))
        return SoundKind::MP3;
    return {};
}

std::vector<std::string> const& soundFileTypes()
{
    static auto const& s_types = *new std::vector<std::string> { "aiff", "aif", "aifc", "au", "snd", "wav", "wave", "caf", "flac",
        "ogg", "oga", "opus", "mp3" };
    return s_types;
}

}

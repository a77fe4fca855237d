#include <plix/platform/host/media_components.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace plix {

namespace {

struct CustomaryType {
    std::string_view mediaType;
    std::string_view code;
    std::string_view variant {};
};

constexpr std::array customaryTypes {
    CustomaryType { "video/quicktime", "mpg4", "iso" },
    CustomaryType { "video/quicktime", "isml", "iso-fragmented" },
    CustomaryType { "video/quicktime", "3gpp", "3gpp" },
    CustomaryType { "video/quicktime", "MooV" },
    CustomaryType { "video/mp4", "mpg4" },
    CustomaryType { "video/3gpp", "3gpp" },
    CustomaryType { "video/x-msvideo", "VfW " },
    CustomaryType { "video/mpeg", "MPEG" },
    CustomaryType { "video/mpegts", "M2T " },
    CustomaryType { "video/x-matroska", "MKV " },
    CustomaryType { "video/x-flv", "FLV " },
    CustomaryType { "audio/x-wav", "WAVE" },
    CustomaryType { "audio/x-aiff", "AIFF" },
    CustomaryType { "audio/x-au", "ULAW" },
    CustomaryType { "audio/mpeg", "MPG3" },
    CustomaryType { "application/ogg", "OggS" },
};

bool isLetterOrDigit(char character)
{
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'z')
        || (character >= 'A' && character <= 'Z');
}

}

std::uint32_t fourCharCode(std::string_view characters)
{
    std::uint32_t code = 0;
    for (std::size_t place = 0; place < 4; ++place)
        code = code << 8 | static_cast<std::uint8_t>(place < characters.size() ? characters[place] : ' ');
    return code;
}

bool matchesComponent(ComponentDescription const& wanted, ComponentDescription const& component)
{
    auto const matches = [](std::uint32_t code, std::uint32_t other) { return code == 0 || code == other; };
    return matches(wanted.type, component.type) && matches(wanted.subtype, component.subtype)
        && matches(wanted.manufacturer, component.manufacturer)
        && (component.flags & wanted.flagsMask) == (wanted.flags & wanted.flagsMask);
}

std::uint32_t fileTypeForMediaType(std::string_view mediaType, std::string_view variant)
{
    auto const customary = std::ranges::find_if(customaryTypes,
        [&](auto const& type) { return type.mediaType == mediaType && (type.variant.empty() || type.variant == variant); });
    if (customary != customaryTypes.end())
        return fourCharCode(customary->code);
    auto const slash = mediaType.find('/');
    if (slash == std::string_view::npos)
        return 0;
    auto second = mediaType.substr(slash + 1);
    if (second.starts_with("x-"))
        second.remove_prefix(2);
    std::string letters;
    std::ranges::copy_if(second, std::back_inserter(letters), isLetterOrDigit);
    return letters.empty() ? 0 : fourCharCode(letters);
}

// FNV-1a.
std::uint32_t componentReference(std::string_view name)
{
    std::uint32_t hash = 2166136261U;
    for (char const character : name)
        hash = (hash ^ static_cast<std::uint8_t>(character)) * 16777619U;
    return std::max(hash, 1U);
}

}

#include <plix/platform/host/spoken_text.h>

#include <plix/platform/base/utf16.h>

#include <algorithm>

namespace plix {

namespace {

bool isControl(char32_t character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

bool isBlank(char32_t character)
{
    static constexpr char32_t others[] = { 0x20, 0xA0, 0x1680, 0x2028, 0x2029, 0x202F, 0x205F, 0x2060, 0x3000, 0xFEFF };
    return (character >= 0x2000 && character <= 0x200D)
        || std::find(std::begin(others), std::end(others), character) != std::end(others);
}

}

bool hasAnythingToSay(std::string_view text)
{
    for (std::size_t byte = 0; byte < text.size();) {
        auto const character = decodeUTF8(text, byte);
        if (!isControl(character) && !isBlank(character))
            return true;
    }
    return false;
}

std::string speakableText(std::string_view text)
{
    std::string speakable;
    speakable.reserve(text.size());
    for (std::size_t byte = 0; byte < text.size();) {
        auto const character = decodeUTF8(text, byte);
        appendUTF8(speakable, isControl(character) && character != '\n' ? U' ' : character);
    }
    return speakable;
}

std::string lossyCString(std::string_view text)
{
    return validUTF8(text.substr(0, text.find('\0')));
}

std::string pascalString(std::string_view cString)
{
    constexpr std::size_t mostBytes = 255;
    if (cString.size() <= mostBytes)
        return std::string(cString);
    auto end = mostBytes;
    while (end > 0 && (static_cast<unsigned char>(cString[end]) & 0xC0) == 0x80)
        --end;
    return std::string(cString.substr(0, end));
}

}

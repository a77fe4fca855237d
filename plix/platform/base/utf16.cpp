#include <plix/platform/base/utf16.h>

#include <plix/platform/base/exceptions.h>

namespace plix {

namespace {

constexpr char32_t replacementCharacter = 0xFFFD;

bool isContinuation(unsigned char byte)
{
    return (byte & 0xC0) == 0x80;
}

long unitsOf(char32_t character)
{
    return character > 0xFFFF ? 2 : 1;
}

bool isHighSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(char16_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

}

char32_t decodeUTF8(std::string_view text, std::size_t& byte)
{
    auto const at = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    auto const first = at(byte);
    if (first < 0x80) {
        ++byte;
        return first;
    }
    int const continuations = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    // The second byte's bounds rule out overlong forms, surrogates and what lies beyond U+10FFFF.
    unsigned char const lowest = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    unsigned char const highest = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    bool isWellFormed = first >= 0xC2 && first <= 0xF4 && byte + static_cast<std::size_t>(continuations) < text.size()
        && at(byte + 1) >= lowest && at(byte + 1) <= highest;
    for (int i = 2; isWellFormed && i <= continuations; ++i)
        isWellFormed = isContinuation(at(byte + static_cast<std::size_t>(i)));
    if (!isWellFormed) {
        ++byte;
        return replacementCharacter;
    }
    char32_t character = first & (0x3F >> continuations);
    for (int i = 1; i <= continuations; ++i)
        character = character << 6 | (at(byte + static_cast<std::size_t>(i)) & 0x3F);
    byte += static_cast<std::size_t>(continuations) + 1;
    return character;
}

void appendUTF8(std::string& text, char32_t character)
{
    if (character > 0x10FFFF || (character >= 0xD800 && character < 0xE000))
        character = replacementCharacter;
    auto const push = [&](char32_t value) { text.push_back(static_cast<char>(static_cast<unsigned char>(value))); };
    if (character < 0x80) {
        push(character);
        return;
    }
    if (character < 0x800) {
        push(0xC0 | character >> 6);
    } else if (character < 0x10000) {
        push(0xE0 | character >> 12);
        push(0x80 | (character >> 6 & 0x3F));
    } else {
        push(0xF0 | character >> 18);
        push(0x80 | (character >> 12 & 0x3F));
        push(0x80 | (character >> 6 & 0x3F));
    }
    push(0x80 | (character & 0x3F));
}

long utf16Length(std::string_view text)
{
    long units = 0;
    for (std::size_t byte = 0; byte < text.size();)
        units += unitsOf(decodeUTF8(text, byte));
    return units;
}

std::size_t byteOffsetOfUnit(std::string_view text, long unit)
{
    std::size_t byte = 0;
    for (long units = 0; byte < text.size();) {
        std::size_t next = byte;
        units += unitsOf(decodeUTF8(text, next));
        if (units > unit)
            return byte;
        byte = next;
    }
    return text.size();
}

long unitAtByteOffset(std::string_view text, std::size_t wanted)
{
    long units = 0;
    for (std::size_t byte = 0; byte < text.size();) {
        std::size_t next = byte;
        long const width = unitsOf(decodeUTF8(text, next));
        if (next > wanted)
            return units;
        units += width;
        byte = next;
    }
    return units;
}

std::string_view substringWithRange(std::string_view text, NSRange units)
{
    long const length = utf16Length(text);
    if (units.location < 0 || units.length < 0 || units.location > length || units.length > length - units.location)
        raiseRangeException("substringWithRange", units.end(), length);
    std::size_t const start = byteOffsetOfUnit(text, units.location);
    return text.substr(start, byteOffsetOfUnit(text, units.end()) - start);
}

std::u16string utf16FromUTF8(std::string_view text)
{
    std::u16string units;
    units.reserve(text.size());
    for (std::size_t byte = 0; byte < text.size();) {
        char32_t const character = decodeUTF8(text, byte);
        if (character > 0xFFFF) {
            units.push_back(static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)));
            units.push_back(static_cast<char16_t>(0xDC00 + (character & 0x3FF)));
        } else {
            units.push_back(static_cast<char16_t>(character));
        }
    }
    return units;
}

std::string utf8FromUTF16(std::u16string_view units)
{
    std::string text;
    text.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i) {
        char32_t character = units[i];
        if (isHighSurrogate(units[i]) && i + 1 < units.size() && isLowSurrogate(units[i + 1])) {
            character = 0x10000 + ((character & 0x3FF) << 10) + (units[i + 1] & 0x3FFU);
            ++i;
        }
        appendUTF8(text, character);
    }
    return text;
}

bool isValidUTF8(std::string_view text)
{
    for (std::size_t byte = 0; byte < text.size();) {
        std::size_t const start = byte;
        if (decodeUTF8(text, byte) == replacementCharacter && byte == start + 1)
            return false;
    }
    return true;
}

std::string validUTF8(std::string_view text)
{
    if (isValidUTF8(text))
        return std::string(text);
    std::string valid;
    valid.reserve(text.size() + 8);
    for (std::size_t byte = 0; byte < text.size();)
        appendUTF8(valid, decodeUTF8(text, byte));
    return valid;
}

}

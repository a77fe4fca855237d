#include <plix/platform/appkit/text_boundaries.h>

#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCharacterSet.h>
#include <plix/platform/graphics/caret_stops.h>
#include <plix/platform/graphics/text_lines.h>

#include <algorithm>

namespace plix {

namespace {

constexpr char32_t paragraphSeparator = 0x2029;
constexpr char32_t rightSingleQuote = 0x2019;
constexpr char32_t zeroWidthJoiner = 0x200D;

enum class Kind { word, apostrophe, blank, lineEnd, other };

bool isAsciiWord(char32_t character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z')
        || (character >= '0' && character <= '9') || character == '_';
}

Kind kindOf(char32_t character)
{
    if (isAsciiWord(character) || character == zeroWidthJoiner)
        return Kind::word;
    if (character == '\'' || character == rightSingleQuote)
        return Kind::apostrophe;
    if (character == '\n' || character == '\r' || character == paragraphSeparator)
        return Kind::lineEnd;
    if (NSCharacterSet::whitespaceCharacterSet().characterIsMember(character))
        return Kind::blank;
    if (character >= 0x80 && NSCharacterSet::alphanumericCharacterSet().characterIsMember(character))
        return Kind::word;
    return Kind::other;
}

std::size_t startOfCharacter(std::string_view text, std::size_t byte)
{
    while (byte > 0 && byte < text.size() && (static_cast<unsigned char>(text[byte]) & 0xC0) == 0x80)
        --byte;
    return byte;
}

Kind kindAt(std::string_view text, std::size_t byte)
{
    return kindOf(decodeUTF8(text, byte));
}

std::size_t before(std::string_view text, std::size_t byte)
{
    return startOfCharacter(text, byte - 1);
}

std::size_t after(std::string_view text, std::size_t byte)
{
    decodeUTF8(text, byte);
    return byte;
}

// An apostrophe belongs to a word that goes on behind it.
bool isInWord(std::string_view text, std::size_t byte)
{
    auto const kind = kindAt(text, byte);
    if (kind != Kind::apostrophe)
        return kind == Kind::word;
    std::size_t const next = after(text, byte);
    return byte > 0 && next < text.size() && kindAt(text, before(text, byte)) == Kind::word && kindAt(text, next) == Kind::word;
}

template <typename Belongs> TextExtent extentAround(std::string_view text, std::size_t byte, Belongs belongs)
{
    TextExtent extent { byte, byte };
    while (extent.first > 0 && belongs(before(text, extent.first)))
        extent.first = before(text, extent.first);
    while (extent.end < text.size() && belongs(extent.end))
        extent.end = after(text, extent.end);
    return extent;
}

}

std::size_t nextWordEnd(std::string_view text, std::size_t byte)
{
    byte = std::min(byte, text.size());
    while (byte < text.size() && !isInWord(text, byte))
        byte = after(text, byte);
    while (byte < text.size() && isInWord(text, byte))
        byte = after(text, byte);
    return byte;
}

std::size_t previousWordStart(std::string_view text, std::size_t byte)
{
    byte = std::min(byte, text.size());
    while (byte > 0 && !isInWord(text, before(text, byte)))
        byte = before(text, byte);
    while (byte > 0 && isInWord(text, before(text, byte)))
        byte = before(text, byte);
    return byte;
}

TextExtent wordAround(std::string_view text, std::size_t byte)
{
    if (text.empty())
        return {};
    byte = startOfCharacter(text, std::min(byte, text.size()));
    if (byte == text.size()
        || (kindAt(text, byte) == Kind::lineEnd && byte > 0 && kindAt(text, before(text, byte)) != Kind::lineEnd))
        byte = before(text, byte);
    if (isInWord(text, byte))
        return extentAround(text, byte, [&](std::size_t at) { return isInWord(text, at); });
    if (kindAt(text, byte) == Kind::blank)
        return extentAround(text, byte, [&](std::size_t at) { return kindAt(text, at) == Kind::blank; });
    std::size_t const end = nextCaretStop(text, byte);
    return { previousCaretStop(text, end), end };
}

TextExtent paragraphAround(std::string_view text, std::size_t byte)
{
    byte = startOfCharacter(text, std::min(byte, text.size()));
    std::size_t first = byte;
    while (first > 0) {
        std::size_t const at = before(text, first);
        bool const isInsideLineEnd = text[at] == '\r' && first < text.size() && text[first] == '\n';
        if (kindAt(text, at) == Kind::lineEnd && !isInsideLineEnd)
            break;
        first = at;
    }
    return { first, paragraphAt(text, first).end };
}

}

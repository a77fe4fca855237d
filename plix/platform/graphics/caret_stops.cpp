#include <plix/platform/graphics/caret_stops.h>

#include <plix/platform/base/utf16.h>

#include <algorithm>
#include <glib.h>

namespace plix {

namespace {

constexpr char32_t zeroWidthJoiner = 0x200D;
// How far back one character may reach; families of emoji are about thirty bytes.
constexpr std::size_t longestCharacter = 256;

bool isBetween(char32_t character, char32_t first, char32_t last)
{
    return character >= first && character <= last;
}

bool isRegionalIndicator(char32_t character)
{
    return isBetween(character, 0x1F1E6, 0x1F1FF);
}

bool isHangulPart(char32_t character)
{
    return isBetween(character, 0x1100, 0x11FF);
}

/// Belongs to whatever character comes before.
bool extendsCharacter(char32_t character)
{
    if (character < 0x300)
        return false;
    return g_unichar_ismark(character) || character == zeroWidthJoiner || isBetween(character, 0x1F3FB, 0x1F3FF)
        || isBetween(character, 0x1160, 0x11FF) || isBetween(character, 0xE0020, 0xE007F);
}

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

}

std::size_t nextCaretStop(std::string_view text, std::size_t byte)
{
    if (byte >= text.size())
        return text.size();
    char32_t before = decodeUTF8(text, byte);
    bool const mayPair = isRegionalIndicator(before);
    bool isFirst = true;
    while (byte < text.size()) {
        std::size_t next = byte;
        char32_t const character = decodeUTF8(text, next);
        bool const isLineEnd = before == '\n' || before == '\r' || before == 0x2029;
        bool const joins = (before == '\r' && character == '\n')
            || (!isLineEnd
                && (extendsCharacter(character)
                    || (before == zeroWidthJoiner && g_unichar_type(character) == G_UNICODE_OTHER_SYMBOL)
                    || (isHangulPart(before) && isHangulPart(character) && isBetween(character, 0x1100, 0x115F) && before < 0x1160)
                    || (isFirst && mayPair && isRegionalIndicator(character))));
        if (!joins)
            break;
        before = character;
        byte = next;
        isFirst = false;
    }
    return byte;
}

std::size_t previousCaretStop(std::string_view text, std::size_t byte)
{
    byte = std::min(byte, text.size());
    if (byte == 0)
        return 0;
    // Walking forwards from a place that is certainly a stop: behind a line end, or far enough back.
    std::size_t start = byte - 1;
    while (start > 0 && byte - start < longestCharacter && !(start + 1 < byte && text[start] == '\n'))
        --start;
    while (start > 0 && isContinuation(text[start]))
        --start;
    for (;;) {
        std::size_t const next = nextCaretStop(text, start);
        if (next >= byte)
            return start;
        start = next;
    }
}

bool isCaretStop(std::string_view text, std::size_t byte)
{
    if (byte == 0 || byte >= text.size())
        return true;
    auto const at = static_cast<unsigned char>(text[byte]);
    if (at < 0x80 && at != '\n')
        return true;
    return nextCaretStop(text, previousCaretStop(text, byte)) == byte;
}

}

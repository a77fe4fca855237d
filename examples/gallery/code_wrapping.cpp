#include "code_wrapping.h"

#include <plix/platform/base/utf16.h>

#include <algorithm>

namespace gallery {

using namespace plix;

namespace {

constexpr std::string_view indent = "    ";

bool isNameCharacter(char character)
{
    auto const byte = static_cast<unsigned char>(character);
    return character == '_' || byte >= 0x80 || (byte >= '0' && byte <= '9') || ((byte | 0x20) >= 'a' && (byte | 0x20) <= 'z');
}

/// How willingly a line ends before that byte; 0 not at all.
int breakWorth(std::string_view line, std::size_t byte)
{
    char const before = line[byte - 1];
    char const after = line[byte];
    if (std::count(line.begin(), line.begin() + static_cast<long>(byte), '"') % 2 == 1)
        return before == ' ' ? 1 : 0; // in a text
    if (before == ' ')
        return after == '}' || after == '{' ? 2 : 4;
    if (line.substr(byte, 2) == "->")
        return 3;
    if (before == '(' && after != ')')
        return 3;
    if (after == '.' && before == ')')
        return 3;
    return before == ',' || (before == ':' && isNameCharacter(after)) ? 2 : 0;
}

/// The byte that the next line begins at, in a line too long for so many bytes.
std::size_t breakOf(std::string_view line, std::size_t limit)
{
    std::size_t best = limit;
    int worth = 0;
    for (std::size_t byte = limit; byte > limit / 3; --byte) {
        if (int const found = breakWorth(line, byte); found > worth) {
            best = byte;
            worth = found;
        }
    }
    return best;
}

/// Without the blank behind an opening bracket that a line's end in the source leaves there.
std::string withoutLineEnds(std::string_view code)
{
    std::string result;
    bool isText = false;
    for (char const character : code) {
        isText = isText != (character == '"');
        if (isText || character != ' ' || !result.ends_with('('))
            result += character;
    }
    return result;
}

void appendLine(std::string& wrapped, std::string_view line, long columns)
{
    bool isFirst = true;
    while (true) {
        long const room = std::max(isFirst ? columns : columns - static_cast<long>(indent.size()), 8L);
        wrapped += isFirst ? "" : indent;
        if (utf16Length(line) <= room)
            break;
        auto const end = breakOf(line, byteOffsetOfUnit(line, room));
        auto const shown = line.substr(0, end);
        wrapped += shown.substr(0, shown.find_last_not_of(' ') + 1);
        wrapped += '\n';
        line.remove_prefix(end);
        isFirst = false;
    }
    wrapped += line;
}

}

std::string wrappedCode(std::string_view source, long columns)
{
    auto const code = withoutLineEnds(source);
    std::string wrapped;
    for (std::size_t begin = 0;;) {
        auto const end = std::min(code.find('\n', begin), code.size());
        appendLine(wrapped, std::string_view(code).substr(begin, end - begin), columns);
        if (end == code.size())
            return wrapped;
        wrapped += '\n';
        begin = end + 1;
    }
}

}

#include <plix/platform/foundation/date_pattern.h>

#include <plix/platform/base/utf16.h>

namespace plix {

namespace {

struct Field {
    std::string_view letters;
    std::string_view one;
    std::string_view two;
    std::string_view three;
    std::string_view four;
};

constexpr Field fields[] = {
    { "yu", "%Y", "%y", "%Y", "%Y" },
    { "ML", "%1m", "%m", "%b", "%B" },
    { "d", "%e", "%d", "%d", "%d" },
    { "Eec", "%a", "%a", "%a", "%A" },
    { "Hk", "%1H", "%H", "%H", "%H" },
    { "hK", "%1I", "%I", "%I", "%I" },
    { "m", "%1M", "%M", "%M", "%M" },
    { "s", "%1S", "%S", "%S", "%S" },
    { "S", "%F", "%F", "%F", "%F" },
    { "D", "%1j", "%j", "%j", "%j" },
    { "abB", "%p", "%p", "%p", "%p" },
    { "zvV", "%Z", "%Z", "%Z", "%Z" },
    { "ZOxX", "%z", "%z", "%z", "%z" },
};

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string_view directive(char letter, std::size_t count)
{
    for (auto const& field : fields) {
        if (field.letters.find(letter) != std::string_view::npos)
            return count == 1 ? field.one : count == 2 ? field.two : count == 3 ? field.three : field.four;
    }
    return {};
}

/// Appends the quoted text at the pattern's start and answers how long that is with its quotes.
std::size_t appendQuoted(std::string& format, std::string_view pattern)
{
    std::size_t i = 1;
    if (pattern.substr(1).starts_with('\'')) {
        format += '\'';
        return 2;
    }
    for (; i < pattern.size(); ++i) {
        if (pattern[i] != '\'') {
            format += pattern[i];
        } else if (pattern.substr(i + 1).starts_with('\'')) {
            format += '\'';
            ++i;
        } else {
            return i + 1;
        }
    }
    return i;
}

}

std::string dateFormatFromPattern(std::string_view pattern)
{
    std::string format;
    for (std::size_t i = 0; i < pattern.size();) {
        if (pattern[i] == '\'') {
            i += appendQuoted(format, pattern.substr(i));
            continue;
        }
        if (isLetter(pattern[i])) {
            auto const end = std::min(pattern.find_first_not_of(pattern[i], i), pattern.size());
            format += directive(pattern[i], end - i);
            i = end;
            continue;
        }
        auto const start = i;
        auto const character = decodeUTF8(pattern, i);
        // Blanks that do not break would keep people from typing what they see.
        if (character == U'\u00A0' || character == U'\u202F')
            format += ' ';
        else
            format += character == U'%' ? "%%" : pattern.substr(start, i - start);
    }
    return format;
}

}

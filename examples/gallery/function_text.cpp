#include "function_text.h"

#include <cctype>
#include <vector>

namespace gallery {

namespace {

constexpr auto npos = std::string_view::npos;

std::vector<std::string_view> linesOf(std::string_view source)
{
    std::vector<std::string_view> lines;
    while (!source.empty()) {
        auto const end = source.find('\n');
        lines.push_back(source.substr(0, end));
        source.remove_prefix(end == npos ? source.size() : end + 1);
    }
    return lines;
}

bool isOfIdentifier(char character)
{
    return std::isalnum(static_cast<unsigned char>(character)) || character == '_';
}

/// Whether something of that name, with arguments, is declared or defined in the line.
bool names(std::string_view line, std::string_view name)
{
    auto const place = line.find(name);
    if (place == npos || place == 0 || isOfIdentifier(line[place - 1]) || line.substr(place + name.size(), 1) != "(")
        return false;
    return isOfIdentifier(line.front());
}

/// What ends the raw string that begins in a line and does not end there; "" for none.
std::string openRawString(std::string_view line)
{
    for (auto start = line.find("R\""); start != npos; start = line.find("R\"", start)) {
        auto const open = line.find('(', start);
        if (open == npos)
            return {};
        auto end = ")" + std::string(line.substr(start + 2, open - start - 2)) + '"';
        start = line.find(end, open);
        if (start == npos)
            return end;
    }
    return {};
}

}

std::string functionText(std::string_view source, std::string_view name)
{
    auto const lines = linesOf(source);
    std::string text;
    std::string rawEnd;
    bool hasBody = false;
    for (auto const line : lines) {
        bool const wasRaw = !rawEnd.empty();
        if (wasRaw && line.find(rawEnd) != npos)
            rawEnd.clear();
        else if (!wasRaw)
            rawEnd = openRawString(line);
        if (text.empty() && (wasRaw || name.empty() || line.empty() || !names(line, name)))
            continue;
        text += std::string(line) + '\n';
        hasBody = hasBody || line.starts_with('{') || line.ends_with('{');
        if (!hasBody && line.ends_with(';'))
            text.clear();
        else if (hasBody && !wasRaw && line.starts_with('}'))
            return text;
    }
    return {};
}

std::string functionName(std::string_view pageName)
{
    std::string name = "make";
    bool startsWord = true;
    for (char const character : pageName) {
        if (character != '_')
            name += startsWord ? static_cast<char>(std::toupper(static_cast<unsigned char>(character))) : character;
        startsWord = character == '_';
    }
    return name + "Page";
}

}

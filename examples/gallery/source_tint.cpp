#include "source_tint.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>

namespace gallery {

using plix::NSRange;

namespace {

constexpr auto npos = std::string_view::npos;

constexpr auto keywords = std::to_array<std::string_view>({ "alignas", "auto", "bool", "break", "case", "catch", "char", "class",
    "const", "const_cast", "constexpr", "continue", "default", "delete", "do", "double", "dynamic_cast", "else", "enum", "explicit",
    "false", "final", "float", "for", "friend", "if", "inline", "int", "long", "mutable", "namespace", "new", "noexcept", "nullptr",
    "operator", "override", "private", "protected", "public", "requires", "return", "short", "sizeof", "static", "static_cast",
    "struct", "switch", "template", "this", "throw", "true", "try", "typename", "unsigned", "using", "virtual", "void", "while" });

bool isWord(char character)
{
    return std::isalnum(static_cast<unsigned char>(character)) || character == '_';
}

bool isDigit(char character)
{
    return std::isdigit(static_cast<unsigned char>(character));
}

/// The length of what stands between quotation marks at the beginning, which ends with its line at the latest.
std::size_t quotedLength(std::string_view rest)
{
    for (std::size_t i = 1; i < rest.size() && rest[i] != '\n'; ++i) {
        if (rest[i] == '\\')
            ++i;
        else if (rest[i] == rest[0])
            return i + 1;
    }
    return std::min(rest.find('\n'), rest.size());
}

struct Token {
    std::size_t length { 1 };
    std::optional<Tint> tint;
};

Token wordAt(std::string_view rest)
{
    auto const end = std::ranges::find_if_not(rest, isWord);
    auto const word = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    if (std::ranges::binary_search(keywords, word))
        return { word.size(), Tint::keyword };
    if (std::isupper(static_cast<unsigned char>(word.front())))
        return { word.size(), Tint::type };
    return { word.size(), {} };
}

Token tokenAt(std::string_view rest)
{
    if (rest.starts_with("//"))
        return { std::min(rest.find('\n'), rest.size()), Tint::comment };
    if (rest.starts_with("/*")) {
        auto const end = rest.find("*/", 2);
        return { end == npos ? rest.size() : end + 2, Tint::comment };
    }
    if (rest.front() == '"' || rest.front() == '\'')
        return { quotedLength(rest), Tint::text };
    if (isDigit(rest.front())) {
        auto const end = std::ranges::find_if_not(rest, [](char c) { return isWord(c) || c == '.' || c == '\''; });
        return { static_cast<std::size_t>(end - rest.begin()), Tint::number };
    }
    return isWord(rest.front()) ? wordAt(rest) : Token {};
}

long unitsOf(std::string_view text)
{
    return std::count_if(text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80; })
        + std::count_if(text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) >= 0xF0; });
}

}

std::vector<TintedRange> tintedRanges(std::string_view source)
{
    std::vector<TintedRange> ranges;
    long location = 0;
    while (!source.empty()) {
        auto const token = tokenAt(source);
        long const length = unitsOf(source.substr(0, token.length));
        if (token.tint)
            ranges.push_back({ { location, length }, *token.tint });
        location += length;
        source.remove_prefix(token.length);
    }
    return ranges;
}

}

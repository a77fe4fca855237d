#include <plix/platform/foundation/string_comparison.h>

#include <plix/platform/base/case_folding.h>
#include <plix/platform/base/utf16.h>

#include <array>
#include <string>

#include <unicode/unorm2.h>

namespace plix {

namespace {

constexpr auto foldedASCII = [] {
    std::array<char, 128> table {};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<char>(i >= 'A' && i <= 'Z' ? i + 32 : i);
    return table;
}();

template <typename Value> NSComparisonResult ordered(Value a, Value b)
{
    return a < b ? NSOrderedAscending : b < a ? NSOrderedDescending : NSOrderedSame;
}

bool isASCII(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

template <typename Character> bool isDigit(Character c)
{
    return c >= '0' && c <= '9';
}

/// Compares the runs of digits at the two positions by value and moves behind them.
template <typename Text> NSComparisonResult compareNumbers(Text a, std::size_t& i, Text b, std::size_t& j)
{
    auto const digits = [](Text text, std::size_t& at) {
        while (at < text.size() && text[at] == '0')
            ++at;
        auto const start = at;
        while (at < text.size() && isDigit(text[at]))
            ++at;
        return text.substr(start, at - start);
    };
    auto const first = digits(a, i);
    auto const second = digits(b, j);
    if (first.size() != second.size())
        return ordered(first.size(), second.size());
    auto const result = first.compare(second);
    return ordered(result, 0);
}

/// So that characters beyond the basic plane come where their surrogates do.
char32_t unitOrder(char32_t c)
{
    return c >= 0x10000 ? 0xD800 : c;
}

NSComparisonResult compareCharacters(char32_t a, char32_t b)
{
    if (a >= 0x10000 && b >= 0x10000)
        return ordered(a, b);
    return ordered(unitOrder(a), unitOrder(b));
}

NSComparisonResult compareDecoded(std::u32string_view a, std::u32string_view b, unsigned options)
{
    std::size_t i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        if ((options & NSNumericSearch) && isDigit(a[i]) && isDigit(b[j])) {
            if (auto const result = compareNumbers(a, i, b, j))
                return result;
            continue;
        }
        auto const result = options & NSCaseInsensitiveSearch ? compareCharacters(caseFolded(a[i]), caseFolded(b[j]))
                                                              : compareCharacters(a[i], b[j]);
        if (result)
            return result;
        ++i;
        ++j;
    }
    return ordered(i < a.size(), j < b.size());
}

std::u32string decoded(std::string_view text)
{
    std::u32string characters;
    characters.reserve(text.size());
    for (std::size_t byte = 0; byte < text.size();)
        characters.push_back(decodeUTF8(text, byte));
    return characters;
}

std::u32string decomposed(std::string_view text)
{
    auto error = U_ZERO_ERROR;
    static auto const* const s_normalizer = unorm2_getNFDInstance(&error);
    auto const units = utf16FromUTF8(text);
    auto const length = static_cast<std::int32_t>(units.size());
    error = U_ZERO_ERROR;
    if (!s_normalizer || unorm2_quickCheck(s_normalizer, units.data(), length, &error) == UNORM_YES)
        return decoded(text);
    std::u16string normal(units.size() * 4 + 16, u'\0');
    for (;;) {
        error = U_ZERO_ERROR;
        auto const needed
            = unorm2_normalize(s_normalizer, units.data(), length, normal.data(), static_cast<std::int32_t>(normal.size()), &error);
        if (error != U_BUFFER_OVERFLOW_ERROR && U_FAILURE(error))
            return decoded(text);
        bool const fits = static_cast<std::size_t>(needed) <= normal.size();
        normal.resize(static_cast<std::size_t>(needed));
        if (fits)
            return decoded(utf8FromUTF16(normal));
    }
}

}

NSComparisonResult compare(std::string_view a, std::string_view b, unsigned options)
{
    bool const foldsCase = options & NSCaseInsensitiveSearch;
    std::size_t i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        auto const first = a[i];
        auto const second = b[j];
        if (!isASCII(first) || !isASCII(second))
            break;
        if ((options & NSNumericSearch) && isDigit(first) && isDigit(second)) {
            if (auto const result = compareNumbers(a, i, b, j))
                return result;
            continue;
        }
        if (first != second) {
            auto const x = foldsCase ? foldedASCII[static_cast<unsigned char>(first)] : first;
            auto const y = foldsCase ? foldedASCII[static_cast<unsigned char>(second)] : second;
            // A mark that follows may compose with its letter, but cannot make two letters the same or change their order.
            if (x != y)
                return ordered(x, y);
        }
        ++i;
        ++j;
    }
    a.remove_prefix(i);
    b.remove_prefix(j);
    if (a.empty() || b.empty())
        return ordered(!a.empty(), !b.empty());
    if (options & NSLiteralSearch)
        return compareDecoded(decoded(a), decoded(b), options);
    return compareDecoded(decomposed(a), decomposed(b), options);
}

}

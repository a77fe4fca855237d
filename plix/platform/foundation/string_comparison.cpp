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

/// Null where the tables are missing; every character then stands for itself.
UNormalizer2 const* decomposition()
{
    static auto const* const s_normalizer = [] {
        auto error = U_ZERO_ERROR;
        return unorm2_getNFDInstance(&error);
    }();
    return s_normalizer;
}

/// True of a character that neither decomposes nor moves past its neighbours.
bool isInert(char32_t c)
{
    return c < 0x80 || !decomposition() || unorm2_isInert(decomposition(), static_cast<UChar32>(c));
}

/// Below it no character combines with the one before.
constexpr char32_t firstMark = 0x300;

/// The letter that a character below firstMark decomposes to, before its marks.
char32_t baseLetter(char32_t c)
{
    static auto const& s_letters = *new auto([] {
        std::array<char32_t, firstMark> letters {};
        for (char32_t i = 0; i < firstMark; ++i) {
            char16_t units[8];
            auto error = U_ZERO_ERROR;
            auto const length
                = decomposition() ? unorm2_getDecomposition(decomposition(), static_cast<UChar32>(i), units, 8, &error) : -1;
            letters[i] = length > 0 && U_SUCCESS(error) ? units[0] : i;
        }
        return letters;
    }());
    return s_letters[c];
}

std::u32string decomposed(std::string_view text)
{
    auto const units = utf16FromUTF8(text);
    auto const length = static_cast<std::int32_t>(units.size());
    auto error = U_ZERO_ERROR;
    if (!decomposition() || unorm2_quickCheck(decomposition(), units.data(), length, &error) == UNORM_YES)
        return decoded(text);
    std::u16string normal(units.size() * 4 + 16, u'\0');
    for (;;) {
        error = U_ZERO_ERROR;
        auto const needed = unorm2_normalize(
            decomposition(), units.data(), length, normal.data(), static_cast<std::int32_t>(normal.size()), &error);
        if (error != U_BUFFER_OVERFLOW_ERROR && U_FAILURE(error))
            return decoded(text);
        bool const fits = static_cast<std::size_t>(needed) <= normal.size();
        normal.resize(static_cast<std::size_t>(needed));
        if (fits)
            return decoded(utf8FromUTF16(normal));
    }
}

/// Compares from the front without decomposing, as far as that gives the same.
class QuickComparison {
public:
    QuickComparison(std::string_view a, std::string_view b, unsigned options)
        : m_a(a)
        , m_b(b)
        , m_options(options)
    {
    }

    NSComparisonResult compare()
    {
        while (m_i < m_a.size() && m_j < m_b.size()) {
            auto const first = m_a[m_i];
            auto const second = m_b[m_j];
            auto result = NSOrderedSame;
            if ((m_options & NSNumericSearch) && isDigit(first) && isDigit(second)) {
                result = compareNumbers(m_a, m_i, m_b, m_j);
                markSettled();
            } else if (isASCII(first) && isASCII(second)) {
                result = ordered(folded(first), folded(second));
                ++m_i;
                ++m_j;
                markSettled();
            } else if (!compareDecodedPair(result)) {
                return decomposedRest();
            }
            if (result)
                return result;
        }
        if (m_i != m_settledI)
            return decomposedRest();
        return ordered(m_i < m_a.size(), m_j < m_b.size());
    }

private:
    char folded(char c) const { return m_options & NSCaseInsensitiveSearch ? foldedASCII[static_cast<unsigned char>(c)] : c; }
    char32_t folded(char32_t c) const { return m_options & NSCaseInsensitiveSearch ? caseFolded(c) : c; }
    /// What lies before cannot change with what follows.
    void markSettled()
    {
        m_settledI = m_i;
        m_settledJ = m_j;
    }

    /// False where the characters here cannot be compared without decomposing.
    bool compareDecodedPair(NSComparisonResult& result)
    {
        auto const x = decodeUTF8(m_a, m_i);
        auto const y = decodeUTF8(m_b, m_j);
        if ((m_options & NSLiteralSearch) || (isInert(x) && isInert(y))) {
            result = compareCharacters(folded(x), folded(y));
            markSettled();
            return true;
        }
        if (x >= firstMark || y >= firstMark)
            return false;
        if (folded(x) == folded(y))
            return true;
        result = compareCharacters(folded(baseLetter(x)), folded(baseLetter(y)));
        return result != NSOrderedSame;
    }
    NSComparisonResult decomposedRest() const
    {
        return compareDecoded(decomposed(m_a.substr(m_settledI)), decomposed(m_b.substr(m_settledJ)), m_options);
    }

    std::string_view m_a;
    std::string_view m_b;
    unsigned m_options;
    std::size_t m_i { 0 };
    std::size_t m_j { 0 };
    std::size_t m_settledI { 0 };
    std::size_t m_settledJ { 0 };
};

}

NSComparisonResult compare(std::string_view a, std::string_view b, unsigned options)
{
    return QuickComparison(a, b, options).compare();
}

}

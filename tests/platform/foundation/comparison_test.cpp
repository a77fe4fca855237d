#include "../../support/TestSurroundings.h"

#include <plix/platform/base/case_folding.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCharacterSet.h>
#include <plix/platform/foundation/collation.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include <unicode/uchar.h>
#include <unicode/unorm2.h>

namespace plix {
namespace {

TEST(CaseFolding, IsUnicodesForEveryCharacter)
{
    int wrong = 0;
    for (char32_t c = 0; c <= 0x10FFFF; ++c)
        wrong += caseFolded(c) != static_cast<char32_t>(u_foldCase(static_cast<UChar32>(c), U_FOLD_CASE_DEFAULT));
    EXPECT_EQ(wrong, 0);
}

TEST(NSCharacterSet, CategoriesAreUnicodes)
{
    EXPECT_TRUE(NSCharacterSet::alphanumericCharacterSet().characterIsMember(U'é'));
    EXPECT_TRUE(NSCharacterSet::alphanumericCharacterSet().characterIsMember(U'٣'));
    EXPECT_TRUE(NSCharacterSet::alphanumericCharacterSet().characterIsMember(U'\u0301'));
    EXPECT_FALSE(NSCharacterSet::alphanumericCharacterSet().characterIsMember(U'_'));
    EXPECT_TRUE(NSCharacterSet::letterCharacterSet().characterIsMember(U'日'));
    EXPECT_FALSE(NSCharacterSet::letterCharacterSet().characterIsMember(U'1'));
    EXPECT_TRUE(NSCharacterSet::uppercaseLetterCharacterSet().characterIsMember(U'Ж'));
    EXPECT_FALSE(NSCharacterSet::uppercaseLetterCharacterSet().characterIsMember(U'ж'));
    EXPECT_TRUE(NSCharacterSet::lowercaseLetterCharacterSet().characterIsMember(U'ж'));
    EXPECT_TRUE(NSCharacterSet::decimalDigitCharacterSet().characterIsMember(U'9'));
    EXPECT_FALSE(NSCharacterSet::decimalDigitCharacterSet().characterIsMember(U'Ⅸ'));
    EXPECT_TRUE(NSCharacterSet::punctuationCharacterSet().characterIsMember(U'_'));
    EXPECT_TRUE(NSCharacterSet::symbolCharacterSet().characterIsMember(U'€'));
    EXPECT_TRUE(NSCharacterSet::controlCharacterSet().characterIsMember(U'\x1B'));
}

TEST(StringComparison, ByOptions)
{
    struct {
        char const* a;
        char const* b;
        unsigned options;
        int result;
    } const rows[] = {
        { "", "", 0, 0 },
        { "", "a", 0, -1 },
        { "a", "", 65, 1 },
        { "a", "b", 0, -1 },
        { "a", "ab", 0, -1 },
        { "B", "a", 0, -1 },
        { "B", "a", 1, 1 },
        { "Hello", "hELLO", 1, 0 },
        { "Hello", "hELLO", 0, -1 },
        { "a_b", "aZb", 1, -1 },
        { "é", "É", 1, 0 },
        { "é", "É", 0, 1 },
        { "é", "e\u0301", 0, 0 },
        { "é", "e\u0301", 2, 1 },
        { "É", "e\u0301", 1, 0 },
        { "e\u0301x", "éy", 0, -1 },
        { "q\u0323\u0307", "q\u0307\u0323", 0, 0 },
        { "q\u0323\u0307", "q\u0307\u0323", 2, 1 },
        { "\u212A", "k", 1, 0 },
        { "ﬀ", "\U0001F600", 0, 1 }, // by UTF-16 units, surrogates come before U+FB00
        { "日", "\U0001F600", 0, -1 },
        { "\U0001F600", "\U0001F601", 0, -1 },
        { "File 9", "File 10", 64, -1 },
        { "File 9", "File 10", 0, 1 },
        { "file 9", "File 10", 65, -1 },
        { "file10", "FILE9", 65, 1 },
        { "File 01", "File 1", 64, 0 },
        { "File 01a", "File 1b", 64, -1 },
        { "File 001", "File 2", 64, -1 },
        { "0", "00", 64, 0 },
        { "1.10", "1.9", 64, 1 },
        { "a1b", "a1", 64, 1 },
        { "a", "1", 64, 1 },
        { "99999999999999999999999999", "100000000000000000000000000", 64, -1 },
        { "é9", "é10", 64, -1 },
        { "é\u0323", "é\u0345", 0, 1 },
        { "é\u0323", "é", 0, 1 },
        { "é\u0316", "éa", 0, 1 },
        { "Ümlaut", "umzug", 1, 1 },
        { "Ümlaut", "zebra", 1, -1 },
        { "Éa", "éB", 1, -1 },
        { "ñ", "ò", 0, -1 },
        { "ò", "ó", 0, -1 },
        { "日本2", "日本10", 64, -1 },
        { "é9", "é10", 66, -1 },
        { "9é", "10e", 64, -1 },
        { "x\xFF", "x\uFFFD", 0, 0 },
        { "x\xFF", "x\xFE", 65, 0 },
    };
    for (auto const& row : rows) {
        EXPECT_EQ(compare(row.a, row.b, row.options), row.result) << row.a << " " << row.b << " " << row.options;
        EXPECT_EQ(compare(row.b, row.a, row.options), -row.result) << row.b << " " << row.a << " " << row.options;
    }
}

std::vector<std::string> difficultNames()
{
    std::vector<std::string> names;
    for (auto const* a : { "", "a", "A", "e", "é", "e\u0301", "1", "01", "10", "日", "\U0001F600", "ﬀ", "\xFF", "_", "ß", "É", "è",
             "é\u0323", "한" }) {
        for (auto const* b : { "", "z", "Z", "9", "\u0301", "00", "\u0323", "é" })
            names.push_back(std::string(a) + b);
    }
    return names;
}

std::string decomposedByICU(std::string const& text)
{
    auto error = U_ZERO_ERROR;
    auto const units = utf16FromUTF8(text);
    char16_t buffer[64];
    auto const length = unorm2_normalize(
        unorm2_getNFDInstance(&error), units.data(), static_cast<std::int32_t>(units.size()), buffer, 64, &error);
    return utf8FromUTF16({ buffer, static_cast<std::size_t>(length) });
}

TEST(StringComparison, IsThatOfTheDecomposedCharacters)
{
    auto const names = difficultNames();
    int wrong = 0;
    for (unsigned const options : { 0U, NSCaseInsensitiveSearch, NSNumericSearch, NSCaseInsensitiveSearch | NSNumericSearch }) {
        for (auto const& a : names) {
            for (auto const& b : names)
                wrong += compare(a, b, options) != compare(decomposedByICU(a), decomposedByICU(b), options | NSLiteralSearch);
        }
    }
    EXPECT_EQ(wrong, 0);
}

TEST(StringComparison, IsAnOrder)
{
    auto const names = difficultNames();
    auto const count = names.size();
    for (unsigned const options : { 0U, 1U, 2U, 64U, 65U, 67U }) {
        std::vector<std::vector<int>> order(count, std::vector<int>(count));
        for (std::size_t i = 0; i < count; ++i) {
            for (std::size_t j = 0; j < count; ++j)
                order[i][j] = compare(names[i], names[j], options);
        }
        int wrong = 0;
        for (std::size_t i = 0; i < count; ++i) {
            for (std::size_t j = 0; j < count; ++j) {
                wrong += order[i][j] != -order[j][i];
                for (std::size_t k = 0; k < count; ++k)
                    wrong += order[i][j] <= 0 && order[j][k] <= 0 && order[i][k] > 0;
            }
        }
        EXPECT_EQ(wrong, 0) << options;
    }
}

TEST(Collation, SortsFileNamesAsABrowserDoes)
{
    struct {
        char const* a;
        char const* b;
        int result;
    } const rows[] = {
        { "", "", 0 },
        { "file2", "file10", -1 },
        { "File2", "file2", 0 },
        { "resume", "résumé", -1 },
        { "résumé", "re\u0301sume\u0301", 0 },
        { "a b", "ab", -1 },
        { "a-b", "ab", -1 },
        { "a.b", "a-b", 1 },
        { "ａｂ", "ab", 0 },
        { "file 002", "file 2", 0 },
        { "ß", "ss", 1 },
        { "zebra", "Ärger", 1 },
        { "10", "9", 1 },
        { "b", "a10", 1 },
    };
    for (auto const& row : rows) {
        auto const a = utf16FromUTF8(row.a), b = utf16FromUTF8(row.b);
        EXPECT_EQ(collateFileNames(a, b), row.result) << row.a << " " << row.b;
        EXPECT_EQ(collateFileNames(b, a), -row.result) << row.b << " " << row.a;
    }
    EXPECT_EQ(collateFileNames(u"\xD800", u"\xD800"), NSOrderedSame);
}

TEST(Collation, FollowsTheLocale)
{
    TestSurroundings set;
    EXPECT_EQ(localizedCompare("ä", "z"), NSOrderedAscending);
    set.locale = "sv_SE";
    EXPECT_EQ(localizedCompare("ä", "z"), NSOrderedDescending);
    EXPECT_EQ(localizedCompare("a", "A"), NSOrderedAscending);
    EXPECT_EQ(localizedCaseInsensitiveCompare("a", "A"), NSOrderedSame);
    EXPECT_EQ(localizedCaseInsensitiveCompare("ä", "Z"), NSOrderedDescending);
    set.locale = "no such locale";
    EXPECT_EQ(localizedCompare("ä", "z"), NSOrderedAscending);
}

}
}

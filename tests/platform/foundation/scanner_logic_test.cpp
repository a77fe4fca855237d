#include <plix/platform/base/case_folding.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/foundation/NSScanner.h>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace plix {
namespace {

TEST(CaseFolding, FoldsTheScriptsThatHaveCase)
{
    struct {
        char32_t character;
        char32_t folded;
    } const rows[] = { { U'A', U'a' }, { U'Z', U'z' }, { U'@', U'@' }, { U'[', U'[' }, { U'a', U'a' }, { U'É', U'é' },
        { U'×', U'×' }, { U'Ÿ', U'ÿ' }, { U'Σ', U'σ' }, { U'ς', U'σ' }, { U'Ж', U'ж' }, { U'Ā', U'ā' }, { U'ā', U'ā' },
        { U'\u212A', U'k' }, { U'\u017F', U's' }, { U'Ա', U'ա' }, { U'\u2160', U'\u2170' }, { U'\uFF21', U'\uFF41' },
        { U'\U00010400', U'\U00010428' }, { U'\U0001E921', U'\U0001E943' }, { U'\U0010FFFF', U'\U0010FFFF' }, { U'日', U'日' } };
    for (auto const& row : rows)
        EXPECT_EQ(caseFolded(row.character), row.folded) << static_cast<unsigned>(row.character);
}

TEST(NSCharacterSet, KnowsItsMembers)
{
    auto const set = NSCharacterSet::characterSetWithCharactersInString("aé€😀a");
    for (auto const c : { U'a', U'é', U'€', U'😀' })
        EXPECT_TRUE(set.characterIsMember(c));
    for (auto const c : { U'b', U'\0', U'è', U'😁', U'\U0010FFFF' })
        EXPECT_FALSE(set.characterIsMember(c));
    EXPECT_FALSE(NSCharacterSet().characterIsMember(U'a'));
}

TEST(NSCharacterSet, RangesAreMergedAndInverted)
{
    auto const set
        = NSCharacterSet::characterSetWithRanges({ { 'x', 'z' }, { 'a', 'c' }, { 'd', 'f' }, { 'b', 'b' }, { 'q', 'p' } });
    EXPECT_EQ(set.ranges(), (std::vector<NSCharacterSet::Range> { { 'a', 'f' }, { 'x', 'z' } }));
    auto const inverted = set.invertedSet();
    for (char32_t c = 0; c < 300; ++c)
        EXPECT_NE(set.characterIsMember(c), inverted.characterIsMember(c));
    EXPECT_TRUE(inverted.characterIsMember(0x10FFFF));
    EXPECT_EQ(inverted.invertedSet(), set);
    EXPECT_EQ(NSCharacterSet().invertedSet().invertedSet(), NSCharacterSet());
    EXPECT_EQ(set.setByUniting(inverted), NSCharacterSet().invertedSet());
}

TEST(NSCharacterSet, BlanksAndLineEnds)
{
    for (auto const c : { U' ', U'\t', U'\u00A0', U'\u3000' })
        EXPECT_TRUE(NSCharacterSet::whitespaceCharacterSet().characterIsMember(c));
    for (auto const c : { U'\n', U'\r', U'\u0085', U'\u2028' }) {
        EXPECT_FALSE(NSCharacterSet::whitespaceCharacterSet().characterIsMember(c));
        EXPECT_TRUE(NSCharacterSet::whitespaceAndNewlineCharacterSet().characterIsMember(c));
    }
    EXPECT_FALSE(NSCharacterSet::whitespaceAndNewlineCharacterSet().characterIsMember(U'x'));
}

TEST(NSCharacterSet, FindsAndTrims)
{
    auto const digits = NSCharacterSet::characterSetWithRange('0', '9');
    EXPECT_EQ(findCharacterInSet("né12", digits), 3U);
    EXPECT_EQ(findCharacterInSet("none", digits), 4U);
    EXPECT_EQ(findCharacterNotInSet("12é", digits), 2U);
    EXPECT_EQ(findCharacterInSet("1a2", digits, 1), 2U);
    auto const& blanks = NSCharacterSet::whitespaceAndNewlineCharacterSet();
    EXPECT_EQ(stringByTrimmingCharactersInSet(" \n a b\u00A0\t", blanks), "a b");
    EXPECT_EQ(stringByTrimmingCharactersInSet(" \n ", blanks), "");
    EXPECT_EQ(stringByTrimmingCharactersInSet("x", blanks), "x");
}

TEST(NSScanner, ReadsIntegers)
{
    struct {
        char const* text;
        bool found;
        int value;
        long location;
    } const rows[] = { { "12", true, 12, 2 }, { "  -7x", true, -7, 4 }, { "+3", true, 3, 2 }, { "", false, 99, 0 },
        { "  x", false, 99, 0 }, { "-", false, 99, 0 }, { "2147483648", true, INT_MAX, 10 },
        { "-99999999999999999999", true, INT_MIN, 21 }, { "007", true, 7, 3 }, { "1.5", true, 1, 1 } };
    for (auto const& row : rows) {
        auto const scanner = NSScanner::scannerWithString(row.text);
        int value = 99;
        EXPECT_EQ(scanner->scanInt(value), row.found) << row.text;
        EXPECT_EQ(value, row.value) << row.text;
        EXPECT_EQ(scanner->scanLocation(), row.location) << row.text;
    }
}

TEST(NSScanner, ReadsLongIntegersAndHexadecimal)
{
    std::int64_t wide = 0;
    EXPECT_TRUE(NSScanner::scannerWithString("9223372036854775808")->scanLongLong(wide));
    EXPECT_EQ(wide, INT64_MAX);
    struct {
        char const* text;
        bool found;
        unsigned value;
        long location;
    } const rows[] = { { "0x1F", true, 0x1F, 4 }, { " ffG", true, 0xFF, 3 }, { "0X", true, 0, 1 }, { "0xg", true, 0, 1 },
        { "g", false, 7, 0 }, { "FFFFFFFFFF", true, UINT_MAX, 10 }, { "-1", false, 7, 0 } };
    for (auto const& row : rows) {
        auto const scanner = NSScanner::scannerWithString(row.text);
        unsigned value = 7;
        EXPECT_EQ(scanner->scanHexInt(value), row.found) << row.text;
        EXPECT_EQ(value, row.value) << row.text;
        EXPECT_EQ(scanner->scanLocation(), row.location) << row.text;
    }
}

TEST(NSScanner, ReadsFloatingNumbers)
{
    struct {
        char const* text;
        bool found;
        double value;
        long location;
    } const rows[] = { { "1.5", true, 1.5, 3 }, { " -.25e2x", true, -25, 7 }, { "1e", true, 1, 1 }, { "1e+", true, 1, 1 },
        { "5.", true, 5, 2 }, { ".", false, 9, 0 }, { "-.", false, 9, 0 }, { "e5", false, 9, 0 }, { "1e999", true, HUGE_VAL, 5 },
        { "inf", false, 9, 0 }, { "0x10", true, 0, 1 }, { "+2.5E-1", true, 0.25, 7 } };
    for (auto const& row : rows) {
        auto const scanner = NSScanner::scannerWithString(row.text);
        double value = 9;
        EXPECT_EQ(scanner->scanDouble(value), row.found) << row.text;
        EXPECT_EQ(value, row.value) << row.text;
        EXPECT_EQ(scanner->scanLocation(), row.location) << row.text;
    }
    float narrow = 0;
    EXPECT_TRUE(NSScanner::scannerWithString("-1e60")->scanFloat(narrow));
    EXPECT_EQ(narrow, -HUGE_VALF);
    EXPECT_TRUE(NSScanner::scannerWithString("0.5")->scanFloat(narrow));
    EXPECT_EQ(narrow, 0.5F);
}

TEST(NSScanner, TakesAnotherDecimalSeparator)
{
    auto const scanner = NSScanner::scannerWithString("1,25 2.5");
    scanner->setDecimalSeparator(",");
    double value = 0;
    EXPECT_TRUE(scanner->scanDouble(value));
    EXPECT_EQ(value, 1.25);
    EXPECT_TRUE(scanner->scanDouble(value));
    EXPECT_EQ(value, 2);
    EXPECT_EQ(scanner->scanLocation(), 6);
}

TEST(NSScanner, ReadsStrings)
{
    auto const scanner = NSScanner::scannerWithString(" Prefix: VALUE é; rest");
    std::string value;
    EXPECT_FALSE(scanner->scanString("value"));
    EXPECT_EQ(scanner->scanLocation(), 0);
    EXPECT_TRUE(scanner->scanString("PREFIX:", value));
    EXPECT_EQ(value, "Prefix:");
    EXPECT_TRUE(scanner->scanUpToString("É", value));
    EXPECT_EQ(value, "VALUE ");
    scanner->setCaseSensitive(true);
    EXPECT_FALSE(scanner->scanString("É"));
    EXPECT_TRUE(scanner->scanString("é"));
    EXPECT_TRUE(scanner->scanUpToString("nothing of this", value));
    EXPECT_EQ(value, "; rest");
    EXPECT_TRUE(scanner->isAtEnd());
    EXPECT_FALSE(scanner->scanUpToString("x"));
    EXPECT_FALSE(scanner->scanString(""));
}

TEST(NSScanner, ReadsCharactersOfSets)
{
    auto const letters = NSCharacterSet::characterSetWithRange('a', 'z');
    auto const scanner = NSScanner::scannerWithString("  abc123");
    std::string value = "kept";
    EXPECT_FALSE(scanner->scanUpToCharactersFromSet(letters, value));
    EXPECT_EQ(value, "kept");
    EXPECT_EQ(scanner->scanLocation(), 0);
    EXPECT_TRUE(scanner->scanCharactersFromSet(letters, value));
    EXPECT_EQ(value, "abc");
    EXPECT_FALSE(scanner->scanCharactersFromSet(letters));
    EXPECT_TRUE(scanner->scanUpToCharactersFromSet(letters));
    EXPECT_EQ(scanner->scanLocation(), 8);
}

TEST(NSScanner, SkipsWhatItIsToldToSkip)
{
    auto const scanner = NSScanner::scannerWithString("--5 6");
    scanner->setCharactersToBeSkipped(NSCharacterSet::characterSetWithCharactersInString("-"));
    int value = 0;
    EXPECT_TRUE(scanner->scanInt(value));
    EXPECT_EQ(value, 5);
    EXPECT_FALSE(scanner->scanInt(value));
    scanner->setCharactersToBeSkipped({});
    EXPECT_TRUE(scanner->scanString(" 6"));
}

TEST(NSScanner, LocationsCountUnits)
{
    auto const scanner = NSScanner::scannerWithString("é😀x");
    scanner->setScanLocation(3);
    EXPECT_TRUE(scanner->scanString("x"));
    EXPECT_EQ(scanner->scanLocation(), 4);
    EXPECT_THROW(scanner->setScanLocation(5), NSRangeException);
    EXPECT_THROW(scanner->setScanLocation(-1), NSRangeException);
    EXPECT_EQ(scanner->scanLocation(), 4);
    scanner->setScanLocation(4);
    EXPECT_TRUE(scanner->isAtEnd());
}

}
}

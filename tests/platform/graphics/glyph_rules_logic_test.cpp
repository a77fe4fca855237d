#include <plix/platform/graphics/glyph_rules.h>

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace plix {
namespace {

/// A table with one lookup, written by hand in 16-bit words.
struct Table {
    std::vector<unsigned> words { 1, 0, 0, 0, 10, 1, 4 };

    /// The lookup's type and flags, and one subtable.
    Table(unsigned type, unsigned flags, std::vector<unsigned> const& subtable)
    {
        words.insert(words.end(), { type, flags, 1, 8 });
        words.insert(words.end(), subtable.begin(), subtable.end());
    }
    std::vector<std::uint8_t> bytes() const
    {
        std::vector<std::uint8_t> bytes;
        for (unsigned const word : words) {
            bytes.push_back(static_cast<std::uint8_t>(word >> 8));
            bytes.push_back(static_cast<std::uint8_t>(word & 0xFF));
        }
        return bytes;
    }
};

// Slots 0 to 4 hold these glyphs.
constexpr std::uint32_t glyphs[] { 10, 11, 12, 13, 14 };

GlyphRules rulesOf(Table const& table, bool isSubstitution = true)
{
    auto const bytes = table.bytes();
    unsigned const lookups[] { 0 };
    if (isSubstitution)
        return readGlyphRules(bytes, lookups, {}, {}, glyphs);
    return readGlyphRules({}, {}, bytes, lookups, glyphs);
}

std::string pairsOf(GlyphRules const& rules)
{
    std::string text;
    for (std::size_t first = 0; first < 5; ++first) {
        for (std::size_t second = 0; second < 5; ++second) {
            if (rules.mayChange(first, second))
                text += std::to_string(first) + std::to_string(second) + " ";
        }
    }
    return text;
}

TEST(GlyphRules, OfNoTablesAreEmpty)
{
    auto const rules = readGlyphRules({}, {}, {}, {}, glyphs);
    EXPECT_TRUE(rules.alone.none());
    EXPECT_EQ(pairsOf(rules), "");
}

TEST(GlyphRules, ASingleSubstitutionMayApplyAnywhere)
{
    auto const rules = rulesOf({ 1, 0, { 1, 6, 5, 1, 2, 11, 99 } });
    EXPECT_EQ(rules.alone.to_ulong(), 0b10U);
    EXPECT_EQ(pairsOf(rules), "");
}

TEST(GlyphRules, ALigatureMayApplyWhereItsGlyphsMeet)
{
    // 10 followed by 11, and 10 followed by a glyph that is not there.
    auto const rules = rulesOf({ 4, 0, { 1, 8, 1, 14, 1, 1, 10, 2, 6, 12, 50, 2, 11, 51, 2, 99 } });
    EXPECT_TRUE(rules.alone.none());
    EXPECT_EQ(pairsOf(rules), "01 ");
}

// Backtrack 10 or 11, input 12, lookahead 13, one action or none.
Table chainRule(unsigned flags, unsigned lookahead, unsigned actions)
{
    return { 6, flags, { 3, 1, 22, 1, 30, 1, 36, actions, 0, 0, 0, 1, 2, 10, 11, 1, 1, 12, 1, 1, lookahead } };
}

TEST(GlyphRules, AContextAppliesWhereItsRarestNeighboursMeet)
{
    EXPECT_EQ(pairsOf(rulesOf(chainRule(0, 13, 1))), "23 ");
    EXPECT_EQ(rulesOf(chainRule(0, 13, 1)).liveSubstitutions, std::vector<unsigned> { 0 });
    EXPECT_TRUE(rulesOf(chainRule(0, 13, 1)).alone.none());
}

TEST(GlyphRules, AContextNeedsAllItsGlyphsInOrder)
{
    auto const rules = rulesOf(chainRule(0, 13, 1));
    struct Row {
        std::vector<int> text;
        bool mayApply;
    };
    Row const rows[] {
        { { 0, 2, 3 }, true },
        { { 4, 1, 2, 3, 4 }, true },
        { { 2, 3 }, false },
        { { 4, 2, 3 }, false },
        { { 0, 2 }, false },
        { { 0, 2, 4, 3 }, false },
        { {}, false },
    };
    for (auto const& row : rows)
        EXPECT_EQ(rules.mayApply(row.text), row.mayApply) << row.text.size();
}

TEST(GlyphRules, AContextThatNeedsAGlyphThatIsNotThereNeverApplies)
{
    EXPECT_EQ(pairsOf(rulesOf(chainRule(0, 99, 1))), "");
    EXPECT_TRUE(rulesOf(chainRule(0, 99, 1)).alone.none());
    EXPECT_TRUE(rulesOf(chainRule(0, 99, 1)).liveSubstitutions.empty());
}

TEST(GlyphRules, AContextWithoutActionsChangesNothing)
{
    EXPECT_EQ(pairsOf(rulesOf(chainRule(0, 13, 0))), "");
}

TEST(GlyphRules, ARuleThatSkipsGlyphsMayApplyAcrossThem)
{
    constexpr unsigned ignoresBaseGlyphs = 2;
    auto const rules = rulesOf(chainRule(ignoresBaseGlyphs, 13, 1));
    EXPECT_EQ(rules.alone.count(), 1U);
    EXPECT_TRUE(rules.alone[2] || rules.alone[3]);
}

TEST(GlyphRules, KerningOfTheFirstGlyphAloneIsNoRule)
{
    // Value formats 4 and 0, then 4 and 4.
    EXPECT_TRUE(rulesOf({ 2, 0, { 1, 10, 4, 0, 0, 1, 1, 10 } }, false).alone.none());
    EXPECT_EQ(rulesOf({ 2, 0, { 1, 10, 4, 4, 0, 1, 1, 10 } }, false).alone.to_ulong(), 1U);
}

TEST(GlyphRules, DamagedTablesAreGivenUp)
{
    auto const whole = chainRule(0, 13, 1).bytes();
    unsigned const lookups[] { 0 };
    for (std::size_t length = 1; length + 1 < whole.size(); length += 2) {
        auto const rules = readGlyphRules(std::span(whole).first(length), lookups, {}, {}, glyphs);
        EXPECT_TRUE(rules.alone.all()) << length;
    }
    unsigned const missing[] { 7 };
    EXPECT_TRUE(readGlyphRules(whole, missing, {}, {}, glyphs).alone.all());
    EXPECT_TRUE(rulesOf({ 33, 0, { 1, 2, 3 } }).alone.all());
}

}
}

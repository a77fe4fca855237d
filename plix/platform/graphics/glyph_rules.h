#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace plix {

/// What a font's OpenType rules can do to text made of a small set of glyphs only: found by reading the rules, not by trying.
/// Glyphs are named by their slots in that set.
struct GlyphRules {
    static constexpr std::size_t slotCount = 256;
    using Slots = std::bitset<slotCount>;

    /// Where the glyph stands, a rule may apply whatever its neighbours are.
    Slots alone;
    /// Where the second glyph follows the first, a rule may apply. Neighbours that are not here, of glyphs that are not in `alone`,
    /// are set by their own advances and the kerning of each two neighbours.
    std::vector<Slots> pairs;
    /// Neighbouring glyphs that a rule needs; the two from `key` on are in `pairs`.
    struct Rule {
        std::vector<Slots> pattern;
        std::size_t key;
    };
    std::vector<Rule> rules;
    /// The lookups that have such rules, in order. All others leave text of these glyphs alone, and what comes before the first of
    /// these never sees another glyph.
    std::vector<unsigned> liveSubstitutions;
    std::vector<unsigned> livePositionings;

    GlyphRules()
        : pairs(slotCount)
    {
    }
    bool mayChange(std::size_t first, std::size_t second) const { return pairs[first][second]; }
    /// Looks closer: whether some rule finds all of its glyphs in the text, which is given as slots.
    bool mayApply(std::span<int const> text) const;
    /// Nothing can be said: every glyph may change anywhere.
    void giveUp() { alone.set(); }
};

/// OpenType 1.9, chapters GSUB, GPOS and "Common table formats". `substitution` and `positioning` are the font's tables, empty
/// where there is none; the lookups are those that shaping plain text uses; glyphs[slot] is the glyph in each slot. Damaged tables
/// make it give up.
GlyphRules readGlyphRules(std::span<std::uint8_t const> substitution, std::span<unsigned const> substitutionLookups,
    std::span<std::uint8_t const> positioning, std::span<unsigned const> positioningLookups, std::span<std::uint32_t const> glyphs);

}

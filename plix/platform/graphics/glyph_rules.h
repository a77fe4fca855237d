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

    GlyphRules()
        : pairs(slotCount)
    {
    }
    bool mayChange(std::size_t first, std::size_t second) const { return pairs[first][second]; }
    /// Nothing can be said: every glyph may change anywhere.
    void giveUp() { alone.set(); }
};

/// OpenType 1.9, chapters GSUB, GPOS and "Common table formats". `substitution` and `positioning` are the font's tables, empty
/// where there is none; the lookups are those that shaping plain text uses; glyphs[slot] is the glyph in each slot. Damaged tables
/// make it give up.
GlyphRules readGlyphRules(std::span<std::uint8_t const> substitution, std::span<unsigned const> substitutionLookups,
    std::span<std::uint8_t const> positioning, std::span<unsigned const> positioningLookups, std::span<std::uint32_t const> glyphs);

}

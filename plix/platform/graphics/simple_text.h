#pragma once

#include <plix/platform/graphics/glyph_rules.h>

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

// Private to plix/platform/graphics.

namespace plix {

class FontFace;

/// The characters that text can be set in by tables: ASCII, Latin-1 and the usual punctuation, as slots 0 to slotCount - 1.
namespace simple_characters {

inline constexpr int slotCount = 95 + 95 + 14;
inline constexpr int none = -1;

char32_t characterOfSlot(int slot);
bool isLetter(int slot);

int slotBeyondASCII(char const*& cursor, char const* end);
/// The slot of the character at the cursor, which moves behind it; `none` where it has none, or is no UTF-8.
inline int nextSlot(char const*& cursor, char const* end)
{
    auto const byte = static_cast<unsigned char>(*cursor);
    if (byte >= 0x20 && byte < 0x7F) {
        ++cursor;
        return byte - 0x20;
    }
    return slotBeyondASCII(cursor, end);
}

}

/// What the rules of a typeface do to simple characters, whatever the size.
struct SimpleTextRules {
    GlyphRules glyphs;
    std::vector<std::uint32_t> idleFeatures;
    /// The font shapes text without letters by other rules.
    bool needsLetter { false };
};

/// One font's tables for setting simple text without shaping it: left to right, of characters that the font has, where no rule of
/// the font can apply but the kerning of two neighbours, which is learned from shaped text. What it gives is what shaping gives.
/// Advances are whole points, as they are everywhere.
class SimpleTextTable {
public:
    SimpleTextTable();
    ~SimpleTextTable();

    /// Calls visit(glyph, x) for each character and gives the advance; false, after any number of calls, where the text is not
    /// simple or not all of its pairs are known yet.
    template <typename Visit> bool set(std::string_view text, int& advance, Visit const& visit) const
    {
        char const* cursor = text.data();
        char const* const end = cursor + text.size();
        int x = 0;
        int previous = simple_characters::none;
        bool hasLetter = !m_needsLetter;
        bool isChecked = false;
        while (cursor != end) {
            int const slot = simple_characters::nextSlot(cursor, end);
            if (slot == simple_characters::none)
                return false;
            if (previous != simple_characters::none) {
                auto const* row = m_pairs[static_cast<std::size_t>(previous)].get();
                int step = row ? row[slot] : unknown;
                if (step < 0) {
                    if (step == unknown || (!isChecked && mayRuleApply(text)))
                        return false;
                    isChecked = true;
                    step = -1 - step;
                }
                x += step;
            }
            hasLetter = hasLetter || simple_characters::isLetter(slot);
            visit(m_glyphs[static_cast<std::size_t>(slot)], x);
            previous = slot;
        }
        if (previous != simple_characters::none) {
            int const last = m_advances[static_cast<std::size_t>(previous)];
            if (last == unknown || !hasLetter)
                return false;
            x += last;
        }
        advance = x;
        return true;
    }

    /// Of a character of a text that could be set: its advance without a neighbour behind it.
    int advanceAlone(int slot) const { return m_advances[static_cast<std::size_t>(slot)]; }

    /// Whether the text may go through HarfBuzz as one piece in this font: only simple characters, all of them in the font.
    bool covers(FontFace&, std::string_view text);
    /// Learns from a text that covers() and that has been shaped: one glyph a character, or nothing can be learned.
    struct ShapedGlyph {
        std::uint32_t glyph;
        int advance;
        bool isOffset;
    };
    void learn(FontFace&, std::string_view text, std::span<ShapedGlyph const> glyphs);

    /// The font's features that do nothing to text which it covers(), as tags; shaping is faster without them.
    std::span<std::uint32_t const> idleFeatures() const;

private:
    static constexpr std::int16_t unknown = INT16_MIN;

    bool mayRuleApply(std::string_view text) const;
    void readGlyphs(FontFace&);
    void readRules(FontFace&);
    void enterPair(std::size_t first, std::size_t second, int advance);

    std::array<std::uint32_t, simple_characters::slotCount> m_glyphs {};
    std::array<std::int16_t, simple_characters::slotCount> m_advances;
    /// The first character's advance before the second. Where a rule may apply to the two, depending on what stands around them,
    /// -1 minus that.
    std::array<std::unique_ptr<std::int16_t[]>, simple_characters::slotCount> m_pairs;
    std::shared_ptr<SimpleTextRules const> m_rules;
    bool m_hasGlyphs { false };
    bool m_needsLetter { false };
    int m_shapedTexts { 0 };
};

}

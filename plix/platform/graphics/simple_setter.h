#pragma once

#include <plix/platform/graphics/truncation.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Private to plix/platform/graphics.

namespace plix {

class FontFace;
struct ParagraphText;
struct SetParagraph;

/// Sets a paragraph of simple text in one font without Pango, with the result that Pango would give; false, with nothing done,
/// where the text is not that simple.
bool setSimply(ParagraphText const&, float width, SetParagraph&);

/// One glyph a character, set from the font's tables or shaped.
struct SimpleGlyphs {
    std::vector<std::uint32_t> glyphs;
    std::vector<std::int32_t> lefts; ///< whole points
    int advance { 0 };
    bool isFromTable { false };
};
/// The text with an ellipsis in it so that it fits, for one of the truncating modes, and what is left of it; false where it is not
/// simple. `whole` is the text, shaped.
bool truncateSimply(
    FontFace&, std::string_view text, SimpleGlyphs const& whole, float width, NSLineBreakMode, std::string& shown, Truncation&);

/// False where the text is not of simple characters that the font has, or shaping does not give one glyph a character.
bool shapeSimply(FontFace&, std::string_view text, SimpleGlyphs&);
/// The same from the font's tables only.
bool shapeFromTable(FontFace&, std::string_view text, SimpleGlyphs&);

}

#pragma once

#include <plix/platform/graphics/text_placement.h>

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

// Private to plix/platform/graphics: text that has been shaped and broken into lines. Lengths are points.

namespace plix {

class GlyphFont;

struct SetGlyph {
    /// Of a character that no font has: its width in whole points is kept instead.
    static constexpr std::uint32_t isUnknown = 0x10000000;

    std::uint32_t glyph;
    float x; ///< from the line's left end
    float y; ///< below the baseline
};

/// Some characters that stand together: bytes of the paragraph's text, and where they stand from the line's left end.
struct SetCluster {
    std::uint32_t byte;
    std::uint32_t length;
    float left;
    float width;
};

/// Glyphs of one font and style. Clusters are in the order in which they are seen, from left to right.
struct SetRun {
    enum class Kind : std::uint8_t { glyphs, attachment };

    std::shared_ptr<GlyphFont> font;
    std::uint32_t firstGlyph { 0 };
    std::uint32_t glyphCount { 0 };
    std::uint32_t firstCluster { 0 };
    std::uint32_t clusterCount { 0 };
    std::uint32_t style { 0 }; ///< the span that the run comes from
    float left { 0 };
    float width { 0 };
    float ascent { 0 };
    float descent { 0 };
    float leading { 0 };
    float raise { 0 }; ///< upwards
    Kind kind { Kind::glyphs };
    bool isRightToLeft { false };
};

struct SetLine {
    std::uint32_t firstByte { 0 }; ///< in the paragraph
    std::uint32_t endByte { 0 }; ///< the characters at which it was broken included
    std::uint32_t firstRun { 0 };
    std::uint32_t runCount { 0 };
    float width { 0 };
    float ascent { 0 };
    float descent { 0 };
    float leading { 0 };
    bool isRightToLeft { false }; ///< the paragraph's direction
};

/// A paragraph in lines. The line end that closes it is in no line.
struct SetParagraph {
    std::vector<SetGlyph> glyphs;
    std::vector<SetCluster> clusters;
    std::vector<SetRun> runs;
    std::vector<SetLine> lines;

    std::size_t memory() const;
};

std::vector<LineMeasures> measuresOf(SetParagraph const&);

/// A place in a line between characters of a paragraph, in bytes.
struct BytePosition {
    std::uint32_t byte { 0 }; ///< where the character at the point starts
    std::uint32_t insertion { 0 }; ///< which of its ends is nearer
    bool isTrailing { false };
    bool isInside { false };
};

// x is from the line's left end. `text` is the paragraph's.
BytePosition positionInLine(SetParagraph const&, SetLine const&, std::string_view text, float x);
/// Where the caret stands before the character at the byte; at the line's end behind its last.
float caretInLine(SetParagraph const&, SetLine const&, std::string_view text, std::uint32_t byte);

struct Extent {
    float left { 0 };
    float right { 0 };
    friend bool operator==(Extent const&, Extent const&) = default;
};
/// The parts of the line that the bytes cover, from left to right; parts that touch are one.
std::vector<Extent> extentsInLine(
    SetParagraph const&, SetLine const&, std::string_view text, std::uint32_t firstByte, std::uint32_t endByte);
/// The next byte at which the caret stands further left (-1) or right (1) in the line; false at its end.
bool moveCaretInLine(SetParagraph const&, SetLine const&, std::string_view text, int direction, std::uint32_t& byte);

}

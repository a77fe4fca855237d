#pragma once

#include <plix/platform/graphics/geometry.h>
#include <plix/platform/graphics/paragraph_layout.h>

#include <vector>

namespace plix {

/// What the placing of a line needs to know of it, in points.
struct LineMeasures {
    float width { 0 };
    float ascent { 0 };
    float descent { 0 };
    float leading { 0 };
    bool isRightToLeft { false }; ///< the paragraph's direction
};

/// y grows downwards.
struct LinePlace {
    Rect fragment; ///< from margin to margin, as high as the line
    float left { 0 }; ///< where the line's left end stands
    float width { 0 };
    float baseline { 0 };
};

/// The area that lines are placed in.
struct LineArea {
    float width { 0 };
    float padding { 0 };
    bool isUnlimited { false }; ///< as wide as the widest line: nothing is moved to a margin that is not there
};

struct ParagraphPlace {
    float top { 0 };
    bool isFirst { true };
    bool isLast { true };
};

/// How long a line may be: what the paragraph's indents leave of the area. Never below 0.
float lineWidthInArea(ParagraphLayout const&, LineArea const&);
/// Stacks the lines of a paragraph from its top downwards and gives the y below them. Heights are whole points where the measures
/// are.
float placeLines(
    std::vector<LineMeasures> const&, ParagraphLayout const&, LineArea const&, ParagraphPlace, std::vector<LinePlace>& places);

}

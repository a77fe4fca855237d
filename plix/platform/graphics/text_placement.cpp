#include <plix/platform/graphics/text_placement.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

struct LineHeight {
    float height;
    float above; ///< of it, added above the line's own ascent
};

LineHeight heightOf(LineMeasures const& line, ParagraphLayout const& layout)
{
    float const natural = line.ascent + line.descent + line.leading;
    float height = natural;
    if (layout.lineHeightMultiple > 0)
        height = std::round(height * layout.lineHeightMultiple);
    height = std::max(height, layout.minimumLineHeight);
    if (layout.maximumLineHeight > 0)
        height = std::min(height, layout.maximumLineHeight);
    return { height, height - natural };
}

/// What stands free before the lines' leading end.
float leadingIndent(ParagraphLayout const& layout, bool isFirstLine)
{
    return isFirstLine ? layout.firstLineHeadIndent : layout.headIndent;
}

float leftOf(LineMeasures const& line, ParagraphLayout const& layout, LineArea const& area, bool isFirstLine)
{
    float const indent = leadingIndent(layout, isFirstLine);
    float const tail
        = layout.tailIndent > 0 ? std::max(0.0F, area.width - 2 * area.padding - layout.tailIndent) : -layout.tailIndent;
    float first = area.padding + (line.isRightToLeft ? tail : indent);
    float last = area.width - area.padding - (line.isRightToLeft ? indent : tail) - line.width;
    if (area.isUnlimited)
        first = last = area.padding + (line.isRightToLeft ? 0 : indent);
    bool const isRight = layout.alignment == NSRightTextAlignment
        || ((layout.alignment == NSNaturalTextAlignment || layout.alignment == NSJustifiedTextAlignment) && line.isRightToLeft);
    if (isRight)
        return last;
    if (layout.alignment == NSCenterTextAlignment)
        return (first + last) * 0.5F;
    return first;
}

}

float lineWidthInArea(ParagraphLayout const& layout, LineArea const& area)
{
    float const inside = area.width - 2 * area.padding;
    float const end = layout.tailIndent > 0 ? layout.tailIndent : inside + layout.tailIndent;
    return std::max(0.0F, end - std::min(layout.headIndent, layout.firstLineHeadIndent));
}

float placeLines(std::vector<LineMeasures> const& lines, ParagraphLayout const& layout, LineArea const& area, ParagraphPlace place,
    std::vector<LinePlace>& places)
{
    float y = place.top + (place.isFirst ? 0 : layout.paragraphSpacingBefore);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        auto const& line = lines[i];
        auto const [height, above] = heightOf(line, layout);
        LinePlace placed;
        placed.fragment = { 0, y, area.width, height };
        placed.left = leftOf(line, layout, area, i == 0);
        placed.width = line.width;
        placed.baseline = y + above + line.ascent;
        places.push_back(placed);
        y += height + (i + 1 < lines.size() ? layout.lineSpacing : 0);
    }
    return y + (place.isLast ? 0 : layout.paragraphSpacing);
}

}

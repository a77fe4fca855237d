#include <plix/controls/image_view_plan.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr float strokeWidth = 3.0F;
constexpr float borderInset = 2.0F;
constexpr float largestRadius = 16.0F;
/// A side this long has no visible dashes any more; keeps broken sizes from making gaps without end.
constexpr std::size_t mostGaps = 10000;

float truncated(double value)
{
    return static_cast<float>(std::trunc(value));
}

float shrinkFactor(float image, float room)
{
    return image > room ? room / image : 1.0F;
}

/// Copies of the middle gap, one dash apart, until one reaches into the corners.
template <typename Shift>
void addGapsOutwards(std::vector<Rect>& gaps, Rect middle, float Rect::*start, float step, float cornerRadius, Shift shift)
{
    gaps.push_back(middle);
    Rect before = middle;
    Rect after = middle;
    while (step > 0 && before.*start > 2 * cornerRadius && gaps.size() < mostGaps) {
        before = shift(before, -step);
        after = shift(after, step);
        gaps.push_back(before);
        gaps.push_back(after);
    }
}

}

Rect imagePlacement(Size image, Rect room)
{
    float const scale = std::min(shrinkFactor(image.width, room.width), shrinkFactor(image.height, room.height));
    Size const drawn = scale < 1.0F ? Size { image.width * scale, image.height * scale } : image;
    return { truncated((static_cast<double>(room.width) - static_cast<double>(drawn.width)) * 0.5),
        truncated((static_cast<double>(room.height) - static_cast<double>(drawn.height)) * 0.5), drawn.width, drawn.height };
}

DashedBorder dashedBorder(Size frame, Rect bounds)
{
    DashedBorder border;
    border.path = NSInsetRect(bounds, borderInset, borderInset);
    border.cornerRadius = std::min(truncated(static_cast<double>(std::min(frame.width, frame.height)) * 0.125), largestRadius);
    float const radius = border.cornerRadius;
    float const period = radius + 2 * strokeWidth;
    float const width = bounds.width;
    float const height = bounds.height;

    float const restAcross = std::fmod(width * 0.5F - radius - strokeWidth, period);
    float const halfAcross = restAcross * 0.5F + strokeWidth;
    Rect const column { truncated(static_cast<double>(width) * 0.5) - halfAcross, 0, 2 * halfAcross, height };
    addGapsOutwards(
        border.gaps, column, &Rect::x, radius + column.width, radius, [](Rect gap, float by) { return NSOffsetRect(gap, by, 0); });

    // Unlike the other pass this one shares the rest among the dashes, which is meant.
    float const lengthUp = height * 0.5F - radius - strokeWidth;
    float const dashesUp = truncated(static_cast<double>(lengthUp / period));
    if (dashesUp == 0)
        return border;
    float const halfUp = std::fmod(lengthUp, period) / dashesUp * 0.5F + strokeWidth;
    Rect const row { 0, truncated(static_cast<double>(height) * 0.5) - halfUp, width, 2 * halfUp };
    addGapsOutwards(
        border.gaps, row, &Rect::y, radius + row.height, radius, [](Rect gap, float by) { return NSOffsetRect(gap, 0, by); });
    return border;
}

}

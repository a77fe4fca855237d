#include <plix/platform/appkit/scroll_layout.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

float nearestIn(float value, float lower, float upper)
{
    // Written so that a value that is no number becomes the lower end.
    return value > lower ? std::min(value, std::max(lower, upper)) : lower;
}

struct ShownScrollers {
    bool vertical { false };
    bool horizontal { false };
};

// A scroller takes room from the other direction, which may then need its own.
ShownScrollers shownScrollers(ScrollViewShape const& shape, Size room)
{
    if (!shape.autohidesScrollers)
        return { shape.hasVerticalScroller, shape.hasHorizontalScroller };
    ShownScrollers shown;
    for (int pass = 0; pass < 2; ++pass) {
        float const height = room.height - shape.headerHeight - (shown.horizontal ? shape.scrollerWidth : 0);
        shown.vertical = shape.hasVerticalScroller && shape.documentSize.height > height;
        float const width = room.width - (shown.vertical ? shape.scrollerWidth : 0);
        shown.horizontal = shape.hasHorizontalScroller && shape.documentSize.width > width;
    }
    return shown;
}

}

float borderThickness(NSBorderType border)
{
    switch (border) {
    case NSNoBorder:
        return 0;
    case NSLineBorder:
    case NSBezelBorder:
        return 1;
    case NSGrooveBorder:
        return 2;
    }
    return 0;
}

ScrollViewLayout scrollViewLayout(ScrollViewShape const& shape)
{
    ScrollViewLayout layout;
    float const border = borderThickness(shape.border);
    Rect inner = NSInsetRect(shape.bounds, border, border);
    inner.width = std::max(0.F, inner.width);
    inner.height = std::max(0.F, inner.height);

    auto const shown = shownScrollers(shape, inner.size());
    layout.showsVerticalScroller = shown.vertical;
    layout.showsHorizontalScroller = shown.horizontal;
    float const right = shown.vertical ? std::min(shape.scrollerWidth, inner.width) : 0;
    float const bottom = shown.horizontal ? std::min(shape.scrollerWidth, inner.height) : 0;
    float const top = std::min(shape.headerHeight, inner.height - bottom);

    layout.content = { inner.x, inner.y + top, inner.width - right, inner.height - top - bottom };
    if (top > 0)
        layout.header = { inner.x, inner.y, inner.width - right, top };
    // Without a corner view the scroller reaches up beside the header.
    bool const hasCorner = shape.hasCornerView && top > 0 && right > 0;
    if (hasCorner)
        layout.cornerView = { inner.maxX() - right, inner.y, right, top };
    if (right > 0) {
        float const above = hasCorner ? top : 0;
        layout.verticalScroller = { inner.maxX() - right, inner.y + above, right, inner.height - above - bottom };
    }
    if (bottom > 0)
        layout.horizontalScroller = { inner.x, inner.maxY() - bottom, inner.width - right, bottom };
    if (right > 0 && bottom > 0)
        layout.scrollerCorner = { inner.maxX() - right, inner.maxY() - bottom, right, bottom };
    return layout;
}

Point constrainedScrollPoint(Point proposed, Rect documentRect, Size clipSize)
{
    return { nearestIn(proposed.x, documentRect.x, documentRect.maxX() - clipSize.width),
        nearestIn(proposed.y, documentRect.y, documentRect.maxY() - clipSize.height) };
}

Point pixelAlignedPoint(Point point, float backingScale)
{
    return { std::round(point.x * backingScale) / backingScale, std::round(point.y * backingScale) / backingScale };
}

static float startShowing(float start, float length, float visibleStart, float visibleLength)
{
    float const end = start + length;
    float const visibleEnd = visibleStart + visibleLength;
    if ((start >= visibleStart && end <= visibleEnd) || (start <= visibleStart && end >= visibleEnd))
        return visibleStart;
    bool const showsStart = (start < visibleStart) == (length <= visibleLength);
    return showsStart ? start : end - visibleLength;
}

Point scrollPointShowing(Rect rect, Rect visible)
{
    return { startShowing(rect.x, rect.width, visible.x, visible.width),
        startShowing(rect.y, rect.height, visible.y, visible.height) };
}

std::vector<Rect> exposedStrips(Rect before, Rect now)
{
    Rect const kept = NSIntersectionRect(before, now);
    if (kept.isEmpty())
        return { now };
    std::vector<Rect> strips;
    for (Rect strip : { Rect { now.x, now.y, now.width, kept.y - now.y },
             Rect { now.x, kept.maxY(), now.width, now.maxY() - kept.maxY() }, Rect { now.x, kept.y, kept.x - now.x, kept.height },
             Rect { kept.maxX(), kept.y, now.maxX() - kept.maxX(), kept.height } }) {
        if (!strip.isEmpty())
            strips.push_back(strip);
    }
    return strips;
}

ScrollerReading scrollerReading(
    double documentStart, double documentLength, double visibleStart, double visibleLength, ScrollDirection direction)
{
    double const hidden = documentLength - visibleLength;
    if (!(hidden > 0))
        return {};
    float const share = nearestIn(static_cast<float>((visibleStart - documentStart) / hidden), 0, 1);
    float const proportion = static_cast<float>(visibleLength / documentLength);
    return { direction == ScrollDirection::fromStart ? share : 1 - share, proportion, true };
}

double clipStartForScrollerValue(
    double documentStart, double documentLength, double visibleLength, float value, ScrollDirection direction)
{
    double const hidden = std::max(0.0, documentLength - visibleLength);
    auto const share = static_cast<double>(nearestIn(value, 0, 1));
    return documentStart + hidden * (direction == ScrollDirection::fromStart ? share : 1 - share);
}

float pageScrollDistance(float visibleLength, float overlap)
{
    return std::max(visibleLength - overlap, visibleLength * 0.5F);
}

Size autoscrollDistance(Point point, Rect visible)
{
    return { point.x - nearestIn(point.x, visible.x, visible.maxX()), point.y - nearestIn(point.y, visible.y, visible.maxY()) };
}

}

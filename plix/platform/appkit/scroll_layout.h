#pragma once

#include <plix/platform/appkit/border_type.h>
#include <plix/platform/graphics/geometry.h>

#include <vector>

namespace plix {

/// How thick a border is on each side, in points.
float borderThickness(NSBorderType);

/// What a scroll view has to place. The bounds' y grows downwards.
struct ScrollViewShape {
    Rect bounds;
    NSBorderType border { NSNoBorder };
    float scrollerWidth { 15 };
    bool hasVerticalScroller { false };
    bool hasHorizontalScroller { false };
    /// A scroller is taken out while the document fits in its direction.
    bool autohidesScrollers { false };
    Size documentSize;
    /// The height of a header above the content; 0 for none.
    float headerHeight { 0 };
    /// A view in the corner right of the header, above the vertical scroller.
    bool hasCornerView { false };
};

/// Where the parts go, in the scroll view's bounds. What is not shown is a zero rectangle.
struct ScrollViewLayout {
    Rect content;
    Rect verticalScroller;
    Rect horizontalScroller;
    Rect header;
    Rect cornerView;
    /// The square where both scrollers meet.
    Rect scrollerCorner;
    bool showsVerticalScroller { false };
    bool showsHorizontalScroller { false };
};

ScrollViewLayout scrollViewLayout(ScrollViewShape const&);

/// Where a clip of this size may stand over the document nearest to the proposed point: no further than the document reaches, and
/// at its origin in a direction in which it fits. A coordinate that is not a number counts as the origin's.
Point constrainedScrollPoint(Point proposed, Rect documentRect, Size clipSize);
/// The nearest point on whole device pixels.
Point pixelAlignedPoint(Point, float backingScale);

/// The nearest place for what is visible from which the rectangle is seen; where it is larger than that, as much as fits, and no
/// move while it fills all that is visible.
Point scrollPointShowing(Rect rect, Rect visible);

/// The strips of `now` that `before` did not cover, for a clip that moved: one at each side that came into view.
std::vector<Rect> exposedStrips(Rect before, Rect now);

struct ScrollerReading {
    float value { 0 };
    float knobProportion { 1 };
    /// False where the whole is seen: nothing to scroll.
    bool isScrollable { false };
    friend bool operator==(ScrollerReading, ScrollerReading) = default;
};
enum class ScrollDirection { fromStart, fromEnd };
/// What a scroller shows for a clip that starts at `visibleStart` and is `visibleLength` long, over a document. From the end: in an
/// unflipped document the scroller's top is the document's end.
ScrollerReading scrollerReading(
    double documentStart, double documentLength, double visibleStart, double visibleLength, ScrollDirection);
/// The way back: where the clip starts for a scroller's value.
double clipStartForScrollerValue(double documentStart, double documentLength, double visibleLength, float value, ScrollDirection);

/// How far a page goes: what is seen, less the overlap that stays in view, but never less than half of what is seen.
float pageScrollDistance(float visibleLength, float overlap);

/// How far to scroll so that a point outside comes into view, by the distance that it lies outside; {0, 0} inside.
Size autoscrollDistance(Point, Rect visible);

}

#pragma once

#include <plix/platform/graphics/geometry.h>

namespace gallery {

/// How wide the list is, and how wide, or high where it is below the page, the source. In points.
struct PaneSizes {
    float list { 230 };
    float sourceWidth { 430 };
    float sourceHeight { 220 };
    friend bool operator==(PaneSizes const&, PaneSizes const&) = default;
};

/// Sizes for panes that fill an area, with lines of a point between them.
struct PaneLayout {
    float listWidth;
    bool isSourceBelow; ///< the page, else beside it
    float sourceLength;
    friend bool operator==(PaneLayout const&, PaneLayout const&) = default;
};

/// What is wanted, as far as it leaves room for the page.
PaneLayout paneLayout(plix::Size area, PaneSizes const& wanted);

}

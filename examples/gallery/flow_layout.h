#pragma once

#include <plix/platform/graphics/geometry.h>

#include <vector>

namespace gallery {

struct FlowSpacing {
    float margin; ///< around all
    float gap; ///< between things of a row
    float rowHeight;
    float rowGap;
};

/// The places of things side by side, each as wide as it wants, in as many rows from the top downwards as the width needs. What is
/// wider than a row has one for itself.
std::vector<plix::Rect> flowLayout(std::vector<float> const& widths, float width, FlowSpacing const&);
/// What that takes, margins included.
float flowHeight(std::vector<float> const& widths, float width, FlowSpacing const&);

}

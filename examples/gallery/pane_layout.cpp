#include "pane_layout.h"

#include <algorithm>
#include <cmath>

namespace gallery {

namespace {

constexpr float leastList = 120;
constexpr float leastPage = 300;
constexpr float leastSource = 220;
constexpr float leastHeight = 90;

/// The upper bound may be below the lower one, which then counts.
float within(float least, float value, float most)
{
    return std::floor(std::max(least, std::min(value, most)));
}

}

PaneLayout paneLayout(plix::Size area, PaneSizes const& wanted)
{
    float const list = std::min(within(leastList, wanted.list, area.width * 0.4F), area.width);
    float const rest = std::max(0.0F, area.width - list - 1);
    bool const isBelow = rest < leastPage + leastSource + 160;
    float const source = isBelow
        ? within(std::min(leastHeight, area.height / 3), wanted.sourceHeight, area.height - 2 * leastHeight)
        : within(leastSource, wanted.sourceWidth, rest - leastPage - 1);
    return { list, isBelow, source };
}

}

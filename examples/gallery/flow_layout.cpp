#include "flow_layout.h"

namespace gallery {

using plix::Rect;

std::vector<Rect> flowLayout(std::vector<float> const& widths, float width, FlowSpacing const& spacing)
{
    std::vector<Rect> places;
    float x = spacing.margin;
    float y = spacing.margin;
    for (float const wanted : widths) {
        if (x > spacing.margin && x + wanted > width - spacing.margin) {
            x = spacing.margin;
            y += spacing.rowHeight + spacing.rowGap;
        }
        places.push_back({ x, y, wanted, spacing.rowHeight });
        x += wanted + spacing.gap;
    }
    return places;
}

float flowHeight(std::vector<float> const& widths, float width, FlowSpacing const& spacing)
{
    auto const places = flowLayout(widths, width, spacing);
    return (places.empty() ? spacing.margin : places.back().maxY()) + spacing.margin;
}

}

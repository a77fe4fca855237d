#include <plix/platform/appkit/box_layout.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

/// A title keeps this distance to the box's left end.
constexpr float titleIndent = 8;

struct TitleRoom {
    float aboveBorder { 0 };
    float belowBorder { 0 };
    float aboveContent { 0 };
    float belowContent { 0 };
};

// What a title takes outside the border, and inside it.
TitleRoom titleRoom(BoxShape const& shape)
{
    float const height = shape.titleSize.height;
    float const half = std::floor(height / 2);
    switch (height > 0 ? shape.titlePosition : NSNoTitle) {
    case NSAboveTop:
        return { .aboveBorder = height };
    case NSAtTop:
        return { .aboveBorder = half, .aboveContent = height - half };
    case NSBelowTop:
        return { .aboveContent = height };
    case NSAboveBottom:
        return { .belowContent = height };
    case NSAtBottom:
        return { .belowBorder = half, .belowContent = height - half };
    case NSBelowBottom:
        return { .belowBorder = height };
    case NSNoTitle:
        break;
    }
    return {};
}

bool isAtBottom(NSTitlePosition position)
{
    return position == NSAboveBottom || position == NSAtBottom || position == NSBelowBottom;
}

}

BoxLayout boxLayout(Rect bounds, BoxShape const& shape)
{
    auto const room = titleRoom(shape);
    BoxLayout layout;
    layout.border = { bounds.x, bounds.y + room.belowBorder, bounds.width,
        std::max(0.F, bounds.height - room.aboveBorder - room.belowBorder) };
    float const thickness = shape.borderThickness;
    float const sides = thickness + shape.margins.width;
    float const ends = thickness + shape.margins.height;
    layout.content
        = { layout.border.x + sides, layout.border.y + ends + room.belowContent, std::max(0.F, layout.border.width - 2 * sides),
              std::max(0.F, layout.border.height - 2 * ends - room.belowContent - room.aboveContent) };
    if (shape.titlePosition == NSNoTitle || !(shape.titleSize.height > 0))
        return layout;
    float const width = std::min(shape.titleSize.width, std::max(0.F, bounds.width - 2 * titleIndent));
    float y = bounds.maxY() - shape.titleSize.height;
    if (shape.titlePosition == NSBelowTop)
        y -= thickness;
    else if (isAtBottom(shape.titlePosition))
        y = bounds.y + (shape.titlePosition == NSAboveBottom ? thickness : 0);
    layout.title = { bounds.x + titleIndent, y, width, shape.titleSize.height };
    return layout;
}

Size boxSizeAround(Size content, BoxShape const& shape)
{
    auto const room = titleRoom(shape);
    float const sides = shape.borderThickness + shape.margins.width;
    float const ends = shape.borderThickness + shape.margins.height;
    return { content.width + 2 * sides,
        content.height + 2 * ends + room.aboveBorder + room.belowBorder + room.aboveContent + room.belowContent };
}

}

#include <plix/platform/appkit/cell_layout.h>

#include <algorithm>
#include <cmath>

namespace plix {

CellInsets cellFrameInsets(CellFrameStyle style, NSControlSize size)
{
    switch (style) {
    case CellFrameStyle::none:
        return {};
    case CellFrameStyle::border:
        return { 1, 1, 1, 1 };
    case CellFrameStyle::bezel:
        return size == NSRegularControlSize ? CellInsets { 3, 3, 3, 3 } : CellInsets { 2, 3, 2, 2 };
    }
    return {};
}

Rect insetRect(Rect rect, CellInsets insets)
{
    float const width = std::max(0.F, rect.width - insets.left - insets.right);
    float const height = std::max(0.F, rect.height - insets.top - insets.bottom);
    return { rect.x + insets.left, rect.y + insets.top, width, height };
}

Size outsetSize(Size content, CellInsets insets)
{
    return { content.width + insets.left + insets.right, content.height + insets.top + insets.bottom };
}

Rect centredImageRect(Rect area, Size image)
{
    if (area.isEmpty() || !(image.width > 0 && image.height > 0))
        return {};
    float const scale = std::min({ 1.F, area.width / image.width, area.height / image.height });
    Size const shown { image.width * scale, image.height * scale };
    return { area.x + std::round((area.width - shown.width) / 2), area.y + std::round((area.height - shown.height) / 2),
        shown.width, shown.height };
}

}

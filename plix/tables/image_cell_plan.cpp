#include <plix/tables/image_cell_plan.h>

#include <plix/drawing/geometry_helpers.h>
#include <plix/platform/appkit/button_constants.h>

#include <cmath>

namespace plix {

namespace {

constexpr float marginBeforeBox = 2.0F;
constexpr float marginAfterBox = 2.0F;
constexpr float marginAfterEditedImage = 3.0F;
constexpr float marginInCellSize = 4.0F;

Rect withoutLeft(Rect rect, float width)
{
    Rect slice;
    Rect remainder;
    NSDivideRect(rect, slice, remainder, width, NSMinXEdge);
    return remainder;
}

}

Rect imageBoxInCell(Rect cell, Size box)
{
    return { cell.x + marginBeforeBox, cell.y + std::ceil((cell.height - box.height) * 0.5F), box.width, box.height };
}

Rect textBesideImageBox(Rect cell, Size box)
{
    return withoutLeft(cell, box.width + marginAfterBox);
}

Rect editorBesideImage(Rect cell, float imageWidth)
{
    return withoutLeft(cell, imageWidth + marginAfterEditedImage);
}

Size cellSizeWithImage(Size textSize, float imageWidth)
{
    return { textSize.width + imageWidth + marginInCellSize, textSize.height };
}

CellImagePlacement cellImagePlacement(Size image, Rect box, int scaling)
{
    Rect const whole = PLIXMakeRectWithSize(image);
    CellImagePlacement placement { whole, box };
    if (scaling == NSScaleNone)
        placement.source = PLIXRectCenterOnRect(box, whole);
    else if (scaling != NSScaleToFit)
        placement.destination = PLIXRectCenterOnRect(PLIXScaleRectToRect(whole, box), box);
    auto const origin = PLIXIntegralPoint({ placement.destination.x, placement.destination.y });
    placement.destination.x = origin.x;
    placement.destination.y = origin.y;
    return placement;
}

}

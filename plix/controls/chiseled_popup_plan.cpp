#include <plix/controls/chiseled_popup_plan.h>

#include <cmath>

namespace plix {

namespace {

constexpr float titleOverlap = 4.0F;
constexpr float titleMargin = 4.0F;

}

Point chiseledTitleOrigin(Rect button, Size title, float pressedLeftWidth)
{
    double const y = (static_cast<double>(button.height) - static_cast<double>(title.height)) * 0.5 + 1.0;
    return { pressedLeftWidth - titleOverlap, static_cast<float>(y) };
}

PopUpSlices popUpSlices(PopUpBackground background, Rect button, SliceWidths pressed, SliceWidths hover)
{
    auto const& own = background == PopUpBackground::pressed ? pressed : hover;
    float const middleStart = background == PopUpBackground::pressed ? pressed.middle : hover.left;
    return { { 0, 0, own.left, button.height }, { button.x + button.width - own.right, 0, own.right, button.height },
        { middleStart, 0, button.width - (hover.right + hover.left), button.height } };
}

Point popUpArrowOrigin(Rect title, Size arrow)
{
    return { title.x + title.width, (title.height - arrow.height) * 0.5F };
}

Size popUpSizeForTitle(PopUpFrameRequest const& request)
{
    float const height = std::trunc(request.sizesHeightToFit ? request.title.height + titleMargin : request.frame.height);
    float const width = std::trunc(request.title.width + request.pressed.left + request.pressed.right);
    return { width + request.arrowWidth - titleOverlap, height };
}

Point popUpOriginForWidth(PopUpFrameRequest const& request, float newWidth)
{
    float const x = request.keepsRightEdge ? request.frame.x + request.frame.width - newWidth : request.frame.x;
    return { x, request.frame.y };
}

}

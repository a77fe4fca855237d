#include <plix/platform/appkit/Theme.h>

#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>

namespace plix {

void Theme::drawComboButton(Rect rect, ButtonLook const& wanted, bool isBordered, bool isPressed) const
{
    if (rect.width <= 2 || rect.height <= 2)
        return;
    ButtonLook look = wanted;
    look.control.isPressed = isPressed;
    look.control.isFocused = false;
    if (isBordered)
        drawButtonBezel(rect, look);
    drawPopUpArrows({ rect.x + 2, rect.y, rect.width - 4, rect.height }, true, buttonTextColor(look));
}

}

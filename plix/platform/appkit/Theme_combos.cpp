#include <plix/platform/appkit/Theme.h>

#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <cmath>

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

void Theme::drawStepper(Rect rect, ControlLook const& control, int pressedHalf) const
{
    ButtonLook look { .control = control, .style = NSTexturedSquareBezelStyle };
    look.control.isFocused = false;
    float const half = std::floor(rect.height / 2);
    Rect const halves[] { { rect.x, rect.y, rect.width, half }, { rect.x, rect.y + half, rect.width, rect.height - half } };
    for (int i = 0; i < 2; ++i) {
        look.control.isPressed = pressedHalf == (i == 0 ? 1 : -1);
        drawButtonBezel(halves[i], look);
        Point const middle { std::round(halves[i].midX()), std::round(halves[i].midY()) };
        float const tip = i == 0 ? -1.5F : 1.5F;
        auto const triangle = NSBezierPath::bezierPath();
        triangle->moveToPoint({ middle.x - 3, middle.y - tip });
        triangle->lineToPoint({ middle.x + 3, middle.y - tip });
        triangle->lineToPoint({ middle.x, middle.y + tip });
        triangle->closePath();
        GraphicsState const saved;
        buttonTextColor(look)->setFill();
        triangle->fill();
    }
}

}

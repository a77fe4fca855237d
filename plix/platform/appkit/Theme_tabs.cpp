#include <plix/platform/appkit/Theme.h>

#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <cmath>

namespace plix {

void Theme::drawTabPane(Rect border, FieldShape shape, bool isShaded) const
{
    if (border.isEmpty())
        return;
    drawBox(border, { shape == FieldShape::square ? NSLineBorder : NSGrooveBorder, nullptr, isShaded }, {});
}

void Theme::drawTab(Rect tab, ButtonLook const& look) const
{
    // Neighbours share the line between them.
    drawButtonBezel(look.joinsRight ? Rect { tab.x, tab.y, tab.width + 1, tab.height } : tab, look);
}

void Theme::drawTabOverflow(Rect button, ButtonLook const& look) const
{
    if (button.isEmpty())
        return;
    drawTab(button, look);
    constexpr float reach = 3;
    constexpr float apart = 5;
    Point const middle { std::round(button.midX()), std::round(button.midY()) };
    auto const marks = NSBezierPath::bezierPath();
    for (float const x : { middle.x - apart / 2, middle.x + apart / 2 }) {
        marks->moveToPoint({ x - reach / 2, middle.y - reach });
        marks->lineToPoint({ x + reach / 2, middle.y });
        marks->lineToPoint({ x - reach / 2, middle.y + reach });
    }
    GraphicsState const saved;
    marks->setLineWidth(1.5F);
    marks->setLineCapStyle(NSRoundLineCapStyle);
    marks->setLineJoinStyle(NSRoundLineJoinStyle);
    buttonTextColor(look)->setStroke();
    marks->stroke();
}

}

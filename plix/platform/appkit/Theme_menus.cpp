#include <plix/platform/appkit/Theme.h>

#include <plix/platform/appkit/cell_constants.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <cmath>

namespace plix {

namespace {

void fillTriangle(Point a, Point b, Point c, NSColor const& color)
{
    GraphicsState const saved;
    auto const triangle = NSBezierPath::bezierPath();
    triangle->moveToPoint(a);
    triangle->lineToPoint(b);
    triangle->lineToPoint(c);
    triangle->closePath();
    color.setFill();
    triangle->fill();
}

// An open angle: two strokes that meet at the tip.
void strokeChevron(Point left, Point tip, Point right, NSColor const& color)
{
    GraphicsState const saved;
    auto const chevron = NSBezierPath::bezierPath();
    chevron->moveToPoint(left);
    chevron->lineToPoint(tip);
    chevron->lineToPoint(right);
    chevron->setLineWidth(1.5F);
    chevron->setLineCapStyle(NSRoundLineCapStyle);
    chevron->setLineJoinStyle(NSRoundLineJoinStyle);
    color.setStroke();
    chevron->stroke();
}

}

void Theme::drawMenuBackground(Rect rect) const
{
    fill(rect, ThemeRole::menuBackground);
    GraphicsState const saved;
    color(ThemeRole::menuBorder)->setFill();
    NSFrameRectWithWidth(rect, 1);
}

void Theme::drawSheetEdge(Rect rect) const
{
    GraphicsState const saved;
    color(ThemeRole::menuBorder)->setFill();
    NSFrameRectWithWidth({ rect.x, rect.y, rect.width, rect.height + 1 }, 1);
}

void Theme::drawMenuHighlight(Rect item) const
{
    fill({ item.x + 1, item.y, item.width - 2, item.height }, *NSColor::selectedMenuItemColor());
}

void Theme::drawMenuSeparator(Rect item) const
{
    fill({ item.x + 10, std::floor(item.midY()), item.width - 20, 1 }, ThemeRole::headerDivider);
}

Ref<NSColor> const& Theme::menuTextColor(MenuItemLook const& look) const
{
    if (look.isHighlighted)
        return color(ThemeRole::menuHighlightText);
    return color(look.isEnabled ? ThemeRole::menuText : ThemeRole::menuDisabledText);
}

Ref<NSColor> const& Theme::menuKeyColor(MenuItemLook const& look) const
{
    return look.isHighlighted || !look.isEnabled ? menuTextColor(look) : color(ThemeRole::menuKeyText);
}

void Theme::drawMenuState(Rect column, int state, MenuItemLook const& look) const
{
    GraphicsState const saved;
    auto const& ink = menuTextColor(look);
    Point const middle { std::round(column.midX()), std::round(column.midY()) };
    if (state == NSMixedState) {
        fill({ middle.x - 4, middle.y - 1, 8, 2 }, *ink);
        return;
    }
    auto const mark = NSBezierPath::bezierPath();
    mark->moveToPoint({ middle.x - 4, middle.y });
    mark->lineToPoint({ middle.x - 1, middle.y + 3.5F });
    mark->lineToPoint({ middle.x + 4, middle.y - 4 });
    mark->setLineWidth(1.8F);
    mark->setLineCapStyle(NSRoundLineCapStyle);
    mark->setLineJoinStyle(NSRoundLineJoinStyle);
    ink->setStroke();
    mark->stroke();
}

void Theme::drawSubmenuArrow(Rect rect, MenuItemLook const& look) const
{
    float const y = std::round(rect.midY());
    float const x = rect.maxX();
    fillTriangle({ x - 6, y - 4 }, { x, y }, { x - 6, y + 4 }, *menuTextColor(look));
}

void Theme::drawMenuScrollArrow(Rect rect, bool pointsUp) const
{
    Point const middle { std::round(rect.midX()), std::round(rect.midY()) };
    float const reach = pointsUp ? -3 : 3;
    fillTriangle({ middle.x - 5, middle.y - reach }, { middle.x + 5, middle.y - reach }, { middle.x, middle.y + reach },
        *color(ThemeRole::menuKeyText));
}

void Theme::drawPopUpArrows(Rect rect, bool pullsDown, Ref<NSColor> const& ink) const
{
    Point const middle { std::round(rect.midX()), std::round(rect.midY()) };
    if (pullsDown) {
        strokeChevron({ middle.x - 3.5F, middle.y - 1.5F }, { middle.x, middle.y + 2 }, { middle.x + 3.5F, middle.y - 1.5F }, *ink);
        return;
    }
    strokeChevron({ middle.x - 3, middle.y - 2.5F }, { middle.x, middle.y - 5.5F }, { middle.x + 3, middle.y - 2.5F }, *ink);
    strokeChevron({ middle.x - 3, middle.y + 2.5F }, { middle.x, middle.y + 5.5F }, { middle.x + 3, middle.y + 2.5F }, *ink);
}

}

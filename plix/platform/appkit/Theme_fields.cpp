#include <plix/platform/appkit/Theme.h>

#include <plix/platform/appkit/scroll_layout.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

namespace plix {

namespace {

constexpr float ringWidth = 2;
constexpr float innerRingAlpha = 0.45F;

Rect topLine(Rect rect)
{
    return { rect.x, rect.y, rect.width, 1 };
}

void frame(Rect rect, float width, NSColor const& color)
{
    GraphicsState const saved;
    color.setFill();
    NSFrameRectWithWidthUsingOperation(rect, width, NSCompositeSourceOver);
}

void stroke(Rect rect, float width, NSColor const& color)
{
    GraphicsState const saved;
    Rect const middle = NSInsetRect(rect, width / 2, width / 2);
    auto const path = Theme::roundedRect(middle, middle.height / 2);
    path->setLineWidth(width);
    color.setStroke();
    path->stroke();
}

}

void Theme::drawBorder(NSBorderType border, Rect rect) const
{
    switch (border) {
    case NSNoBorder:
        break;
    case NSLineBorder:
        frame(rect, 1, *color(ThemeRole::line));
        break;
    case NSBezelBorder:
        frame(rect, 1, *color(ThemeRole::fieldBorder));
        fill(topLine(rect), ThemeRole::fieldBorderTop);
        break;
    case NSGrooveBorder:
        frame(rect, 1, *NSColor::controlShadowColor());
        frame(NSInsetRect(rect, 1, 1), 1, *NSColor::controlLightHighlightColor());
        break;
    }
}

void Theme::drawFieldBezel(Rect rect, FieldShape shape, ControlLook const& look, NSColor const* background) const
{
    Ref<NSColor> const disabled = color(ThemeRole::fieldDisabled);
    if (background && !look.isEnabled)
        background = disabled.get();
    if (shape == FieldShape::round) {
        GraphicsState const saved;
        if (background) {
            background->setFill();
            roundedRect(NSInsetRect(rect, 0.5F, 0.5F), rect.height / 2)->fill();
        }
        stroke(rect, 1, *color(ThemeRole::fieldBorder));
        return;
    }
    if (background)
        fill(NSInsetRect(rect, 1, 1), *background);
    frame(rect, 1, *color(ThemeRole::fieldBorder));
    if (look.isEnabled) {
        fill(topLine(rect), ThemeRole::fieldBorderTop);
        fill(topLine(NSInsetRect(rect, 1, 1)), ThemeRole::fieldShade);
    }
}

// One line at full strength and a softer one inside it, so that the ring needs no room around the control.
void Theme::drawFocusRing(Rect rect, FieldShape shape) const
{
    auto const strong = NSColor::alternateSelectedControlColor();
    auto const soft = NSColor::keyboardFocusIndicatorColor()->colorWithAlphaComponent(innerRingAlpha);
    if (shape == FieldShape::round) {
        stroke(rect, ringWidth, *soft);
        stroke(rect, 1, *strong);
        return;
    }
    frame(rect, 1, *strong);
    frame(NSInsetRect(rect, 1, 1), ringWidth - 1, *soft);
}

void Theme::drawHeaderBackground(Rect rect) const
{
    fill(rect, ThemeRole::headerBackground);
    fill({ rect.x, rect.maxY() - 1, rect.width, 1 }, ThemeRole::line);
}

void Theme::drawHeaderDivider(Rect column) const
{
    fill({ column.maxX() - 1, column.y + 4, 1, column.height - 9 }, ThemeRole::headerDivider);
}

}

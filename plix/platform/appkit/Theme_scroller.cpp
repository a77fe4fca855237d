#include <plix/platform/appkit/Theme.h>

#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <algorithm>

namespace plix {

namespace {

// Half of the side on which an arrow stands, and how far it reaches.
constexpr float arrowHalfWidth = 4;
constexpr float arrowReach = 4;

ThemeRole knobRole(ControlLook const& look)
{
    if (!look.isEnabled)
        return ThemeRole::scrollerKnobDisabled;
    if (look.isPressed)
        return ThemeRole::scrollerKnobPressed;
    return look.isHovered ? ThemeRole::scrollerKnobHovered : ThemeRole::scrollerKnob;
}

}

float Theme::scrollerWidth(NSControlSize size)
{
    return size == NSRegularControlSize ? 15 : 11;
}

ScrollerMetrics Theme::scrollerMetrics(NSControlSize size)
{
    ScrollerMetrics metrics;
    metrics.arrowLength = scrollerWidth(size);
    metrics.knobInset = size == NSRegularControlSize ? 4 : 3;
    return metrics;
}

void Theme::drawScrollerSlot(ScrollerPlan const& plan, Rect bounds) const
{
    fill(bounds, ThemeRole::scrollerSlot);
    bool const isVertical = plan.axis == ScrollerAxis::vertical;
    fill(isVertical ? Rect { bounds.x, bounds.y, 1, bounds.height } : Rect { bounds.x, bounds.y, bounds.width, 1 },
        ThemeRole::scrollerEdge);
}

void Theme::drawScrollerKnob(ScrollerPlan const& plan, ControlLook const& look) const
{
    if (plan.knob.isEmpty())
        return;
    // The slot's edge line takes one point on one side; a point more on the other side has the knob in the middle of what is left.
    bool const isVertical = plan.axis == ScrollerAxis::vertical;
    Rect const knob { plan.knob.x, plan.knob.y, plan.knob.width + (isVertical ? 1.F : 0),
        plan.knob.height + (isVertical ? 0 : 1.F) };
    GraphicsState const saved;
    color(knobRole(look))->setFill();
    roundedRect(knob, std::min(knob.width, knob.height) / 2)->fill();
}

void Theme::drawScrollerArrow(ScrollerPlan const& plan, NSScrollerPart part, ControlLook const& look) const
{
    Rect const rect = plan.rectForPart(part);
    if (rect.isEmpty())
        return;
    float const towards = part == NSScrollerIncrementLine ? 1.F : -1.F;
    auto const path = NSBezierPath::bezierPath();
    for (auto [along, across] : { std::pair { 0.5F, 0.F }, { -0.5F, -1.F }, { -0.5F, 1.F } }) {
        float const forward = along * towards * arrowReach;
        float const sideways = across * arrowHalfWidth;
        // In the middle of what the slot's edge line leaves, as the knob is.
        Point const point = plan.axis == ScrollerAxis::vertical ? Point { rect.midX() + 0.5F + sideways, rect.midY() + forward }
                                                                : Point { rect.midX() + forward, rect.midY() + 0.5F + sideways };
        if (path->isEmpty())
            path->moveToPoint(point);
        else
            path->lineToPoint(point);
    }
    path->closePath();
    GraphicsState const saved;
    color(knobRole(look))->setFill();
    path->fill();
}

void Theme::drawScrollerCorner(Rect rect) const
{
    fill(rect, ThemeRole::scrollerSlot);
}

}

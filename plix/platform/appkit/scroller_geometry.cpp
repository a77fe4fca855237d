#include <plix/platform/appkit/scroller_geometry.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

float unitInterval(float value)
{
    return value > 0 ? std::min(value, 1.F) : 0;
}

// A stretch along the axis of a rectangle.
Rect stretch(Rect bounds, ScrollerAxis axis, float start, float length)
{
    if (axis == ScrollerAxis::vertical)
        return { bounds.x, bounds.y + start, bounds.width, length };
    return { bounds.x + start, bounds.y, length, bounds.height };
}

float lengthAlong(Rect rect, ScrollerAxis axis)
{
    return axis == ScrollerAxis::vertical ? rect.height : rect.width;
}

Rect insetAcross(Rect rect, ScrollerAxis axis, float inset)
{
    return axis == ScrollerAxis::vertical ? NSInsetRect(rect, inset, 0) : NSInsetRect(rect, 0, inset);
}

}

Rect ScrollerPlan::rectForPart(NSScrollerPart part) const
{
    switch (part) {
    case NSScrollerDecrementPage:
        return decrementPage;
    case NSScrollerKnob:
        return knob;
    case NSScrollerIncrementPage:
        return incrementPage;
    case NSScrollerDecrementLine:
        return decrementLine;
    case NSScrollerIncrementLine:
        return incrementLine;
    case NSScrollerKnobSlot:
        return knobSlot;
    case NSScrollerNoPart:
        break;
    }
    return {};
}

NSScrollerPart ScrollerPlan::partAtPoint(Point point) const
{
    // The whole width of the bar belongs to the knob, also the inset on which it is not drawn.
    Rect const grip = insetAcross(knob, axis, axis == ScrollerAxis::vertical ? knobSlot.x - knob.x : knobSlot.y - knob.y);
    if (!knob.isEmpty() && NSPointInRect(point, grip))
        return NSScrollerKnob;
    for (auto part : { NSScrollerDecrementPage, NSScrollerIncrementPage, NSScrollerDecrementLine, NSScrollerIncrementLine }) {
        if (NSPointInRect(point, rectForPart(part)))
            return part;
    }
    return NSPointInRect(point, knobSlot) ? NSScrollerKnobSlot : NSScrollerNoPart;
}

ScrollerPlan scrollerPlan(Rect bounds, ScrollerMetrics const& metrics, ScrollerState const& state)
{
    ScrollerPlan plan;
    plan.axis = bounds.width > bounds.height ? ScrollerAxis::horizontal : ScrollerAxis::vertical;
    if (bounds.isEmpty())
        return plan;

    float const length = lengthAlong(bounds, plan.axis);
    bool const hasArrows = state.arrows != NSScrollerArrowsNone && length >= 2 * metrics.arrowLength;
    float const arrows = hasArrows ? 2 * metrics.arrowLength : 0;
    float const slotStart = state.arrows == NSScrollerArrowsMinEnd ? arrows : 0;
    plan.knobSlot = stretch(bounds, plan.axis, slotStart, length - arrows);
    if (hasArrows) {
        float const arrowsStart = state.arrows == NSScrollerArrowsMinEnd ? 0 : length - arrows;
        plan.decrementLine = stretch(bounds, plan.axis, arrowsStart, metrics.arrowLength);
        plan.incrementLine = stretch(bounds, plan.axis, arrowsStart + metrics.arrowLength, metrics.arrowLength);
        plan.usableParts = NSOnlyScrollerArrows;
    }

    float const way = length - arrows - 2 * metrics.slotEndInset;
    if (way < metrics.minimumKnobLength)
        return plan;
    plan.usableParts = NSAllScrollerParts;
    float const knobLength = std::max(metrics.minimumKnobLength, std::round(way * unitInterval(state.knobProportion)));
    float const start = metrics.slotEndInset + (way - knobLength) * unitInterval(state.value);
    float const slotLength = length - arrows;
    plan.knob = insetAcross(stretch(plan.knobSlot, plan.axis, start, knobLength), plan.axis, metrics.knobInset);
    plan.decrementPage = stretch(plan.knobSlot, plan.axis, 0, start);
    plan.incrementPage = stretch(plan.knobSlot, plan.axis, start + knobLength, slotLength - start - knobLength);
    return plan;
}

float scrollerValueForKnobStart(ScrollerPlan const& plan, ScrollerMetrics const& metrics, float start)
{
    float const way = lengthAlong(plan.knobSlot, plan.axis) - 2 * metrics.slotEndInset - lengthAlong(plan.knob, plan.axis);
    if (plan.knob.isEmpty() || way <= 0)
        return 0;
    return unitInterval((start - metrics.slotEndInset) / way);
}

float knobStart(ScrollerPlan const& plan)
{
    return plan.axis == ScrollerAxis::vertical ? plan.knob.y - plan.knobSlot.y : plan.knob.x - plan.knobSlot.x;
}

}

#include <plix/platform/appkit/NSScroller.h>

#include <plix/platform/appkit/NSActionCell.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/tracking_wait.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSRunLoop.h>

#include <algorithm>
#include <utility>

namespace plix {

namespace {

// Seconds before a held page or arrow acts again, and between repeats.
constexpr NSTimeInterval firstRepeat = 0.4;
constexpr NSTimeInterval nextRepeat = 0.06;

float unitInterval(float value)
{
    return value > 0 ? std::min(value, 1.F) : 0;
}

}

PLIX_DESCRIBE(NSScroller)
{
}

NSScroller::NSScroller() = default;
NSScroller::~NSScroller() = default;

// The cell draws nothing; it holds target, action, control size and whether the scroller is enabled.
Class const* NSScroller::cellClass()
{
    return &NSActionCell::staticClass();
}

bool NSScroller::init()
{
    return NSScroller::init(Rect {});
}

bool NSScroller::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    setEnabled(false);
    return true;
}

bool NSScroller::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    coder.read("floatValue", [&](ObjectValue const& value) { m_state.value = value.floatValue(); });
    coder.read("knobProportion", [&](ObjectValue const& value) { m_state.knobProportion = value.floatValue(); });
    coder.read("arrowsPosition",
        [&](ObjectValue const& value) { setArrowsPosition(static_cast<NSScrollArrowPosition>(value.intValue())); });
    return true;
}

void NSScroller::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeDouble(m_state.value, "floatValue");
    coder.encodeDouble(m_state.knobProportion, "knobProportion");
    coder.encodeInt(m_state.arrows, "arrowsPosition");
}

float NSScroller::scrollerWidthForControlSize(NSControlSize size)
{
    return Theme::scrollerWidth(size);
}

NSControlSize NSScroller::controlSize() const
{
    return cell() ? cell()->controlSize() : NSRegularControlSize;
}

void NSScroller::setControlSize(NSControlSize size)
{
    if (cell())
        cell()->setControlSize(size);
}

void NSScroller::setArrowsPosition(NSScrollArrowPosition position)
{
    if (m_state.arrows == position)
        return;
    m_state.arrows = position;
    setNeedsDisplay(true);
}

void NSScroller::setFloatValue(float value, float knobProportion)
{
    value = unitInterval(value);
    knobProportion = unitInterval(knobProportion);
    if (m_state.value == value && m_state.knobProportion == knobProportion)
        return;
    m_state.value = value;
    m_state.knobProportion = knobProportion;
    setNeedsDisplay(true);
}

ScrollerPlan NSScroller::plan() const
{
    auto plan = scrollerPlan(bounds(), Theme::scrollerMetrics(controlSize()), m_state);
    if (!isEnabled()) {
        plan.knob = plan.decrementPage = plan.incrementPage = {};
        plan.usableParts = std::min(plan.usableParts, NSOnlyScrollerArrows);
    }
    return plan;
}

NSUsableScrollerParts NSScroller::usableParts() const
{
    return scrollerPlan(bounds(), Theme::scrollerMetrics(controlSize()), m_state).usableParts;
}

Rect NSScroller::rectForPart(NSScrollerPart part) const
{
    return plan().rectForPart(part);
}

NSScrollerPart NSScroller::testPart(Point locationInWindow) const
{
    return plan().partAtPoint(convertPointFromView(locationInWindow, nullptr));
}

// MARK: drawing

ControlLook NSScroller::look(NSScrollerPart part) const
{
    ControlLook look = Theme::lookOfView(*this);
    look.isEnabled = isEnabled();
    look.isHovered = m_isHovered;
    look.isPressed = m_hitPart == part || (part == NSScrollerKnob && m_hitPart == NSScrollerKnobSlot);
    return look;
}

void NSScroller::drawRect(Rect)
{
    drawKnobSlot();
    if (arrowsPosition() != NSScrollerArrowsNone) {
        drawArrow(NSScrollerDecrementArrow, m_hitPart == NSScrollerDecrementLine);
        drawArrow(NSScrollerIncrementArrow, m_hitPart == NSScrollerIncrementLine);
    }
    drawKnob();
}

void NSScroller::drawKnobSlot()
{
    Theme::current().drawScrollerSlot(plan(), bounds());
}

void NSScroller::drawKnob()
{
    Theme::current().drawScrollerKnob(plan(), look(NSScrollerKnob));
}

void NSScroller::drawArrow(NSScrollerArrow arrow, bool isHighlighted)
{
    auto const part = arrow == NSScrollerIncrementArrow ? NSScrollerIncrementLine : NSScrollerDecrementLine;
    ControlLook arrowLook = look(part);
    arrowLook.isPressed = isHighlighted;
    Theme::current().drawScrollerArrow(plan(), part, arrowLook);
}

// MARK: hovering

// Called whenever the geometry changes, which is when the tracking rectangle has to follow.
void NSScroller::resetCursorRects()
{
    setHovered(m_hoverArea.follow(*this));
}

void NSScroller::viewWillMoveToWindow(NSWindow* newWindow)
{
    Base::viewWillMoveToWindow(newWindow);
    m_hoverArea.end(*this);
    m_isHovered = false;
}

void NSScroller::setHovered(bool isHovered)
{
    if (m_isHovered == isHovered)
        return;
    m_isHovered = isHovered;
    setNeedsDisplay(true);
}

void NSScroller::mouseEntered(NSEvent&)
{
    setHovered(true);
}

void NSScroller::mouseExited(NSEvent&)
{
    setHovered(false);
}

// MARK: tracking

Point NSScroller::locationIn(NSEvent const& event) const
{
    return convertPointFromView(event.locationInWindow(), nullptr);
}

float NSScroller::positionAlong(Point point) const
{
    auto const current = plan();
    return current.axis == ScrollerAxis::vertical ? point.y - current.knobSlot.y : point.x - current.knobSlot.x;
}

void NSScroller::mouseDown(NSEvent& event)
{
    if (!isEnabled())
        return;
    Ref<NSScroller> const protector(this);
    auto const part = testPart(event.locationInWindow());
    bool const jumps = (event.modifierFlags() & NSAlternateKeyMask) != 0;
    if (part == NSScrollerKnob) {
        trackKnob(event);
    } else if (jumps && (part == NSScrollerDecrementPage || part == NSScrollerIncrementPage)) {
        auto const current = plan();
        float const length = current.axis == ScrollerAxis::vertical ? current.knob.height : current.knob.width;
        m_hitPart = NSScrollerKnobSlot;
        moveKnobStartTo(positionAlong(locationIn(event)) - length / 2);
        trackKnob(event);
    } else if (part != NSScrollerNoPart && part != NSScrollerKnobSlot) {
        trackScrollButtons(event);
    }
    endTracking();
}

void NSScroller::endTracking()
{
    m_hitPart = NSScrollerNoPart;
    setNeedsDisplay(true);
}

void NSScroller::moveKnobStartTo(float start)
{
    setFloatValue(scrollerValueForKnobStart(plan(), Theme::scrollerMetrics(controlSize()), start));
    if (cell())
        cell()->sendAction();
}

void NSScroller::trackKnob(NSEvent& press)
{
    Ref<NSScroller> const protector(this);
    m_hitPart = NSScrollerKnob;
    setNeedsDisplay(true);
    float const grip = positionAlong(locationIn(press)) - knobStart(plan());
    while (Ref<NSWindow> const ownWindow = window()) {
        auto const event = ownWindow->nextEventMatchingMask(NSLeftMouseUpMask | NSLeftMouseDraggedMask);
        if (!event)
            return;
        // Also at the release, for whoever follows only then.
        moveKnobStartTo(positionAlong(locationIn(*event)) - grip);
        if (event->type() == NSLeftMouseUp)
            return;
    }
}

void NSScroller::trackScrollButtons(NSEvent& press)
{
    Ref<NSScroller> const protector(this);
    m_hitPart = testPart(press.locationInWindow());
    setNeedsDisplay(true);
    Point location = press.locationInWindow();
    NSTimeInterval wait = firstRepeat;
    auto act = [&] {
        if (testPart(location) == m_hitPart && cell())
            cell()->sendAction();
    };
    act();
    NSDate next = NSDate::dateWithTimeIntervalSinceNow(wait);
    while (Ref<NSWindow> const ownWindow = window()) {
        auto const event
            = ownWindow->nextEventMatchingMask(NSLeftMouseUpMask | NSLeftMouseDraggedMask, next, NSEventTrackingRunLoopMode, true);
        if (isCutShort(event, next) || (event && event->type() == NSLeftMouseUp))
            return;
        if (event) {
            location = event->locationInWindow();
            continue;
        }
        act();
        next = NSDate::dateWithTimeIntervalSinceNow(nextRepeat);
    }
}

}

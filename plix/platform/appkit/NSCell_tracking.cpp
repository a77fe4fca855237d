#include <plix/platform/appkit/NSCell.h>

#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/tracking_wait.h>
#include <plix/platform/foundation/NSRunLoop.h>

namespace plix {

bool NSCell::startTracking(Point, NSView&)
{
    return isContinuous() || (m_actionMask & (NSLeftMouseDraggedMask | NSPeriodicMask)) != 0;
}

bool NSCell::continueTracking(Point, Point, NSView&)
{
    return true;
}

void NSCell::stopTracking(Point, Point, NSView&, bool)
{
}

void NSCell::getPeriodicDelay(float& delay, float& interval) const
{
    delay = 0.2F;
    interval = 0.025F;
}

void NSCell::sendActionOnEvent(unsigned eventMask)
{
    if (m_actionMask & eventMask)
        sendAction();
}

namespace {

// When a held button sends the action next; never for a cell that is not continuous.
class Repeat {
public:
    explicit Repeat(NSCell const& cell)
    {
        if (!cell.isContinuous())
            return;
        float delay = 0;
        cell.getPeriodicDelay(delay, m_interval);
        m_next = NSDate::dateWithTimeIntervalSinceNow(delay);
    }
    NSDate next() const { return m_next; }
    void advance() { m_next = NSDate::dateWithTimeIntervalSinceNow(m_interval); }

private:
    NSDate m_next { NSDate::distantFuture() };
    float m_interval { 0 };
};

}

bool NSCell::trackMouse(NSEvent& event, Rect frame, NSView& controlView, bool untilMouseUp)
{
    Ref<NSCell> const protector(this);
    Ref<NSView> const view(controlView);
    m_mouseDownFlags = event.modifierFlags();
    setControlView(&controlView);

    Point last = view->convertPointFromView(event.locationInWindow(), nullptr);
    bool const isTold = startTracking(last, *view);
    sendActionOnEvent(NSLeftMouseDownMask);
    Repeat repeat(*this);
    while (Ref<NSWindow> const window = view->window()) {
        auto const next = window->nextEventMatchingMask(
            NSLeftMouseUpMask | NSLeftMouseDraggedMask, repeat.next(), NSEventTrackingRunLoopMode, true);
        if (isCutShort(next, repeat.next())) {
            stopTracking(last, last, *view, false);
            return false;
        }
        if (!next) {
            sendActionOnEvent(NSPeriodicMask);
            repeat.advance();
            continue;
        }
        Point const point = view->convertPointFromView(next->locationInWindow(), nullptr);
        bool const isInside = view->mouseInRect(point, frame);
        if (next->type() == NSLeftMouseUp) {
            stopTracking(last, point, *view, true);
            if ((!isInside && !untilMouseUp) || isAbandoned(*next))
                return false;
            setNextState();
            sendActionOnEvent(NSLeftMouseUpMask);
            return true;
        }
        if ((!isInside && !untilMouseUp) || (isTold && !continueTracking(last, point, *view))) {
            stopTracking(last, point, *view, false);
            return false;
        }
        sendActionOnEvent(NSLeftMouseDraggedMask);
        last = point;
    }
    return false;
}

void NSCell::performClick(NSObject*)
{
    if (!isEnabled())
        return;
    Ref<NSCell> const protector(this);
    Ref<NSView> const view(controlView());
    setHighlighted(true);
    if (view) {
        view->setNeedsDisplay(true);
        view->displayIfNeeded();
    }
    setNextState();
    sendAction();
    setHighlighted(false);
    if (view)
        view->setNeedsDisplay(true);
}

void NSCell::resetCursorRect(Rect frame, NSView& controlView)
{
    if (type() == NSTextCellType && isEnabled() && isSelectable())
        controlView.addCursorRect(titleRectForBounds(frame), NSCursor::IBeamCursor());
}

// The values of controls and cells have the same names.
template <typename Take> static void takeFrom(NSObject* sender, Take take)
{
    if (auto const* control = dynamic_cast<NSControl*>(sender))
        take(*control);
    else if (auto const* cell = dynamic_cast<NSCell*>(sender))
        take(*cell);
}

void NSCell::takeStringValueFrom(NSObject* sender)
{
    takeFrom(sender, [this](auto const& source) { setStringValue(source.stringValue()); });
}

void NSCell::takeObjectValueFrom(NSObject* sender)
{
    takeFrom(sender, [this](auto const& source) { setObjectValue(source.objectValue()); });
}

void NSCell::takeIntValueFrom(NSObject* sender)
{
    takeFrom(sender, [this](auto const& source) { setIntValue(source.intValue()); });
}

void NSCell::takeFloatValueFrom(NSObject* sender)
{
    takeFrom(sender, [this](auto const& source) { setFloatValue(source.floatValue()); });
}

void NSCell::takeDoubleValueFrom(NSObject* sender)
{
    takeFrom(sender, [this](auto const& source) { setDoubleValue(source.doubleValue()); });
}

}

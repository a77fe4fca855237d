#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>

namespace plix {

void NSWindow::sendEvent(NSEvent& event)
{
    Ref<NSWindow> const protector(this);
    Ref<NSEvent> const kept(event);
    switch (event.type()) {
    case NSKeyDown:
        return firstResponder()->keyDown(event);
    case NSKeyUp:
        return firstResponder()->keyUp(event);
    case NSFlagsChanged:
        return firstResponder()->flagsChanged(event);
    case NSMouseEntered:
    case NSMouseExited:
        if (Ref<NSResponder> const owner { dynamic_cast<NSResponder*>(m->tracking.owner(event.trackingNumber())) })
            event.type() == NSMouseEntered ? owner->mouseEntered(event) : owner->mouseExited(event);
        return;
    case NSCursorUpdate:
        if (Ref<NSResponder> const owner { dynamic_cast<NSResponder*>(m->tracking.owner(event.trackingNumber())) })
            owner->cursorUpdate(event);
        return;
    case NSMouseMoved:
        return firstResponder()->mouseMoved(event);
    case NSAppKitDefined:
        if (event.subtype() == NSEvent::preeditSubtype)
            firstResponder()->setMarkedText(event.characters(), { event.data1(), 0 });
        return;
    default:
        return m->dispatchMouse(event);
    }
}

NSView* NSWindow::Internals::viewAt(Point base) const
{
    Point const offset = contentOffset();
    return contentView->hitTest({ base.x - offset.x, base.y - offset.y });
}

void NSWindow::Internals::dispatchMouse(NSEvent& event)
{
    auto const sendTo = [&](Weak<NSView> const& view, void (NSResponder::*operation)(NSEvent&)) {
        if (Ref<NSView> const target = view.get())
            ((*target).*operation)(event);
    };
    auto const release
        = [&](Weak<NSView>& view, void (NSResponder::*operation)(NSEvent&)) { sendTo(std::exchange(view, nullptr), operation); };
    switch (event.type()) {
    case NSLeftMouseDown:
        return press(event, pressedView, &NSResponder::mouseDown);
    case NSRightMouseDown:
        return press(event, rightPressedView, &NSResponder::rightMouseDown);
    case NSOtherMouseDown:
        return press(event, otherPressedView, &NSResponder::otherMouseDown);
    case NSLeftMouseDragged:
        if (moveStart) {
            Point const origin = frame().origin();
            Point const pointer = event.locationInWindow();
            return self.setFrameOrigin({ origin.x + pointer.x - moveStart->x, origin.y + pointer.y - moveStart->y });
        }
        return sendTo(pressedView, &NSResponder::mouseDragged);
    case NSRightMouseDragged:
        return sendTo(rightPressedView, &NSResponder::rightMouseDragged);
    case NSOtherMouseDragged:
        return sendTo(otherPressedView, &NSResponder::otherMouseDragged);
    case NSLeftMouseUp:
        moveStart.reset();
        return release(pressedView, &NSResponder::mouseUp);
    case NSRightMouseUp:
        return release(rightPressedView, &NSResponder::rightMouseUp);
    case NSOtherMouseUp:
        return release(otherPressedView, &NSResponder::otherMouseUp);
    case NSScrollWheel:
        return sendTo(viewAt(event.locationInWindow()), &NSResponder::scrollWheel);
    default:
        return;
    }
}

bool NSWindow::Internals::startsMoving(NSView const& view) const
{
    return isMovableByBackground && !isSheet() && view.mouseDownCanMoveWindow();
}

void NSWindow::Internals::press(NSEvent& event, Weak<NSView>& pressed, void (NSResponder::*operation)(NSEvent&))
{
    Ref<NSView> const hit(viewAt(event.locationInWindow()));
    bool const isLeft = event.type() == NSLeftMouseDown;
    if (isLeft && isOrderedIn && !self.isKeyWindow()) {
        auto const* const panel = dynamic_cast<NSPanel const*>(&self);
        if (!(panel && panel->becomesKeyOnlyIfNeeded()) || (hit && hit->needsPanelToBecomeKey()))
            self.makeKeyWindow();
        if (self.canBecomeMainWindow())
            self.makeMainWindow();
    }
    pressed = hit.get();
    if (!hit)
        return;
    if (isLeft && hit->acceptsFirstResponder() && self.firstResponder() != hit.get())
        self.makeFirstResponder(hit.get());
    if (isLeft && startsMoving(*hit)) {
        self.internals().post(NSWindowWillMoveNotification, &NSWindowDelegate::windowWillMove);
        if (!host || !host->beginInteractiveMove())
            moveStart = event.locationInWindow();
    }
    if (pressed == hit.get())
        ((*hit).*operation)(event);
}

void NSWindow::keyDown(NSEvent& event)
{
    Ref<NSWindow> const protector(this);
    if (performKeyEquivalent(event))
        return;
    bool const isShifted = (event.modifierFlags() & NSShiftKeyMask) != 0;
    switch (event.characterIgnoringModifiers()) {
    case NSTabCharacter:
    case NSBackTabCharacter:
        if (isShifted || event.characterIgnoringModifiers() == NSBackTabCharacter)
            selectPreviousKeyView(this);
        else
            selectNextKeyView(this);
        return;
    default:
        break;
    }
    if (!m->pressDefaultButton(event))
        noResponderFor(Selector("keyDown:"));
}

bool NSWindow::Internals::pressDefaultButton(NSEvent const& key)
{
    auto const character = key.characterIgnoringModifiers();
    if (character != NSCarriageReturnCharacter && character != NSEnterCharacter)
        return false;
    Ref<NSResponder> const button(defaultButton.get());
    return button && isDefaultButtonEnabled && button->perform(Selector("performClick:"), &self);
}

bool NSWindow::performKeyEquivalent(NSEvent& event)
{
    Ref<NSView> const content(m->contentView);
    return content->performKeyEquivalent(event);
}

// The queue.

void NSWindow::postEvent(NSEvent& event, bool atStart)
{
    NSApp->postEvent(event, atStart);
}

NSEvent* NSWindow::currentEvent() const
{
    return NSApp->currentEvent();
}

Ref<NSEvent> NSWindow::nextEventMatchingMask(unsigned mask)
{
    return nextEventMatchingMask(mask, NSDate::distantFuture(), NSEventTrackingRunLoopMode, true);
}

Ref<NSEvent> NSWindow::nextEventMatchingMask(unsigned mask, NSDate until, std::string_view mode, bool dequeue)
{
    return NSApp->nextEventMatchingMask(mask, until, mode, dequeue);
}

void NSWindow::discardEventsMatchingMask(unsigned mask, NSEvent* lastEvent)
{
    NSApp->discardEventsMatchingMask(mask, lastEvent);
}

bool NSWindow::acceptsMouseMovedEvents() const
{
    return m->acceptsMouseMoved;
}

void NSWindow::setAcceptsMouseMovedEvents(bool accepts)
{
    m->acceptsMouseMoved = accepts;
}

bool NSWindow::ignoresMouseEvents() const
{
    return m->ignoresMouse;
}

void NSWindow::setIgnoresMouseEvents(bool ignores)
{
    m->ignoresMouse = ignores;
}

Point NSWindow::mouseLocationOutsideOfEventStream() const
{
    return convertScreenToBase(NSEvent::mouseLocation());
}

// Cursor rectangles.

bool NSWindow::areCursorRectsEnabled() const
{
    return m->tracking.areCursorRectsEnabled();
}

void NSWindow::disableCursorRects()
{
    m->tracking.disableCursorRects();
}

void NSWindow::enableCursorRects()
{
    m->tracking.enableCursorRects();
}

void NSWindow::discardCursorRects()
{
    m->tracking.discardAllCursorRects();
}

void NSWindow::resetCursorRects()
{
    m->tracking.resetCursorRects();
}

void NSWindow::invalidateCursorRectsForView(NSView& view)
{
    if (view.window() == this)
        m->tracking.invalidateCursorRects();
}

// Dragging: windows take part through their content view.

void NSWindow::dragImage(
    NSImage* image, Point at, Size initialOffset, NSEvent& event, NSPasteboard& pasteboard, NSView& source, bool slideBack)
{
    Ref<NSView> const content(m->contentView);
    content->dragImage(image, content->convertPointFromView(at, nullptr), initialOffset, event, pasteboard, source, slideBack);
}

void NSWindow::registerForDraggedTypes(std::vector<std::string> types)
{
    m->contentView->registerForDraggedTypes(std::move(types));
}

void NSWindow::unregisterDraggedTypes()
{
    m->contentView->unregisterDraggedTypes();
}

}

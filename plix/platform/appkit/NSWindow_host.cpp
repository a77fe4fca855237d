#include <plix/platform/appkit/ComboList.h>
#include <plix/platform/appkit/MenuTracker.h>
#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSView_internal.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/appkit/ToolTips.h>
#include <plix/platform/appkit/WindowWatcher.h>
#include <plix/platform/appkit/window_sizing.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/host/HostEvent.h>

#include <bit>

namespace plix {

namespace {

constexpr std::uint32_t leftBit = 1;
constexpr std::uint32_t rightBit = 2;

NSEventType pressType(int button)
{
    return button == 0 ? NSLeftMouseDown : button == 1 ? NSRightMouseDown : NSOtherMouseDown;
}

NSEventType releaseType(int button)
{
    return button == 0 ? NSLeftMouseUp : button == 1 ? NSRightMouseUp : NSOtherMouseUp;
}

NSEventType movementType(std::uint32_t buttons)
{
    return buttons == 0      ? NSMouseMoved
        : buttons & leftBit  ? NSLeftMouseDragged
        : buttons & rightBit ? NSRightMouseDragged
                             : NSOtherMouseDragged;
}

int heldButton(std::uint32_t buttons)
{
    return buttons == 0 ? 0 : std::countr_zero(buttons);
}

/// The window that a held button belongs to, else the one that the host names.
NSWindow& mouseTarget(NSApplication::Internals& application, NSWindow& window)
{
    auto* const holder = application.mouseWindow.get();
    return holder && holder->isVisible() ? *holder : window;
}

void postMouse(NSApplication::Internals& application, NSWindow& target, HostEvent const& event, NSEventType type, int button)
{
    Point const before = std::exchange(application.lastMouseLocation, event.locationOnScreen);
    auto made
        = NSEvent::mouseEventWithType(type, target.convertScreenToBase(event.locationOnScreen), event.modifiers, event.timestamp,
            target.windowNumber(), nullptr, application.nextEventNumber++, event.clickCount, event.pressedButtons ? 1.0F : 0.0F);
    application.enqueue(made->eventWithButton(button, event.locationOnScreen.x - before.x, before.y - event.locationOnScreen.y));
}

void postKey(NSApplication::Internals& application, NSWindow& window, HostEvent const& event, NSEventType type)
{
    // Whatever window of ours the host thinks has the keyboard, the key window gets the keys.
    auto* const key = application.keyWindow.get();
    auto const& target = key ? *key : window;
    application.enqueue(
        NSEvent::keyEventWithType(type, target.convertScreenToBase(event.locationOnScreen), event.modifiers, event.timestamp,
            target.windowNumber(), nullptr, event.characters, event.charactersIgnoringModifiers, event.isRepeat, event.keyCode));
}

void postPreedit(NSApplication::Internals& application, NSWindow& window, HostEvent const& event)
{
    auto* const key = application.keyWindow.get();
    application.enqueue(
        NSEvent::preeditEvent(event.timestamp, (key ? *key : window).windowNumber(), event.characters, event.preeditCaret));
}

}

void NSWindow::Internals::hostButtonEvent(HostEvent const& event, bool isPress)
{
    auto& application = NSApp->internals();
    auto& target = mouseTarget(application, self);
    Point const base = target.convertScreenToBase(event.locationOnScreen);
    if (isPress) {
        application.mouseWindow = target;
        target.internals().tracking.mouseMovedTo(base, true, event.modifiers, true);
        postMouse(application, target, event, pressType(event.button), event.button);
        return;
    }
    if (event.pressedButtons == 0)
        application.mouseWindow = nullptr;
    postMouse(application, target, event, releaseType(event.button), event.button);
    target.internals().tracking.mouseMovedTo(base, true, event.modifiers, event.pressedButtons != 0);
}

void NSWindow::Internals::hostMovement(HostEvent const& event)
{
    auto& application = NSApp->internals();
    NSCursor::setHiddenUntilMouseMoves(false);
    auto& target = event.pressedButtons ? mouseTarget(application, self) : self;
    if (!application.isBlocked(target))
        target.internals().tracking.mouseMovedTo(
            target.convertScreenToBase(event.locationOnScreen), true, event.modifiers, event.pressedButtons != 0);
    if (event.pressedButtons || target.acceptsMouseMovedEvents())
        postMouse(application, target, event, movementType(event.pressedButtons), heldButton(event.pressedButtons));
}

// The machine gives the mouse to others then, and with it the release.
void NSWindow::Internals::letGoOfButtons()
{
    auto& application = NSApp->internals();
    if (application.mouseWindow != &self)
        return;
    application.mouseWindow = nullptr;
    for (auto held = NSEvent::pressedMouseButtons(); held != 0; held &= held - 1) {
        int const button = std::countr_zero(held);
        auto const release = NSEvent::mouseEventWithType(releaseType(button), self.mouseLocationOutsideOfEventStream(),
            NSEvent::currentModifierFlags(), clock().uptime(), number, nullptr, application.nextEventNumber++, 1, 0);
        NSApp->postEvent(*release->eventWithButton(button, 0, 0), false);
    }
}

void NSWindow::Internals::hostWindowEvent(HostEvent const& event)
{
    Ref<NSWindow> const protector(self);
    if (auto* const watcher = WindowWatcher::current(); watcher && watcher->takesHostEvent(self, event))
        return;
    auto& application = NSApp->internals();
    Point const base = self.convertScreenToBase(event.locationOnScreen);
    if (event.type == HostEvent::Type::mouseMoved && event.pressedButtons == 0)
        ToolTips::mouseMoved(self, base);
    else if (event.type != HostEvent::Type::mouseEntered)
        ToolTips::hide();
    switch (event.type) {
    case HostEvent::Type::mouseDown:
    case HostEvent::Type::mouseUp:
        hostButtonEvent(event, event.type == HostEvent::Type::mouseDown);
        break;
    case HostEvent::Type::mouseMoved:
        hostMovement(event);
        break;
    case HostEvent::Type::mouseEntered:
    case HostEvent::Type::mouseExited:
        if (!application.isBlocked(self))
            tracking.mouseMovedTo(base, event.type == HostEvent::Type::mouseEntered, event.modifiers, event.pressedButtons != 0);
        break;
    case HostEvent::Type::scrollWheel:
        application.enqueue(
            NSEvent::scrollWheelEvent(base, event.modifiers, event.timestamp, number, event.scrollX, event.scrollY));
        break;
    case HostEvent::Type::keyDown:
        if (auto const catcher = WindowWatcher::keyCatcher(); catcher && !WindowWatcher::current() && catcher(self, event))
            return;
        postKey(application, self, event, NSKeyDown);
        break;
    case HostEvent::Type::keyUp:
        postKey(application, self, event, NSKeyUp);
        break;
    case HostEvent::Type::modifiersChanged:
        postKey(application, self, event, NSFlagsChanged);
        break;
    case HostEvent::Type::preedit:
        postPreedit(application, self, event);
        break;
    }
}

void NSWindow::Internals::hostWindowContentRectChanged(Rect rect)
{
    Ref<NSWindow> const protector(self);
    updateExtents();
    if (rect == content || isSliding())
        return;
    Rect const before = content;
    if (rect.size() != before.size()) {
        // The frame's top left stays where the resize has it.
        Size const proposed = frameAround(rect).size();
        Size wanted = resizedWindowSize(proposed, frame().size(), aspectRatio, resizeIncrements);
        if (hooks.windowWillResize)
            wanted = hooks.windowWillResize(self, wanted);
        if (wanted != proposed) {
            float const top = rect.maxY();
            rect = contentInside(rectWith(frameAround(rect).origin(), wanted));
            rect.y = top - rect.height;
        }
    }
    content = rect;
    placeHost();
    contentRectChanged(before);
    if (isInLiveResize)
        self.displayIfNeeded();
}

void NSWindow::Internals::hostWindowFocusChanged(bool hasFocus)
{
    Ref<NSWindow> const protector(self);
    hasHostFocus = hasFocus;
    if (hasFocus)
        NSApp->internals().focusGained(self);
    else
        NSApp->internals().focusLost();
}

void NSWindow::Internals::hostWindowCloseRequested()
{
    Ref<NSWindow> const protector(self);
    if (NSApp->internals().isBlocked(self))
        NSApp->internals().beepForBlocked(self);
    else
        self.performClose(nullptr);
}

void NSWindow::Internals::hostWindowNeedsRepaint(Rect rect)
{
    Ref<NSWindow> const protector(self);
    Point const offset = contentOffset();
    NSView::Access::markDirty(*contentView, contentView->convertRectFromView(NSOffsetRect(rect, offset.x, offset.y), nullptr));
    post(NSWindowDidExposeNotification, &NSWindowDelegate::windowDidExpose);
}

void NSWindow::Internals::hostWindowScaleChanged(float)
{
    context = nullptr;
    contentView->setNeedsDisplay(true);
    tracking.invalidateCursorRects();
}

void NSWindow::Internals::hostWindowMiniaturizedChanged(bool miniaturized)
{
    Ref<NSWindow> const protector(self);
    if (miniaturized == isMiniaturized)
        return;
    isMiniaturized = miniaturized;
    if (miniaturized) {
        letGoOfButtons();
        NSApp->internals().windowOrderedOut(self);
        MenuTracker::viewsLeftWindow();
        ComboList::viewsLeftWindow();
        post(NSWindowDidMiniaturizeNotification, &NSWindowDelegate::windowDidMiniaturize);
        return;
    }
    NSApp->internals().windowOrderedIn(self, NSWindowAbove, nullptr);
    contentView->setNeedsDisplay(true);
    self.makeKeyWindow();
    post(NSWindowDidDeminiaturizeNotification, &NSWindowDelegate::windowDidDeminiaturize);
}

void NSWindow::Internals::hostWindowLiveResizeChanged(bool isResizing)
{
    setLiveResize(isResizing);
}

namespace {

void tellLiveResize(NSView& view, bool begins)
{
    Ref<NSView> const protector(view);
    if (begins)
        view.viewWillStartLiveResize();
    else
        view.viewDidEndLiveResize();
    for (auto const& subview : std::vector(view.subviews()))
        tellLiveResize(*subview, begins);
}

}

void NSWindow::Internals::setLiveResize(bool resizes)
{
    Ref<NSWindow> const protector(self);
    if (isInLiveResize == resizes)
        return;
    // A view that is asked while it is told of the end is no longer in a live resize.
    isInLiveResize = resizes;
    tellLiveResize(*contentView, resizes);
    if (!resizes)
        self.displayIfNeeded();
}

bool NSWindow::inLiveResize() const
{
    return m->isInLiveResize;
}

}

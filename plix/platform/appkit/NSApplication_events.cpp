#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSWindow_internal.h>

#include <algorithm>

namespace plix {

namespace {

bool isMovement(NSEventType type)
{
    return type == NSMouseMoved || type == NSLeftMouseDragged || type == NSRightMouseDragged || type == NSOtherMouseDragged;
}

bool isPress(NSEventType type)
{
    return type == NSLeftMouseDown || type == NSRightMouseDown || type == NSOtherMouseDown;
}

/// What a view waits for that was told of the beginning.
bool isEnd(NSEventType type)
{
    return type == NSLeftMouseUp || type == NSRightMouseUp || type == NSOtherMouseUp || type == NSMouseExited;
}

bool isInput(NSEvent const& event)
{
    auto const type = event.type();
    return type <= NSFlagsChanged || type >= NSCursorUpdate
        || (type == NSAppKitDefined && event.subtype() == NSEvent::preeditSubtype);
}

bool isFunctionKey(NSEvent const& event)
{
    return (event.modifierFlags() & NSFunctionKeyMask) != 0 && event.characterIgnoringModifiers() >= NSF1FunctionKey
        && event.characterIgnoringModifiers() <= NSF1FunctionKey + 34;
}

bool matches(NSEvent const& event, unsigned mask)
{
    return (mask & NSEventMaskFromType(event.type())) != 0;
}

}

// The queue.

void NSApplication::Internals::enqueue(Ref<NSEvent> event)
{
    // Of movements that nobody has looked at yet only the last counts.
    if (isMovement(event->type()) && !queue.empty()) {
        auto const& last = *queue.back();
        if (last.type() == event->type() && last.windowNumber() == event->windowNumber()
            && last.modifierFlags() == event->modifierFlags()) {
            queue.back()
                = event->eventWithButton(event->buttonNumber(), last.deltaX() + event->deltaX(), last.deltaY() + event->deltaY());
            return;
        }
    }
    queue.push_back(std::move(event));
}

Ref<NSEvent> NSApplication::Internals::take(std::deque<Ref<NSEvent>>::iterator place)
{
    currentEvent = *place;
    queue.erase(place);
    return currentEvent;
}

void NSApplication::postEvent(NSEvent& event, bool atStart)
{
    if (atStart)
        m->queue.emplace_front(event);
    else
        m->queue.emplace_back(event);
    NSRunLoop::wakeUp();
}

NSEvent* NSApplication::currentEvent() const
{
    return m->currentEvent.get();
}

Ref<NSEvent> NSApplication::nextEventMatchingMask(unsigned mask, NSDate until, std::string_view mode, bool dequeue)
{
    Ref<NSApplication> const protector(this);
    std::string const modeName(mode);
    auto& loop = NSRunLoop::currentRunLoop();
    bool mayWait = true;
    for (;;) {
        auto const found = std::ranges::find_if(m->queue, [mask](auto const& event) { return matches(*event, mask); });
        if (found != m->queue.end())
            return dequeue ? m->take(found) : *found;
        // Whoever asked to stop is not kept waiting for an event.
        auto const* const session = m->innermostSession();
        bool const isStopped = m->stopsRunning || m->isTerminating || (session && session->response() != NSRunContinuesResponse);
        if (!mayWait || isStopped)
            return nullptr;
        auto const activity = loop.runOnce(modeName, until);
        mayWait = activity != NSRunLoop::Activity::None && !(until == NSDate::distantPast());
    }
}

void NSApplication::discardEventsMatchingMask(unsigned mask, NSEvent* lastEvent)
{
    std::deque<Ref<NSEvent>> kept;
    bool isBeyond = false;
    for (auto const& event : m->queue) {
        if (isBeyond || !matches(*event, mask))
            kept.push_back(event);
        isBeyond = isBeyond || (lastEvent && event == lastEvent);
    }
    m->queue = std::move(kept);
}

void NSApplication::Internals::beforeWaiting()
{
    Ref<NSApplication> const protector(self);
    if (std::exchange(mayHaveLostFocus, false)) {
        bool const hasFocus
            = std::ranges::any_of(NSWindow::Internals::all(), [](auto const* window) { return window->internals().hasHostFocus; });
        if (!hasFocus)
            setActive(false);
    }
    displayWindows();
    for (auto* window : order)
        window->internals().tracking.updateCursorIfNeeded();
}

void NSApplication::Internals::displayWindows()
{
    for (auto* window : std::vector(order)) {
        if (std::ranges::find(order, window) == order.end())
            continue;
        auto& internals = window->internals();
        if (internals.autodisplays && (internals.needsDisplay || !internals.toPresent.isEmpty()))
            window->displayIfNeeded();
    }
}

// Dispatch.

bool NSApplication::Internals::isBlocked(NSWindow const& window) const
{
    auto const& internals = window.internals();
    if (internals.sheet && internals.sheet->isVisible())
        return true;
    auto const* const session = innermostSession();
    auto const* const modal = session ? session->window() : nullptr;
    if (!modal || !modal->isVisible() || window.worksWhenModal() || internals.level >= NSPopUpMenuWindowLevel)
        return false;
    for (auto const* above = &window; above;) {
        if (above == modal)
            return false;
        auto const& relations = above->internals();
        above = relations.isSheet() ? relations.sheetParent.get() : relations.parent.get();
    }
    return true;
}

NSWindow& NSWindow::Internals::frontmostSheet()
{
    auto* window = &self;
    while (window->internals().sheet)
        window = window->internals().sheet.get();
    return *window;
}

void NSApplication::Internals::beepForBlocked(NSWindow& window)
{
    NSBeep();
    auto& front = window.internals().frontmostSheet();
    auto* const session = innermostSession();
    auto* const modal = session ? session->window() : nullptr;
    auto& wanted = &front != &window ? front : modal ? modal->internals().frontmostSheet() : window;
    Ref<NSWindow> const protector(wanted);
    if (wanted.isVisible())
        wanted.makeKeyAndOrderFront(nullptr);
}

void NSApplication::sendEvent(NSEvent& event)
{
    Ref<NSApplication> const protector(this);
    Ref<NSEvent> const kept(event);
    m->windowsNeedUpdate = true;
    Ref<NSWindow> window = event.window();
    bool const isKey = event.type() == NSKeyDown || event.type() == NSKeyUp || event.type() == NSFlagsChanged;
    if (!window && isKey)
        window = keyWindow();
    if (window && isInput(event) && m->isBlocked(*window)) {
        if (isPress(event.type()) || event.type() == NSKeyDown)
            m->beepForBlocked(*window);
        return;
    }
    // Input that was meant for a window which has left the screen since goes nowhere; but what was pressed there is let go.
    if (window && isInput(event) && !isEnd(event.type()) && window->internals().hasLeftScreen())
        return;
    if (event.type() == NSKeyDown)
        return m->sendKeyDown(event);
    if (window && !(window->ignoresMouseEvents() && event.isMouseEvent()))
        window->sendEvent(event);
}

void NSApplication::Internals::sendKeyDown(NSEvent& event)
{
    Ref<NSWindow> const named = event.window();
    Ref<NSWindow> const window = named ? named : Ref<NSWindow>(self.keyWindow());
    bool const isShortcut = event.hasShortcutModifier() || isFunctionKey(event);
    if (window && isShortcut && window->performKeyEquivalent(event))
        return;
    if (Ref<NSMenu> const menu = mainMenu; menu && isShortcut && menu->performKeyEquivalent(event))
        return;
    if (!window)
        return;
    window->sendEvent(event);
}

NSMenu* NSApplication::mainMenu() const
{
    return m->mainMenu.get();
}

void NSApplication::setMainMenu(Ref<NSMenu> const& menu)
{
    m->mainMenu = menu;
}

// Actions.

bool NSApplication::tryToPerform(Selector action, NSObject* argument)
{
    if (NSResponder::tryToPerform(action, argument))
        return true;
    Ref<NSObject> const host = delegate();
    return host && host->perform(action, argument);
}

bool NSApplication::sendAction(Selector action, NSObject* target, NSObject* sender)
{
    Ref<NSApplication> const protector(this);
    Ref<NSObject> const senderProtector(sender);
    if (!action)
        return false;
    Ref<NSObject> const receiver = target ? target : targetForAction(action, nullptr, sender);
    return receiver && receiver->perform(action, sender);
}

NSObject* NSApplication::targetForAction(Selector action) const
{
    // Nor does an action reach what a modal window or a sheet keeps input from.
    auto const alongChain = [this, action](NSWindow const* window) -> NSObject* {
        if (!window || m->isBlocked(*window))
            return nullptr;
        for (auto* responder = window->firstResponder(); responder; responder = responder->nextResponder()) {
            if (responder->respondsToSelector(action))
                return responder;
        }
        auto* const host = window->delegate();
        return host && host->respondsToSelector(action) ? host : nullptr;
    };
    if (auto* const found = alongChain(keyWindow()))
        return found;
    if (mainWindow() != keyWindow()) {
        if (auto* const found = alongChain(mainWindow()))
            return found;
    }
    if (respondsToSelector(action))
        return const_cast<NSApplication*>(this);
    auto* const host = delegate();
    return host && host->respondsToSelector(action) ? host : nullptr;
}

NSObject* NSApplication::targetForAction(Selector action, NSObject* target, NSObject*) const
{
    return target ? target : targetForAction(action);
}

}

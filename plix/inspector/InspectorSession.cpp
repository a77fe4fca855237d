#include <plix/inspector/InspectorSession.h>

#include <plix/inspector/InspectorPanel.h>
#include <plix/inspector/ViewOutline.h>
#include <plix/inspector/event_script.h>
#include <plix/inspector/view_facts.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/base/Global.h>
#include <plix/platform/base/Weak.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSTimer.h>

#include <algorithm>

namespace plix {

namespace {

constexpr NSTimeInterval refreshDelay = 0.1;

using Type = HostEvent::Type;

constinit Global<InspectorSession> currentSession;

bool isInspectable(NSWindow const& window)
{
    return window.isVisible() && window.level() < NSPopUpMenuWindowLevel && !dynamic_cast<InspectorPanel const*>(&window);
}

bool isMouse(Type type)
{
    return type == Type::mouseDown || type == Type::mouseUp || type == Type::mouseMoved || type == Type::mouseEntered
        || type == Type::mouseExited;
}

bool isLetterI(HostEvent const& event)
{
    return event.charactersIgnoringModifiers == "i" || event.charactersIgnoringModifiers == "I";
}

bool isEscape(HostEvent const& event)
{
    return event.charactersIgnoringModifiers == "\x1b";
}

/// The key window, or one that a person would call the current one.
NSWindow* windowToInspect()
{
    for (auto* const window : { NSApp->keyWindow(), NSApp->mainWindow() }) {
        if (window && isInspectable(*window))
            return window;
    }
    for (auto const& window : NSApp->orderedWindows()) {
        if (isInspectable(*window))
            return window.get();
    }
    return nullptr;
}

std::string countText(std::size_t count)
{
    return count == 0 ? "No events" : count == 1 ? "1 event" : std::to_string(count) + " events";
}

}

PLIX_DESCRIBE(InspectorSession)
{
}

InspectorSession::InspectorSession() = default;
InspectorSession::~InspectorSession() = default;

InspectorSession* InspectorSession::current()
{
    return currentSession.get();
}

bool InspectorSession::isOpeningKey(HostEvent const& event)
{
    constexpr std::uint32_t wanted = HostModifierControl | HostModifierShift;
    constexpr std::uint32_t others = HostModifierAlternate | HostModifierCommand;
    return event.type == Type::keyDown && !event.isRepeat && (event.modifiers & (wanted | others)) == wanted && isLetterI(event);
}

void InspectorSession::open(OpenedBy by)
{
    if (currentSession || !NSApp)
        return;
    currentSession = make<InspectorSession>();
    currentSession->begin(by);
}

void InspectorSession::close()
{
    if (Ref<InspectorSession> const session = currentSession.get()) {
        currentSession = nullptr;
        session->end();
    }
}

bool InspectorSession::init()
{
    m_panel = make<InspectorPanel>();
    // A button of the panel may be held while the session ends.
    auto const whileOpen = [weakly = Weak<InspectorSession>(*this)](auto call) {
        if (auto const session = weakly.ref())
            call(*session);
    };
    m_panel->views().setSelected([whileOpen](std::uint64_t id) {
        whileOpen([id](InspectorSession& session) {
            auto* const inspected = session.window();
            session.selectView(inspected && id != 0 ? viewWithSerialNumber(*inspected->contentView(), id) : nullptr);
        });
    });
    auto const act = [&](NSButton& button, void (*action)(InspectorSession&, bool isOn)) {
        button.setActionFunction([whileOpen, action](NSObject* sender) {
            whileOpen([&](auto& session) { action(session, static_cast<NSButton&>(*sender).state() != 0); });
        });
    };
    act(m_panel->pickButton(), [](auto& session, bool isOn) { session.setPicking(isOn); });
    act(m_panel->framesSwitch(), [](auto& session, bool isOn) { session.m_overlay.setShowsFrames(isOn); });
    act(m_panel->flashesSwitch(), [](auto& session, bool isOn) { session.m_overlay.setShowsFlashes(isOn); });
    act(m_panel->copyButton(), [](auto& session, bool) { session.copyAsTest(); });
    act(m_panel->clearButton(), [](auto& session, bool) { session.clearEvents(); });
    return true;
}

void InspectorSession::begin(OpenedBy by)
{
    m_keepsKeyRelease = m_awaitsModifierRelease = by == OpenedBy::keys;
    auto& center = NSNotificationCenter::defaultCenter();
    m_observers.push_back(center.addObserver(
        [this](NSNotification const& notification) { windowBecameKey(notification); }, NSWindowDidBecomeKeyNotification));
    m_observers.push_back(center.addObserver(
        [this](NSNotification const& notification) { windowWillClose(notification); }, NSWindowWillCloseNotification));
    auto* const inspected = windowToInspect();
    inspect(inspected);
    if (inspected)
        m_panel->placeBeside(*inspected);
    m_panel->orderFront(nullptr);
    // Some window managers give a new window the keyboard.
    if (inspected && inspected->hostWindow())
        inspected->hostWindow()->focus();
    WindowWatcher::setCurrent(this);
}

void InspectorSession::end()
{
    if (WindowWatcher::current() == this)
        WindowWatcher::setCurrent(nullptr);
    auto& center = NSNotificationCenter::defaultCenter();
    for (auto const& observer : std::exchange(m_observers, {}))
        center.removeObserver(*observer);
    if (m_refreshTimer)
        m_refreshTimer->invalidate();
    m_overlay.setWindow(nullptr);
    m_panel->views().setSelected({});
    m_panel->close();
}

void InspectorSession::inspect(NSWindow* wanted)
{
    if (wanted && wanted == window())
        return;
    m_overlay.setWindow(wanted);
    refresh();
}

void InspectorSession::selectView(NSView* view)
{
    if (view && view->window() != window())
        inspect(view->window());
    m_overlay.setSelectedView(view);
    refresh();
    if (view)
        m_panel->views().selectView(view->serialNumber());
}

void InspectorSession::setPicking(bool picks)
{
    m_isPicking = picks;
    m_overlay.setHoveredView(nullptr);
    m_panel->pickButton().setState(picks ? NSOnState : NSOffState);
}

void InspectorSession::copyAsTest()
{
    auto& pasteboard = NSPasteboard::generalPasteboard();
    pasteboard.declareTypes({ NSStringPboardType });
    pasteboard.setString(testSource(m_log.events()), NSStringPboardType);
    m_isCopied = true;
    refresh();
}

void InspectorSession::clearEvents()
{
    m_log.clear();
    m_isCopied = false;
    refresh();
}

void InspectorSession::refresh()
{
    if (m_refreshTimer)
        m_refreshTimer->invalidate();
    m_refreshTimer = nullptr;
    if (!window()) {
        if (auto* const other = windowToInspect())
            return inspect(other);
    }
    auto* const inspected = window();
    m_panel->setTitle(inspected ? "Inspector: " + inspected->title() : "Inspector");
    m_panel->views().setTree(inspected ? viewNodeOf(*inspected->contentView()) : ViewNode {});
    auto const* const selected = selectedView();
    m_panel->showFields(selected && selected->window() == inspected ? fieldRows(viewFactsOf(*selected)) : std::vector<FieldRow> {});
    m_panel->showEvents(m_log.events());
    m_panel->showStatus(countText(m_log.events().size()) + (m_isCopied ? " copied as a test" : ""));
}

void InspectorSession::refreshSoon()
{
    if (m_refreshTimer)
        return;
    m_refreshTimer = NSTimer::timerWithTimeInterval(
        refreshDelay,
        [weakly = Weak<InspectorSession>(*this)](NSTimer&) {
            if (auto const session = weakly.ref())
                session->refresh();
        },
        false);
    NSRunLoop::currentRunLoop().addTimer(*m_refreshTimer, NSRunLoopCommonModes);
}

// Windows.

void InspectorSession::windowBecameKey(NSNotification const& notification)
{
    auto* const key = dynamic_cast<NSWindow*>(notification.object.get());
    if (key && isInspectable(*key))
        inspect(key);
}

void InspectorSession::windowWillClose(NSNotification const& notification)
{
    auto const* const closing = notification.object.get();
    if (closing == m_panel.get())
        return close();
    // The panel is not what keeps an application running that ends with its last window.
    bool const isLast = std::ranges::none_of(
        NSApp->orderedWindows(), [&](auto const& other) { return other.get() != closing && isInspectable(*other); });
    if (isLast)
        return close();
    if (closing == window()) {
        m_overlay.setWindow(nullptr);
        refreshSoon();
    }
}

// What a person does.

bool InspectorSession::takesHostEvent(NSWindow& in, HostEvent const& event)
{
    Ref<InspectorSession> const protector(this);
    if (isOpeningKey(event)) {
        close();
        return true;
    }
    if (takesReleaseOfOpeningKey(event))
        return true;
    if (&in == m_panel.get())
        return takesPanelEvent(event);
    if (takesPick(in, event))
        return true;
    if (!isReleaseOfOpeningModifiers(event))
        record(in, event);
    return false;
}

bool InspectorSession::takesReleaseOfOpeningKey(HostEvent const& event)
{
    if (event.type != Type::keyUp || !isLetterI(event))
        return false;
    return std::exchange(m_keepsKeyRelease, false);
}

// The application is told of it, but it is no part of what is done from here on.
bool InspectorSession::isReleaseOfOpeningModifiers(HostEvent const& event)
{
    if (!m_awaitsModifierRelease)
        return false;
    bool const isRelease = event.type == Type::modifiersChanged;
    m_awaitsModifierRelease = isRelease ? event.modifiers != 0 : event.type == Type::mouseMoved;
    return isRelease;
}

bool InspectorSession::takesPanelEvent(HostEvent const& event)
{
    switch (event.type) {
    case Type::keyDown: {
        if (m_isPicking && isEscape(event)) {
            setPicking(false);
            return true;
        }
        auto const key = NSEvent::keyEventWithType(NSKeyDown, m_panel->convertScreenToBase(event.locationOnScreen), event.modifiers,
            event.timestamp, m_panel->windowNumber(), nullptr, event.characters, event.charactersIgnoringModifiers, event.isRepeat,
            event.keyCode);
        m_panel->takeKey(*key);
        return true;
    }
    case Type::keyUp:
    case Type::modifiersChanged:
    case Type::preedit:
        return true;
    default:
        return false;
    }
}

bool InspectorSession::takesPick(NSWindow& in, HostEvent const& event)
{
    if (m_keepsRelease && isMouse(event.type)) {
        m_keepsRelease = event.type != Type::mouseUp || event.pressedButtons != 0;
        return true;
    }
    if (!m_isPicking || !isInspectable(in))
        return false;
    if (event.type == Type::keyDown && isEscape(event)) {
        setPicking(false);
        return true;
    }
    if (!isMouse(event.type))
        return false;
    bool const isOutside = event.type == Type::mouseExited;
    auto* const view = isOutside ? nullptr : in.internals().viewAt(in.convertScreenToBase(event.locationOnScreen));
    inspect(&in);
    m_overlay.setHoveredView(view);
    if (event.type == Type::mouseDown) {
        m_keepsRelease = true;
        setPicking(false);
        selectView(view);
    }
    return true;
}

void InspectorSession::record(NSWindow& in, HostEvent const& event)
{
    bool const isKey = event.type == Type::keyDown || event.type == Type::keyUp || event.type == Type::modifiersChanged
        || event.type == Type::preedit;
    auto* const key = NSApp->keyWindow();
    NSObject const* const target = isKey ? static_cast<NSObject const*>((key ? *key : in).firstResponder())
                                         : in.internals().viewAt(in.convertScreenToBase(event.locationOnScreen));
    m_log.add({ event, in.internals().content, in.title(), target ? classNameOf(*target) : "" });
    m_isCopied = false;
    refreshSoon();
}

// Frames.

void InspectorSession::contentWillBeDrawn(NSWindow& in, Region& region)
{
    if (&in != window())
        return;
    m_overlay.contentWillBeDrawn(region);
    refreshSoon();
}

void InspectorSession::contentWasDrawn(NSWindow& in)
{
    if (&in == window())
        m_overlay.contentWasDrawn();
}

void InspectorSession::pixelsWillMove(NSWindow& in, Rect rect, Size by)
{
    if (&in == window())
        m_overlay.pixelsWillMove(rect, by);
}

}

#include <plugins/DatePicker/calendar_popup.h>

#include <plugins/DatePicker/CalendarView.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSRunLoop.h>

#include <utility>

namespace plix {

namespace {

class OpenCalendar;
OpenCalendar* s_open { nullptr };

class OpenCalendar {
public:
    OpenCalendar(NSView& view, Rect rect, CalendarChoice const&);
    ~OpenCalendar();
    OpenCalendar(OpenCalendar const&) = delete;
    OpenCalendar& operator=(OpenCalendar const&) = delete;

    std::optional<CalendarDay> run(bool isHeld);
    void end();
    NSView const* view() const { return m_view.get(); }

private:
    void handle(NSEvent&);
    void handleMouse(NSEvent&);
    void handleKey(NSEvent&);
    void press(Point, bool isInside);
    void release(Point);

    Weak<NSView> m_view;
    Ref<NSWindow> m_window;
    Ref<CalendarView> m_calendar;
    Ref<NSObject> m_activation;
    OpenCalendar* m_outer;
    std::optional<CalendarDay> m_chosen;
    bool m_isEnded { false };
    /// The button went down on a day, or has come to one since it went down on what opened the calendar.
    bool m_isPressed { false };
    bool m_isOpening { false };
};

OpenCalendar::OpenCalendar(NSView& view, Rect rect, CalendarChoice const& choice)
    : m_view(view)
    , m_outer(std::exchange(s_open, this))
{
    auto const inBase = view.convertRectToView(rect, nullptr);
    Rect const onScreen = rectWith(view.window()->convertBaseToScreen(inBase.origin()), inBase.size());
    auto const* screen = NSScreen::screenForRect(onScreen);
    auto const place = calendarFrame(onScreen, CalendarLayout::size(), (screen ? *screen : NSScreen::mainScreen()).visibleFrame());
    m_window = make<NSWindow>(place, NSBorderlessWindowMask, NSBackingStoreBuffered, true);
    m_window->setLevel(NSPopUpMenuWindowLevel);
    m_window->setHasShadow(true);
    m_window->setAcceptsMouseMovedEvents(true);
    m_calendar = make<CalendarView>(choice.marked, choice.today, choice.limits);
    m_window->setContentView(m_calendar);
    m_activation = NSNotificationCenter::defaultCenter().addObserver(
        [this](NSNotification const&) { end(); }, NSApplicationDidResignActiveNotification);
    m_window->orderFront(nullptr);
}

OpenCalendar::~OpenCalendar()
{
    NSNotificationCenter::defaultCenter().removeObserver(*m_activation);
    m_window->close();
    s_open = m_outer;
}

void OpenCalendar::end()
{
    m_isEnded = true;
    // Ends the wait. Events of the application's own type may be the host's.
    NSApp->postEvent(*NSEvent::otherEventWithType(NSAppKitDefined, {}, 0, clock().uptime(), 0, nullptr, 0, 0, 0), false);
}

std::optional<CalendarDay> OpenCalendar::run(bool isHeld)
{
    m_isOpening = isHeld;
    while (!m_isEnded && !m_chosen) {
        auto const event = NSApp->nextEventMatchingMask(NSAnyEventMask, NSDate::distantFuture(), NSEventTrackingRunLoopMode, true);
        auto const* view = m_view.get();
        if (!event || !view || !view->window() || !view->window()->isVisible())
            break;
        handle(*event);
    }
    return m_chosen;
}

void OpenCalendar::handle(NSEvent& event)
{
    if (event.type() == NSKeyDown)
        handleKey(event);
    else if (event.isMouseEvent() || event.type() == NSScrollWheel)
        handleMouse(event);
    else
        NSApp->sendEvent(event);
}

void OpenCalendar::handleMouse(NSEvent& event)
{
    Ref<NSWindow> const window(event.window());
    Point const onScreen = window ? window->convertBaseToScreen(event.locationInWindow()) : event.locationInWindow();
    Point const point = m_calendar->convertPointFromView(m_window->convertScreenToBase(onScreen), nullptr);
    bool const isInside = NSPointInRect(onScreen, m_window->frame());
    switch (event.type()) {
    case NSMouseMoved:
        return m_calendar->point(point);
    case NSLeftMouseDown:
        return press(point, isInside);
    case NSLeftMouseDragged:
        m_isPressed = m_isPressed || (m_isOpening && m_calendar->dayAt(point));
        return m_calendar->point(point);
    case NSLeftMouseUp:
        return release(point);
    case NSRightMouseDown:
    case NSOtherMouseDown:
        m_isEnded = !isInside;
        return;
    case NSScrollWheel:
        if (isInside)
            m_calendar->takeWheel(event);
        return;
    default:
        return;
    }
}

void OpenCalendar::press(Point point, bool isInside)
{
    if (!isInside) {
        m_isEnded = true;
        return;
    }
    m_isPressed = m_calendar->dayAt(point).has_value();
    m_calendar->turnPageAt(point);
    m_calendar->point(point);
}

void OpenCalendar::release(Point point)
{
    m_isOpening = false;
    if (std::exchange(m_isPressed, false))
        m_chosen = m_calendar->dayAt(point);
}

void OpenCalendar::handleKey(NSEvent& event)
{
    if (event.hasShortcutModifier())
        return;
    if (isCalendarKey(event)) {
        m_isEnded = true;
        return;
    }
    if (m_calendar->takeKey(event))
        return;
    switch (event.characterIgnoringModifiers()) {
    case NSCarriageReturnCharacter:
    case NSEnterCharacter:
    case NSNewlineCharacter:
    case U' ':
        m_chosen = m_calendar->marked();
        return;
    case NSEscapeCharacter:
        m_isEnded = true;
        return;
    case NSTabCharacter:
    case NSBackTabCharacter:
        m_isEnded = true;
        NSApp->sendEvent(event);
        return;
    default:
        return;
    }
}

}

std::optional<CalendarDay> runCalendar(NSView& view, Rect rect, CalendarChoice const& choice, NSEvent* opening)
{
    if (!NSApp || !view.window())
        return std::nullopt;
    Ref<NSView> const kept(view);
    return OpenCalendar(view, rect, choice).run(opening && NSEvent::pressedMouseButtons() != 0);
}

void dismissCalendar(NSView const& view)
{
    if (s_open && s_open->view() == &view)
        s_open->end();
}

bool isCalendarKey(NSEvent& event)
{
    auto const key = event.characterIgnoringModifiers();
    bool const isArrow = key == NSDownArrowFunctionKey || key == NSUpArrowFunctionKey;
    return key == NSF4FunctionKey || (isArrow && (event.modifierFlags() & NSAlternateKeyMask) != 0);
}

}

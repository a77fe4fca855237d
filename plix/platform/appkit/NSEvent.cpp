#include <plix/platform/appkit/NSEvent.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/host/Display.h>
#include <plix/platform/host/Host.h>

#include <utility>

namespace plix {

namespace {

constinit Global<NSTimer> s_periodicTimer;

bool isEnterOrExit(NSEventType type)
{
    return type == NSMouseEntered || type == NSMouseExited || type == NSCursorUpdate;
}

bool isOther(NSEventType type)
{
    return type >= NSAppKitDefined && type <= NSPeriodic;
}

bool isButtonOrMovement(NSEventType type)
{
    return (type >= NSLeftMouseDown && type <= NSRightMouseDragged) || (type >= NSOtherMouseDown && type <= NSOtherMouseDragged);
}

long buttonOf(NSEventType type)
{
    switch (type) {
    case NSRightMouseDown:
    case NSRightMouseUp:
    case NSRightMouseDragged:
        return 1;
    case NSOtherMouseDown:
    case NSOtherMouseUp:
    case NSOtherMouseDragged:
        return 2;
    default:
        return 0;
    }
}

char32_t firstCharacter(std::string const& text)
{
    std::size_t byte = 0;
    return text.empty() ? 0 : decodeUTF8(text, byte);
}

}

PLIX_DESCRIBE(NSEvent)
{
}

Ref<NSEvent> NSEvent::eventWith(
    NSEventType type, Point location, unsigned modifierFlags, NSTimeInterval timestamp, long windowNumber)
{
    auto event = make<NSEvent>();
    event->m_type = type;
    event->m_location = location;
    event->m_modifierFlags = modifierFlags;
    event->m_timestamp = timestamp;
    event->m_windowNumber = windowNumber;
    return event;
}

Ref<NSEvent> NSEvent::mouseEventWithType(NSEventType type, Point location, unsigned modifierFlags, NSTimeInterval timestamp,
    long windowNumber, NSGraphicsContext*, long eventNumber, long clickCount, float pressure)
{
    if (!isButtonOrMovement(type))
        return nullptr;
    auto event = eventWith(type, location, modifierFlags, timestamp, windowNumber);
    event->m_eventNumber = eventNumber;
    event->m_clickCount = clickCount;
    event->m_pressure = pressure;
    event->m_buttonNumber = buttonOf(type);
    return event;
}

Ref<NSEvent> NSEvent::keyEventWithType(NSEventType type, Point location, unsigned modifierFlags, NSTimeInterval timestamp,
    long windowNumber, NSGraphicsContext*, std::string characters, std::string charactersIgnoringModifiers, bool isARepeat,
    std::uint16_t keyCode)
{
    if (type != NSKeyDown && type != NSKeyUp && type != NSFlagsChanged)
        return nullptr;
    auto event = eventWith(type, location, modifierFlags, timestamp, windowNumber);
    event->m_characters = std::move(characters);
    event->m_charactersIgnoringModifiers = std::move(charactersIgnoringModifiers);
    event->m_isARepeat = isARepeat;
    event->m_keyCode = keyCode;
    return event;
}

Ref<NSEvent> NSEvent::enterExitEventWithType(NSEventType type, Point location, unsigned modifierFlags, NSTimeInterval timestamp,
    long windowNumber, NSGraphicsContext*, long eventNumber, long trackingNumber, void* userData)
{
    if (!isEnterOrExit(type))
        return nullptr;
    auto event = eventWith(type, location, modifierFlags, timestamp, windowNumber);
    event->m_eventNumber = eventNumber;
    event->m_trackingNumber = trackingNumber;
    event->m_userData = userData;
    return event;
}

Ref<NSEvent> NSEvent::otherEventWithType(NSEventType type, Point location, unsigned modifierFlags, NSTimeInterval timestamp,
    long windowNumber, NSGraphicsContext*, short subtype, long data1, long data2)
{
    if (!isOther(type))
        return nullptr;
    auto event = eventWith(type, location, modifierFlags, timestamp, windowNumber);
    event->m_subtype = subtype;
    event->m_data1 = data1;
    event->m_data2 = data2;
    return event;
}

Ref<NSEvent> NSEvent::scrollWheelEvent(
    Point location, unsigned modifierFlags, NSTimeInterval timestamp, long windowNumber, float deltaX, float deltaY)
{
    auto event = eventWith(NSScrollWheel, location, modifierFlags, timestamp, windowNumber);
    event->m_deltaX = deltaX;
    event->m_deltaY = deltaY;
    return event;
}

Ref<NSEvent> NSEvent::preeditEvent(NSTimeInterval timestamp, long windowNumber, std::string text, long caret)
{
    auto event = eventWith(NSAppKitDefined, {}, 0, timestamp, windowNumber);
    event->m_subtype = preeditSubtype;
    event->m_characters = std::move(text);
    event->m_data1 = caret;
    return event;
}

Ref<NSEvent> NSEvent::eventInWindow(long windowNumber, Point location) const
{
    auto event = copy();
    event->m_windowNumber = windowNumber;
    event->m_location = location;
    return event;
}

Ref<NSEvent> NSEvent::eventWithButton(long buttonNumber, float deltaX, float deltaY) const
{
    auto event = copy();
    event->m_buttonNumber = buttonNumber;
    event->m_deltaX = deltaX;
    event->m_deltaY = deltaY;
    return event;
}

void NSEvent::copyStateTo(NSObject& fresh) const
{
    NSObject::copyStateTo(fresh);
    auto& copied = static_cast<NSEvent&>(fresh);
    copied.m_type = m_type;
    copied.m_location = m_location;
    copied.m_modifierFlags = m_modifierFlags;
    copied.m_timestamp = m_timestamp;
    copied.m_windowNumber = m_windowNumber;
    copied.m_eventNumber = m_eventNumber;
    copied.m_clickCount = m_clickCount;
    copied.m_buttonNumber = m_buttonNumber;
    copied.m_pressure = m_pressure;
    copied.m_deltaX = m_deltaX;
    copied.m_deltaY = m_deltaY;
    copied.m_characters = m_characters;
    copied.m_charactersIgnoringModifiers = m_charactersIgnoringModifiers;
    copied.m_isARepeat = m_isARepeat;
    copied.m_keyCode = m_keyCode;
    copied.m_trackingNumber = m_trackingNumber;
    copied.m_userData = m_userData;
    copied.m_subtype = m_subtype;
    copied.m_data1 = m_data1;
    copied.m_data2 = m_data2;
}

NSWindow* NSEvent::window() const
{
    return NSWindow::windowWithNumber(m_windowNumber);
}

bool NSEvent::isMouseEvent() const
{
    return isButtonOrMovement(m_type);
}

char32_t NSEvent::character() const
{
    return firstCharacter(m_characters);
}

char32_t NSEvent::characterIgnoringModifiers() const
{
    return firstCharacter(m_charactersIgnoringModifiers);
}

Point NSEvent::mouseLocation()
{
    return host().display().mouseLocation();
}

unsigned NSEvent::pressedMouseButtons()
{
    return host().display().pressedButtons();
}

unsigned NSEvent::currentModifierFlags()
{
    return host().display().modifiers();
}

NSTimeInterval NSEvent::doubleClickInterval()
{
    return host().display().doubleClickInterval();
}

void NSEvent::startPeriodicEventsAfterDelay(NSTimeInterval delay, NSTimeInterval period)
{
    stopPeriodicEvents();
    auto timer = NSTimer::timerWithTimeInterval(
        period,
        [](NSTimer&) {
            if (NSApp)
                NSApp->postEvent(*otherEventWithType(NSPeriodic, mouseLocation(), 0, clock().uptime(), 0, nullptr, 0, 0, 0), false);
        },
        true);
    timer->setFireDate(NSDate::dateWithTimeIntervalSinceNow(delay));
    NSRunLoop::currentRunLoop().addTimer(*timer, NSRunLoopCommonModes);
    s_periodicTimer = timer;
}

void NSEvent::stopPeriodicEvents()
{
    if (!s_periodicTimer)
        return;
    s_periodicTimer->invalidate();
    s_periodicTimer = nullptr;
    if (NSApp)
        NSApp->discardEventsMatchingMask(NSPeriodicMask, nullptr);
}

std::string NSEvent::description() const
{
    return "NSEvent: type=" + std::to_string(m_type) + " loc=" + NSStringFromPoint(m_location)
        + " flags=" + std::to_string(m_modifierFlags) + " win=" + std::to_string(m_windowNumber)
        + (m_characters.empty() ? "" : " chars=\"" + m_characters + "\"");
}

}

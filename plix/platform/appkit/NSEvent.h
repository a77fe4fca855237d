#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/appkit/event_constants.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/base/NSDate.h>
#include <plix/platform/graphics/geometry.h>

#include <cstdint>
#include <optional>
#include <string>

namespace plix {

/// What happened, as the application's queue hands it out. Never changes once it is made. What an event of its type does not have
/// reads as zero, empty or nil.
class PLIX_EXPORT NSEvent : public NSObject {
    PLIX_CLASS(NSEvent, NSObject);

public:
    /// Null for a type that is no mouse button's and no mouse movement's. The location is in the base coordinates of the window, or
    /// on screen where the window number is 0.
    static Ref<NSEvent> mouseEventWithType(NSEventType, Point location, unsigned modifierFlags, NSTimeInterval timestamp,
        long windowNumber, NSGraphicsContext*, long eventNumber, long clickCount, float pressure);
    /// Null for a type other than key down, key up and flags changed.
    static Ref<NSEvent> keyEventWithType(NSEventType, Point location, unsigned modifierFlags, NSTimeInterval timestamp,
        long windowNumber, NSGraphicsContext*, std::string characters, std::string charactersIgnoringModifiers, bool isARepeat,
        std::uint16_t keyCode);
    /// Null for a type other than mouse entered, mouse exited and cursor update.
    static Ref<NSEvent> enterExitEventWithType(NSEventType, Point location, unsigned modifierFlags, NSTimeInterval timestamp,
        long windowNumber, NSGraphicsContext*, long eventNumber, long trackingNumber, void* userData);
    /// Null for a type other than the defined ones and periodic.
    static Ref<NSEvent> otherEventWithType(NSEventType, Point location, unsigned modifierFlags, NSTimeInterval timestamp,
        long windowNumber, NSGraphicsContext*, short subtype, long data1, long data2);
    /// Lines; positive y scrolls towards the start of the content, positive x towards its left.
    static Ref<NSEvent> scrollWheelEvent(
        Point location, unsigned modifierFlags, NSTimeInterval timestamp, long windowNumber, float deltaX, float deltaY);
    /// What an input method shows and has not entered yet, on its way to the first responder: the text in characters(), the caret
    /// in data1().
    static Ref<NSEvent> preeditEvent(NSTimeInterval timestamp, long windowNumber, std::string text, long caret);
    static constexpr short preeditSubtype = 20;
    /// The receiver as another window sees it: everything the same but window and location.
    Ref<NSEvent> eventInWindow(long windowNumber, Point location) const;
    /// The receiver with these of its values different.
    Ref<NSEvent> eventWithButton(long buttonNumber, float deltaX, float deltaY) const;

    // Of every event.
    NSEventType type() const { return m_type; }
    unsigned modifierFlags() const { return m_modifierFlags; }
    /// True where the keys that stand for "shortcut" on this platform are held: Control or Command. Key equivalents with
    /// NSCommandKeyMask, and clicks that toggle a selection, go by this.
    bool hasShortcutModifier() const { return plix::hasShortcutModifier(m_modifierFlags); }
    /// Seconds of clock().uptime().
    NSTimeInterval timestamp() const { return m_timestamp; }
    NSWindow* window() const;
    long windowNumber() const { return m_windowNumber; }
    NSGraphicsContext* context() const { return nullptr; }
    /// In the window's base coordinates (y upwards from its frame's lower left corner); on screen for an event without a window.
    Point locationInWindow() const { return m_location; }

    // Mouse:
    long clickCount() const { return m_clickCount; }
    /// 0 left, 1 right, 2 and up the others.
    long buttonNumber() const { return m_buttonNumber; }
    long eventNumber() const { return m_eventNumber; }
    float pressure() const { return m_pressure; }
    /// Movement since the last mouse event in points, y downwards; of the wheel its lines.
    float deltaX() const { return m_deltaX; }
    float deltaY() const { return m_deltaY; }
    float deltaZ() const { return 0; }
    bool isMouseEvent() const;

    // Keys:
    std::string const& characters() const { return m_characters; }
    std::string const& charactersIgnoringModifiers() const { return m_charactersIgnoringModifiers; }
    /// The first character entered, 0 where there is none.
    char32_t character() const;
    char32_t characterIgnoringModifiers() const;
    bool isARepeat() const { return m_isARepeat; }
    std::uint16_t keyCode() const { return m_keyCode; }
    bool isKeyEvent() const { return m_type == NSKeyDown || m_type == NSKeyUp; }

    // Entering and leaving:
    long trackingNumber() const { return m_trackingNumber; }
    void* userData() const { return m_userData; }

    // Others:
    short subtype() const { return m_subtype; }
    long data1() const { return m_data1; }
    long data2() const { return m_data2; }

    /// Where the pointer is now, on screen.
    static Point mouseLocation();
    /// Which buttons are held now: bit n for button n.
    static unsigned pressedMouseButtons();
    /// Which modifiers are held now.
    static unsigned currentModifierFlags();
    /// How far apart two clicks of a double click may be.
    static NSTimeInterval doubleClickInterval();

    /// Posts an NSPeriodic event each period, first after the delay, until stopped.
    static void startPeriodicEventsAfterDelay(NSTimeInterval delay, NSTimeInterval period);
    static void stopPeriodicEvents();

    // NSObject:
    std::string description() const override;

private:
    static Ref<NSEvent> eventWith(NSEventType, Point location, unsigned modifierFlags, NSTimeInterval timestamp, long windowNumber);
    void copyStateTo(NSObject& fresh) const override;

    NSEventType m_type { NSApplicationDefined };
    Point m_location;
    unsigned m_modifierFlags { 0 };
    NSTimeInterval m_timestamp { 0 };
    long m_windowNumber { 0 };
    long m_eventNumber { 0 };
    long m_clickCount { 0 };
    long m_buttonNumber { 0 };
    float m_pressure { 0 };
    float m_deltaX { 0 };
    float m_deltaY { 0 };
    std::string m_characters;
    std::string m_charactersIgnoringModifiers;
    bool m_isARepeat { false };
    std::uint16_t m_keyCode { 0 };
    long m_trackingNumber { 0 };
    void* m_userData { nullptr };
    short m_subtype { 0 };
    long m_data1 { 0 };
    long m_data2 { 0 };
};

}

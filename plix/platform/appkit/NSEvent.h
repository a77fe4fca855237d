#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/base/NSDate.h>
#include <plix/platform/graphics/geometry.h>

#include <cstdint>
#include <optional>
#include <string>

namespace plix {

enum NSEventType : int {
    NSLeftMouseDown = 1,
    NSLeftMouseUp = 2,
    NSRightMouseDown = 3,
    NSRightMouseUp = 4,
    NSMouseMoved = 5,
    NSLeftMouseDragged = 6,
    NSRightMouseDragged = 7,
    NSMouseEntered = 8,
    NSMouseExited = 9,
    NSKeyDown = 10,
    NSKeyUp = 11,
    NSFlagsChanged = 12,
    NSAppKitDefined = 13,
    NSSystemDefined = 14,
    NSApplicationDefined = 15,
    NSPeriodic = 16,
    NSCursorUpdate = 17,
    NSScrollWheel = 22,
    NSTabletPoint = 23,
    NSTabletProximity = 24,
    NSOtherMouseDown = 25,
    NSOtherMouseUp = 26,
    NSOtherMouseDragged = 27,
};

/// The mask that lets events of one type through.
constexpr unsigned NSEventMaskFromType(NSEventType type)
{
    return 1U << static_cast<unsigned>(type);
}

enum NSEventMask : unsigned {
    NSLeftMouseDownMask = 1U << NSLeftMouseDown,
    NSLeftMouseUpMask = 1U << NSLeftMouseUp,
    NSRightMouseDownMask = 1U << NSRightMouseDown,
    NSRightMouseUpMask = 1U << NSRightMouseUp,
    NSMouseMovedMask = 1U << NSMouseMoved,
    NSLeftMouseDraggedMask = 1U << NSLeftMouseDragged,
    NSRightMouseDraggedMask = 1U << NSRightMouseDragged,
    NSMouseEnteredMask = 1U << NSMouseEntered,
    NSMouseExitedMask = 1U << NSMouseExited,
    NSKeyDownMask = 1U << NSKeyDown,
    NSKeyUpMask = 1U << NSKeyUp,
    NSFlagsChangedMask = 1U << NSFlagsChanged,
    NSAppKitDefinedMask = 1U << NSAppKitDefined,
    NSSystemDefinedMask = 1U << NSSystemDefined,
    NSApplicationDefinedMask = 1U << NSApplicationDefined,
    NSPeriodicMask = 1U << NSPeriodic,
    NSCursorUpdateMask = 1U << NSCursorUpdate,
    NSScrollWheelMask = 1U << NSScrollWheel,
    NSOtherMouseDownMask = 1U << NSOtherMouseDown,
    NSOtherMouseUpMask = 1U << NSOtherMouseUp,
    NSOtherMouseDraggedMask = 1U << NSOtherMouseDragged,
    NSAnyEventMask = 0xFFFFFFFFU,
};

enum NSModifierFlags : unsigned {
    NSAlphaShiftKeyMask = 1U << 16,
    NSShiftKeyMask = 1U << 17,
    NSControlKeyMask = 1U << 18,
    NSAlternateKeyMask = 1U << 19,
    NSCommandKeyMask = 1U << 20, ///< the Super key
    NSNumericPadKeyMask = 1U << 21,
    NSHelpKeyMask = 1U << 22,
    NSFunctionKeyMask = 1U << 23,
    NSDeviceIndependentModifierFlagsMask = 0xFFFF0000U,
};

/// What keys without a character of their own enter: code points of Unicode's private area.
enum NSFunctionKey : char32_t {
    NSUpArrowFunctionKey = 0xF700,
    NSDownArrowFunctionKey = 0xF701,
    NSLeftArrowFunctionKey = 0xF702,
    NSRightArrowFunctionKey = 0xF703,
    NSF1FunctionKey = 0xF704,
    NSF2FunctionKey = 0xF705,
    NSF3FunctionKey = 0xF706,
    NSF4FunctionKey = 0xF707,
    NSF5FunctionKey = 0xF708,
    NSF6FunctionKey = 0xF709,
    NSF7FunctionKey = 0xF70A,
    NSF8FunctionKey = 0xF70B,
    NSF9FunctionKey = 0xF70C,
    NSF10FunctionKey = 0xF70D,
    NSF11FunctionKey = 0xF70E,
    NSF12FunctionKey = 0xF70F,
    NSF35FunctionKey = 0xF726,
    NSInsertFunctionKey = 0xF727,
    NSDeleteFunctionKey = 0xF728,
    NSHomeFunctionKey = 0xF729,
    NSEndFunctionKey = 0xF72B,
    NSPageUpFunctionKey = 0xF72C,
    NSPageDownFunctionKey = 0xF72D,
    NSPrintScreenFunctionKey = 0xF72E,
    NSScrollLockFunctionKey = 0xF72F,
    NSPauseFunctionKey = 0xF730,
    NSMenuFunctionKey = 0xF735,
    NSHelpFunctionKey = 0xF746,
};

/// Characters that control keys enter.
enum NSControlCharacter : char32_t {
    NSEnterCharacter = 0x03,
    NSBackspaceCharacter = 0x08,
    NSTabCharacter = 0x09,
    NSNewlineCharacter = 0x0A,
    NSFormFeedCharacter = 0x0C,
    NSCarriageReturnCharacter = 0x0D,
    NSBackTabCharacter = 0x19,
    NSEscapeCharacter = 0x1B,
    NSDeleteCharacter = 0x7F,
};

/// What happened, as the application's queue hands it out. Never changes once it is made. What an event of its type does not have
/// reads as zero, empty or nil.
class NSEvent : public NSObject {
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

    NSEventType type() const { return m_type; }
    unsigned modifierFlags() const { return m_modifierFlags; }
    /// True where the keys that stand for "shortcut" on this platform are held: Control or Command. Key equivalents with
    /// NSCommandKeyMask, and clicks that toggle a selection, go by this.
    bool hasShortcutModifier() const { return hasShortcutModifier(m_modifierFlags); }
    static constexpr bool hasShortcutModifier(unsigned flags) { return (flags & (NSControlKeyMask | NSCommandKeyMask)) != 0; }
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

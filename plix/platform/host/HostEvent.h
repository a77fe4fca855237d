#pragma once

#include <plix/platform/base/NSDate.h>
#include <plix/platform/graphics/geometry.h>

#include <cstdint>
#include <string>

namespace plix {

class HostWindow;

/// The modifier keys, as they are on the keyboard; the values are NSEvent's modifier flags.
enum HostModifier : std::uint32_t {
    HostModifierCapsLock = 1U << 16,
    HostModifierShift = 1U << 17,
    HostModifierControl = 1U << 18,
    HostModifierAlternate = 1U << 19,
    HostModifierCommand = 1U << 20, ///< the Super key
    HostModifierNumericPad = 1U << 21,
    HostModifierFunction = 1U << 23,
};

/// What a person did, before the application makes an event of it.
struct HostEvent {
    /// What a person did.
    enum class Type {
        mouseDown,
        mouseUp,
        mouseMoved, ///< also while buttons are held: see pressedButtons
        mouseEntered, ///< the pointer came into the window
        mouseExited,
        scrollWheel,
        keyDown,
        keyUp,
        modifiersChanged,
        preedit, ///< an input method shows text that is not yet entered; empty text ends it
    };

    Type type { Type::mouseMoved };
    /// In screen coordinates, points, y upwards.
    Point locationOnScreen;
    /// Seconds of clock().uptime().
    NSTimeInterval timestamp { 0 };
    std::uint32_t modifiers { 0 };

    /// 0 left, 1 right, 2 middle, more for further ones; of mouseDown and mouseUp.
    int button { 0 };
    /// 1 for a single click, 2 for a double click, ...; of mouseDown and mouseUp.
    int clickCount { 0 };
    /// Bit n is set while button n is held; after the event.
    std::uint32_t pressedButtons { 0 };

    /// Lines: positive y scrolls towards the start of the content, positive x towards its left. Fractions for smooth wheels.
    float scrollX { 0 };
    float scrollY { 0 };

    /// What the key enters, UTF-8: with function keys as AppKit's private code points (U+F700 up arrow, ...), Return as "\r",
    /// Tab "\t", Shift-Tab U+0019, Backspace U+007F, Escape U+001B, Enter on the keypad U+0003, the control characters with
    /// Control held. Empty for a dead key. What a compose sequence or an input method enters arrives as one keyDown.
    std::string characters;
    /// The same without any modifier but Shift.
    std::string charactersIgnoringModifiers;
    /// The hardware's code; 0xFFFF where text came without a key.
    std::uint16_t keyCode { 0xFFFF };
    bool isRepeat { false };

    /// Of preedit: the text in `characters`, and where its caret is, in UTF-16 units.
    long preeditCaret { 0 };
};

}

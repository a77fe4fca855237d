#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace plix {

/// A key as the window system reports it.
struct KeyStroke {
    /// The key's place: its code in the keyboard page of the USB HID usage tables (HUT 1.22, chapter 10).
    std::uint16_t usage { 0 };
    /// What the layout gives for it without and with Shift; 0 where that is no character (dead keys, function keys).
    char32_t plain { 0 };
    char32_t shifted { 0 };
    /// HostModifier bits.
    std::uint32_t modifiers { 0 };
    bool isNumLockOn { false };
};

struct KeyText {
    std::string characters;
    std::string charactersIgnoringModifiers;
    /// The stroke's modifiers with HostModifierFunction and HostModifierNumericPad where they belong to the key.
    std::uint32_t modifiers { 0 };
    friend bool operator==(KeyText const&, KeyText const&) = default;
};

enum class EnteredText {
    isComplete, ///< the window system sends what a key enters as text, so that a key without any enters nothing
    isMissing, ///< it sends no text: the key's own character counts
};

/// What a key means in the platform's characters (see HostEvent). `entered` is the text that the window system made of the stroke.
KeyText keyText(KeyStroke const&, std::string_view entered, EnteredText);

/// The HostModifier bit of a modifier key, or 0.
std::uint32_t modifierOfUsage(std::uint16_t usage);

/// The HostModifier bits, and the held buttons as HostEvent::pressedButtons counts them, in the window system's state of keys and
/// buttons (X protocol, SETofKEYBUTMASK). Alt is Mod1 and Super is Mod4, as the common layouts have them.
std::uint32_t modifiersFromState(unsigned state);
std::uint32_t buttonsFromState(unsigned state);
/// A button's number as HostEvent counts it (0 left, 1 right, 2 middle, then the side buttons); -1 for the four of the wheel.
int buttonFromNumber(unsigned number);

}

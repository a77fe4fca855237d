#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace plix {

/// One line of the key bindings: a key with its modifiers, and the commands that it stands for, performed one after the other.
struct KeyBinding {
    char32_t key;
    /// Of NSShiftKeyMask, NSControlKeyMask, NSAlternateKeyMask and NSCommandKeyMask; others do not count.
    unsigned modifiers;
    /// The second is null for a single command.
    std::array<char const*, 2> commands;
};

/// The bindings of text and tables, as desktops of this kind have them.
std::span<KeyBinding const> standardKeyBindings();

/// What a key press means: commands, or text to insert, or (both empty) nothing.
struct KeyInterpretation {
    std::span<char const* const> commands;
    std::string_view text;
};

/// `key` is the character without modifiers but Shift, `characters` what the key enters. Control and Command both act as the
/// shortcut modifier, so a key held with either that is not bound enters nothing.
KeyInterpretation interpretationOfKey(unsigned modifierFlags, char32_t key, std::string_view characters);

}

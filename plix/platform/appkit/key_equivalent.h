#pragma once

#include <string>
#include <string_view>

namespace plix {

class NSEvent;

/// Whether a key press is the key equivalent of a button or menu item: a character as it is typed, with the shortcut modifier or
/// Alternate where the mask says so. Shift counts where the mask has it or the character is upper case. Return and Enter are the
/// same key.
bool isKeyEquivalent(NSEvent const&, std::string_view key, unsigned modifierMask);

/// How menus show it: "Ctrl+Shift+Z", "Del", "F5".
std::string keyEquivalentText(std::string_view key, unsigned modifierMask);

}

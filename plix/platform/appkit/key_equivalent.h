#pragma once

#include <plix/platform/base/export.h>

#include <string>
#include <string_view>

namespace plix {

class NSEvent;

/// Whether a key press is the key equivalent of a button or menu item: a character as it is typed, with the shortcut modifier or
/// Alternate where the mask says so. Shift counts where the mask has it or the character is upper case. Return and Enter are the
/// same key.
PLIX_EXPORT bool isKeyEquivalent(NSEvent const&, std::string_view key, unsigned modifierMask);

/// How menus show it: "Ctrl+Shift+Z", "Del", "F5".
PLIX_EXPORT std::string keyEquivalentText(std::string_view key, unsigned modifierMask);

}

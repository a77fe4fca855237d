#pragma once

#include <string>
#include <string_view>

namespace plix {

/// Whether the key is one letter that has a lower case, in its upper case.
bool isUpperCaseLetter(std::string_view key);

/// "Ctrl+Shift+Z" for "Z" or for "z" with Shift, "Del", "F5", "Alt+Left"; "" without a key. Modifiers are event flags.
std::string keyNameWithModifiers(std::string_view key, unsigned modifierMask);

}

#pragma once

#include <plix/platform/base/export.h>

#include <string>
#include <string_view>

namespace plix {

/// Whether there is a character that is neither a blank nor a control character.
PLIX_EXPORT bool hasAnythingToSay(std::string_view text);

/// The text as services take it: well-formed UTF-8, U+FFFD for what is not; a blank for each control character but a line's end.
PLIX_EXPORT std::string speakableText(std::string_view text);

/// The text as the platform's C strings hold it: well-formed, and ended by its first NUL.
PLIX_EXPORT std::string lossyCString(std::string_view text);
/// The characters of a C string that are whole in its first 255 bytes: as much as the platform's counted strings hold.
PLIX_EXPORT std::string pascalString(std::string_view cString);

}

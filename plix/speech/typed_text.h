#pragma once

#include <plix/platform/base/export.h>

#include <string_view>

namespace plix {

/// Whether a text occurs in the characters, whole and byte by byte; "" never does.
PLIX_EXPORT bool isSpeakable(std::string_view text, std::string_view characters);

/// The key of the word that a text is spoken as; "" where it is spoken as it is.
PLIX_EXPORT std::string_view spokenWordKey(std::string_view text);

}

#pragma once

#include <plix/platform/base/NSRange.h>
#include <plix/platform/base/export.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace plix {

/// Strings are UTF-8; where the platform counts characters it counts UTF-16 units, and these translate. Each byte that is no
/// part of well-formed UTF-8 counts as one replacement character (U+FFFD), one unit. A position inside a surrogate pair
/// belongs to the start of its character.

/// How many UTF-16 units the text has.
PLIX_EXPORT long utf16Length(std::string_view text);
/// The byte at which the unit's character begins; the text's size at or beyond its end, 0 below 0.
PLIX_EXPORT std::size_t byteOffsetOfUnit(std::string_view text, long unit);
/// The unit at which the byte's character begins; the length in units at or beyond the text's end.
PLIX_EXPORT long unitAtByteOffset(std::string_view text, std::size_t byte);
/// The characters in a range of units. Raises NSRangeException where the range is not inside the text.
PLIX_EXPORT std::string_view substringWithRange(std::string_view text, NSRange units);

/// From one encoding to the other; what is ill-formed becomes U+FFFD.
PLIX_EXPORT std::u16string utf16FromUTF8(std::string_view text);
/// Lone surrogates become U+FFFD.
PLIX_EXPORT std::string utf8FromUTF16(std::u16string_view text);

/// Decodes the character at `byte` and moves `byte` behind it; U+FFFD and one byte on for a byte that is not well formed.
PLIX_EXPORT char32_t decodeUTF8(std::string_view text, std::size_t& byte);
PLIX_EXPORT void appendUTF8(std::string& text, char32_t character);
PLIX_EXPORT bool isValidUTF8(std::string_view text);
/// The text with each ill-formed byte replaced by U+FFFD.
PLIX_EXPORT std::string validUTF8(std::string_view text);

}

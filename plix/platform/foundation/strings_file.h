#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>

namespace plix {

/// Reads a table of localised strings: `"key" = "value";`, comments as in C, keys and values with or without quotes, \n \t \"
/// \\ and the like, \101 (octal) and \U00E9 in quotes; a key alone is its own value. UTF-8, or UTF-16 with a byte order mark. Of a
/// key that comes twice the last counts. nullopt where the text is none; `error` then says why, with the line.
std::optional<std::map<std::string, std::string>> parseStringsFile(std::span<std::uint8_t const> bytes, std::string& error);

/// The text of a file in UTF-8 or, with a byte order mark, in UTF-16 of either order; without the mark. Ill-formed parts become
/// U+FFFD.
std::string textOfFile(std::span<std::uint8_t const> bytes);

}

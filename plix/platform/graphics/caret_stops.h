#pragma once

#include <cstddef>
#include <string_view>

namespace plix {

// Positions are bytes. Where a caret may stand: between characters as people count them. A combining mark, a variation selector, a
// modifier of an emoji and what a zero width joiner joins belong to the character before; so does the second of two regional
// indicators.

/// The first stop behind the byte; the text's size at or beyond its end.
std::size_t nextCaretStop(std::string_view text, std::size_t byte);
/// The last stop before the byte; 0 at the start.
std::size_t previousCaretStop(std::string_view text, std::size_t byte);
bool isCaretStop(std::string_view text, std::size_t byte);

}

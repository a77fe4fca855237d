#pragma once

#include <cstddef>
#include <string_view>

namespace plix {

// Where words and paragraphs begin and end. Positions are bytes of valid UTF-8.

struct TextExtent {
    std::size_t first { 0 };
    std::size_t end { 0 };
    friend bool operator==(TextExtent, TextExtent) = default;
};

/// Behind the word that the position is in or before; the text's size where no word follows. A word is letters, digits, marks, low
/// lines, and apostrophes between letters.
std::size_t nextWordEnd(std::string_view text, std::size_t byte);
/// The start of the word that the position is in or behind; 0 where none comes before.
std::size_t previousWordStart(std::string_view text, std::size_t byte);
/// What a double click at the character selects: its word, the blanks around a blank, or a single other character. Nothing in an
/// empty text; at the end what is before it.
TextExtent wordAround(std::string_view text, std::size_t byte);
/// The paragraph that the position is in, with the line end that closes it.
TextExtent paragraphAround(std::string_view text, std::size_t byte);

}

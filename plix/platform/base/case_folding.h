#pragma once

#include <cstddef>
#include <string_view>

namespace plix {

/// The character that stands for all its cases when case does not matter: Unicode's simple case folding, one character for one.
char32_t caseFolded(char32_t character);

/// How many bytes of the text's beginning are the prefix in some case; npos where it does not begin so.
std::size_t foldedPrefixLength(std::string_view text, std::string_view prefix);

}

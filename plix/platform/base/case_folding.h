#pragma once

namespace plix {

/// The character that stands for all its cases when case does not matter: Unicode's simple case folding, one character for one.
char32_t caseFolded(char32_t character);

}

#pragma once

#include <optional>

namespace plix {

/// What Control makes of a character (ECMA-48's C0 set); nothing where it has no such form.
constexpr std::optional<char> controlCharacter(char32_t character)
{
    if (character == U' ')
        return '\0';
    if ((character >= U'@' && character <= U'_') || (character >= U'a' && character <= U'z'))
        return static_cast<char>(character & 0x1F);
    return {};
}

}

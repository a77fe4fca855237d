#pragma once

#include <plix/platform/base/export.h>

#include <string_view>

namespace plix {

enum NSComparisonResult : int { NSOrderedAscending = -1, NSOrderedSame = 0, NSOrderedDescending = 1 };

/// Options of compare(); they add up.
inline constexpr unsigned NSCaseInsensitiveSearch = 1;
/// Characters are compared as they are coded; without it, composed and decomposed forms of a character are the same.
inline constexpr unsigned NSLiteralSearch = 2;
/// Runs of the digits 0 to 9 are compared by their value, whatever their length and leading zeros.
inline constexpr unsigned NSNumericSearch = 64;

/// Compares by UTF-16 units, character by character, independent of the locale; case-insensitively by their case folding.
PLIX_EXPORT NSComparisonResult compare(std::string_view a, std::string_view b, unsigned options = 0);
inline NSComparisonResult caseInsensitiveCompare(std::string_view a, std::string_view b)
{
    return compare(a, b, NSCaseInsensitiveSearch);
}

}

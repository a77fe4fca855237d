#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/foundation/string_comparison.h>

#include <string>
#include <string_view>

namespace plix {

/// Compares names by the root collation of Unicode as a file browser sorts them: case, width and the form of composition do not
/// matter, accents do, punctuation and blanks count as characters, and digits stand for their numbers.
PLIX_EXPORT NSComparisonResult collateFileNames(std::u16string_view a, std::u16string_view b);

/// Compares by the rules of the user's locale, as lists of words are sorted for reading.
PLIX_EXPORT NSComparisonResult localizedCompare(std::string_view a, std::string_view b);
/// Likewise where case does not matter.
PLIX_EXPORT NSComparisonResult localizedCaseInsensitiveCompare(std::string_view a, std::string_view b);

}

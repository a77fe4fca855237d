#pragma once

#include <plix/platform/foundation/string_comparison.h>

#include <optional>
#include <string_view>

namespace plix {

/// Compare names for sorting, "File 9" before "File 10"; the same where either is nil.

/// By UTF-16 units without regard to case.
PLIX_EXPORT NSComparisonResult PLIXCompareDirectoryContents(std::optional<std::string_view> a, std::optional<std::string_view> b);
/// By Unicode's collation without regard to case, width and composition, punctuation counting. Whole strings are compared, by their
/// first 1024 UTF-16 units.
PLIX_EXPORT NSComparisonResult PLIXCompareLastPathComponent(std::optional<std::string_view> a, std::optional<std::string_view> b);

}

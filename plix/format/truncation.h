#pragma once

#include <plix/platform/graphics/attribute_names.h>

#include <optional>
#include <string>
#include <string_view>

namespace plix {

class NSCell;

/// Take characters off a text's end and put "..." there until it is 4 points narrower than a width, one character after the other.
/// Text that fits stays as it is. Where even "..." does not fit NSRangeException is raised.

/// Changes the cell's string value, and measures the attributed string that the cell makes of it. Nothing for nil.
PLIX_EXPORT void TruncateStringInCell(NSCell*, float width);
/// Nil where either is nil.
PLIX_EXPORT std::optional<std::string> TruncateStringWithAttributes(
    std::optional<std::string_view> string, Attributes const*, float width);

}

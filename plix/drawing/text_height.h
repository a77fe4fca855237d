#pragma once

#include <plix/platform/base/export.h>

namespace plix {

class NSAttributedString;

/// How high the string is when it is laid out in lines of that width: 0 for an empty one. Of a string higher than 10000 points
/// only the lines that fit in so much count. Not rounded. Keeps its text objects, and the last string, for the next call.
PLIX_EXPORT float PLIXAttributedStringHeightForWidth(NSAttributedString const& string, float width);

}

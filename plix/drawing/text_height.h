#pragma once

namespace plix {

class NSAttributedString;

/// How high the string is when it is laid out in lines of that width: 0 for an empty one. Of a string higher than 10000 points
/// only the lines that fit in so much count. Not rounded. Keeps its text objects, and the last string, for the next call.
float PLIXAttributedStringHeightForWidth(NSAttributedString const& string, float width);

}

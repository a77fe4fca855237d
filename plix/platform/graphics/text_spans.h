#pragma once

#include <plix/platform/graphics/text_style.h>

#include <cstddef>
#include <vector>

// Private to plix/platform/graphics.

namespace plix {

class NSAttributedString;

/// Walks a string's runs, mostly forwards, and gives the spans of one part after the other.
class SpanCursor {
public:
    /// After the string has changed.
    void restart();
    /// The spans of these bytes, counted from the first of them; one for no bytes, which is that of the character before.
    std::vector<StyleSpan> spans(NSAttributedString const&, std::size_t firstByte, std::size_t endByte);

private:
    std::size_t m_run { 0 };
    std::size_t m_runStart { 0 };
    long m_runStartUnit { 0 };
};

}

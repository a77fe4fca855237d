#pragma once

#include <plix/platform/graphics/geometry.h>

namespace plix {

/// What stands in a line of text in place of an NSAttachmentCharacter. The object under NSAttachmentAttributeName implements it.
class PLIX_EXPORT InlineObject {
public:
    virtual ~InlineObject() = default;

    /// In points. What is not finite or below 0 counts as 0.
    virtual Size inlineSize() const = 0;
    /// From the baseline to the lower left corner, y upwards.
    virtual Point inlineBaselineOffset() const { return {}; }
    /// Draws in the current context; the frame is in the context's coordinates, and so is its flippedness.
    virtual void drawInline(Rect frame) = 0;
};

}

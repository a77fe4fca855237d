#pragma once

#include <plix/platform/base/export.h>

namespace plix {

/// A document view that stands for more than its coordinates can tell apart: it holds a stretch of the whole at a time and moves
/// that along as it is scrolled. Scrollers show, and go by, the whole. Lengths and places are in points along y, from the top.
class PLIX_EXPORT LongDocument {
public:
    virtual ~LongDocument() = default;
    virtual double documentLength() const = 0;
    /// Where in the whole the view's y = 0 lies.
    virtual double documentOffset() const = 0;
    /// Brings a place of the whole to the top of what is visible, as far as the whole reaches.
    virtual void scrollDocumentTo(double place) = 0;
    /// Told by the clip view after each move.
    virtual void documentScrolled() = 0;
};

}

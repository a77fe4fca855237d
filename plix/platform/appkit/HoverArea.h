#pragma once

#include <plix/platform/appkit/NSView.h>

namespace plix {

/// Keeps a tracking rectangle on all of a view, for views that look different under the pointer.
class PLIX_EXPORT HoverArea {
public:
    /// From resetCursorRects(), which is called whenever the geometry changes. Answers whether the pointer is inside now.
    bool follow(NSView&);
    /// From viewWillMoveToWindow().
    void end(NSView&);

private:
    NSTrackingRectTag m_tag { 0 };
};

}

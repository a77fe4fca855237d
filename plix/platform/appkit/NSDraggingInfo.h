#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/appkit/drag_operation.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

/// A drag as its destination sees it.
class PLIX_EXPORT NSDraggingInfo : public NSObject {
public:
    // What is dragged, and what its source allows.
    virtual NSPasteboard& draggingPasteboard() const = 0;
    /// The view that the drag came from, null for another application's.
    virtual NSView* draggingSource() const = 0;
    virtual unsigned draggingSourceOperationMask() const = 0;
    /// Base coordinates of the destination's window.
    virtual Point draggingLocation() const = 0;
    virtual Point draggedImageLocation() const = 0;
    virtual NSImage* draggedImage() const = 0;
    virtual NSWindow* draggingDestinationWindow() const = 0;
    /// The same for one drag.
    virtual long draggingSequenceNumber() const = 0;
    virtual void slideDraggedImageTo(Point) = 0;
};

}

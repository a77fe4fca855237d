#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

class NSSplitView;

/// What a split view asks and tells its delegate. A divider has the index of the pane before it; positions are those of the start
/// of its rectangle, along the view.
struct NSSplitViewDelegate {
    /// The least and the greatest position of a divider; proposed is how far its neighbours reach.
    Hook<float(NSSplitView&, float proposedMinimum, long divider)> constrainMinCoordinate;
    Hook<float(NSSplitView&, float proposedMaximum, long divider)> constrainMaxCoordinate;
    /// Each position on the way of a divider that is dragged.
    Hook<float(NSSplitView&, float proposed, long divider)> constrainSplitPosition;
    Hook<bool(NSSplitView&, NSView& pane)> canCollapseSubview;
    /// A double click on a divider asks this for the panes at its sides that may collapse; without it nothing collapses so.
    Hook<bool(NSSplitView&, NSView& pane, long divider)> shouldCollapseSubview;
    /// In the place of adjustSubviews() after the view was resized.
    Hook<void(NSSplitView&, Size oldSize)> resizeSubviewsWithOldSize;

    // Told with the notification of the like name.
    Hook<void(NSNotification const&)> splitViewWillResizeSubviews;
    Hook<void(NSNotification const&)> splitViewDidResizeSubviews;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(constrainMinCoordinate);
        PLIX_FILL_HOOK(constrainMaxCoordinate);
        PLIX_FILL_HOOK(constrainSplitPosition);
        PLIX_FILL_HOOK(canCollapseSubview);
        PLIX_FILL_HOOK(shouldCollapseSubview);
        PLIX_FILL_HOOK(resizeSubviewsWithOldSize);
        PLIX_FILL_HOOK(splitViewWillResizeSubviews);
        PLIX_FILL_HOOK(splitViewDidResizeSubviews);
    }
};

}

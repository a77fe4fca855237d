#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/graphics/geometry.h>

#include <span>

namespace plix {

/// How a window and its pane change when a tab view makes the window fit the selected pane. Window frames are in screen
/// coordinates, the subviews' in their pane's, y upwards.

/// Which edges of the window move for a pane with a size of its own. None set: the lower left corner stays.
enum PLIXWindowResizeMode : unsigned long {
    PLIXWindowKeepsTop = 1,
    PLIXWindowGrowsBothWaysVertically = 2, ///< only where the top does not stay
    PLIXWindowGrowsBothWaysHorizontally = 16, ///< only where the right edge does not stay
    PLIXWindowKeepsRight = 32,
};

struct PaneFit {
    Rect windowFrame;
    /// Added to each subview's origin.
    Size subviewOffset;
    friend bool operator==(PaneFit const&, PaneFit const&) = default;
};

/// The height that the subviews want, 35 points more with the chrome; the top edge and the width stay. The lowest subview comes to
/// stand 20 points above the pane's bottom. Without subviews nothing changes.
PLIX_EXPORT PaneFit windowFrameFittingPane(Rect window, Size tabView, Size contentRect, std::span<Rect const> subviews);
/// Both sizes, with other margins, which is meant: 34 and 40 points more, the subviews 20 and 18 points from the pane's corner. The
/// top edge stays, the width grows both ways.
PLIX_EXPORT PaneFit windowFrameFittingPaneXY(Rect window, Size tabView, Size contentRect, std::span<Rect const> subviews);
/// For a pane with a size of its own, on whole points.
PLIX_EXPORT Rect windowFrameFittingCustomView(Rect window, Size contentRect, Size customView, unsigned long windowResizeMode);

/// A tab's label with an image before its text.
struct TabLabelPlan {
    Rect image; ///< square
    Rect text; ///< as wide as without image, which is meant
};
PLIX_EXPORT Size tabLabelSize(Size textLabel);
PLIX_EXPORT TabLabelPlan tabLabelPlan(Rect label, float imageHeight);

}

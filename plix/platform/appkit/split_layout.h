#pragma once

#include <plix/platform/base/export.h>

#include <cstddef>
#include <vector>

namespace plix {

/// A pane of a split view: how long it is along the view, in points. A collapsed one shows nothing and keeps its length for the
/// time when it comes back.
struct SplitPane {
    float length { 0 };
    bool isCollapsed { false };

    float shownLength() const { return isCollapsed ? 0 : length; }
    friend bool operator==(SplitPane const&, SplitPane const&) = default;
};

/// The panes in whole points, so that they fill a view of that length with a divider between each two: each keeps its share. Panes
/// that had no length at all share alike. Without room all are 0.
PLIX_EXPORT std::vector<SplitPane> splitPanesFilling(std::vector<SplitPane> panes, float viewLength, float dividerThickness);

/// Where each pane begins.
PLIX_EXPORT std::vector<float> splitPaneStarts(std::vector<SplitPane> const& panes, float dividerThickness);

/// Between which positions a divider can be, as the start of its rectangle.
struct SplitRange {
    float lowest { 0 };
    float highest { 0 };
    friend bool operator==(SplitRange const&, SplitRange const&) = default;
};
/// As far as its two neighbours reach: no other pane changes.
PLIX_EXPORT SplitRange splitRange(std::vector<SplitPane> const& panes, std::size_t divider, float dividerThickness);

/// What the host allows a divider.
struct SplitLimits {
    SplitRange allowed;
    bool canCollapseBefore { false };
    bool canCollapseBehind { false };
};
/// The panes with a divider at a position, to whole points and within what is allowed. A neighbour that may collapse does so where
/// less than half of its least length would be left, and comes back above that.
PLIX_EXPORT std::vector<SplitPane> splitPanesDragged(
    std::vector<SplitPane> panes, std::size_t divider, float position, float dividerThickness, SplitLimits const&);

}

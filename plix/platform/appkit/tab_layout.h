#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/graphics/affine_transform.h>
#include <plix/platform/graphics/control_size.h>
#include <plix/platform/graphics/geometry.h>

#include <span>
#include <vector>

namespace plix {

enum NSTabViewType : int {
    NSTopTabsBezelBorder = 0,
    NSLeftTabsBezelBorder = 1,
    NSBottomTabsBezelBorder = 2,
    NSRightTabsBezelBorder = 3,
    NSNoTabsBezelBorder = 4,
    NSNoTabsLineBorder = 5,
    NSNoTabsNoBorder = 6,
};

PLIX_EXPORT bool hasTabs(NSTabViewType);

/// Where the parts of a tab view go, in its coordinates; y grows downwards.
struct TabViewLayout {
    /// The border, in the middle of whose edge the tabs stand. Empty without border.
    Rect box;
    /// All of the edge that the tabs stand on; empty without tabs.
    Rect strip;
    Rect content;
    friend bool operator==(TabViewLayout const&, TabViewLayout const&) = default;
};
PLIX_EXPORT TabViewLayout tabViewLayout(Rect bounds, NSTabViewType, NSControlSize);
/// What the border, the margins and the tabs take of the view's size.
PLIX_EXPORT Size tabViewChrome(NSTabViewType, NSControlSize);

/// Along the strip: x runs as the labels are read, y from their tops to their bottoms, from (0, 0).
struct TabStripSpace {
    AffineTransform toView;
    Size size;
};
PLIX_EXPORT TabStripSpace tabStripSpace(TabViewLayout const&, NSTabViewType);

/// What a tab asks for, in whole points along the strip.
struct TabLength {
    float full { 0 };
    /// With its label truncated; as full where that is not wanted.
    float least { 0 };
};

struct TabStripPlan {
    /// One for each tab, in order; empty for those that are only in the menu.
    std::vector<Rect> tabs;
    /// The button that shows the menu of the others; empty while all tabs are there.
    Rect overflow;
    /// Around tabs and button.
    Rect track;
};
/// Tabs side by side in the strip's middle. Where they do not fit, the longest are shortened first; where that is not enough, the
/// last ones go into a menu, but never the selected one (-1 for none), which takes the last place then. On the left edge, where
/// labels are read upwards, the first tab is the topmost.
PLIX_EXPORT TabStripPlan tabStripPlan(std::span<TabLength const>, Size strip, long selected, NSTabViewType, NSControlSize);

/// Left and right of a label in its tab.
PLIX_EXPORT float tabPadding(NSControlSize);
/// In the middle of its tab, cut off where that is shorter.
PLIX_EXPORT Rect tabLabelRect(Rect tab, Size label, NSControlSize);

}

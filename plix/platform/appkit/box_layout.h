#pragma once

#include <plix/platform/graphics/geometry.h>

namespace plix {

enum NSTitlePosition : int {
    NSNoTitle = 0,
    NSAboveTop = 1,
    NSAtTop = 2,
    NSBelowTop = 3,
    NSAboveBottom = 4,
    NSAtBottom = 5,
    NSBelowBottom = 6,
};

struct BoxShape {
    NSTitlePosition titlePosition { NSAtTop };
    /// The title's, with the room around it; without one no size.
    Size titleSize;
    /// On each side.
    float borderThickness { 1 };
    Size margins { 5, 5 };
};

/// Where the parts of a box go, in its coordinates; y grows upwards.
struct BoxLayout {
    Rect border;
    Rect title;
    Rect content;
};
PLIX_EXPORT BoxLayout boxLayout(Rect bounds, BoxShape const&);

/// The size of a box around a content of that size.
PLIX_EXPORT Size boxSizeAround(Size content, BoxShape const&);

}

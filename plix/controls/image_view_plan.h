#pragma once

#include <plix/platform/graphics/geometry.h>

#include <vector>

namespace plix {

/// Where an image view puts its image: scaled down where it is larger than the room, never up, on whole points, centred in the
/// room's size. The room's origin does not count, which is meant.
Rect imagePlacement(Size image, Rect room);

/// The border of an image view without image: a rounded rectangle whose dashes are as long as its corners' radius.
struct DashedBorder {
    Rect path; ///< stroked 3 points wide
    float cornerRadius { 0 };
    /// What is cleared from the stroke: bands over the full height, then bands over the full width, each from the centre outwards.
    std::vector<Rect> gaps;
};

/// For a view's frame size and bounds. Where the sides are too short for a dash, none is cut out of them; where the radius leaves
/// no step to take, only the gap in the middle is.
DashedBorder dashedBorder(Size frame, Rect bounds);

}

#pragma once

#include <plix/platform/graphics/geometry.h>

namespace plix {

/// A combo box's list, in screen coordinates, y upwards.
struct ComboListShape {
    long itemCount { 0 };
    long visibleItems { 5 };
    /// With the space to the next.
    float itemHeight { 18 };
};

/// Where the list goes: below the field, or above it where there is more room, as wide as the field and as many whole items high as
/// are wanted, there and fit.
Rect comboListFrame(Rect field, ComboListShape const&, Rect screen);

/// Of a field in a flipped view: the button at the right end, no wider than the field.
Rect comboButtonRect(Rect bounds, float width);

/// The item to light after a key: from -1, none, to the last. Moves by a step and stays at the ends.
long comboItemAfterStep(long current, long step, long itemCount);

}

#pragma once

#include <plix/platform/host/Display.h>

#include <span>

namespace plix {

/// Where windows go on the screens. Screen coordinates, points, y upwards; the functions look at nothing but their arguments.

/// The screen that shows most of a rectangle; where none shows any of it, the one whose middle is nearest; 0 without screens.
PLIX_EXPORT std::size_t screenIndexForRect(Rect, std::span<HostScreen const>);
/// The screen that holds a point, else the nearest one.
PLIX_EXPORT std::size_t screenIndexForPoint(Point, std::span<HostScreen const>);

/// A popup's rectangle moved inside the visible frame of the screen that shows most of it. One that is larger than the screen keeps
/// its size and shows its upper left corner.
PLIX_EXPORT Rect popupRectOnScreen(Rect popup, std::span<HostScreen const>);

/// A window's frame moved so far that a person can get at it: the upper edge is not above the visible frame of its screen and not
/// below that frame's lower end less `graspable`, and `graspable` points of its width can be seen. Unchanged where that holds
/// already.
PLIX_EXPORT Rect frameBackOnScreen(Rect frame, std::span<HostScreen const>, float graspable = 48);

}

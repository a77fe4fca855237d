#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/graphics/geometry.h>

#include <array>

// Where the parts of an alert go when their contents change. y upwards.

namespace plix {

/// The frames of the buttons, the rightmost first.
using AlertButtonFrames = std::array<Rect, 3>;

/// With a new title in the button at `index`, whose cell wants the fitted size for it: the button keeps its right edge and lower
/// edge, and those to its left move by what it grew or shrank.
PLIX_EXPORT AlertButtonFrames alertButtonsWithTitle(AlertButtonFrames frames, std::size_t index, Size fitted);

/// What a text field of that width is measured in, and the height that it gets where the text needs the measured one.
PLIX_EXPORT Size alertTextBounds(float fieldWidth);
PLIX_EXPORT float alertTextHeight(float measuredHeight);

/// The window's frame when the height of a text field in it changed: the lower edge stays.
PLIX_EXPORT Rect alertFrameForTextHeight(Rect windowFrame, float fieldHeight, float fieldHeightBefore);

/// The window's frame when it is about to run as a sheet, each time.
PLIX_EXPORT Rect alertFrameForSheet(Rect windowFrame);

}

#pragma once

#include <plix/platform/graphics/geometry.h>

namespace plix {

/// What a window's size becomes when a person asks for `proposed`: changed from `now` in whole increments (at least 1 each), or,
/// where the aspect ratio is not zero, with its height following its width.
Size resizedWindowSize(Size proposed, Size now, Size aspectRatio, Size increments);

/// Where a sheet's lower left corner goes, on screen in whole points: its upper edge centred at the point it hangs from, but its
/// lower edge, with the buttons, not below the lower edge of the usable screen.
Point sheetOrigin(Size sheet, Point edge, float screenBottom);
/// What is to be seen of a sheet that has come out by a share of its height (0...1): the rectangle below its upper edge, at least a
/// point high.
Rect slidingSheetRect(Rect sheet, float share);

}

#pragma once

#include <plix/platform/graphics/path_geometry.h>

namespace plix {

/// The sides that take part in rounding: a corner is round where both of its sides do. Bit 1 and all others have no meaning.
enum PLIXRoundingStyle : unsigned {
    PLIXRoundMinXSide = 2,
    PLIXRoundMaxXSide = 4,
    PLIXRoundMaxYSide = 8,
    PLIXRoundMinYSide = 16,
    PLIXRoundAllSides = 30,
};

/// The outline behind bezierPathWithRoundedRect: from the corner at minimum x and y counter-clockwise, closed. The radius is at
/// most half of the shorter side.
PLIX_EXPORT PathGeometry roundedRectOutline(Rect, float cornerRadius, unsigned roundingStyle = PLIXRoundAllSides);

}

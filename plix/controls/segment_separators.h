#pragma once

#include <plix/platform/graphics/geometry.h>

#include <optional>

namespace plix {

/// The line on a segment's right edge, one point wide; none behind the last segment and on either side of the selected one. A
/// selection of -1 is none.
std::optional<Rect> segmentSeparator(long segment, long segmentCount, long selectedSegment, Rect segmentFrame);

/// Where a picture is centred over a control: whole points, without the bounds' origin.
Point centredImageOrigin(Size bounds, Size image);

}

#pragma once

#include <plix/platform/graphics/geometry.h>

#include <vector>

namespace plix {

/// What a segment asks for.
struct SegmentWidth {
    /// As the host set it; 0 for as wide as its content.
    float fixed { 0 };
    float content { 0 };
};

/// The segments' widths in whole points, side by side in a length. Segments without a fixed width share what is left over, or
/// missing, alike; where all are fixed, what is left stays empty at the end. None becomes narrower than 0.
std::vector<float> segmentWidths(std::vector<SegmentWidth> const&, float length);

}

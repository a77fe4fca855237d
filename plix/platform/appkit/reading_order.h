#pragma once

#include <plix/platform/graphics/geometry.h>

#include <cstddef>
#include <span>
#include <vector>

namespace plix {

/// The order in which a person reads rectangles, as indexes into them: row by row from the top, in each row from the left. A row is
/// what has its middle within the height of the row's topmost rectangle.
std::vector<std::size_t> readingOrder(std::span<Rect const> rects, bool isFlipped);

}

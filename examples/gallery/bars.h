#pragma once

#include <plix/platform/graphics/geometry.h>

namespace gallery {

/// Of the strips above the window's panes.
inline constexpr float barHeight = 44;

/// A strip of the window with a line along an edge towards the content, in flipped coordinates.
void drawBar(plix::Rect, plix::NSRectEdge lineEdge);

}

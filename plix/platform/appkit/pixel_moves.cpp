#include <plix/platform/appkit/pixel_moves.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace plix {

void movePixels(PixelBuffer const& buffer, PixelRect area, int dx, int dy)
{
    int const width = area.width - std::abs(dx);
    int const height = area.height - std::abs(dy);
    if (width <= 0 || height <= 0)
        return;
    auto pixel = [&](int x, int y) { return buffer.pixels + std::ptrdiff_t { y } * buffer.stride + std::ptrdiff_t { x } * 4; };
    int const fromX = area.x + (dx < 0 ? -dx : 0);
    int const toX = area.x + (dx > 0 ? dx : 0);
    int const fromY = area.y + (dy < 0 ? -dy : 0);
    // Rows that are still to be moved are not written over.
    for (int step = 0; step < height; ++step) {
        int const row = dy > 0 ? height - 1 - step : step;
        std::memmove(pixel(toX, fromY + row + dy), pixel(fromX, fromY + row), static_cast<std::size_t>(width) * 4);
    }
}

}

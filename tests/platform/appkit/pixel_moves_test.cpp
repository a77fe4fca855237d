#include <plix/platform/appkit/pixel_moves.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <numeric>

namespace plix {
namespace {

constexpr int side = 7;
using Grid = std::array<std::uint32_t, side * side>;

TEST(MovePixels, MovesWhatStaysInsideByEveryDistance)
{
    PixelRect const area { 1, 2, 4, 3 };
    for (int dy = -4; dy <= 4; ++dy) {
        for (int dx = -5; dx <= 5; ++dx) {
            Grid pixels;
            std::iota(pixels.begin(), pixels.end(), 1);
            Grid expected = pixels;
            for (int y = area.y; y < area.y + area.height; ++y) {
                for (int x = area.x; x < area.x + area.width; ++x) {
                    int const fromX = x - dx;
                    int const fromY = y - dy;
                    bool const isInside
                        = fromX >= area.x && fromX < area.x + area.width && fromY >= area.y && fromY < area.y + area.height;
                    if (isInside)
                        expected[static_cast<std::size_t>(y * side + x)] = pixels[static_cast<std::size_t>(fromY * side + fromX)];
                }
            }
            PixelBuffer buffer;
            buffer.pixels = reinterpret_cast<std::uint8_t*>(pixels.data());
            buffer.stride = side * 4;
            buffer.width = buffer.height = side;
            movePixels(buffer, area, dx, dy);
            EXPECT_EQ(pixels, expected) << dx << ", " << dy;
        }
    }
}

}
}

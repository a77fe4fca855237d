#include <plix/platform/graphics/pixel_operations.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace plix {

namespace {

std::uint32_t plusDarkerPixel(std::uint32_t source, std::uint32_t destination)
{
    int const sourceAlpha = static_cast<int>(source >> 24U);
    int const destinationAlpha = static_cast<int>(destination >> 24U);
    int const alpha = std::min(sourceAlpha + destinationAlpha, 255);
    auto pixel = static_cast<std::uint32_t>(alpha) << 24U;
    for (unsigned shift = 0; shift < 24; shift += 8) {
        int const missing = sourceAlpha - static_cast<int>(source >> shift & 255U) + destinationAlpha
            - static_cast<int>(destination >> shift & 255U);
        pixel |= static_cast<std::uint32_t>(std::max(alpha - missing, 0)) << shift;
    }
    return pixel;
}

}

void plusDarker(std::uint8_t* destination, std::uint8_t const* source, int width, int height, int stride)
{
    for (int y = 0; y < height; ++y) {
        auto const offset = static_cast<std::ptrdiff_t>(y) * stride;
        for (int x = 0; x < width; ++x) {
            std::uint32_t from;
            std::uint32_t to;
            std::memcpy(&from, source + offset + 4 * x, 4);
            std::memcpy(&to, destination + offset + 4 * x, 4);
            to = plusDarkerPixel(from, to);
            std::memcpy(destination + offset + 4 * x, &to, 4);
        }
    }
}

}

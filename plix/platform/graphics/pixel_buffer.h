#pragma once

#include <cstdint>

namespace plix {

/// A rectangle of device pixels, y downwards from the top left.
struct PixelRect {
    int x { 0 };
    int y { 0 };
    int width { 0 };
    int height { 0 };
    friend constexpr bool operator==(PixelRect, PixelRect) = default;
};

/// Pixels in memory that belong to somebody else: 32 bits each in the machine's byte order, alpha in the highest byte, then red,
/// green, blue. Premultiplied where there is alpha; without it the highest byte has no meaning. Rows from the top.
struct PixelBuffer {
    std::uint8_t* pixels { nullptr };
    int stride { 0 }; ///< bytes from one row to the next, a multiple of 4
    int width { 0 };
    int height { 0 };
    float scale { 1 }; ///< device pixels a point
    bool hasAlpha { false };
    /// Of a window's buffer: false where the content of the last frame is gone, so that everything is to be drawn.
    bool keepsContent { true };
};

}

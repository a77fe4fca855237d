#pragma once

#include <cstdint>

namespace plix {

// Loops over premultiplied 32-bit pixels, alpha in the highest byte. Vectorised where the machine has SSE2; the plain loops give
// the same.

/// destination = the operation "plus darker" of source and destination, of the same stride in bytes.
void plusDarker(std::uint8_t* destination, std::uint8_t const* source, int width, int height, int stride);

/// destination = source x fraction over destination; the fraction is of 255.
void blendRowOver(std::uint32_t* destination, std::uint32_t const* source, int count, std::uint32_t fraction);
/// destination = source x fraction.
void copyRow(std::uint32_t* destination, std::uint32_t const* source, int count, std::uint32_t fraction);
/// destination = source (1 - alpha of colour) + colour x alpha of source: what remains of a filled colour where the source lies
/// atop it.
void recolorRow(std::uint32_t* destination, std::uint32_t const* source, int count, std::uint32_t premultipliedColor);

/// value x / 255, rounded to the nearest, for values up to 255 x 255.
constexpr std::uint32_t dividedBy255(std::uint32_t value)
{
    std::uint32_t const biased = value + 128;
    return (biased + (biased >> 8U)) >> 8U;
}

/// Every channel times a factor of 255, rounded to the nearest.
constexpr std::uint32_t scaledPixel(std::uint32_t pixel, std::uint32_t factor)
{
    std::uint32_t low = (pixel & 0x00FF00FFU) * factor + 0x00800080U;
    std::uint32_t high = (pixel >> 8U & 0x00FF00FFU) * factor + 0x00800080U;
    low = (low + (low >> 8U & 0x00FF00FFU)) >> 8U & 0x00FF00FFU;
    high = (high + (high >> 8U & 0x00FF00FFU)) & 0xFF00FF00U;
    return low | high;
}

/// Channel by channel, at most 255.
constexpr std::uint32_t saturatedSum(std::uint32_t a, std::uint32_t b)
{
    std::uint32_t result = 0;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        std::uint32_t const sum = (a >> shift & 255U) + (b >> shift & 255U);
        result |= (sum < 255 ? sum : 255U) << shift;
    }
    return result;
}

}

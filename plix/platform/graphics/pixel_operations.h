#pragma once

#include <cstdint>

namespace plix {

/// destination = the operation "plus darker" of source and destination; both premultiplied ARGB of the same stride.
void plusDarker(std::uint8_t* destination, std::uint8_t const* source, int width, int height, int stride);

/// value x / 255, rounded to the nearest.
constexpr std::uint32_t dividedBy255(std::uint32_t value)
{
    std::uint32_t const biased = value + 128;
    return (biased + (biased >> 8U)) >> 8U;
}

}

#pragma once

#include <cstdint>

namespace plix {

/// Blends a premultiplied colour over a row of premultiplied pixels, each by its coverage of 0 to 255. Rounds as Cairo does.
void blendCoverage(std::uint32_t* pixels, std::uint8_t const* coverage, int count, std::uint32_t color);

}

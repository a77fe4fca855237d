#pragma once

#include <cstdint>

namespace plix {

/// Blurs an 8-bit mask in place as a shadow of this radius (device pixels) is blurred: a Gaussian of half the radius as its
/// deviation, from close approximations for large ones. Values beyond the edges count as 0. A radius of 0 leaves the mask alone.
void blurShadowMask(std::uint8_t* mask, int width, int height, int stride, float radius);
/// How many pixels beyond the shape the blur of that radius reaches.
int shadowBlurReach(float radius);

}

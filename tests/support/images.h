#pragma once

#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/color_components.h>

#include <cstdint>

// Images for tests that ask which source pixel went where.

namespace plix {

/// The pixel that bitmapOfDistinctPixels has at x from the left, y from the top: no two are alike, all are opaque.
std::uint32_t distinctPixel(int x, int y);
Ref<NSBitmapImageRep> bitmapOfDistinctPixels(int width, int height);
/// One pixel a point.
Ref<NSImage> imageOfDistinctPixels(int width, int height);
Ref<NSBitmapImageRep> bitmapOfColor(int width, int height, ColorComponents);
/// Drawn into, so at the backing scale of the moment.
Ref<NSImage> imageOfColor(Size, ColorComponents);

}

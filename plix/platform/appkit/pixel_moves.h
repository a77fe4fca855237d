#pragma once

#include <plix/platform/host/HostWindow.h>

namespace plix {

/// Moves the pixels of an area, as far as they stay inside it; what they leave keeps its old pixels. The area lies in the buffer.
/// y grows downwards.
void movePixels(PixelBuffer const&, PixelRect area, int dx, int dy);

}

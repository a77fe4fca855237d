#pragma once

#include "pages.h"

namespace gallery {

/// Geometry, transforms, paths, colours, contexts, shadows and shadings.
std::span<Page const> graphicsPages();

}

#pragma once

#include "pages.h"

namespace gallery {

/// Controls and cells as such, images, progress, boxes and split views.
std::span<Page const> cellsPages();

}

#pragma once

#include "pages.h"

namespace gallery {

/// What all controls are drawn with.
std::span<Page const> themePages();

}

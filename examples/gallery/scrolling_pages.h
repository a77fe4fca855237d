#pragma once

#include "pages.h"

namespace gallery {

/// Scroll views, their parts and scrollers.
std::span<Page const> scrollingPages();

}

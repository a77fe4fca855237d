#pragma once

#include "pages.h"

namespace gallery {

/// Buttons, pop-ups and segments.
std::span<Page const> buttonsPages();

}

#pragma once

#include "pages.h"

namespace gallery {

/// Fonts, attributed texts, and how they are laid out.
std::span<Page const> layoutPages();

}

#pragma once

#include "pages.h"

namespace gallery {

/// Dates, scanners, characters, comparison and paths.
std::span<Page const> foundationPages();

}

#pragma once

#include "pages.h"

namespace gallery {

/// Combo boxes and dates.
std::span<Page const> comboPages();

}

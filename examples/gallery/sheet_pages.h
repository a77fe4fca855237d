#pragma once

#include "pages.h"

namespace gallery {

/// The states of controls, family by family, and all of them together.
std::span<Page const> sheetPages();

}

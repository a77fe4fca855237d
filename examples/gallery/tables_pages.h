#pragma once

#include "pages.h"

namespace gallery {

/// Tables, outlines, their headers and cells.
std::span<Page const> tablesPages();

}

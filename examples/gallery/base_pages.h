#pragma once

#include "pages.h"

namespace gallery {

/// Objects, references, classes by name, and plain values.
std::span<Page const> basePages();

}

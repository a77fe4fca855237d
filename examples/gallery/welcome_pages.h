#pragma once

#include "pages.h"

namespace gallery {

/// What the library is.
std::span<Page const> welcomePages();

}

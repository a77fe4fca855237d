#pragma once

#include "pages.h"

namespace gallery {

/// Menus and their items.
std::span<Page const> menusPages();

}

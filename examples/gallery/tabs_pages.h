#pragma once

#include "pages.h"

namespace gallery {

/// Tab views and their items.
std::span<Page const> tabsPages();

}

#pragma once

#include "pages.h"

namespace gallery {

/// Windows, panels, what loads them, and what asks in them.
std::span<Page const> windowsPages();

}

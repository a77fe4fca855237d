#pragma once

#include "pages.h"

namespace gallery {

/// What the machine does for an application.
std::span<Page const> hostPages();

}

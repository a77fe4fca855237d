#pragma once

#include "pages.h"

namespace gallery {

/// Images, what they are made of, and what is made of them.
std::span<Page const> imagePages();

}

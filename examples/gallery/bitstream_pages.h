#pragma once

#include "pages.h"

namespace gallery {

/// The bit reader.
std::span<Page const> bitstreamPages();

}

#pragma once

#include "pages.h"

namespace gallery {

/// Files, bundles, defaults, archives and documents.
std::span<Page const> filesPages();

}

#pragma once

#include "pages.h"

namespace gallery {

/// Sounds and speech.
std::span<Page const> soundPages();

}

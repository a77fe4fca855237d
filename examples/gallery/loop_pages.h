#pragma once

#include "pages.h"

namespace gallery {

/// Notifications, the run loop, timers and undo.
std::span<Page const> loopPages();

}

#pragma once

#include "pages.h"

namespace gallery {

/// Views, events, responders, the application, documents and what the machine shares.
std::span<Page const> eventsPages();

}

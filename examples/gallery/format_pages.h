#pragma once

#include "pages.h"

namespace gallery {

/// Intervals, sizes, dates, colours and lists as text, and what is added to strings, collections and views.
std::span<Page const> formatPages();

}

#pragma once

#include "pages.h"

namespace gallery {

/// Names that are unique, who this machine is, kinds of media, and paths through documents.
std::span<Page const> systemPages();

}

#pragma once

#include "pages.h"

namespace gallery {

/// Fields, text views, attachments and engraved labels.
std::span<Page const> textPages();

}

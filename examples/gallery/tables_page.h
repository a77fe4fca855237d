#pragma once

#include <plix/platform/appkit/NSView.h>

namespace gallery {

/// Tables and outlines: highlights, drop targets, messages, images in cells.
plix::Ref<plix::NSView> makeTablesPage();

}

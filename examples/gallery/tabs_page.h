#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

class NSView;

}

namespace gallery {

/// Tab views of every kind and size, with images, with more tabs than fit, and a window that fits its panes.
plix::Ref<plix::NSView> makeTabsPage();

}

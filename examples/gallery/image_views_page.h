#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

class NSView;

}

namespace gallery {

/// Image views with and without an image, and segmented controls with lines between their segments.
plix::Ref<plix::NSView> makeImageViewsPage();

}

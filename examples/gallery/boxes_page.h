#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

class NSView;

}

namespace gallery {

/// Boxes, lines, image views, progress indicators and split views.
plix::Ref<plix::NSView> makeBoxesPage();

}

#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

class NSView;

}

namespace gallery {

/// Text fields in all their states and sizes, and a text of many lines; all of them can be typed into.
plix::Ref<plix::NSView> makeTextPage();

}

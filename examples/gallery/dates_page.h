#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

class NSView;

}

namespace gallery {

/// Date pickers of the plug-in in their states, the picker of three fields in its orders, and a button that asks for a range.
plix::Ref<plix::NSView> makeDatesPage();

}

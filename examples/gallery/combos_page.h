#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

class NSView;

}

namespace gallery {

/// Combo boxes and date fields, in all their states.
plix::Ref<plix::NSView> makeCombosPage();

}

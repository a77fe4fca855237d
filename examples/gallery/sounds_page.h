#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

class NSView;

}

namespace gallery {

/// The system's alert sounds, to be played at a volume, how loud the device is set, and what kinds of media can be written.
plix::Ref<plix::NSView> makeSoundsPage();

}

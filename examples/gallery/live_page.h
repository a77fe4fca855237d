#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

class NSView;

}

namespace gallery {

/// A form of controls to be tried with mouse and keyboard. What they do is said in its last line.
plix::Ref<plix::NSView> makeLivePage();

}

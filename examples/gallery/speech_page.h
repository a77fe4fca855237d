#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

class NSView;

}

namespace gallery {

/// A list to be spoken with a silence between its strings, and a field that speaks what is typed.
plix::Ref<plix::NSView> makeSpeechPage();

}

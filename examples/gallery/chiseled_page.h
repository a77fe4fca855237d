#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

class NSView;

}

namespace gallery {

/// The pop-up button with an engraved title in all its states, on the grounds of plain and textured windows and with the colours of
/// two systems; below them some to be tried.
plix::Ref<plix::NSView> makeChiseledPage();

}

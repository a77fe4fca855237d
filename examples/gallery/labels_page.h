#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

class NSView;

}

namespace gallery {

/// Engraved labels in every state, on plain and textured windows of two systems, and one that follows this window.
plix::Ref<plix::NSView> makeLabelsPage();
/// 300 of them, all of which follow this window.
plix::Ref<plix::NSView> makeManyLabelsPage();

}

#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/Forward.h>

namespace plix {

/// A new image of a filled colour with the image composited destination atop it, worked out in one pass over the pixels at the
/// greatest backing scale around. Null for pattern colours and images without size.
Ref<NSImage> recoloredImage(NSImage const&, NSColor const&);

}

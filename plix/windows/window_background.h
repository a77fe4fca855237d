#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/Forward.h>
#include <plix/platform/graphics/geometry.h>

// Pictures for the backgrounds of windows. What was drawn once for the same image is not drawn again; each call gives an image
// object of its own nevertheless.

namespace plix {

/// As wide as the background image, composed by backgroundPlan(). A null image gives one without width.
Ref<NSImage> backgroundPattern(NSImage const* background, int mode, float height);
/// The whole image stretched to that size.
Ref<NSImage> stretchedBackground(NSImage const* background, Size size);

}

#pragma once

#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/Forward.h>

#include <vector>

namespace plix {

// New images out of others. Each call gives a new object; where the sources look the same as in an earlier call, its pixels are
// shared with that call's result, until one of them is drawn into. They are made at the greatest backing scale around.

/// The image stretched to the target's size in nine pieces (see nineSlicePlan), shrunk before where it is larger; of the target
/// only the size counts. Null where either is.
PLIX_EXPORT Ref<NSImage> PLIXStretchedImageOverImage(Ref<NSImage> const& image, Ref<NSImage> const& target);
/// The same, drawn over the target. Null where either is.
PLIX_EXPORT Ref<NSImage> PLIXStretchImageOverImage(Ref<NSImage> const& image, Ref<NSImage> const& target);
/// The image with the badge at its own size at one of the nine places of PLIXRectAlignment (for any other number at the lower left
/// corner); what of the badge lies outside is cut off. Neither is expected to be null: a null image has no size, a null badge shows
/// nothing.
PLIX_EXPORT Ref<NSImage> badgedImage(Ref<NSImage> const& image, Ref<NSImage> const& badge, int alignment);
/// The image's silhouette in the colour: with an opaque colour each pixel becomes it at the pixel's own alpha; through a
/// translucent one the image shows. Null where either is.
PLIX_EXPORT Ref<NSImage> ReplaceColorsInImage(Ref<NSImage> const& image, Ref<NSColor> const& color);

/// The images over each other, later ones on top, each fitted into the first one's size and centred. Null for anything but an array
/// with at least one element; elements that are no images are left out.
PLIX_EXPORT Ref<NSImage> imageByCompositingImages(ObjectValue const& images);
PLIX_EXPORT Ref<NSImage> imageByCompositingImages(std::vector<Ref<NSImage>> const& images);

}

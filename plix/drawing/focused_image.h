#pragma once

#include <plix/platform/graphics/Forward.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

/// Whether y grows downwards in what is drawn into now: as the focus view says; without one, as in an image that has the focus, as
/// the context says.
bool isFocusFlipped();

enum class ImageTurn { none, mirrored };
/// Draws a part of the image over what is there; mirrored about the middle of its place where that is said.
void drawFocusedImage(NSImage const&, Rect destination, Rect source, ImageTurn);
/// The whole image: upright, whichever way the focus and the image count.
void drawUpright(NSImage const&, Rect destination);

}

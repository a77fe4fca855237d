#pragma once

// Private to plix/platform/graphics.

namespace plix {

class NSBitmapImageRep;
struct ContextInternals;
struct ImageDrawing;

/// A part of the bitmap, in the rectangle of user space that it is drawn into; nothing from beside the part bleeds in.
void drawBitmap(ContextInternals&, NSBitmapImageRep const&, ImageDrawing const&);

}

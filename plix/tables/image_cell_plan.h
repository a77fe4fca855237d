#pragma once

#include <plix/platform/graphics/geometry.h>

namespace plix {

/// Where a cell with an image before its text puts both. Each operation keeps a margin of its own.

/// The box for the image: at the cell's left end, in the middle of its height, rounded up to whole points.
Rect imageBoxInCell(Rect cell, Size box);
/// What is left for the text beside the box.
Rect textBesideImageBox(Rect cell, Size box);
/// What is left for an editor beside the image's own width, whatever the box.
Rect editorBesideImage(Rect cell, float imageWidth);
/// The cell's size with room for the image at its own width.
Size cellSizeWithImage(Size textSize, float imageWidth);

/// A part of the image, and where it goes.
struct CellImagePlacement {
    Rect source;
    Rect destination;
    friend bool operator==(CellImagePlacement const&, CellImagePlacement const&) = default;
};
/// Scaling 1 fits the image to the box, 2 shows the middle of it at its own scale (of a smaller image more than there is), any
/// other number scales it in proportion. The destination begins on whole points.
CellImagePlacement cellImagePlacement(Size image, Rect box, int scaling);

}

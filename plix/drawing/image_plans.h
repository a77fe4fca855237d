#pragma once

#include <plix/platform/graphics/geometry.h>

#include <array>

namespace plix {

/// A part of an image and where it is drawn.
struct ImagePiece {
    Rect source;
    Rect destination;
    friend bool operator==(ImagePiece const&, ImagePiece const&) = default;
};

/// By how much an image is shrunk before it is cut into nine: 1 where it fits over the target. Where it is the taller, the heights
/// decide alone.
double shrinkFactor(Size image, Size target);
/// Both sides times the factor, in whole points towards zero.
Size shrunkSize(Size image, double factor);
/// The nine pieces that stretch an image over a target, top row first, each from left to right. Corners keep their size; a target
/// smaller than two corners gives pieces of negative size.
std::array<ImagePiece, 9> nineSlicePlan(Size image, Size target);
/// Where an image goes on a canvas: as large as fits with its proportions, in the middle, on whole points.
Rect compositionRect(Size image, Size canvas);

}

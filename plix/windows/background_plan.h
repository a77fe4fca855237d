#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/graphics/geometry.h>

#include <vector>

namespace plix {

/// What a window's background pattern is made of.
enum PLIXBackgroundMode : int {
    PLIXBackgroundNone = 0,
    PLIXBackgroundHalves = 1, ///< top and bottom half, the middle stretched between
    PLIXBackgroundUpperHalf = 2, ///< the upper half stretched
};

/// A part of a tall background image, and the part of the pattern that it is stretched into. y upwards in both.
struct BackgroundPiece {
    Rect source;
    Rect destination;
    /// Taken as a bitmap of the image's own pixels before it is stretched.
    bool isStrip { false };
    friend bool operator==(BackgroundPiece const&, BackgroundPiece const&) = default;
};

/// The pieces in the order in which they are drawn, for a pattern as wide as the image and this high. Modes that there are not draw
/// nothing.
PLIX_EXPORT std::vector<BackgroundPiece> backgroundPlan(int mode, Size background, float patternHeight);

/// The indicator's frame when it is made, and its origin whenever it is put back; the two differ in how they are reckoned but not
/// in place.
PLIX_EXPORT Rect resizeIndicatorFrame(Rect contentBounds, Size image);
PLIX_EXPORT Point resizeIndicatorOrigin(Rect contentFrame, float indicatorWidth);

/// A frame higher than the screen's visible part, moved so that its top is on top.
PLIX_EXPORT Rect frameWithTopVisible(Rect frame, Rect visibleFrame);

}

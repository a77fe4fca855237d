#pragma once

#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

/// Which point of an image lies on the same point of its place.
enum NSImageAlignment : int {
    NSImageAlignCenter = 0,
    NSImageAlignTop = 1,
    NSImageAlignTopLeft = 2,
    NSImageAlignTopRight = 3,
    NSImageAlignLeft = 4,
    NSImageAlignBottom = 5,
    NSImageAlignBottomLeft = 6,
    NSImageAlignBottomRight = 7,
    NSImageAlignRight = 8,
};

enum NSImageFrameStyle : int {
    NSImageFrameNone = 0,
    NSImageFramePhoto = 1,
    NSImageFrameGrayBezel = 2,
    NSImageFrameGroove = 3,
    NSImageFrameButton = 4,
};

/// Where an image of that size goes in an area, on whole points; y grows downwards. In proportion it is made smaller, never larger;
/// to fit it fills the area; else it keeps its size, and may reach over the area's edges.
PLIX_EXPORT Rect alignedImageRect(Rect area, Size image, NSImageScaling, NSImageAlignment);

/// How far an image lies inside its frame, on each side.
PLIX_EXPORT float imageFrameThickness(NSImageFrameStyle);

}

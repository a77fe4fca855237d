#pragma once

#include <plix/platform/graphics/geometry.h>

namespace plix {

/// Where PLIXAlignRectOnRect places a rectangle. Top is the largest y.
enum PLIXRectAlignment : int {
    PLIXAlignTopLeft = 0,
    PLIXAlignTopCenter = 1,
    PLIXAlignTopRight = 2,
    PLIXAlignMiddleLeft = 3,
    PLIXAlignCenter = 4,
    PLIXAlignMiddleRight = 5,
    PLIXAlignBottomLeft = 6,
    PLIXAlignBottomCenter = 7,
    PLIXAlignBottomRight = 8,
};

/// Both coordinates to the nearest whole number, halves to the even one.
PLIX_EXPORT Point PLIXIntegralPoint(Point);
/// Each of the four fields rounded by itself as in PLIXIntegralPoint; the size does not follow from the rounded edges, and a
/// negative one stays negative.
PLIX_EXPORT Rect PLIXNormalizedRect(Rect);
/// At the origin.
PLIX_EXPORT Rect PLIXMakeRectWithSize(Size);
/// a's size in the middle of b, not rounded; begins outside b where it is the larger.
PLIX_EXPORT Rect PLIXRectCenterOnRect(Rect a, Rect b);
/// a's size made as large as fits b with its proportions kept, up or down; a's origin stays.
PLIX_EXPORT Rect PLIXScaleRectToRect(Rect a, Rect b);
/// a's size at one of the nine places of PLIXRectAlignment inside b, not rounded; a itself for any other number.
PLIX_EXPORT Rect PLIXAlignRectOnRect(Rect a, Rect b, int alignment);
/// The nearest multiple; from half of the increment (rounded down) on the next one. A negative value always moves towards zero. An
/// increment of 0 is the caller's error; a result past 32 bits wraps.
PLIX_EXPORT int PLIXRoundToNearestIncrement(int value, int increment);

}

#pragma once

#include <plix/platform/graphics/geometry.h>

namespace plix {

/// How much of the way from the least to the greatest value is done, 0 to 1. 0 where there is no way between them.
double progressFraction(double value, double least, double greatest);

/// The done part of a bar, in whole points, and at least one point of it as soon as anything is done.
Rect progressDoneRect(Rect bar, double fraction);

/// The moving part of a bar that doesn't know how far it is, a third of the bar long, which goes to the far end and back every two
/// seconds.
Rect progressMovingRect(Rect bar, double seconds);

/// A turning wheel has twelve spokes.
inline constexpr int progressSpokes = 12;
/// How strong a spoke is drawn, 0 to 1, counted clockwise from the top: the wheel turns once a second.
double progressSpokeStrength(int spoke, double seconds);

}

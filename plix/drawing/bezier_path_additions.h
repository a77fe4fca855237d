#pragma once

#include <plix/drawing/rounded_rect.h>
#include <plix/platform/graphics/NSBezierPath.h>

namespace plix {

/// A new path around the rectangle with all corners rounded; see roundedRectOutline.
PLIX_EXPORT Ref<NSBezierPath> bezierPathWithRoundedRect(Rect, float cornerRadius);
/// Only the corners are rounded whose two sides are in the style, a mask of PLIXRoundingStyle.
PLIX_EXPORT Ref<NSBezierPath> bezierPathWithRoundedRect(Rect, float cornerRadius, unsigned roundingStyle);

}

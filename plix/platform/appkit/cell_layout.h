#pragma once

#include <plix/platform/graphics/control_size.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

enum class CellFrameStyle { none, border, bezel };

/// How far a cell's drawing area lies inside its bounds, on each side. Cells lie in flipped views: the top is at the smallest y.
struct CellInsets {
    float left { 0 };
    float top { 0 };
    float right { 0 };
    float bottom { 0 };
    friend bool operator==(CellInsets, CellInsets) = default;
};

/// What border or bezel take: a border 1 point, a bezel also the distance to its text, which depends on the control size, so that a
/// field with the system font of that size is 22, 19 or 16 points high.
PLIX_EXPORT CellInsets cellFrameInsets(CellFrameStyle, NSControlSize);

/// The rectangle inside the insets; a side never becomes negative.
PLIX_EXPORT Rect insetRect(Rect, CellInsets);
/// The size around a content of this size.
PLIX_EXPORT Size outsetSize(Size content, CellInsets);

/// Text keeps this distance to both ends of its cell.
inline constexpr float cellTextPadding = 2;

/// An image of this size in the middle of an area, on whole points; scaled down in proportion where it is larger.
PLIX_EXPORT Rect centredImageRect(Rect area, Size imageSize);

}

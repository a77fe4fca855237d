#pragma once

#include <plix/platform/base/export.h>

#include <string>
#include <string_view>

namespace plix {

/// Points, sizes and rectangles of 32-bit floats. y grows upwards unless a view is flipped. All plain values.
struct Point {
    float x { 0 };
    float y { 0 };
    friend constexpr bool operator==(Point, Point) = default;
};

/// Width and height in points.
struct Size {
    float width { 0 };
    float height { 0 };
    friend constexpr bool operator==(Size, Size) = default;
};

/// A rectangle by its corner with the least coordinates, in points. Without width or height it is empty.
struct PLIX_EXPORT Rect {
    float x { 0 };
    float y { 0 };
    float width { 0 };
    float height { 0 };

    // Corners, edges and middles.
    constexpr Point origin() const { return { x, y }; }
    constexpr Size size() const { return { width, height }; }
    constexpr float maxX() const { return x + width; }
    constexpr float maxY() const { return y + height; }
    constexpr float midX() const { return x + width * 0.5F; }
    constexpr float midY() const { return y + height * 0.5F; }
    /// Has no area: a side of zero, below zero or not a number.
    constexpr bool isEmpty() const { return !(width > 0 && height > 0); }
    friend constexpr bool operator==(Rect, Rect) = default;
};

/// An edge of a rectangle, by which coordinate is least or greatest there.
enum NSRectEdge : int { NSMinXEdge = 0, NSMinYEdge = 1, NSMaxXEdge = 2, NSMaxYEdge = 3 };

// At the origin, without extent.
inline constexpr Point NSZeroPoint {};
inline constexpr Size NSZeroSize {};
inline constexpr Rect NSZeroRect {};

/// The rectangle with that corner and size.
constexpr Rect rectWith(Point origin, Size size)
{
    return { origin.x, origin.y, size.width, size.height };
}

/// Moved by that much.
constexpr Rect NSOffsetRect(Rect rect, float dx, float dy)
{
    return { rect.x + dx, rect.y + dy, rect.width, rect.height };
}
/// Each side moved inwards; the size may become negative.
constexpr Rect NSInsetRect(Rect rect, float dx, float dy)
{
    return { rect.x + dx, rect.y + dy, rect.width - 2 * dx, rect.height - 2 * dy };
}
constexpr bool NSIsEmptyRect(Rect rect)
{
    return rect.isEmpty();
}
/// The smallest rectangle on whole coordinates that holds an unempty one; the zero rectangle for an empty one.
PLIX_EXPORT Rect NSIntegralRect(Rect);
/// The smallest rectangle that holds both; an empty one does not count; the zero rectangle where both are empty.
PLIX_EXPORT Rect NSUnionRect(Rect a, Rect b);
/// What both cover; the zero rectangle where that is nothing.
PLIX_EXPORT Rect NSIntersectionRect(Rect a, Rect b);
PLIX_EXPORT bool NSIntersectsRect(Rect a, Rect b);
/// True where b lies in a; an empty b lies in nothing.
PLIX_EXPORT bool NSContainsRect(Rect a, Rect b);
/// Whether a mouse position lies inside. The edge that is the first one on the screen counts as inside, its opposite does not:
/// unflipped the top edge (largest y), flipped the smallest y.
PLIX_EXPORT bool NSMouseInRect(Point, Rect, bool isFlipped);
/// Minimum edges inside, maximum edges outside.
constexpr bool NSPointInRect(Point point, Rect rect)
{
    return point.x >= rect.x && point.y >= rect.y && point.x < rect.maxX() && point.y < rect.maxY();
}
/// Cuts `amount` off at an edge into slice; what is left goes into remainder. More than there is takes all, less than 0 nothing.
PLIX_EXPORT void NSDivideRect(Rect rect, Rect& slice, Rect& remainder, float amount, NSRectEdge edge);

/// "{x, y}", "{width, height}", "{{x, y}, {width, height}}", and back; what is not there reads as 0.
PLIX_EXPORT std::string NSStringFromPoint(Point);
PLIX_EXPORT std::string NSStringFromSize(Size);
PLIX_EXPORT std::string NSStringFromRect(Rect);
PLIX_EXPORT Point NSPointFromString(std::string_view);
PLIX_EXPORT Size NSSizeFromString(std::string_view);
PLIX_EXPORT Rect NSRectFromString(std::string_view);

}

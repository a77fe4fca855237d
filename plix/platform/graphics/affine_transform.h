#pragma once

#include <plix/platform/graphics/geometry.h>

#include <optional>

namespace plix {

/// x' = m11 x + m21 y + tX, y' = m12 x + m22 y + tY.
struct PLIX_EXPORT AffineTransform {
    double m11 { 1 };
    double m12 { 0 };
    double m21 { 0 };
    double m22 { 1 };
    double tX { 0 };
    double tY { 0 };

    static constexpr AffineTransform translation(double dx, double dy) { return { 1, 0, 0, 1, dx, dy }; }
    static constexpr AffineTransform scaling(double sx, double sy) { return { sx, 0, 0, sy, 0, 0 }; }
    /// Counter-clockwise where y grows upwards.
    static AffineTransform rotation(double radians);
    /// Mirrors about the horizontal line through the rectangle's middle.
    static constexpr AffineTransform mirror(Rect rect) { return { 1, 0, 0, -1, 0, 2.0 * rect.y + rect.height }; }

    Point apply(Point) const;
    /// Without the translation.
    Size apply(Size) const;
    /// The smallest rectangle around the transformed corners.
    Rect boundsOf(Rect) const;
    constexpr double determinant() const { return m11 * m22 - m12 * m21; }
    bool isInvertible() const;
    /// Nothing where there is no inverse.
    std::optional<AffineTransform> inverse() const;
    /// Rectangles stay rectangles with sides along the axes, and do not swap these.
    constexpr bool keepsAxes() const { return m12 == 0 && m21 == 0; }

    friend constexpr bool operator==(AffineTransform const&, AffineTransform const&) = default;
};

/// First `first`, then `second`.
PLIX_EXPORT AffineTransform concatenated(AffineTransform const& first, AffineTransform const& second);

}

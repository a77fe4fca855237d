#include <plix/platform/graphics/affine_transform.h>

#include <algorithm>
#include <cmath>

namespace plix {

AffineTransform AffineTransform::rotation(double radians)
{
    double const cosine = std::cos(radians);
    double const sine = std::sin(radians);
    return { cosine, sine, -sine, cosine, 0, 0 };
}

Point AffineTransform::apply(Point point) const
{
    return { static_cast<float>(m11 * point.x + m21 * point.y + tX), static_cast<float>(m12 * point.x + m22 * point.y + tY) };
}

Size AffineTransform::apply(Size size) const
{
    return { static_cast<float>(m11 * size.width + m21 * size.height), static_cast<float>(m12 * size.width + m22 * size.height) };
}

Rect AffineTransform::boundsOf(Rect rect) const
{
    Point const corners[] { apply(Point { rect.x, rect.y }), apply(Point { rect.maxX(), rect.y }),
        apply(Point { rect.x, rect.maxY() }), apply(Point { rect.maxX(), rect.maxY() }) };
    Point low = corners[0];
    Point high = corners[0];
    for (auto const& corner : corners) {
        low = { std::min(low.x, corner.x), std::min(low.y, corner.y) };
        high = { std::max(high.x, corner.x), std::max(high.y, corner.y) };
    }
    return { low.x, low.y, high.x - low.x, high.y - low.y };
}

bool AffineTransform::isInvertible() const
{
    return determinant() != 0 && std::isfinite(determinant()) && std::isfinite(1 / determinant()) && std::isfinite(tX)
        && std::isfinite(tY);
}

std::optional<AffineTransform> AffineTransform::inverse() const
{
    if (!isInvertible())
        return std::nullopt;
    double const scale = 1 / determinant();
    return AffineTransform { m22 * scale, -m12 * scale, -m21 * scale, m11 * scale, (m21 * tY - m22 * tX) * scale,
        (m12 * tX - m11 * tY) * scale };
}

AffineTransform concatenated(AffineTransform const& first, AffineTransform const& second)
{
    return { first.m11 * second.m11 + first.m12 * second.m21, first.m11 * second.m12 + first.m12 * second.m22,
        first.m21 * second.m11 + first.m22 * second.m21, first.m21 * second.m12 + first.m22 * second.m22,
        first.tX * second.m11 + first.tY * second.m21 + second.tX, first.tX * second.m12 + first.tY * second.m22 + second.tY };
}

}

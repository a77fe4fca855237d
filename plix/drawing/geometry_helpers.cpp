#include <plix/drawing/geometry_helpers.h>

#include <algorithm>
#include <cassert>
#include <cmath>

namespace plix {

Point PLIXIntegralPoint(Point point)
{
    return { std::nearbyint(point.x), std::nearbyint(point.y) };
}

Rect PLIXNormalizedRect(Rect rect)
{
    return { std::nearbyint(rect.x), std::nearbyint(rect.y), std::nearbyint(rect.width), std::nearbyint(rect.height) };
}

Rect PLIXMakeRectWithSize(Size size)
{
    return { 0, 0, size.width, size.height };
}

Rect PLIXRectCenterOnRect(Rect a, Rect b)
{
    return { b.x + (b.width - a.width) * 0.5F, b.y + (b.height - a.height) * 0.5F, a.width, a.height };
}

Rect PLIXScaleRectToRect(Rect a, Rect b)
{
    float const vertical = b.height / a.height;
    float const horizontal = b.width / a.width;
    double const scale = std::min<double>(vertical, horizontal);
    return { a.x, a.y, static_cast<float>(a.width * scale), static_cast<float>(a.height * scale) };
}

Rect PLIXAlignRectOnRect(Rect a, Rect b, int alignment)
{
    if (alignment < PLIXAlignTopLeft || alignment > PLIXAlignBottomRight)
        return a;
    float const left = b.x;
    float const center = b.x + (b.width - a.width) * 0.5F;
    float const right = b.x + b.width - a.width;
    float const top = b.y + b.height - a.height;
    float const middle = b.y + (b.height - a.height) * 0.5F;
    float const bottom = b.y;
    float const columns[] { left, center, right };
    float const rows[] { top, middle, bottom };
    return { columns[alignment % 3], rows[alignment / 3], a.width, a.height };
}

int PLIXRoundToNearestIncrement(int value, int increment)
{
    assert(increment != 0);
    // In 64 bits, for the greatest value and the quotient of the least by -1; what passes 32 bits wraps.
    long long const remainder = static_cast<long long>(value) % increment;
    int const half = increment / 2;
    // A negative remainder is never as large as half: negative values moving towards zero is meant.
    return static_cast<int>(remainder < half ? value - remainder : value - remainder + increment);
}

}

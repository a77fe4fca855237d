#include <plix/platform/graphics/geometry.h>

#include <plix/platform/base/ObjectValue.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace plix {

namespace {

std::string text(float value)
{
    char buffer[64];
    auto const result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return { buffer, result.ptr };
}

std::string pairText(float first, float second)
{
    return "{" + text(first) + ", " + text(second) + "}";
}

template <std::size_t count> std::array<float, count> numbersIn(std::string_view text)
{
    std::array<float, count> numbers {};
    std::size_t found = 0;
    for (std::size_t at = 0; found < count;) {
        at = text.find_first_of("+-.0123456789", at);
        if (at == std::string_view::npos)
            break;
        auto const end = std::min(text.find_first_not_of("+-.0123456789eE", at), text.size());
        numbers[found++] = static_cast<float>(doubleValue(text.substr(at, end - at)));
        at = end;
    }
    return numbers;
}

}

Rect NSIntegralRect(Rect rect)
{
    if (rect.isEmpty())
        return {};
    float const x = std::floor(rect.x);
    float const y = std::floor(rect.y);
    return { x, y, std::ceil(rect.maxX()) - x, std::ceil(rect.maxY()) - y };
}

Rect NSUnionRect(Rect a, Rect b)
{
    if (a.isEmpty())
        return b.isEmpty() ? Rect {} : b;
    if (b.isEmpty())
        return a;
    float const x = std::min(a.x, b.x);
    float const y = std::min(a.y, b.y);
    return { x, y, std::max(a.maxX(), b.maxX()) - x, std::max(a.maxY(), b.maxY()) - y };
}

Rect NSIntersectionRect(Rect a, Rect b)
{
    float const x = std::max(a.x, b.x);
    float const y = std::max(a.y, b.y);
    Rect const common { x, y, std::min(a.maxX(), b.maxX()) - x, std::min(a.maxY(), b.maxY()) - y };
    return a.isEmpty() || b.isEmpty() || common.isEmpty() ? Rect {} : common;
}

bool NSIntersectsRect(Rect a, Rect b)
{
    return !NSIntersectionRect(a, b).isEmpty();
}

bool NSContainsRect(Rect a, Rect b)
{
    return !b.isEmpty() && b.x >= a.x && b.y >= a.y && b.maxX() <= a.maxX() && b.maxY() <= a.maxY();
}

bool NSMouseInRect(Point point, Rect rect, bool isFlipped)
{
    if (isFlipped)
        return NSPointInRect(point, rect);
    return point.x >= rect.x && point.x < rect.maxX() && point.y > rect.y && point.y <= rect.maxY();
}

void NSDivideRect(Rect rect, Rect& slice, Rect& remainder, float amount, NSRectEdge edge)
{
    bool const isHorizontal = edge == NSMinXEdge || edge == NSMaxXEdge;
    float const available = isHorizontal ? rect.width : rect.height;
    float const cut = std::clamp(amount, 0.0F, std::max(available, 0.0F));
    Rect first = rect;
    Rect rest = rect;
    (isHorizontal ? first.width : first.height) = cut;
    (isHorizontal ? rest.width : rest.height) = available - cut;
    bool const isMinimumEdge = edge == NSMinXEdge || edge == NSMinYEdge;
    auto& later = isMinimumEdge ? rest : first;
    (isHorizontal ? later.x : later.y) += isMinimumEdge ? cut : available - cut;
    slice = first;
    remainder = rest;
}

std::string NSStringFromPoint(Point point)
{
    return pairText(point.x, point.y);
}

std::string NSStringFromSize(Size size)
{
    return pairText(size.width, size.height);
}

std::string NSStringFromRect(Rect rect)
{
    return "{" + NSStringFromPoint(rect.origin()) + ", " + NSStringFromSize(rect.size()) + "}";
}

Point NSPointFromString(std::string_view string)
{
    auto const [x, y] = numbersIn<2>(string);
    return { x, y };
}

Size NSSizeFromString(std::string_view string)
{
    auto const [width, height] = numbersIn<2>(string);
    return { width, height };
}

Rect NSRectFromString(std::string_view string)
{
    auto const [x, y, width, height] = numbersIn<4>(string);
    return { x, y, width, height };
}

}

#pragma once

#include <algorithm>

namespace plix {

/// What searches answer where nothing was found: the largest positive 32-bit value.
inline constexpr long NSNotFound = 0x7FFFFFFF;

/// A run of positions. In strings these count UTF-16 units.
struct NSRange {
    long location { 0 };
    long length { 0 };

    // The place behind it, and whether a place is in it.
    constexpr long end() const { return location + length; }
    constexpr bool contains(long position) const { return position >= location && position - location < length; }
    friend constexpr bool operator==(NSRange, NSRange) = default;
};

/// The range of those places.
constexpr NSRange NSMakeRange(long location, long length)
{
    return { location, length };
}
/// The place behind the range.
constexpr long NSMaxRange(NSRange range)
{
    return range.end();
}
/// Whether the place is in the range.
constexpr bool NSLocationInRange(long location, NSRange range)
{
    return range.contains(location);
}
/// What both have in common; {0, 0} where that is nothing.
constexpr NSRange NSIntersectionRange(NSRange a, NSRange b)
{
    long const start = std::max(a.location, b.location);
    long const end = std::min(a.end(), b.end());
    return end > start ? NSRange { start, end - start } : NSRange {};
}
/// The smallest range that holds both.
constexpr NSRange NSUnionRange(NSRange a, NSRange b)
{
    long const start = std::min(a.location, b.location);
    return { start, std::max(a.end(), b.end()) - start };
}

}

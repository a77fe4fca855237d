#include <plix/platform/base/NSIndexSet.h>

#include <algorithm>

namespace plix {

NSIndexSet::NSIndexSet(std::initializer_list<long> indexes)
{
    for (long const index : indexes)
        addIndex(index);
}

NSIndexSet NSIndexSet::indexSetWithIndex(long index)
{
    return { index };
}

NSIndexSet NSIndexSet::indexSetWithIndexesInRange(NSRange range)
{
    NSIndexSet set;
    set.addIndexesInRange(range);
    return set;
}

std::vector<NSRange>::const_iterator NSIndexSet::firstRangeEndingAfter(long index) const
{
    return std::partition_point(m_ranges.begin(), m_ranges.end(), [&](NSRange range) { return range.end() <= index; });
}

long NSIndexSet::count() const
{
    long count = 0;
    for (auto const range : m_ranges)
        count += range.length;
    return count;
}

bool NSIndexSet::containsIndex(long index) const
{
    auto const found = firstRangeEndingAfter(index);
    return found != m_ranges.end() && found->contains(index);
}

bool NSIndexSet::containsIndexesInRange(NSRange wanted) const
{
    if (wanted.length <= 0)
        return false;
    auto const found = firstRangeEndingAfter(wanted.location);
    return found != m_ranges.end() && found->location <= wanted.location && found->end() >= wanted.end();
}

bool NSIndexSet::intersectsIndexesInRange(NSRange wanted) const
{
    auto const found = firstRangeEndingAfter(wanted.location);
    return wanted.length > 0 && found != m_ranges.end() && found->location < wanted.end();
}

long NSIndexSet::firstIndex() const
{
    return isEmpty() ? NSNotFound : m_ranges.front().location;
}

long NSIndexSet::lastIndex() const
{
    return isEmpty() ? NSNotFound : m_ranges.back().end() - 1;
}

long NSIndexSet::indexGreaterThanIndex(long index) const
{
    auto const found = firstRangeEndingAfter(index + 1);
    return found == m_ranges.end() ? NSNotFound : std::max(found->location, index + 1);
}

long NSIndexSet::indexLessThanIndex(long index) const
{
    auto const found
        = std::partition_point(m_ranges.begin(), m_ranges.end(), [&](NSRange range) { return range.location < index; });
    return found == m_ranges.begin() ? NSNotFound : std::min(std::prev(found)->end() - 1, index - 1);
}

void NSIndexSet::addIndexes(NSIndexSet const& other)
{
    for (auto const range : std::vector(other.m_ranges))
        addIndexesInRange(range);
}

void NSIndexSet::removeIndexes(NSIndexSet const& other)
{
    for (auto const range : std::vector(other.m_ranges))
        removeIndexesInRange(range);
}

void NSIndexSet::addIndexesInRange(NSRange added)
{
    long start = std::max(added.location, 0L);
    long end = added.end();
    if (end <= start)
        return;
    // Ranges that overlap the added one or touch it melt into it.
    auto const first = std::partition_point(m_ranges.begin(), m_ranges.end(), [&](NSRange range) { return range.end() < start; });
    auto last = first;
    for (; last != m_ranges.end() && last->location <= end; ++last) {
        start = std::min(start, last->location);
        end = std::max(end, last->end());
    }
    m_ranges.insert(m_ranges.erase(first, last), { start, end - start });
}

void NSIndexSet::removeIndexesInRange(NSRange removed)
{
    if (removed.length <= 0)
        return;
    auto const first
        = std::partition_point(m_ranges.begin(), m_ranges.end(), [&](NSRange range) { return range.end() <= removed.location; });
    auto last = first;
    std::vector<NSRange> rest;
    for (; last != m_ranges.end() && last->location < removed.end(); ++last) {
        if (last->location < removed.location)
            rest.push_back({ last->location, removed.location - last->location });
        if (last->end() > removed.end())
            rest.push_back({ removed.end(), last->end() - removed.end() });
    }
    m_ranges.insert(m_ranges.erase(first, last), rest.begin(), rest.end());
}

void NSIndexSet::shiftIndexesStartingAtIndex(long index, long delta)
{
    if (delta < 0)
        removeIndexesInRange({ index + delta, -delta });
    NSIndexSet shifted;
    for (auto const range : m_ranges) {
        long const kept = std::clamp(index - range.location, 0L, range.length);
        shifted.addIndexesInRange({ range.location, kept });
        shifted.addIndexesInRange({ range.location + kept + delta, range.length - kept });
    }
    *this = std::move(shifted);
}

std::vector<long> NSIndexSet::indexes() const
{
    std::vector<long> indexes;
    indexes.reserve(static_cast<std::size_t>(count()));
    for (auto const range : m_ranges) {
        for (long index = range.location; index < range.end(); ++index)
            indexes.push_back(index);
    }
    return indexes;
}

}

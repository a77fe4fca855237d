#pragma once

#include <plix/platform/base/NSRange.h>
#include <plix/platform/base/export.h>

#include <initializer_list>
#include <vector>

namespace plix {

/// A set of non-negative indexes, held as ranges: the cost follows the number of runs, not of indexes.
class PLIX_EXPORT NSIndexSet {
public:
    NSIndexSet() = default;
    NSIndexSet(std::initializer_list<long> indexes);
    // Sets of one index, or of a range.
    static NSIndexSet indexSetWithIndex(long index);
    static NSIndexSet indexSetWithIndexesInRange(NSRange);

    // What is in it.
    bool isEmpty() const { return m_ranges.empty(); }
    long count() const;
    bool containsIndex(long index) const;
    bool containsIndexesInRange(NSRange) const;
    bool intersectsIndexesInRange(NSRange) const;

    /// NSNotFound where there is none.
    long firstIndex() const;
    long lastIndex() const;
    long indexGreaterThanIndex(long index) const;
    long indexLessThanIndex(long index) const;

    // Putting in and taking out. Indexes below 0 are none.
    void addIndex(long index) { addIndexesInRange({ index, 1 }); }
    void removeIndex(long index) { removeIndexesInRange({ index, 1 }); }
    void addIndexes(NSIndexSet const&);
    void removeIndexes(NSIndexSet const&);
    /// The part of a range below 0 is left out.
    void addIndexesInRange(NSRange);
    void removeIndexesInRange(NSRange);
    void removeAllIndexes() { m_ranges.clear(); }
    /// Moves the indexes from `index` on by `delta`. A negative delta first removes those in the |delta| places before `index`.
    void shiftIndexesStartingAtIndex(long index, long delta);

    /// The runs of indexes, in ascending order, apart from each other.
    std::vector<NSRange> const& ranges() const { return m_ranges; }
    std::vector<long> indexes() const;

    friend bool operator==(NSIndexSet const&, NSIndexSet const&) = default;

private:
    std::vector<NSRange>::const_iterator firstRangeEndingAfter(long index) const;

    std::vector<NSRange> m_ranges;
};

}

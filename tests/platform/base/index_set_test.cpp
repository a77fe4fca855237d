#include <plix/platform/base/NSIndexSet.h>

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace plix {
namespace {

std::vector<long> sorted(std::set<long> const& indexes)
{
    return { indexes.begin(), indexes.end() };
}

TEST(NSIndexSet, AnEmptySetHasNoIndexes)
{
    NSIndexSet const set;
    EXPECT_TRUE(set.isEmpty());
    EXPECT_EQ(set.count(), 0);
    EXPECT_EQ(set.firstIndex(), NSNotFound);
    EXPECT_EQ(set.lastIndex(), NSNotFound);
    EXPECT_EQ(set.indexGreaterThanIndex(-1), NSNotFound);
    EXPECT_EQ(set.indexLessThanIndex(100), NSNotFound);
    EXPECT_FALSE(set.containsIndexesInRange({ 0, 0 }));
}

TEST(NSIndexSet, RangesThatTouchMelt)
{
    NSIndexSet set { 3, 5 };
    EXPECT_EQ(set.ranges().size(), 2U);
    set.addIndex(4);
    EXPECT_EQ(set.ranges(), (std::vector<NSRange> { { 3, 3 } }));
}

TEST(NSIndexSet, NegativeIndexesAreLeftOut)
{
    NSIndexSet set;
    set.addIndexesInRange({ -3, 5 });
    set.addIndex(-1);
    EXPECT_EQ(set.indexes(), (std::vector<long> { 0, 1 }));
}

TEST(NSIndexSet, RemovingFromTheMiddleSplits)
{
    auto set = NSIndexSet::indexSetWithIndexesInRange({ 0, 10 });
    set.removeIndexesInRange({ 4, 2 });
    EXPECT_EQ(set.ranges(), (std::vector<NSRange> { { 0, 4 }, { 6, 4 } }));
}

TEST(NSIndexSet, ShiftingUpOpensAGapAndShiftingDownDropsWhatIsInTheWay)
{
    auto set = NSIndexSet::indexSetWithIndexesInRange({ 2, 6 });
    set.shiftIndexesStartingAtIndex(4, 3);
    EXPECT_EQ(set.ranges(), (std::vector<NSRange> { { 2, 2 }, { 7, 4 } }));
    set.shiftIndexesStartingAtIndex(7, -4);
    EXPECT_EQ(set.ranges(), (std::vector<NSRange> { { 2, 5 } }));
}

TEST(NSIndexSet, BehavesLikeASetUnderRandomOperations)
{
    std::mt19937 random(7);
    auto const below = [&](int limit) { return static_cast<long>(random() % static_cast<unsigned>(limit)); };
    NSIndexSet set;
    std::set<long> plain;
    for (int step = 0; step < 4000; ++step) {
        NSRange const range { below(60), below(9) };
        bool const adds = below(2) == 0;
        for (long index = range.location; index < range.end(); ++index) {
            if (adds)
                plain.insert(index);
            else
                plain.erase(index);
        }
        adds ? set.addIndexesInRange(range) : set.removeIndexesInRange(range);
        ASSERT_EQ(set.indexes(), sorted(plain));
        ASSERT_EQ(set.count(), static_cast<long>(plain.size()));
        long const probe = below(70);
        auto const above = plain.upper_bound(probe);
        ASSERT_EQ(set.indexGreaterThanIndex(probe), above == plain.end() ? NSNotFound : *above);
        auto const from = plain.lower_bound(probe);
        ASSERT_EQ(set.indexLessThanIndex(probe), from == plain.begin() ? NSNotFound : *std::prev(from));
        ASSERT_EQ(set.containsIndex(probe), plain.contains(probe));
        bool const intersects = from != plain.end() && *from < probe + 5;
        ASSERT_EQ(set.intersectsIndexesInRange({ probe, 5 }), intersects);
    }
}

}
}

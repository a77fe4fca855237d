#include <plix/platform/graphics/region.h>

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace plix {
namespace {

constexpr int gridSide = 64;
using Grid = std::array<std::array<bool, gridSide>, gridSide>;

bool covers(Region const& region, int x, int y)
{
    for (auto const rect : region.rects()) {
        if (NSPointInRect({ static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F }, rect))
            return true;
    }
    return false;
}

int overlaps(Region const& region)
{
    int count = 0;
    auto const rects = region.rects();
    for (std::size_t i = 0; i < rects.size(); ++i) {
        for (std::size_t j = i + 1; j < rects.size(); ++j)
            count += NSIntersectsRect(rects[i], rects[j]);
    }
    return count;
}

TEST(Region, NearRectanglesAreJoinedAndFarOnesStayApart)
{
    Region region;
    region.add({ 0, 0, 10, 10 });
    region.add({ 5, 0, 10, 10 });
    EXPECT_EQ(region.rects().size(), 1U);
    EXPECT_EQ(region.boundingRect(), (Rect { 0, 0, 15, 10 }));
    region.add({ 500, 500, 10, 10 });
    EXPECT_EQ(region.rects().size(), 2U);
    EXPECT_EQ(region.area(), 250);
}

TEST(Region, EmptyRectanglesAddNothing)
{
    Region region;
    region.add({ 10, 10, 0, 5 });
    region.add({ 10, 10, -5, 5 });
    EXPECT_TRUE(region.isEmpty());
    EXPECT_EQ(region.boundingRect(), Rect {});
}

TEST(Region, RandomAdditionsAreCoveredWithoutOverlapsAndWithoutMuchMore)
{
    std::mt19937 random(7);
    auto const upTo = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int round = 0; round < 200; ++round) {
        Region region;
        Grid grid {};
        for (int i = 0; i < 40; ++i) {
            int const x = upTo(60);
            int const y = upTo(60);
            int const w = 1 + upTo(gridSide - x - 1);
            int const h = 1 + upTo(gridSide - y - 1);
            if (w * h > 60)
                continue;
            region.add({ static_cast<float>(x), static_cast<float>(y), static_cast<float>(w), static_cast<float>(h) });
            for (int row = y; row < y + h; ++row)
                for (int column = x; column < x + w; ++column)
                    grid[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = true;
        }
        int missed = 0;
        for (int y = 0; y < gridSide; ++y)
            for (int x = 0; x < gridSide; ++x)
                missed += grid[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] && !covers(region, x, y);
        ASSERT_EQ(missed, 0);
        ASSERT_EQ(overlaps(region), 0);
        ASSERT_LE(region.rects().size(), Region::maximumCount());
    }
}

TEST(Region, SubtractionLeavesExactlyTheRest)
{
    std::mt19937 random(11);
    auto const upTo = [&](int limit) { return static_cast<float>(random() % static_cast<unsigned>(limit)); };
    for (int round = 0; round < 200; ++round) {
        Region region;
        region.add({ 0, 0, gridSide, gridSide });
        std::vector<Rect> holes;
        for (int i = 0; i < 6; ++i) {
            holes.push_back({ upTo(50), upTo(50), 1 + upTo(20), 1 + upTo(20) });
            region.subtract(holes.back());
        }
        int wrong = 0;
        for (int y = 0; y < gridSide; ++y) {
            for (int x = 0; x < gridSide; ++x) {
                bool inHole = false;
                for (auto const hole : holes)
                    inHole |= NSPointInRect({ static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F }, hole);
                wrong += covers(region, x, y) == inHole;
            }
        }
        ASSERT_EQ(wrong, 0);
        ASSERT_EQ(overlaps(region), 0);
    }
}

TEST(Region, ContainsWhatItsRectanglesCoverTogether)
{
    Region region;
    region.add({ 0, 0, 100, 10 });
    region.add({ 0, 10, 10, 100 });
    EXPECT_TRUE(region.contains({ 0, 5, 10, 20 }));
    EXPECT_FALSE(region.contains({ 0, 5, 20, 20 }));
    EXPECT_TRUE(region.intersects({ 90, 0, 50, 50 }));
    EXPECT_FALSE(region.intersects({ 50, 50, 10, 10 }));
}

TEST(Region, ClippingKeepsWhatLiesInside)
{
    Region region;
    region.add({ 0, 0, 10, 10 });
    region.add({ 100, 0, 10, 10 });
    region.intersectWith({ 5, 5, 20, 20 });
    ASSERT_EQ(region.rects().size(), 1U);
    EXPECT_EQ(region.rects()[0], (Rect { 5, 5, 5, 5 }));
}

}
}

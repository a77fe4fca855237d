#include <plix/platform/appkit/reading_order.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

using Order = std::vector<std::size_t>;

TEST(ReadingOrder, GoesRowByRowFromTheTopAndInRowsFromTheLeft)
{
    Rect const unflipped[] = { { 0, 0, 50, 20 }, { 100, 0, 50, 20 }, { 0, 100, 50, 20 }, { 100, 100, 50, 20 } };
    EXPECT_EQ(readingOrder(unflipped, false), (Order { 2, 3, 0, 1 }));
    EXPECT_EQ(readingOrder(unflipped, true), (Order { 0, 1, 2, 3 }));
}

TEST(ReadingOrder, WhatIsAboutAsHighAsItsNeighbourStandsInItsRow)
{
    Rect const label { 100, 103, 50, 14 };
    Rect const field { 0, 100, 80, 22 };
    Rect const below { 0, 70, 80, 22 };
    Rect const rects[] = { below, label, field };
    EXPECT_EQ(readingOrder(rects, false), (Order { 2, 1, 0 }));
}

TEST(ReadingOrder, NothingAndEqualRectanglesKeepTheirOrder)
{
    EXPECT_EQ(readingOrder({}, false), Order {});
    Rect const same[] = { { 5, 5, 10, 10 }, { 5, 5, 10, 10 }, {} };
    EXPECT_EQ(readingOrder(same, false), (Order { 0, 1, 2 }));
}

}
}

#include <plix/platform/appkit/row_layout.h>

#include <gtest/gtest.h>

#include <limits>

namespace plix {
namespace {

constexpr float nan = std::numeric_limits<float>::quiet_NaN();

TEST(RowLayout, AsksForAtLeastOnePointARow)
{
    struct Case {
        float height, spacing, pitch;
    };
    for (auto const& row : { Case { 16, 2, 18 }, Case { 17, 0, 17 }, Case { 0.2F, 0, 1 }, Case { 0, 0, 1 }, Case { -5, 2, 1 },
             Case { nan, 2, 1 }, Case { 16.5F, 0.25F, 16.75F } })
        EXPECT_EQ((RowLayout { 5, row.height, row.spacing }.pitch()), row.pitch) << row.height;
}

TEST(RowLayout, FindsTheRowAtAPlace)
{
    RowLayout const layout { 3, 16, 2 };
    struct Case {
        float y;
        long row;
    };
    for (auto const& row : { Case { -0.1F, -1 }, Case { 0, 0 }, Case { 17.9F, 0 }, Case { 18, 1 }, Case { 53.9F, 2 },
             Case { 54, -1 }, Case { nan, -1 }, Case { 1e9F, -1 } })
        EXPECT_EQ(layout.rowAt(row.y), row.row) << row.y;
    EXPECT_EQ((RowLayout { 0, 16, 2 }.rowAt(0)), -1);
}

TEST(RowLayout, FindsTheRowsInAPart)
{
    RowLayout const layout { 4, 16, 2 };
    struct Case {
        float y, height;
        NSRange rows;
    };
    for (auto const& row : { Case { 0, 18, { 0, 1 } }, Case { 0, 18.1F, { 0, 2 } }, Case { 17, 2, { 0, 2 } },
             Case { -50, 60, { 0, 1 } }, Case { 60, 500, { 3, 1 } }, Case { 72, 10, {} }, Case { 10, 0, {} }, Case { 10, -5, {} },
             Case { -20, 20, {} }, Case { nan, 20, {} }, Case { 0, nan, {} } })
        EXPECT_EQ(layout.rowsIn(row.y, row.height), row.rows) << row.y << " " << row.height;
}

TEST(RowLayout, RowsAndPlacesAgreeForOddHeights)
{
    long differences = 0;
    for (float const height : { 1.F, 7.3F, 16.1F, 17.F, 33.333F }) {
        RowLayout const layout { 20000, height, 0.7F };
        for (long row = 0; row < layout.numberOfRows; ++row)
            differences += layout.rowAt(layout.top(row)) != row;
    }
    EXPECT_EQ(differences, 0);
}

TEST(RowLayout, AStretchOfVeryManyRowsIsExact)
{
    RowLayout layout { 10000000, 17, 2 };
    EXPECT_EQ(layout.totalHeight(), 190000000.0);
    EXPECT_LE(layout.stretchHeight(), RowLayout::longestStretch);
    EXPECT_GT(layout.stretchHeight(), RowLayout::longestStretch - 20);
    layout.firstRow = 9000000;
    EXPECT_EQ(layout.offset(), 171000000.0);
    EXPECT_EQ(layout.top(9000001), 19);
    EXPECT_EQ(layout.rowAt(19 * 1000 + 18.5F), 9001000);
    EXPECT_LT(layout.top(8999999), 0);
}

TEST(RowLayout, TheStretchStaysWhileTheRowLiesWellInside)
{
    RowLayout layout { 10000000, 17, 2 };
    long const length = layout.rowsInStretch();
    EXPECT_EQ(layout.firstRowShowing(0), 0);
    EXPECT_EQ(layout.firstRowShowing(length / 2), 0);
    EXPECT_EQ(layout.firstRowShowing(length - 1), length - 1 - length / 2);
    EXPECT_EQ(layout.firstRowShowing(9999999), 10000000 - length);
    layout.firstRow = 5000000;
    EXPECT_EQ(layout.firstRowShowing(5000000 + length / 2), 5000000);
    EXPECT_EQ(layout.firstRowShowing(5000001), 5000001 - length / 2);
    EXPECT_EQ(layout.firstRowShowing(3), 0);
    layout.firstRow = 10000000 - length;
    EXPECT_EQ(layout.firstRowShowing(9999999), 10000000 - length);
    layout.numberOfRows = 100;
    EXPECT_EQ(layout.firstRowShowing(99), 0);
}

TEST(RowLayout, DropsGoOnRowsOrBetweenThem)
{
    RowLayout const layout { 2, 16, 4 };
    struct Case {
        float y;
        RowDropPlace place;
    };
    for (auto const& row : { Case { -3, { 0, false } }, Case { 0, { 0, false } }, Case { 4.9F, { 0, false } },
             Case { 5, { 0, true } }, Case { 14.9F, { 0, true } }, Case { 15, { 1, false } }, Case { 24.9F, { 1, false } },
             Case { 30, { 1, true } }, Case { 35, { 2, false } }, Case { 100, { 2, false } }, Case { nan, { 0, false } } })
        EXPECT_EQ(dropPlaceAt(row.y, layout), row.place) << row.y;
    EXPECT_EQ(dropPlaceAt(50, RowLayout {}), (RowDropPlace { 0, false }));
}

}
}

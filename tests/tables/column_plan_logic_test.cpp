#include <plix/tables/column_plan.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace plix {
namespace {

TEST(Divider, TheNearestWithinTenPointsAndTheLeftmostOfEquals)
{
    std::array<float, 3> const edges { 100, 110, 200 };
    EXPECT_EQ(dividerNear(105, edges), 0);
    EXPECT_EQ(dividerNear(106, edges), 1);
    EXPECT_EQ(dividerNear(209.5F, edges), 2);
    EXPECT_EQ(dividerNear(210, edges), std::nullopt);
    EXPECT_EQ(dividerNear(90, edges), std::nullopt);
    EXPECT_EQ(dividerNear(105, {}), std::nullopt);
}

TEST(WidthForData, AddsATenthAndFourAndTheTriangle)
{
    EXPECT_EQ(widthForData(10, DataColumn::plain), 15);
    EXPECT_EQ(widthForData(100, DataColumn::plain), 114);
    EXPECT_EQ(widthForData(100, DataColumn::outline), 130);
    EXPECT_EQ(widthForData(99.5F, DataColumn::plain), 113);
    EXPECT_EQ(widthForData(NAN, DataColumn::plain), 4);
}

TEST(WidthForData, IsCutToWholePointsBeforeTheAirIsAdded)
{
    struct Row {
        float widest;
        float plain;
        float outline;
    };
    for (auto const& row : {
             Row { 0, 4, 20 },
             Row { 1, 5, 21 },
             Row { 9.09F, 13, 29 },
             Row { 9.1F, 14, 30 },
             Row { 50, 59, 75 },
             Row { 1000, 1104, 1120 },
             Row { std::numeric_limits<float>::infinity(), 4, 4 },
         }) {
        EXPECT_EQ(widthForData(row.widest, DataColumn::plain), row.plain) << row.widest;
        EXPECT_EQ(widthForData(row.widest, DataColumn::outline), row.outline) << row.widest;
    }
}

TEST(WidestInOutline, AsksWithTheIndentationAndKeepsTheWidthWithout)
{
    struct Row {
        float widest;
        float indentation;
        float width;
        float expected;
    };
    for (auto const& row : {
             Row { 10, 0, 20, 20 },
             Row { 20, 0, 20, 20 },
             Row { 30, 0, 20, 30 },
             Row { 100, 16, 95, 95 },
             Row { 100, 5, 95, 100 },
             Row { 100, 5.5F, 95, 95 },
             Row { 10, 400, 0, 0 },
         })
        EXPECT_EQ(widestInOutline(row.widest, row.indentation, row.width), row.expected) << row.widest << " " << row.indentation;
}

}
}

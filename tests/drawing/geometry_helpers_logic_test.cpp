#include <plix/drawing/geometry_helpers.h>

#include <gtest/gtest.h>

#include <ostream>

namespace plix {

static void PrintTo(Rect const& rect, std::ostream* stream)
{
    *stream << NSStringFromRect(rect);
}

static void PrintTo(Point const& point, std::ostream* stream)
{
    *stream << NSStringFromPoint(point);
}

namespace {

TEST(PLIXIntegralPoint, RoundsHalvesToTheEvenNeighbour)
{
    struct Row {
        Point given;
        Point expected;
    };
    constexpr Row rows[] {
        { { 2.5F, -1.5F }, { 2, -2 } },
        { { 0.5F, 1.5F }, { 0, 2 } },
        { { 3.5F, -0.5F }, { 4, 0 } },
        { { 0.49F, 0.51F }, { 0, 1 } },
        { { -2.5F, -2.51F }, { -2, -3 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(PLIXIntegralPoint(row.given), row.expected);
}

TEST(PLIXNormalizedRect, RoundsEachFieldByItself)
{
    EXPECT_EQ(PLIXNormalizedRect({ 0.5F, 1.5F, 10.5F, 11.5F }), (Rect { 0, 2, 10, 12 }));
    EXPECT_EQ(PLIXNormalizedRect({ 0.6F, 0.6F, 9.8F, 9.4F }), (Rect { 1, 1, 10, 9 }));
    EXPECT_EQ(PLIXNormalizedRect({ 1, 1, -2.5F, -3.5F }), (Rect { 1, 1, -2, -4 }));
}

TEST(PLIXMakeRectWithSize, LiesAtTheOrigin)
{
    EXPECT_EQ(PLIXMakeRectWithSize({ 12.5F, 7 }), (Rect { 0, 0, 12.5F, 7 }));
}

TEST(PLIXRectCenterOnRect, CentersWithoutRounding)
{
    EXPECT_EQ(PLIXRectCenterOnRect({ 90, 90, 10, 5 }, { 10, 20, 25, 10 }), (Rect { 17.5F, 22.5F, 10, 5 }));
}

TEST(PLIXRectCenterOnRect, BeginsOutsideWhereTheRectangleIsTheLarger)
{
    EXPECT_EQ(PLIXRectCenterOnRect({ 0, 0, 30, 40 }, { 0, 0, 10, 20 }), (Rect { -10, -10, 30, 40 }));
}

TEST(PLIXScaleRectToRect, FitsWithProportionsAndOriginKept)
{
    struct Row {
        Rect a;
        Rect b;
        Rect expected;
    };
    constexpr Row rows[] {
        { { 5, 5, 100, 50 }, { 0, 0, 50, 50 }, { 5, 5, 50, 25 } },
        { { 5, 5, 100, 50 }, { 0, 0, 400, 400 }, { 5, 5, 400, 200 } },
        { { 5, 5, 100, 50 }, { 70, 80, 400, 400 }, { 5, 5, 400, 200 } },
        { { 0, 0, 50, 100 }, { 0, 0, 50, 50 }, { 0, 0, 25, 50 } },
        { { 1, 2, 10, 10 }, { 0, 0, 20, 20 }, { 1, 2, 20, 20 } },
        { { 0, 0, 3, 1 }, { 0, 0, 1, 1 }, { 0, 0, 1, 1.0F / 3 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(PLIXScaleRectToRect(row.a, row.b), row.expected);
}

TEST(PLIXAlignRectOnRect, PlacesAtEachOfTheNinePositions)
{
    constexpr Rect a { 77, 88, 10, 4 };
    constexpr Rect b { 100, 200, 25, 9 };
    struct Row {
        int alignment;
        Rect expected;
    };
    constexpr Row rows[] {
        { PLIXAlignTopLeft, { 100, 205, 10, 4 } },
        { PLIXAlignTopCenter, { 107.5F, 205, 10, 4 } },
        { PLIXAlignTopRight, { 115, 205, 10, 4 } },
        { PLIXAlignMiddleLeft, { 100, 202.5F, 10, 4 } },
        { PLIXAlignCenter, { 107.5F, 202.5F, 10, 4 } },
        { PLIXAlignMiddleRight, { 115, 202.5F, 10, 4 } },
        { PLIXAlignBottomLeft, { 100, 200, 10, 4 } },
        { PLIXAlignBottomCenter, { 107.5F, 200, 10, 4 } },
        { PLIXAlignBottomRight, { 115, 200, 10, 4 } },
    };
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(rows[i].alignment, i);
        EXPECT_EQ(PLIXAlignRectOnRect(a, b, i), rows[i].expected) << i;
    }
}

TEST(PLIXAlignRectOnRect, AnswersTheRectangleItselfForAnyOtherNumber)
{
    constexpr Rect a { 77, 88, 10, 4 };
    for (int const alignment : { 9, -1, 100, -2147483647 - 1, 2147483647 })
        EXPECT_EQ(PLIXAlignRectOnRect(a, { 0, 0, 50, 50 }, alignment), a) << alignment;
}

TEST(PLIXRoundToNearestIncrement, RoundsHalvesUpAndNegativeValuesTowardsZero)
{
    struct Row {
        int value;
        int increment;
        int expected;
    };
    constexpr Row rows[] {
        { 15, 10, 20 },
        { 14, 10, 10 },
        { -15, 10, -10 },
        { -16, 10, -10 },
        { -7, 10, 0 },
        { -20, 10, -20 },
        { 5, 10, 10 },
        { 4, 10, 0 },
        { 0, 10, 0 },
        { 10, 10, 10 },
        { 1, 3, 3 },
        { 2, 3, 3 },
        { 3, 3, 3 },
        { 0, 3, 0 },
        // Half of 1 is 0, which the remainder 0 is not below: an increment of 1 adds 1.
        { 7, 1, 8 },
        // Past the greatest integer the result wraps.
        { 2147483647, 10, -2147483646 },
        { -2147483647 - 1, -1, 2147483647 },
    };
    for (auto const& row : rows)
        EXPECT_EQ(PLIXRoundToNearestIncrement(row.value, row.increment), row.expected) << row.value << " to " << row.increment;
}

#ifndef NDEBUG
TEST(PLIXRoundToNearestIncrementDeathTest, AssertsOnAnIncrementOfZero)
{
    EXPECT_DEATH(PLIXRoundToNearestIncrement(3, 0), "increment");
}
#endif

}
}

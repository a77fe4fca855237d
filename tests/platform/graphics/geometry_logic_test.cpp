#include <plix/platform/graphics/geometry.h>

#include <gtest/gtest.h>

#include <cmath>

namespace plix {
namespace {

TEST(Rect, IsEmptyWithoutAreaOrWithASideThatIsNoNumber)
{
    EXPECT_TRUE((Rect { 1, 1, 0, 5 }).isEmpty());
    EXPECT_TRUE((Rect { 1, 1, 5, -1 }).isEmpty());
    EXPECT_TRUE((Rect { 1, 1, NAN, 5 }).isEmpty());
    EXPECT_FALSE((Rect { 1, 1, 1, 1 }).isEmpty());
}

TEST(Rect, InsetOffsetAndEdges)
{
    EXPECT_EQ(NSInsetRect({ 0, 0, 10, 10 }, 2, 3), (Rect { 2, 3, 6, 4 }));
    EXPECT_EQ(NSInsetRect({ 0, 0, 2, 2 }, 2, 2), (Rect { 2, 2, -2, -2 }));
    EXPECT_EQ(NSOffsetRect({ 1, 2, 3, 4 }, -1, 5), (Rect { 0, 7, 3, 4 }));
    EXPECT_EQ((Rect { 1, 2, 3, 4 }).maxX(), 4);
    EXPECT_EQ((Rect { 1, 2, 3, 4 }).midY(), 4);
}

TEST(Rect, IntegralRectCoversAndGrowsOutwards)
{
    EXPECT_EQ(NSIntegralRect({ 0.5F, -0.5F, 1, 1 }), (Rect { 0, -1, 2, 2 }));
    EXPECT_EQ(NSIntegralRect({ 1, 2, 3, 4 }), (Rect { 1, 2, 3, 4 }));
    EXPECT_EQ(NSIntegralRect({ 1.5F, 2, 0, 4 }), (Rect {}));
}

TEST(Rect, UnionIgnoresEmptyRectangles)
{
    EXPECT_EQ(NSUnionRect({ 0, 0, 1, 1 }, { 4, 5, 1, 1 }), (Rect { 0, 0, 5, 6 }));
    EXPECT_EQ(NSUnionRect({ 0, 0, 0, 1 }, { 4, 5, 1, 1 }), (Rect { 4, 5, 1, 1 }));
    EXPECT_EQ(NSUnionRect({ 4, 5, 1, 1 }, { 9, 9, 0, 0 }), (Rect { 4, 5, 1, 1 }));
    EXPECT_EQ(NSUnionRect({ 4, 5, 0, 1 }, { 9, 9, 0, 0 }), (Rect {}));
}

TEST(Rect, IntersectionIsZeroWhereNothingIsShared)
{
    EXPECT_EQ(NSIntersectionRect({ 0, 0, 4, 4 }, { 2, 3, 4, 4 }), (Rect { 2, 3, 2, 1 }));
    EXPECT_EQ(NSIntersectionRect({ 0, 0, 4, 4 }, { 4, 0, 4, 4 }), (Rect {}));
    EXPECT_FALSE(NSIntersectsRect({ 0, 0, 4, 4 }, { 4, 0, 4, 4 }));
    EXPECT_TRUE(NSContainsRect({ 0, 0, 4, 4 }, { 0, 0, 4, 4 }));
    EXPECT_FALSE(NSContainsRect({ 0, 0, 4, 4 }, { 1, 1, 0, 0 }));
}

TEST(Rect, TheMouseIsInsideAtTheScreensFirstEdge)
{
    Rect const rect { 0, 0, 10, 10 };
    EXPECT_TRUE(NSMouseInRect({ 0, 10 }, rect, false));
    EXPECT_FALSE(NSMouseInRect({ 0, 0 }, rect, false));
    EXPECT_TRUE(NSMouseInRect({ 0, 0 }, rect, true));
    EXPECT_FALSE(NSMouseInRect({ 0, 10 }, rect, true));
    EXPECT_FALSE(NSMouseInRect({ 10, 5 }, rect, true));
    EXPECT_TRUE(NSPointInRect({ 0, 0 }, rect));
}

TEST(Rect, DivideCutsFromEachEdge)
{
    struct Row {
        NSRectEdge edge;
        Rect slice;
        Rect remainder;
    };
    for (auto const& row : {
             Row { NSMinXEdge, { 0, 0, 3, 20 }, { 3, 0, 7, 20 } },
             Row { NSMaxXEdge, { 7, 0, 3, 20 }, { 0, 0, 7, 20 } },
             Row { NSMinYEdge, { 0, 0, 10, 3 }, { 0, 3, 10, 17 } },
             Row { NSMaxYEdge, { 0, 17, 10, 3 }, { 0, 0, 10, 17 } },
         }) {
        Rect slice;
        Rect remainder;
        NSDivideRect({ 0, 0, 10, 20 }, slice, remainder, 3, row.edge);
        EXPECT_EQ(slice, row.slice) << row.edge;
        EXPECT_EQ(remainder, row.remainder) << row.edge;
    }
}

TEST(Rect, DivideTakesAtMostAllAndAtLeastNothing)
{
    Rect slice;
    Rect remainder;
    NSDivideRect({ 1, 2, 10, 20 }, slice, remainder, 99, NSMinXEdge);
    EXPECT_EQ(slice, (Rect { 1, 2, 10, 20 }));
    EXPECT_EQ(remainder, (Rect { 11, 2, 0, 20 }));
    NSDivideRect({ 1, 2, 10, 20 }, slice, remainder, -5, NSMaxYEdge);
    EXPECT_EQ(slice, (Rect { 1, 22, 10, 0 }));
    EXPECT_EQ(remainder, (Rect { 1, 2, 10, 20 }));
}

TEST(Rect, StringsGoBothWays)
{
    EXPECT_EQ(NSStringFromRect({ 1, 2.5F, 3, -4 }), "{{1, 2.5}, {3, -4}}");
    EXPECT_EQ(NSRectFromString("{{1, 2.5}, {3, -4}}"), (Rect { 1, 2.5F, 3, -4 }));
    EXPECT_EQ(NSSizeFromString(NSStringFromSize({ 0.1F, 1e10F })), (Size { 0.1F, 1e10F }));
    EXPECT_EQ(NSPointFromString("{7"), (Point { 7, 0 }));
    EXPECT_EQ(NSRectFromString("nothing"), (Rect {}));
    EXPECT_EQ(NSRectFromString("{{--, .}, e+}"), (Rect {}));
}

}
}

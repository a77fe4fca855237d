#include <plix/platform/graphics/path_geometry.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace plix {
namespace {

std::string kinds(PathGeometry const& path)
{
    std::string text;
    for (auto const& element : path.elements())
        text += "MLCZ"[element.kind];
    return text;
}

void expectNear(Point found, Point expected, float tolerance = 1e-4F)
{
    EXPECT_NEAR(found.x, expected.x, tolerance);
    EXPECT_NEAR(found.y, expected.y, tolerance);
}

void expectNear(Rect found, Rect expected, float tolerance = 1e-3F)
{
    expectNear(found.origin(), expected.origin(), tolerance);
    EXPECT_NEAR(found.width, expected.width, tolerance);
    EXPECT_NEAR(found.height, expected.height, tolerance);
}

TEST(PathGeometry, ArcsBeginASubpathWithoutACurrentPoint)
{
    PathGeometry path;
    path.appendArc({ 5, 5 }, 2, 0, 90, ArcDirection::counterClockwise);
    ASSERT_EQ(kinds(path), "MC");
    expectNear(path.elements()[0].endPoint(), { 7, 5 });
    expectNear(path.currentPoint(), { 5, 7 });
}

TEST(PathGeometry, ArcsJoinTheCurrentPointByALine)
{
    PathGeometry path;
    path.moveTo({ 0, 0 });
    path.appendArc({ 5, 5 }, 2, 180, 270, ArcDirection::counterClockwise);
    ASSERT_EQ(kinds(path), "MLC");
    expectNear(path.elements()[1].endPoint(), { 3, 5 });
    expectNear(path.currentPoint(), { 5, 3 });
}

TEST(PathGeometry, ArcsTurnAsFarAsTheirAnglesAndDirectionSay)
{
    struct Row {
        float start;
        float end;
        ArcDirection direction;
        int curves;
        Point expectedEnd;
    };
    auto const ccw = ArcDirection::counterClockwise;
    auto const cw = ArcDirection::clockwise;
    Row const rows[] {
        { 270, 0, ccw, 1, { 1, 0 } },
        { 0, 270, ccw, 3, { 0, -1 } },
        { 0, 270, cw, 1, { 0, -1 } },
        { 90, 0, cw, 1, { 1, 0 } },
        { 90, 0, ccw, 3, { 1, 0 } },
        { 0, 360, ccw, 4, { 1, 0 } },
        { 0, 720, ccw, 4, { 1, 0 } },
        { -90, 90, ccw, 2, { 0, 1 } },
        { 350, 370, ccw, 1, { 0.98481F, 0.17365F } },
    };
    for (auto const& row : rows) {
        PathGeometry path;
        path.appendArc({}, 1, row.start, row.end, row.direction);
        EXPECT_EQ(static_cast<int>(path.elements().size()) - 1, row.curves) << row.start << " to " << row.end;
        expectNear(path.currentPoint(), row.expectedEnd);
    }
}

TEST(PathGeometry, ArcsWithoutUsableAnglesAddNothing)
{
    PathGeometry path;
    path.appendArc({}, 1, NAN, 90, ArcDirection::counterClockwise);
    path.appendArc({}, 1, 0, INFINITY, ArcDirection::counterClockwise);
    EXPECT_TRUE(path.isEmpty());
}

TEST(PathGeometry, ArcsStayOnTheCircle)
{
    PathGeometry path;
    path.appendArc({ 10, 20 }, 50, 17, 300, ArcDirection::counterClockwise);
    auto const flat = path.flattened(0.01F);
    EXPECT_GT(flat.elements().size(), 30U);
    for (auto const& element : flat.elements())
        EXPECT_NEAR(std::hypot(element.endPoint().x - 10, element.endPoint().y - 20), 50, 0.03);
}

TEST(PathGeometry, TangentArcsTouchBothLines)
{
    PathGeometry path;
    path.moveTo({ 0, 0 });
    path.appendTangentArc({ 10, 0 }, { 10, 10 }, 4);
    ASSERT_EQ(kinds(path), "MLC");
    expectNear(path.elements()[1].endPoint(), { 6, 0 });
    expectNear(path.currentPoint(), { 10, 4 });
    path.appendTangentArc({ 10, 20 }, { 20, 20 }, 5);
    expectNear(path.elements()[3].endPoint(), { 10, 15 });
    expectNear(path.currentPoint(), { 15, 20 });
}

TEST(PathGeometry, TangentArcsOnAStraightLineAreALine)
{
    PathGeometry path;
    path.moveTo({ 0, 0 });
    path.appendTangentArc({ 10, 0 }, { 20, 0 }, 4);
    EXPECT_EQ(kinds(path), "ML");
    EXPECT_EQ(path.currentPoint(), (Point { 10, 0 }));
}

TEST(PathGeometry, ClosingLeadsBackToWhereTheSubpathBegan)
{
    PathGeometry path;
    path.moveTo({ 1, 2 });
    path.lineTo({ 5, 2 });
    path.close();
    EXPECT_EQ(path.currentPoint(), (Point { 1, 2 }));
    path.lineTo({ 9, 9 });
    path.close();
    EXPECT_EQ(path.currentPoint(), (Point { 1, 2 }));
}

TEST(PathGeometry, BoundsFollowTheCurveAndNotItsControlPoints)
{
    PathGeometry path;
    path.moveTo({ 0, 0 });
    path.curveTo({ 10, 0 }, { 0, 10 }, { 10, 10 });
    expectNear(path.bounds(), { 0, 0, 10, 7.5F });
    expectNear(path.controlPointBounds(), { 0, 0, 10, 10 });
}

TEST(PathGeometry, BoundsOfAnOvalAreItsRectangle)
{
    PathGeometry path;
    path.appendOval({ -5, 3, 20, 8 });
    expectNear(path.bounds(), { -5, 3, 20, 8 });
    EXPECT_EQ(kinds(path), "MCCCCZ");
}

TEST(PathGeometry, AnEmptyPathHasZeroBoundsAndHoldsNothing)
{
    PathGeometry const path;
    EXPECT_EQ(path.bounds(), Rect {});
    EXPECT_EQ(path.controlPointBounds(), Rect {});
    EXPECT_EQ(path.currentPoint(), Point {});
    EXPECT_FALSE(path.contains({}, NSNonZeroWindingRule));
}

TEST(PathGeometry, ContainsFollowsTheWindingRule)
{
    PathGeometry path;
    path.appendRect({ 0, 0, 30, 30 });
    path.appendRect({ 10, 10, 10, 10 });
    EXPECT_TRUE(path.contains({ 15, 15 }, NSNonZeroWindingRule));
    EXPECT_FALSE(path.contains({ 15, 15 }, NSEvenOddWindingRule));
    EXPECT_TRUE(path.contains({ 5, 5 }, NSEvenOddWindingRule));
    EXPECT_FALSE(path.contains({ 35, 5 }, NSNonZeroWindingRule));
}

TEST(PathGeometry, ContainsClosesOpenSubpaths)
{
    PathGeometry path;
    path.moveTo({ 0, 0 });
    path.lineTo({ 10, 0 });
    path.lineTo({ 10, 10 });
    path.moveTo({ 20, 0 });
    path.lineTo({ 30, 0 });
    path.lineTo({ 30, 10 });
    EXPECT_TRUE(path.contains({ 8, 4 }, NSNonZeroWindingRule));
    EXPECT_FALSE(path.contains({ 2, 8 }, NSNonZeroWindingRule));
    EXPECT_TRUE(path.contains({ 28, 4 }, NSNonZeroWindingRule));
}

TEST(PathGeometry, ReversingRunsEachSubpathTheOtherWay)
{
    PathGeometry path;
    path.moveTo({ 0, 0 });
    path.lineTo({ 10, 0 });
    path.curveTo({ 20, 10 }, { 12, 0 }, { 20, 5 });
    path.moveTo({ 50, 50 });
    path.lineTo({ 60, 50 });
    path.lineTo({ 60, 60 });
    path.close();
    auto const reversed = path.reversed();
    ASSERT_EQ(kinds(reversed), "MCLMLLZ");
    EXPECT_EQ(reversed.elements()[0].endPoint(), (Point { 20, 10 }));
    EXPECT_EQ(reversed.elements()[1].points, (std::array<Point, 3> { Point { 20, 5 }, Point { 12, 0 }, Point { 10, 0 } }));
    EXPECT_EQ(reversed.elements()[3].endPoint(), (Point { 60, 60 }));
    EXPECT_EQ(reversed.elements()[5].endPoint(), (Point { 50, 50 }));
    EXPECT_EQ(reversed.reversed(), path);
}

TEST(PathGeometry, TransformsEveryPoint)
{
    PathGeometry path;
    path.moveTo({ 1, 2 });
    path.curveTo({ 7, 8 }, { 3, 4 }, { 5, 6 });
    path.transform({ 2, 0, 0, -1, 10, 0 });
    EXPECT_EQ(path.elements()[0].endPoint(), (Point { 12, -2 }));
    EXPECT_EQ(path.elements()[1].points, (std::array<Point, 3> { Point { 16, -4 }, Point { 20, -6 }, Point { 24, -8 } }));
}

TEST(PathGeometry, AppendsItselfToo)
{
    PathGeometry path;
    path.appendRect({ 0, 0, 1, 1 });
    path.append(path);
    EXPECT_EQ(kinds(path), "MLLLZMLLLZ");
}

}
}

#include <plix/drawing/rounded_rect.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace plix {
namespace {

/// One letter an element: M, L, C, Z.
std::string kinds(PathGeometry const& path)
{
    std::string text;
    for (auto const& element : path.elements())
        text += "MLCZ"[element.kind];
    return text;
}

void expectNear(Point found, Point expected)
{
    EXPECT_NEAR(found.x, expected.x, 1e-4);
    EXPECT_NEAR(found.y, expected.y, 1e-4);
}

TEST(RoundedRect, RunsThroughFourArcsFromTheCornerAtTheOrigin)
{
    auto const path = roundedRectOutline({ 10, 20, 100, 50 }, 8);
    ASSERT_EQ(kinds(path), "MCLCLCLCZ");
    Point const ends[] { { 10, 28 }, { 18, 20 }, { 102, 20 }, { 110, 28 }, { 110, 62 }, { 102, 70 }, { 18, 70 }, { 10, 62 },
        { 10, 28 } };
    for (std::size_t i = 0; i < std::size(ends); ++i)
        expectNear(path.elements()[i].endPoint(), ends[i]);
}

TEST(RoundedRect, IsRoundByItsRadiusAtEveryCorner)
{
    auto const path = roundedRectOutline({ 0, 0, 40, 30 }, 10).flattened(0.001F);
    for (auto const& element : path.elements()) {
        auto const point = element.endPoint();
        float const dx = point.x < 10 ? 10 - point.x : point.x - 30;
        float const dy = point.y < 10 ? 10 - point.y : point.y - 20;
        if (dx > 0 && dy > 0) {
            EXPECT_NEAR(std::hypot(dx, dy), 10, 0.02);
        }
    }
}

TEST(RoundedRect, LimitsTheRadiusToHalfOfTheShorterSide)
{
    auto const path = roundedRectOutline({ 0, 0, 10, 4 }, 5);
    ASSERT_EQ(kinds(path), "MCLCLCLCZ");
    expectNear(path.elements()[0].endPoint(), { 0, 2 });
    expectNear(path.elements()[1].endPoint(), { 2, 0 });
    expectNear(path.elements()[2].endPoint(), { 8, 0 });
}

TEST(RoundedRect, WithoutRadiusIsAPlainRectangleOfDegenerateArcs)
{
    auto const path = roundedRectOutline({ 1, 2, 10, 4 }, 0);
    EXPECT_EQ(kinds(path), "MCLCLCLCZ");
    EXPECT_EQ(path.bounds(), (Rect { 1, 2, 10, 4 }));
    EXPECT_TRUE(path.contains({ 1.01F, 2.01F }, NSNonZeroWindingRule));
}

TEST(RoundedRect, RoundsACornerOnlyWhereBothItsSidesAreChosen)
{
    // One letter a corner, from minimum x and y counter-clockwise: round or sharp.
    for (unsigned style = 0; style < 64; ++style) {
        bool const minX = style & 2;
        bool const maxX = style & 4;
        bool const maxY = style & 8;
        bool const minY = style & 16;
        std::string expected = minX && minY ? "MC" : "M";
        expected += maxX && minY ? "LC" : "L";
        expected += maxX && maxY ? "LC" : "L";
        expected += minX && maxY ? "LC" : "L";
        EXPECT_EQ(kinds(roundedRectOutline({ 0, 0, 20, 20 }, 5, style)), expected + "Z") << style;
    }
}

TEST(RoundedRect, WithAllSidesIsTheSameAsWithoutStyle)
{
    EXPECT_EQ(roundedRectOutline({ 3, 4, 50, 20 }, 6, 30), roundedRectOutline({ 3, 4, 50, 20 }, 6));
    EXPECT_EQ(roundedRectOutline({ 3, 4, 50, 20 }, 6, 31), roundedRectOutline({ 3, 4, 50, 20 }, 6));
}

TEST(RoundedRect, WithoutSidesIsASharpRectangle)
{
    PathGeometry expected;
    expected.appendRect({ 3, 4, 50, 20 });
    EXPECT_EQ(roundedRectOutline({ 3, 4, 50, 20 }, 6, 0), expected);
    EXPECT_EQ(roundedRectOutline({ 3, 4, 50, 20 }, 6, 1), expected);
}

TEST(RoundedRect, WithThreeSidesRoundsTheCornersBetweenThem)
{
    auto const path = roundedRectOutline({ 0, 0, 20, 20 }, 5, 2 | 8 | 16);
    ASSERT_EQ(kinds(path), "MCLLLCZ");
    expectNear(path.elements()[2].endPoint(), { 20, 0 });
    expectNear(path.elements()[3].endPoint(), { 20, 20 });
    expectNear(path.elements()[4].endPoint(), { 5, 20 });
    expectNear(path.elements()[5].endPoint(), { 0, 15 });
}

}
}

#include <plix/platform/graphics/affine_transform.h>

#include <gtest/gtest.h>

#include <numbers>

namespace plix {
namespace {

TEST(AffineTransform, ConcatenatesInTheOrderGiven)
{
    auto const move = AffineTransform::translation(10, 20);
    auto const grow = AffineTransform::scaling(2, 3);
    EXPECT_EQ(concatenated(move, grow).apply(Point { 1, 1 }), (Point { 22, 63 }));
    EXPECT_EQ(concatenated(grow, move).apply(Point { 1, 1 }), (Point { 12, 23 }));
}

TEST(AffineTransform, InvertsWhatItDid)
{
    AffineTransform const transform { 2, 0.5, -1, 3, 7, -9 };
    auto const identity = concatenated(transform, *transform.inverse());
    EXPECT_NEAR(identity.m11, 1, 1e-12);
    EXPECT_NEAR(identity.m12, 0, 1e-12);
    EXPECT_NEAR(identity.m21, 0, 1e-12);
    EXPECT_NEAR(identity.m22, 1, 1e-12);
    EXPECT_NEAR(identity.tX, 0, 1e-12);
    EXPECT_NEAR(identity.tY, 0, 1e-12);
}

TEST(AffineTransform, WithoutAreaHasNoInverse)
{
    EXPECT_FALSE(AffineTransform::scaling(0, 1).inverse());
    EXPECT_FALSE((AffineTransform { 1, 2, 2, 4, 0, 0 }.inverse()));
    EXPECT_FALSE(AffineTransform::translation(std::numeric_limits<double>::infinity(), 0).inverse());
}

TEST(AffineTransform, MovesPointsButNotSizes)
{
    AffineTransform const transform { 2, 0, 0, -1, 10, 20 };
    EXPECT_EQ(transform.apply(Point { 3, 4 }), (Point { 16, 16 }));
    EXPECT_EQ(transform.apply(Size { 3, 4 }), (Size { 6, -4 }));
}

TEST(AffineTransform, RotatesCounterClockwise)
{
    auto const quarter = AffineTransform::rotation(std::numbers::pi / 2);
    auto const turned = quarter.apply(Point { 1, 0 });
    EXPECT_NEAR(turned.x, 0, 1e-6);
    EXPECT_NEAR(turned.y, 1, 1e-6);
}

TEST(AffineTransform, MirrorsARectangleOntoItself)
{
    Rect const rect { 3, 10, 5, 4 };
    auto const mirror = AffineTransform::mirror(rect);
    EXPECT_EQ(mirror, (AffineTransform { 1, 0, 0, -1, 0, 24 }));
    EXPECT_EQ(mirror.boundsOf(rect), rect);
    EXPECT_EQ(concatenated(mirror, mirror), AffineTransform {});
}

TEST(AffineTransform, SaysWhetherAxesAreKept)
{
    EXPECT_TRUE(AffineTransform::scaling(-2, 3).keepsAxes());
    EXPECT_FALSE(AffineTransform::rotation(0.1).keepsAxes());
}

}
}

#include <plix/drawing/image_plans.h>

#include <gtest/gtest.h>

#include <ostream>

namespace plix {

static void PrintTo(ImagePiece const& piece, std::ostream* stream)
{
    *stream << NSStringFromRect(piece.source) << " -> " << NSStringFromRect(piece.destination);
}

namespace {

TEST(ShrinkFactor, TakesTheHeightWhereTheImageIsTaller)
{
    struct Row {
        Size image;
        Size target;
        double factor;
        Size shrunk;
    };
    Row const rows[] {
        { { 30, 30 }, { 100, 40 }, 1, { 30, 30 } },
        { { 200, 50 }, { 100, 100 }, 0.5, { 100, 25 } },
        { { 200, 200 }, { 100, 150 }, 0.75, { 150, 150 } },
        { { 50, 200 }, { 100, 100 }, 0.5, { 25, 100 } },
        { { 400, 200 }, { 100, 190 }, static_cast<double>(190.0F / 200.0F), { 379, 189 } },
        { { 100, 100 }, { 100, 100 }, 1, { 100, 100 } },
        { { 10, 10 }, { 3, 20 }, static_cast<double>(3.0F / 10.0F), { 3, 3 } },
        { { 10, 10 }, { 0, 0 }, 0, { 0, 0 } },
    };
    for (auto const& row : rows) {
        auto const factor = shrinkFactor(row.image, row.target);
        EXPECT_EQ(factor, row.factor) << NSStringFromSize(row.image);
        EXPECT_EQ(shrunkSize(row.image, factor), row.shrunk) << NSStringFromSize(row.image);
    }
}

TEST(ShrinkFactor, WorksWithTheSinglePrecisionRatio)
{
    // 29.999999 as a float ratio times the side in double precision ends below the whole number.
    EXPECT_EQ(shrinkFactor({ 7, 1 }, { 3, 1 }), static_cast<double>(3.0F / 7.0F));
    EXPECT_NE(shrinkFactor({ 7, 1 }, { 3, 1 }), 3.0 / 7.0);
    EXPECT_EQ(shrunkSize({ 7, 1 }, shrinkFactor({ 7, 1 }, { 3, 1 })).width, 3);
}

TEST(NineSlicePlan, KeepsCornersAndStretchesWhatLiesBetween)
{
    auto const plan = nineSlicePlan({ 30, 30 }, { 100, 40 });
    std::array<ImagePiece, 9> const expected { {
        { { 0, 20, 10, 10 }, { 0, 30, 10, 10 } },
        { { 10, 20, 10, 10 }, { 10, 30, 80, 10 } },
        { { 20, 20, 10, 10 }, { 90, 30, 10, 10 } },
        { { 0, 10, 10, 10 }, { 0, 10, 10, 20 } },
        { { 10, 10, 10, 10 }, { 10, 10, 80, 20 } },
        { { 20, 10, 10, 10 }, { 90, 10, 10, 20 } },
        { { 0, 0, 10, 10 }, { 0, 0, 10, 10 } },
        { { 10, 0, 10, 10 }, { 10, 0, 80, 10 } },
        { { 20, 0, 10, 10 }, { 90, 0, 10, 10 } },
    } };
    EXPECT_EQ(plan, expected);
}

TEST(NineSlicePlan, LeavesOutTheRightmostColumnsAndTheRowsBelowTheTop)
{
    auto const plan = nineSlicePlan({ 31, 32 }, { 50, 50 });
    for (int x = 0; x < 31; ++x) {
        for (int y = 0; y < 32; ++y) {
            bool isUsed = false;
            for (auto const& piece : plan)
                isUsed = isUsed || NSPointInRect({ static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F }, piece.source);
            EXPECT_EQ(isUsed, x < 30 && (y < 20 || y >= 22)) << x << ", " << y;
        }
    }
}

TEST(NineSlicePlan, CoversEveryTargetOnceWhereTheCornersFit)
{
    for (int width = 3; width <= 40; width += 4) {
        for (int height = 3; height <= 40; height += 3) {
            for (int target = 0; target <= 30; target += 7) {
                Size const size { static_cast<float>(width + target), static_cast<float>(height + 2 * target) };
                auto const plan = nineSlicePlan({ static_cast<float>(width), static_cast<float>(height) }, size);
                float area = 0;
                for (auto const& piece : plan) {
                    area += piece.destination.width * piece.destination.height;
                    EXPECT_GE(piece.destination.x, 0);
                    EXPECT_GE(piece.destination.y, 0);
                    EXPECT_LE(piece.destination.maxX(), size.width);
                    EXPECT_LE(piece.destination.maxY(), size.height);
                }
                EXPECT_EQ(area, size.width * size.height);
                for (std::size_t a = 0; a < plan.size(); ++a) {
                    for (std::size_t b = a + 1; b < plan.size(); ++b)
                        EXPECT_FALSE(NSIntersectsRect(plan[a].destination, plan[b].destination));
                }
            }
        }
    }
}

TEST(NineSlicePlan, TurnsPiecesInsideOutOverATargetThatIsTooSmall)
{
    auto const plan = nineSlicePlan({ 30, 30 }, { 15, 40 });
    EXPECT_EQ(plan[1].destination.width, -5);
    EXPECT_EQ(plan[4].destination, (Rect { 10, 10, -5, 20 }));
    EXPECT_EQ(plan[2].destination.x, 5);
}

TEST(NineSlicePlan, CutsNothingFromAnImageBelowThreePoints)
{
    for (auto const& piece : nineSlicePlan({ 2, 2 }, { 50, 50 }))
        EXPECT_TRUE(piece.source.isEmpty());
}

TEST(CompositionRect, FitsCentersAndRounds)
{
    struct Row {
        Size image;
        Size canvas;
        Rect expected;
    };
    Row const rows[] {
        { { 10, 10 }, { 10, 10 }, { 0, 0, 10, 10 } },
        { { 100, 50 }, { 50, 50 }, { 0, 12, 50, 25 } },
        { { 10, 20 }, { 64, 32 }, { 24, 0, 16, 32 } },
        { { 7, 3 }, { 16, 16 }, { 0, 5, 16, 7 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(compositionRect(row.image, row.canvas), row.expected) << NSStringFromSize(row.image);
}

}
}

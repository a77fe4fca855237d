#include <plix/controls/chiseled_popup_plan.h>
#include <plix/controls/image_view_plan.h>
#include <plix/controls/segment_separators.h>

#include <gtest/gtest.h>

#include <cmath>

namespace plix {
namespace {

TEST(ImagePlacement, ScalesDownOnlyAndStandsOnWholePoints)
{
    struct Row {
        Size image;
        Rect room;
        Rect expected;
    };
    for (auto const& row : {
             Row { { 10, 10 }, { 0, 0, 50, 30 }, { 20, 10, 10, 10 } },
             Row { { 10, 10 }, { 5, 7, 51, 31 }, { 20, 10, 10, 10 } }, // the room's origin does not count
             Row { { 100, 50 }, { 0, 0, 50, 50 }, { 0, 12, 50, 25 } },
             Row { { 50, 100 }, { 0, 0, 50, 50 }, { 12, 0, 25, 50 } },
             Row { { 200, 100 }, { 0, 0, 50, 50 }, { 0, 12, 50, 25 } },
             Row { { 10, 10 }, { 0, 0, 5, 50 }, { 0, 22, 5, 5 } },
             Row { { 11, 10 }, { 0, 0, 10, 10 }, { 0, 0, 10, 100.0F / 11 } },
         }) {
        auto const placed = imagePlacement(row.image, row.room);
        EXPECT_EQ(placed.origin(), row.expected.origin()) << row.image.width;
        EXPECT_NEAR(placed.width, row.expected.width, 1e-4);
        EXPECT_NEAR(placed.height, row.expected.height, 1e-4);
    }
}

TEST(DashedBorder, RadiusIsAnEighthOfTheShorterSideAndAtMostSixteen)
{
    EXPECT_EQ(dashedBorder({ 100, 80 }, { 0, 0, 100, 80 }).cornerRadius, 10);
    EXPECT_EQ(dashedBorder({ 79, 200 }, { 0, 0, 79, 200 }).cornerRadius, 9);
    EXPECT_EQ(dashedBorder({ 1000, 1000 }, { 0, 0, 1000, 1000 }).cornerRadius, 16);
    EXPECT_EQ(dashedBorder({ 100, 80 }, { 0, 0, 100, 80 }).path, (Rect { 2, 2, 96, 76 }));
}

TEST(DashedBorder, GapsGoFromTheMiddleOutwardsInPairs)
{
    // radius 10, period 16: across 50 - 13 = 37 leaves 5, half a gap is 5.5; up 40 - 13 = 27 is one dash and leaves 11: 8.5.
    auto const border = dashedBorder({ 100, 80 }, { 0, 0, 100, 80 });
    ASSERT_GE(border.gaps.size(), 3U);
    EXPECT_EQ(border.gaps[0], (Rect { 44.5F, 0, 11, 80 }));
    EXPECT_EQ(border.gaps[1], (Rect { 23.5F, 0, 11, 80 }));
    EXPECT_EQ(border.gaps[2], (Rect { 65.5F, 0, 11, 80 }));
    EXPECT_EQ(border.gaps[3], (Rect { 2.5F, 0, 11, 80 })); // the test comes before the step, so the last pair reaches the corners
    EXPECT_EQ(border.gaps[4], (Rect { 86.5F, 0, 11, 80 }));
    EXPECT_EQ(border.gaps[5], (Rect { 0, 31.5F, 100, 17 }));
    EXPECT_EQ(border.gaps[6], (Rect { 0, 4.5F, 100, 17 }));
    EXPECT_EQ(border.gaps[7], (Rect { 0, 58.5F, 100, 17 }));
    EXPECT_EQ(border.gaps.size(), 8U);
}

TEST(DashedBorder, ShortSidesAndBrokenSizesEnd)
{
    EXPECT_EQ(dashedBorder({ 200, 20 }, { 0, 0, 200, 20 }).gaps.front().height, 20);
    for (auto const& gap : dashedBorder({ 200, 20 }, { 0, 0, 200, 20 }).gaps)
        EXPECT_EQ(gap.height, 20); // no dash fits upwards: nothing is cut out of that side
    EXPECT_LE(dashedBorder({ 1e9F, 1e9F }, { 0, 0, 1e9F, 1e9F }).gaps.size(), 20004U);
    EXPECT_LE(dashedBorder({ NAN, NAN }, { 0, 0, NAN, NAN }).gaps.size(), 20004U);
    EXPECT_LE(dashedBorder({ 0, 0 }, {}).gaps.size(), 4U);
}

TEST(ChiseledPopUp, TitleStandsByThePressedLeftCap)
{
    EXPECT_EQ(chiseledTitleOrigin({ 30, 40, 100, 22 }, { 50, 17 }, 12), (Point { 8, 3.5F }));
    EXPECT_EQ(chiseledTitleOrigin({ 0, 0, 100, 10 }, { 50, 20 }, 0), (Point { -4, -4 }));
}

TEST(ChiseledPopUp, SlicesKeepTheirCapsAndTheMiddleItsOddStart)
{
    SliceWidths const pressed { 8, 3, 9 };
    SliceWidths const hover { 10, 4, 11 };
    EXPECT_EQ(popUpSlices(PopUpBackground::hover, { 0, 0, 100, 20 }, pressed, hover),
        (PopUpSlices { { 0, 0, 10, 20 }, { 89, 0, 11, 20 }, { 10, 0, 79, 20 } }));
    EXPECT_EQ(popUpSlices(PopUpBackground::pressed, { 5, 6, 100, 20 }, pressed, hover),
        (PopUpSlices { { 0, 0, 8, 20 }, { 96, 0, 9, 20 }, { 3, 0, 79, 20 } }));
    EXPECT_EQ(popUpSlices(PopUpBackground::hover, { 0, 0, 100, 20 }, {}, {}),
        (PopUpSlices { { 0, 0, 0, 20 }, { 100, 0, 0, 20 }, { 0, 0, 100, 20 } }));
}

TEST(ChiseledPopUp, ArrowFollowsTheTitle)
{
    EXPECT_EQ(popUpArrowOrigin({ 8, 3.5F, 50, 17 }, { 7, 5 }), (Point { 58, 6 }));
}

TEST(ChiseledPopUp, SizeFollowsTheTitleAndTheHeightOnlyWhenAsked)
{
    PopUpFrameRequest request { { 200, 50, 80, 22.75F }, { 50.75F, 17.5F }, { 8, 3, 9 }, 7, false, true };
    EXPECT_EQ(popUpSizeForTitle(request), (Size { 70, 22 }));
    request.sizesHeightToFit = true;
    EXPECT_EQ(popUpSizeForTitle(request), (Size { 70, 21 }));
}

TEST(ChiseledPopUp, TheRightEdgeStaysWhereItIsAnchored)
{
    PopUpFrameRequest request { { 200, 50, 80, 22 }, { 50, 17 }, { 8, 3, 9 }, 7, false, true };
    EXPECT_EQ(popUpOriginForWidth(request, 70), (Point { 210, 50 }));
    request.keepsRightEdge = false;
    EXPECT_EQ(popUpOriginForWidth(request, 70), (Point { 200, 50 }));
}

TEST(SegmentSeparator, StandsOnlyBetweenUnselectedNeighbours)
{
    Rect const frame { 30, 2, 25, 18 };
    auto const drawn = [&](long count, long selected) {
        std::vector<long> segments;
        for (long i = 0; i < count; ++i) {
            if (segmentSeparator(i, count, selected, frame))
                segments.push_back(i);
        }
        return segments;
    };
    EXPECT_EQ(drawn(1, -1), (std::vector<long> {}));
    EXPECT_EQ(drawn(4, 2), (std::vector<long> { 0 }));
    EXPECT_EQ(drawn(4, -1), (std::vector<long> { 0, 1, 2 }));
    EXPECT_EQ(drawn(4, 0), (std::vector<long> { 1, 2 }));
    EXPECT_EQ(drawn(4, 3), (std::vector<long> { 0, 1 }));
    EXPECT_EQ(*segmentSeparator(0, 4, 2, frame), (Rect { 55, 2, 1, 18 }));
}

TEST(CentredImage, IsCutToWholePointsTowardsZero)
{
    EXPECT_EQ(centredImageOrigin({ 100, 21 }, { 16, 16 }), (Point { 42, 2 }));
    EXPECT_EQ(centredImageOrigin({ 10, 10 }, { 13, 16 }), (Point { -1, -3 }));
}

}
}

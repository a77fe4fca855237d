#include <plix/platform/appkit/cell_layout.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

TEST(CellLayout, LeavesRoomForBorderAndBezelByControlSize)
{
    EXPECT_EQ(cellFrameInsets(CellFrameStyle::none, NSRegularControlSize), (CellInsets {}));
    EXPECT_EQ(cellFrameInsets(CellFrameStyle::border, NSSmallControlSize), (CellInsets { 1, 1, 1, 1 }));
    // Lines of the system font are 16, 14 and 11 points high.
    EXPECT_EQ(outsetSize({ 0, 16 }, cellFrameInsets(CellFrameStyle::bezel, NSRegularControlSize)).height, 22);
    EXPECT_EQ(outsetSize({ 0, 14 }, cellFrameInsets(CellFrameStyle::bezel, NSSmallControlSize)).height, 19);
    EXPECT_EQ(outsetSize({ 0, 11 }, cellFrameInsets(CellFrameStyle::bezel, NSMiniControlSize)).height, 16);
}

TEST(CellLayout, InsetsNeverTurnARectangleInsideOut)
{
    EXPECT_EQ(insetRect({ 10, 10, 30, 30 }, { 1, 2, 3, 4 }), (Rect { 11, 12, 26, 24 }));
    EXPECT_EQ(insetRect({ 10, 10, 3, 3 }, { 2, 2, 2, 2 }), (Rect { 12, 12, 0, 0 }));
}

TEST(CellLayout, CentresImagesOnWholePointsAndShrinksLargeOnes)
{
    EXPECT_EQ(centredImageRect({ 0, 0, 21, 20 }, { 10, 10 }), (Rect { 6, 5, 10, 10 }));
    EXPECT_EQ(centredImageRect({ 0, 0, 20, 20 }, { 40, 20 }), (Rect { 0, 5, 20, 10 }));
    EXPECT_EQ(centredImageRect({ 0, 0, 0, 20 }, { 40, 20 }), Rect {});
    EXPECT_EQ(centredImageRect({ 0, 0, 20, 20 }, {}), Rect {});
}

}
}

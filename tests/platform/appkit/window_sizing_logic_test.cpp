#include <plix/platform/appkit/window_sizing.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

TEST(WindowSizing, FollowsTheAspectRatioOrTheIncrements)
{
    struct Row {
        Size proposed;
        Size aspectRatio;
        Size increments;
        Size expected;
    };
    constexpr Size now { 200, 100 };
    constexpr Row rows[] = {
        { { 333, 77 }, {}, { 1, 1 }, { 333, 77 } },
        { { 333, 77 }, { 2, 1 }, { 1, 1 }, { 333, 167 } },
        { { 333, 77 }, { 2, 1 }, { 50, 50 }, { 333, 167 } },
        { { 257, 133 }, {}, { 10, 20 }, { 250, 120 } },
        { { 143, 61 }, {}, { 10, 20 }, { 150, 80 } },
        { { 257, 133 }, { 0, 1 }, {}, { 257, 133 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(resizedWindowSize(row.proposed, now, row.aspectRatio, row.increments), row.expected) << row.proposed.width;
}

TEST(WindowSizing, HangsSheetsFromAnEdgeButKeepsTheirButtonsOnTheScreen)
{
    constexpr Size sheet { 200, 100 };
    EXPECT_EQ(sheetOrigin(sheet, { 300, 600 }, 0), (Point { 200, 500 }));
    EXPECT_EQ(sheetOrigin(sheet, { 300.7F, 600.4F }, 0), (Point { 201, 500 }));
    EXPECT_EQ(sheetOrigin(sheet, { 300, 90 }, 0), (Point { 200, 0 }));
    EXPECT_EQ(sheetOrigin(sheet, { 300, 120 }, 40), (Point { 200, 40 }));
}

TEST(WindowSizing, ShowsTheUppermostRectangleOfASlidingSheet)
{
    constexpr Rect sheet { 10, 20, 200, 100 };
    EXPECT_EQ(slidingSheetRect(sheet, 0), (Rect { 10, 119, 200, 1 }));
    EXPECT_EQ(slidingSheetRect(sheet, 0.254F), (Rect { 10, 95, 200, 25 }));
    EXPECT_EQ(slidingSheetRect(sheet, 1), sheet);
    EXPECT_EQ(slidingSheetRect(sheet, 1.5F), sheet);
    EXPECT_EQ(slidingSheetRect({ 10, 20, 200, 0 }, 0.5F).height, 1);
}

}
}

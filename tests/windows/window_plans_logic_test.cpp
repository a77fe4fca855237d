#include <plix/controls/tab_window_fit.h>
#include <plix/windows/alert_plan.h>
#include <plix/windows/background_plan.h>
#include <plix/windows/date_plans.h>

#include <gtest/gtest.h>

#include <vector>

namespace plix {
namespace {

TEST(TabWindowFit, GrowsDownwardsByWhatTheSubviewsWant)
{
    // Chrome is 240 - 200 = 40 high; subviews span 10 to 110.
    std::vector<Rect> const subviews { { 5, 30, 50, 80 }, { 5, 10, 50, 20 } };
    auto const fit = windowFrameFittingPane({ 100, 200, 400, 300 }, { 380, 240 }, { 360, 200 }, subviews);
    EXPECT_EQ(fit, (PaneFit { { 100, 265, 400, 235 }, { 0, 10 } })); // 40 + 135 = 175, which is 65 less than 240
}

TEST(TabWindowFit, WithoutSubviewsNothingChanges)
{
    EXPECT_EQ(windowFrameFittingPane({ 1, 2, 3, 4 }, { 10, 10 }, { 5, 5 }, {}), (PaneFit { { 1, 2, 3, 4 }, {} }));
    EXPECT_EQ(windowFrameFittingPaneXY({ 1, 2, 3, 4 }, { 10, 10 }, { 5, 5 }, {}), (PaneFit { { 1, 2, 3, 4 }, {} }));
}

TEST(TabWindowFit, BothWaysHasItsOwnMargins)
{
    std::vector<Rect> const subviews { { 5, 30, 50, 80 }, { 15, 10, 150, 20 } };
    // dh = 40 + 100 + 34 - 240 = -66; dw = 20 + 160 + 40 - 380 = -160.
    auto const fit = windowFrameFittingPaneXY({ 100, 200, 400, 300 }, { 380, 240 }, { 360, 200 }, subviews);
    EXPECT_EQ(fit, (PaneFit { { 180, 266, 240, 234 }, { 15, 8 } }));
}

TEST(TabWindowFit, CustomViewsMoveTheEdgesThatTheModeNames)
{
    struct Row {
        unsigned long mode;
        Rect expected;
    };
    // 41 wider, 31 higher than what is there.
    for (auto const& row : {
             Row { 0, { 100, 200, 441, 331 } },
             Row { 1, { 100, 169, 441, 331 } },
             Row { 2, { 100, 184, 441, 332 } }, // 184.5 is rounded outwards
             Row { 3, { 100, 169, 441, 331 } },
             Row { 16, { 79, 200, 442, 331 } },
             Row { 32, { 59, 200, 441, 331 } },
             Row { 48, { 59, 200, 441, 331 } },
             Row { 17, { 79, 169, 442, 331 } },
             Row { 33, { 59, 169, 441, 331 } },
             Row { 18, { 79, 184, 442, 332 } },
         })
        EXPECT_EQ(windowFrameFittingCustomView({ 100, 200, 400, 300 }, { 360, 200 }, { 401, 231 }, row.mode), row.expected)
            << row.mode;
}

TEST(TabWindowFit, ASmallerCustomViewShrinksTheWindow)
{
    struct Row {
        unsigned long mode;
        Rect expected;
    };
    // 41 narrower, 31 lower than what is there.
    for (auto const& row : {
             Row { 0, { 100, 200, 359, 269 } },
             Row { 1, { 100, 231, 359, 269 } },
             Row { 2, { 100, 215, 359, 270 } }, // 215.5 is rounded outwards
             Row { 17, { 120, 231, 360, 269 } },
             Row { 33, { 141, 231, 359, 269 } },
         })
        EXPECT_EQ(windowFrameFittingCustomView({ 100, 200, 400, 300 }, { 360, 200 }, { 319, 169 }, row.mode), row.expected)
            << row.mode;
}

TEST(TabLabel, HasRoomForASquareImage)
{
    EXPECT_EQ(tabLabelSize({ 50, 16 }), (Size { 68, 16 }));
    auto const small = tabLabelPlan({ 10, 4, 80, 17 }, 12);
    EXPECT_EQ(small.image, (Rect { 12, 7, 12, 12 })); // 10 + 2.5 and 2.5 + 4 cut, one more upwards
    EXPECT_EQ(small.text, (Rect { 24, 4, 80, 17 }));
    auto const large = tabLabelPlan({ 10, 4, 80, 16 }, 32);
    EXPECT_EQ(large.image, (Rect { 10, 5, 16, 16 }));
    EXPECT_EQ(large.text, (Rect { 28, 4, 80, 16 }));
}

TEST(BackgroundPlan, FollowsTheWindowsHeight)
{
    Size const background { 100, 400 };
    using Pieces = std::vector<BackgroundPiece>;
    EXPECT_EQ(backgroundPlan(1, background, 150), (Pieces { { { 0, 250, 100, 150 }, { 0, 0, 100, 150 } } }));
    EXPECT_EQ(backgroundPlan(1, background, 200), (Pieces { { { 0, 200, 100, 200 }, { 0, 0, 100, 200 } } }));
    EXPECT_EQ(backgroundPlan(1, background, 300),
        (Pieces { { { 0, 200, 100, 200 }, { 0, 100, 100, 200 } }, { { 0, 200, 100, 2 }, { 0, 0, 100, 100 }, true } }));
    EXPECT_EQ(backgroundPlan(1, background, 450),
        (Pieces { { { 0, 200, 100, 200 }, { 0, 250, 100, 200 } }, { { 0, 200, 100, 2 }, { 0, 0, 100, 250 }, true },
            { { 0, 0, 100, 200 }, { 0, 0, 100, 200 } } }));
    EXPECT_EQ(backgroundPlan(1, background, 399),
        (Pieces { { { 0, 200, 100, 200 }, { 0, 199, 100, 200 } }, { { 0, 200, 100, 2 }, { 0, 0, 100, 199 }, true } }));
    EXPECT_EQ(backgroundPlan(2, background, 300), (Pieces { { { 0, 200, 100, 200 }, { 0, 0, 100, 300 } } }));
    EXPECT_TRUE(backgroundPlan(0, background, 300).empty());
    EXPECT_TRUE(backgroundPlan(7, background, 300).empty());
}

TEST(BackgroundPlan, HalvesAnOddHeightExactly)
{
    Size const background { 100, 401 };
    using Pieces = std::vector<BackgroundPiece>;
    Rect const upper { 0, 200.5F, 100, 200.5F };
    Rect const strip { 0, 200.5F, 100, 2 };
    EXPECT_EQ(backgroundPlan(1, background, 200), (Pieces { { { 0, 201, 100, 200 }, { 0, 0, 100, 200 } } }));
    EXPECT_EQ(
        backgroundPlan(1, background, 201), (Pieces { { upper, { 0, 0.5F, 100, 200.5F } }, { strip, { 0, 0, 100, 0.5F }, true } }));
    EXPECT_EQ(backgroundPlan(1, background, 400),
        (Pieces { { upper, { 0, 199.5F, 100, 200.5F } }, { strip, { 0, 0, 100, 199.5F }, true } }));
    EXPECT_EQ(backgroundPlan(1, background, 401),
        (Pieces { { upper, { 0, 200.5F, 100, 200.5F } }, { strip, { 0, 0, 100, 200.5F }, true },
            { { 0, 0, 100, 200.5F }, { 0, 0, 100, 200.5F } } }));
    EXPECT_EQ(backgroundPlan(2, background, 300), (Pieces { { upper, { 0, 0, 100, 300 } } }));
}

TEST(ResizeIndicator, KeepsItsDistanceFromTheLowerRightCorner)
{
    EXPECT_EQ(resizeIndicatorFrame({ 0, 0, 300, 200 }, { 12, 12 }), (Rect { 283, 6, 12, 12 }));
    EXPECT_EQ(resizeIndicatorOrigin({ 0, 3, 300, 200 }, 12), (Point { 283, 9 }));
}

TEST(FrameWithTopVisible, MovesOnlyUpOrDown)
{
    EXPECT_EQ(frameWithTopVisible({ 20, 50, 400, 900 }, { 0, 0, 1000, 800 }), (Rect { 20, -100, 400, 900 }));
    EXPECT_EQ(frameWithTopVisible({ 20, 50, 400, 900 }, { 40, 70, 960, 800 }), (Rect { 20, -30, 400, 900 }));
}

TEST(DatePanelLayout, StandsSideBySideWithTheButtonBelow)
{
    DatePanelSizes const sizes { { 40, 17 }, { 25, 17 }, { 100, 22 }, { 70, 32 } };
    EXPECT_EQ(datePanelLayout(sizes, DateEntryKind::picker),
        (DatePanelLayout { { 303, 86 }, { 12, 52 }, { 53, 54 }, { 165, 52 }, { 191, 54 }, { 226, 10 } }));
    EXPECT_EQ(datePanelLayout(sizes, DateEntryKind::textField).fromLabel, (Point { 12, 57 }));
    // Each label hangs by its own height.
    DatePanelSizes const uneven { { 40, 17 }, { 25, 12 }, { 100, 22 }, { 70, 32 } };
    struct Row {
        DateEntryKind kind;
        float fromLabel;
        float toLabel;
    };
    for (auto const& row : { Row { DateEntryKind::picker, 52, 57 }, Row { DateEntryKind::textField, 57, 62 } }) {
        EXPECT_EQ(datePanelLayout(uneven, row.kind).fromLabel.y, row.fromLabel);
        EXPECT_EQ(datePanelLayout(uneven, row.kind).toLabel.y, row.toLabel);
    }
}

TEST(DateFieldOrder, FollowsTheFormat)
{
    using enum DatePart;
    struct Row {
        char const* format;
        std::optional<DateFieldOrder> expected;
    };
    for (auto const& row : {
             Row { "%m/%d/%Y", DateFieldOrder { month, day, year } },
             Row { "%d.%m.%Y", DateFieldOrder { day, month, year } },
             Row { "%Y-%m-%d", DateFieldOrder { year, month, day } },
             Row { "%d %B %Y", DateFieldOrder { day, month, year } },
             Row { "%e/%m/%y", DateFieldOrder { day, month, year } },
             Row { "%d %Y %b", DateFieldOrder { day, year, month } },
             Row { "%m %Y %d", DateFieldOrder { month, year, day } },
             Row { "%Y %d %m", DateFieldOrder { year, day, month } },
             Row { "%Y年%m月%d日", DateFieldOrder { year, month, day } },
             Row { "%m/%d", DateFieldOrder { month, day, year } },
             Row { "%d/%m", DateFieldOrder { day, month, year } },
             Row { "%d", DateFieldOrder { day, year, month } },
             Row { "%m", DateFieldOrder { month, year, day } },
             Row { "%Y", DateFieldOrder { year, day, month } },
             Row { "", std::nullopt },
             Row { "%H:%S", std::nullopt },
         })
        EXPECT_EQ(dateFieldOrder(row.format), row.expected) << row.format;
}

TEST(DateFieldPositions, GiveAYearInFrontAWiderPlace)
{
    using enum DatePart;
    DateFieldPositions const yearLast { { 99, 157, 215 }, { 132, 190 }, { 92, 150, 207 } };
    DateFieldPositions const yearBetween { { 99, 157, 225 }, { 132, 200 }, { 92, 149, 218 } };
    DateFieldPositions const yearFirst { { 99, 167, 225 }, { 142, 200 }, { 91, 160, 218 } };
    EXPECT_EQ(dateFieldPositions({ month, day, year }), yearLast);
    EXPECT_EQ(dateFieldPositions({ day, month, year }), yearLast);
    EXPECT_EQ(dateFieldPositions({ day, year, month }), yearBetween);
    EXPECT_EQ(dateFieldPositions({ month, year, day }), yearBetween);
    EXPECT_EQ(dateFieldPositions({ year, day, month }), yearFirst);
    EXPECT_EQ(dateFieldPositions({ year, month, day }), yearFirst);
}

// Alerts.

TEST(AlertPlan, AButtonKeepsItsRightEdgeAndMovesThoseToItsLeft)
{
    AlertButtonFrames const before { Rect { 300, 16, 80, 24 }, Rect { 210, 16, 80, 24 }, Rect { 120, 17, 80, 24 } };
    struct Row {
        std::size_t index;
        Size fitted;
        AlertButtonFrames expected;
    };
    for (auto const& row : {
             Row { 0, { 86, 24 }, { Rect { 280, 16, 100, 24 }, Rect { 190, 16, 80, 24 }, Rect { 100, 17, 80, 24 } } },
             Row { 0, { 46, 20 }, { Rect { 320, 16, 60, 20 }, Rect { 230, 16, 80, 24 }, Rect { 140, 17, 80, 24 } } },
             Row { 0, { 66, 24 }, before },
             Row { 1, { 86.5F, 30 }, { Rect { 300, 16, 80, 24 }, Rect { 189.5F, 16, 100.5F, 30 }, Rect { 99.5F, 17, 80, 24 } } },
             Row { 2, { 400, 24 }, { Rect { 300, 16, 80, 24 }, Rect { 210, 16, 80, 24 }, Rect { -214, 17, 414, 24 } } },
             Row { 2, { 0, 0 }, { Rect { 300, 16, 80, 24 }, Rect { 210, 16, 80, 24 }, Rect { 186, 17, 14, 0 } } },
         })
        EXPECT_EQ(alertButtonsWithTitle(before, row.index, row.fitted), row.expected) << row.index << " " << row.fitted.width;
}

TEST(AlertPlan, TheUpperEdgeFollowsTheText)
{
    EXPECT_EQ(alertTextBounds(316), (Size { 316, 1000 }));
    EXPECT_EQ(alertTextHeight(999), 999);
    EXPECT_EQ(alertTextHeight(1000.5F), 1000);
    EXPECT_EQ(alertFrameForTextHeight({ 10, 20, 440, 150 }, 51, 17), (Rect { 10, 20, 440, 184 }));
    EXPECT_EQ(alertFrameForTextHeight({ 10, 20, 440, 150 }, 17, 51), (Rect { 10, 20, 440, 116 }));
    EXPECT_EQ(alertFrameForTextHeight({ 10, 20, 440, 150 }, 17, 17), (Rect { 10, 20, 440, 150 }));
    EXPECT_EQ(alertFrameForSheet({ 10, 20, 440, 150 }), (Rect { 10, 20, 440, 155 }));
}

}
}

#include <plix/platform/host/window_placement.h>

#include <gtest/gtest.h>

#include <vector>

namespace plix {
namespace {

// A main screen with a panel of 30 points above, a smaller one right of it that is 200 points higher.
std::vector<HostScreen> const s_two {
    { { 0, 0, 1280, 1024 }, { 0, 0, 1280, 994 }, 1 },
    { { 1280, 200, 800, 600 }, { 1280, 200, 800, 600 }, 1 },
};

TEST(WindowPlacement, FindsTheScreenThatShowsMost)
{
    struct Row {
        Rect rect;
        std::size_t screen;
    };
    Row const rows[] = {
        { { 10, 10, 100, 100 }, 0 },
        { { 1300, 300, 100, 100 }, 1 },
        { { 1240, 300, 100, 100 }, 1 },
        { { 1200, 300, 100, 100 }, 0 },
        { { 1230, 300, 100, 100 }, 0 },
        { { 5000, 300, 10, 10 }, 1 },
        { { -500, -500, 10, 10 }, 0 },
        { { 1400, 0, 100, 100 }, 1 },
        { { 1300, 300, 0, 0 }, 1 },
    };
    for (auto const& row : rows)
        EXPECT_EQ(screenIndexForRect(row.rect, s_two), row.screen) << NSStringFromRect(row.rect);
    EXPECT_EQ(screenIndexForRect({ 0, 0, 1, 1 }, {}), 0U);
}

TEST(WindowPlacement, FindsTheScreenOfAPoint)
{
    EXPECT_EQ(screenIndexForPoint({ 0, 0 }, s_two), 0U);
    EXPECT_EQ(screenIndexForPoint({ 1279, 500 }, s_two), 0U);
    EXPECT_EQ(screenIndexForPoint({ 1280, 500 }, s_two), 1U);
    EXPECT_EQ(screenIndexForPoint({ 1900, 100 }, s_two), 1U);
    EXPECT_EQ(screenIndexForPoint({ 1290, 20 }, s_two), 0U);
}

TEST(WindowPlacement, MovesPopupsInsideTheVisibleFrame)
{
    struct Row {
        Rect popup;
        Rect placed;
    };
    Row const rows[] = {
        { { 100, 100, 200, 300 }, { 100, 100, 200, 300 } },
        { { 1100, 20, 200, 100 }, { 1080, 20, 200, 100 } },
        { { 100, 950, 200, 100 }, { 100, 894, 200, 100 } },
        { { 100, -50, 200, 100 }, { 100, 0, 200, 100 } },
        { { -30, 100, 200, 100 }, { 0, 100, 200, 100 } },
        { { 2000, 700, 200, 300 }, { 1880, 500, 200, 300 } },
        // Larger than the screen: the upper left corner is what can be seen.
        { { 100, -500, 200, 2000 }, { 100, -1006, 200, 2000 } },
        { { 500, 100, 1500, 100 }, { 0, 100, 1500, 100 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(popupRectOnScreen(row.popup, s_two), row.placed) << NSStringFromRect(row.popup);
    EXPECT_EQ(popupRectOnScreen({ -5, -5, 10, 10 }, {}), (Rect { -5, -5, 10, 10 }));
}

TEST(WindowPlacement, BringsFramesBackWithinReach)
{
    struct Row {
        Rect frame;
        Rect placed;
    };
    Row const rows[] = {
        { { 100, 100, 400, 300 }, { 100, 100, 400, 300 } },
        { { -300, 100, 400, 300 }, { -300, 100, 400, 300 } },
        { { -390, 100, 400, 300 }, { -352, 100, 400, 300 } },
        { { 3000, 300, 400, 300 }, { 2032, 300, 400, 300 } },
        { { 100, 900, 400, 300 }, { 100, 694, 400, 300 } },
        { { 100, -280, 400, 300 }, { 100, -252, 400, 300 } },
        { { 100, -900, 400, 300 }, { 100, -252, 400, 300 } },
        // A frame that is smaller than what shall be seen shows whole.
        { { -100, 100, 20, 10 }, { 0, 100, 20, 10 } },
        { { 100, -100, 20, 10 }, { 100, 0, 20, 10 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(frameBackOnScreen(row.frame, s_two), row.placed) << NSStringFromRect(row.frame);
}

}
}

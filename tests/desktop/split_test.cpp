#include <tests/desktop/support/DesktopTest.h>

namespace plix::desktop {
namespace {

constexpr std::uint32_t red = 0xff0000;
constexpr std::uint32_t green = 0x00ff00;
constexpr std::uint32_t blue = 0x0000ff;

/// The split view covers (100, 100) to (500, 300) of the screen; the dividers begin 160 and 270 points from its left edge.
class SplitViewOnScreen : public DesktopTest {
protected:
    void SetUp() override
    {
        moveMouse(1200, 900);
        app = &start("split");
        app->expect("key");
    }
    void drag(int from, int to)
    {
        moveMouse(from, 200);
        holdButton();
        moveMouse((from + to) / 2, 200);
        moveMouse(to, 200);
        releaseButton();
    }

    Application* app { nullptr };
};

TEST_F(SplitViewOnScreen, ADividerFollowsThePointer)
{
    EXPECT_TRUE(waitForPixel(250, 200, red));
    EXPECT_TRUE(waitForPixel(280, 200, green));
    drag(265, 305);
    app->expect("panes 200 60 120");
    screenshot("split_dragged");
    EXPECT_TRUE(waitForPixel(295, 200, red));
    EXPECT_TRUE(waitForPixel(315, 200, green));
    EXPECT_TRUE(waitForPixel(369, 200, green));
    EXPECT_TRUE(waitForPixel(381, 200, blue));
}

TEST_F(SplitViewOnScreen, OnlyTheHeldDividerMoves)
{
    drag(375, 425);
    app->expect("panes 160 150 70");
    EXPECT_TRUE(waitForPixel(415, 200, green));
    EXPECT_TRUE(waitForPixel(435, 200, blue));
    EXPECT_TRUE(waitForPixel(255, 200, red));
}

TEST_F(SplitViewOnScreen, StopsAtTheDelegatesLimitThenCollapses)
{
    drag(265, 150);
    app->expect("panes 60 200 120");
    EXPECT_TRUE(waitForPixel(175, 200, green));
    drag(165, 102);
    app->expect("panes 0 260 120");
    EXPECT_TRUE(waitForPixel(115, 200, green));
}

TEST_F(SplitViewOnScreen, ADoubleClickCollapsesAPaneAndBringsItBack)
{
    click(265, 200, 1, 2);
    app->expect("panes 0 260 120");
    EXPECT_TRUE(waitForPixel(115, 200, green));
    // Elsewhere first, so that the clicks do not count on.
    moveMouse(300, 250);
    click(300, 250);
    click(105, 200, 1, 2);
    app->expect("panes 160 100 120");
    EXPECT_TRUE(waitForPixel(250, 200, red));
}

TEST_F(SplitViewOnScreen, PanesDoNotDrag)
{
    drag(300, 350);
    drag(375, 385);
    app->expect("panes 160 110 110");
    EXPECT_FALSE(app->hasSaid("panes 210"));
}

}
}

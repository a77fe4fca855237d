#include <tests/desktop/support/DesktopTest.h>

namespace plix::desktop {
namespace {

/// The first window's content has its lower left corner at a place of the screen, which is 1024 points high; the second window
/// stands beside it.
class ChiseledPopUps : public DesktopTest {
protected:
    void startThem()
    {
        moveMouse(1200, 20);
        app = &start("chiseled", {}, { std::to_string(left), "500" });
        app->expect("key");
    }
    /// A place left of the title, where only the background is: what is behind the button, or one of its left caps.
    std::uint32_t capOf(int window) { return colourOnScreen(display().name(), left + 200 * window + 24, top + 30); }

    static constexpr int left = 300;
    static constexpr int top = 1024 - 500 - 100;
    static constexpr int middleX = 20 + 30;
    static constexpr int middleY = 30;
    Application* app { nullptr };
};

TEST_F(ChiseledPopUps, ThePointerShowsTheHoverImage)
{
    startThem();
    auto const idle = capOf(0);
    moveMouse(left + middleX, top + middleY);
    app->expect("first over");
    EXPECT_TRUE(waitUntil([&] { return capOf(0) != idle; }));
    screenshot("chiseled_hover");
    moveMouse(left + 5, top + 90);
    app->expect("first idle");
    EXPECT_TRUE(waitUntil([&] { return capOf(0) == idle; }));
}

TEST_F(ChiseledPopUps, ThePointerShowsNothingInAWindowWithoutTheKeyboard)
{
    startThem();
    moveMouse(left + 200 + middleX, top + middleY);
    moveMouse(left + middleX, top + middleY);
    app->expect("first over");
    EXPECT_EQ(app->countOf("second over"), 0);
}

TEST_F(ChiseledPopUps, APressOpensTheMenuAndShowsThePressedImage)
{
    startThem();
    auto const idle = capOf(0);
    moveMouse(left + middleX, top + middleY);
    app->expect("first over");
    EXPECT_TRUE(waitUntil([&] { return capOf(0) != idle; }));
    auto const over = capOf(0);
    holdButton();
    app->expect("opening first");
    EXPECT_TRUE(waitUntil([&] { return capOf(0) != over && capOf(0) != idle; }));
    moveMouse(left + middleX, top + 40 + 4 + 36);
    app->expect("lit This week");
    screenshot("chiseled_menu");
    releaseButton();
    app->expect("chosen This week wide ");
    screenshot("chiseled_chosen");
}

TEST_F(ChiseledPopUps, AnotherWindowWithTheKeyboardMakesTheTitleInactive)
{
    startThem();
    click(left + 200 + 90, top + 80);
    app->expect("first inactive");
    app->expect("second active");
    screenshot("chiseled_inactive");
    moveMouse(left + 200 + middleX, top + middleY);
    app->expect("second over");
    click(left + 90, top + 80);
    app->expect("first active");
}

}
}

#include <tests/desktop/support/DesktopTest.h>

namespace plix::desktop {
namespace {

/// The program's window has its content's lower left corner at a place of the screen, which is 1024 points high.
class Menus : public DesktopTest {
protected:
    void startAt(int x, int y)
    {
        moveMouse(1200, 20);
        left = x;
        top = 1024 - y - 160;
        app = &start("menus", {}, { std::to_string(x), std::to_string(y) });
        app->expect("key");
    }
    /// Where an open menu is, from a line that says so.
    std::vector<double> frameIn(std::string const& line) { return numbersAfter(line, " in "); }

    static constexpr int popUpX = 80;
    static constexpr int popUpY = 27;
    Application* app { nullptr };
    int left { 0 };
    int top { 0 };
};

TEST_F(Menus, APopUpIsChosenByPressDragRelease)
{
    startAt(300, 500);
    moveMouse(left + popUpX, top + popUpY);
    holdButton();
    app->expect("lit Small");
    moveMouse(left + popUpX, top + popUpY + 22);
    app->expect("lit Medium");
    screenshot("pop_up_menu");
    releaseButton();
    app->expect("closed sizes");
    app->expect("chosen Medium");
}

TEST_F(Menus, APopUpIsChosenByTwoClicks)
{
    startAt(300, 500);
    click(left + popUpX, top + popUpY);
    app->expect("lit Small");
    moveMouse(left + popUpX, top + popUpY + 43);
    app->expect("lit Large");
    click(left + popUpX, top + popUpY + 43);
    app->expect("chosen Large");
}

TEST_F(Menus, APopUpIsChosenByKeyboard)
{
    startAt(300, 500);
    press("space");
    app->expect("lit Small");
    press("Down");
    app->expect("lit Medium");
    press("l");
    app->expect("lit Large");
    press("Return");
    app->expect("chosen Large");
}

TEST_F(Menus, AMenuAtTheScreensEdgeStaysOnTheScreen)
{
    startAt(960, 10);
    click(left + 295, top + 150, 3);
    app->expect("opening context");
    press("Down");
    auto const frame = frameIn(app->expect("lit Item 1", " in "));
    ASSERT_EQ(frame.size(), 4U);
    EXPECT_GE(frame[0], 0);
    EXPECT_GE(frame[1], 0);
    EXPECT_LE(frame[0] + frame[2], 1280);
    EXPECT_LE(frame[1] + frame[3], 1024);
    screenshot("menu_at_the_edge");
    press("Escape");
    app->expect("closed context");
}

TEST_F(Menus, AClickElsewhereDismisses)
{
    startAt(300, 500);
    click(left + 250, top + 140, 3);
    app->expect("opening context");
    press("Down");
    app->expect("lit Item 1");
    click(left + 10, top + 155);
    app->expect("closed context");
    EXPECT_EQ(app->countOf("chosen"), 0);
}

TEST_F(Menus, AComboBoxShowsItsListAndTakesAnItem)
{
    startAt(300, 500);
    click(left + 150, top + 69);
    press("Down");
    app->expect("lit in the list");
    screenshot("combo_list");
    click(left + 60, top + 69 + 11 + 30);
    app->expect("chosen Banana");
}

}
}

#include <tests/desktop/support/DesktopTest.h>

namespace plix::desktop {
namespace {

/// Windows "owner" and "other", and an alert with the buttons Yes (1), No (0) and Maybe (-1).
class AlertOnScreen : public DesktopTest {
protected:
    struct Place {
        int x { 0 };
        int y { 0 };
    };

    void SetUp() override
    {
        moveMouse(1200, 900);
        app = &start("alerts");
    }
    void ask(std::string const& how)
    {
        app->say(how);
        first = placeOf("first");
        second = placeOf("second");
        third = placeOf("third");
        app->expect("shown");
    }
    Place placeOf(std::string const& name)
    {
        auto const numbers = numbersAfter(app->expect(name + ' '), name);
        return { static_cast<int>(numbers.at(0)), static_cast<int>(numbers.at(1)) };
    }
    void click(Place place) { DesktopTest::click(place.x, place.y); }
    /// The second window's button, away from the alert.
    static constexpr Place other { 980, 250 };

    Application* app { nullptr };
    Place first;
    Place second;
    Place third;
};

TEST_F(AlertOnScreen, IsAnsweredByTheMouse)
{
    ask("window");
    screenshot("alert");
    click(third);
    app->expect("answer -1");
    ask("window");
    click(first);
    app->expect("answer 1");
    ask("window");
    click(second);
    app->expect("answer 0");
}

TEST_F(AlertOnScreen, IsAnsweredByTheKeyboard)
{
    ask("window");
    press("Return");
    app->expect("answer 1");
    ask("window");
    press("Escape");
    app->expect("answer 0");
    ask("window");
    press("Tab"); // from the first button on to the leftmost
    screenshot("alert_keyboard");
    press("space");
    app->expect("answer -1");
}

TEST_F(AlertOnScreen, KeepsAllWindowsWaiting)
{
    click(other);
    app->expect("pressed other");
    ask("window");
    click(other);
    press("Escape");
    app->expect("answer 0");
    EXPECT_EQ(app->countOf("pressed"), 1);
    click(other);
    app->expect("pressed other");
}

TEST_F(AlertOnScreen, HangsFromItsWindowAsASheet)
{
    ask("sheet");
    screenshot("alert_sheet");
    // Within the width of its window, at its upper edge.
    EXPECT_GT(third.x, 60);
    EXPECT_LT(first.x, 620);
    click(other);
    click(first);
    app->expect("answer 1");
    EXPECT_EQ(app->countOf("pressed"), 0);
    ask("sheet");
    press("Escape");
    app->expect("answer 0");
    press("space");
    app->expect("pressed owner");
    click(other);
    app->expect("pressed other");
}

}
}

#include <tests/desktop/support/DesktopTest.h>

namespace plix::desktop {
namespace {

constexpr std::uint32_t green = 0x00ff00;
constexpr std::uint32_t red = 0xff0000;

/// Three windows beside each other, 180 by 100 and 200 apart; the screen is 1024 points high.
class EngravedLabelsOnScreen : public DesktopTest {
protected:
    Application& startAt(int y)
    {
        moveMouse(1200, 1000);
        auto& app = start("labels", {}, { std::to_string(left), std::to_string(1024 - y - 100) });
        app.expect("first active");
        return app;
    }
    void clickIn(int window, int y) { click(left + 200 * window + 150, y + 90); }
    bool shows(int window, int y, std::uint32_t color) { return waitForPixel(left + 200 * window + 50, y + 40, color); }

    static constexpr int left = 300;
    static constexpr int upper = 200;
    static constexpr int lower = 500;
};

TEST_F(EngravedLabelsOnScreen, AnotherWindowWithTheKeyboardTurnsALabelInactive)
{
    auto& app = startAt(upper);
    EXPECT_TRUE(shows(0, upper, green));
    clickIn(1, upper);
    app.expect("first inactive");
    app.expect("second active");
    EXPECT_TRUE(shows(0, upper, red));
    EXPECT_TRUE(shows(1, upper, green));
    screenshot("labels_second");
    clickIn(0, upper);
    app.expect("first active");
    EXPECT_TRUE(shows(0, upper, green));
    EXPECT_TRUE(shows(1, upper, red));
}

TEST_F(EngravedLabelsOnScreen, ALabelInAWindowOfTheProgramsOwnFollowsTheApplication)
{
    auto& app = startAt(upper);
    clickIn(1, upper);
    app.expect("second active");
    EXPECT_TRUE(shows(2, upper, green));
    EXPECT_EQ(app.countOf("own inactive"), 0);
    startAt(lower);
    app.expect("own inactive");
    EXPECT_TRUE(shows(2, upper, red));
    EXPECT_TRUE(shows(2, lower, green));
    screenshot("labels_other_program");
    clickIn(0, upper);
    app.expect("own active");
    EXPECT_TRUE(shows(2, upper, green));
    EXPECT_TRUE(shows(2, lower, red));
}

}
}

#include <tests/desktop/support/DesktopTest.h>

namespace plix::desktop {
namespace {

/// The panel with 14 March and 1 April 2027 in it.
class DatePanelOnScreen : public DesktopTest {
protected:
    struct Place {
        int x { 0 };
        int y { 0 };
        int width { 0 };
        int height { 0 };
    };

    void SetUp() override
    {
        moveMouse(1200, 900);
        app = &start("dates", { "LANG=en_US.UTF-8", "LC_ALL=en_US.UTF-8", "TZ=UTC" });
        from = placeOf("from");
        to = placeOf("to");
        app->expect("key panel");
    }
    Place placeOf(std::string const& name)
    {
        auto const numbers = numbersAfter(app->expect(name + ' '), name);
        return { static_cast<int>(numbers.at(0)), static_cast<int>(numbers.at(1)), static_cast<int>(numbers.at(2)),
            static_cast<int>(numbers.at(3)) };
    }
    void clickButtonOf(Place const& entry) { click(entry.x + entry.width - 9, entry.y + entry.height / 2); }
    /// How many pixels of the area fulfil a condition.
    template <typename Condition> int count(Screenshot const& shot, Place const& area, Condition condition)
    {
        int found = 0;
        for (int y = area.y; y < area.y + area.height; ++y) {
            for (int x = area.x; x < area.x + area.width; ++x)
                found += condition(shot.pixel(x, y)) ? 1 : 0;
        }
        return found;
    }
    static bool isRed(std::uint32_t colour)
    {
        auto const red = colour >> 16 & 0xFFU;
        return red > (colour >> 8 & 0xFFU) + 90 && red > (colour & 0xFFU) + 90;
    }
    static bool isBlue(std::uint32_t colour) { return (colour & 0xFFU) > (colour >> 16 & 0xFFU) + 90; }

    Application* app { nullptr };
    Place from;
    Place to;
};

TEST_F(DatePanelOnScreen, IsTypedThrough)
{
    type("12/31/2026");
    press("Tab");
    type("2/29/2028");
    screenshot("dates_typed");
    press("Return");
    app->expect("ran 2026-12-31 2028-02-29");
}

TEST_F(DatePanelOnScreen, DigitsAloneAndArrowsServeToo)
{
    type("02292028");
    press("Left");
    press("Up");
    press("Tab");
    press("Tab");
    press("Down");
    press("Return");
    app->expect("ran 2028-02-01 2027-03-01");
}

TEST_F(DatePanelOnScreen, ADayIsChosenFromTheCalendarByMouse)
{
    clickButtonOf(from);
    // The calendar hangs below the field; the chosen day, Sunday 14 March, is in the first column of the third row.
    Place const third { from.x + 8, from.y + from.height + 8 + 24 + 18 + 2 * 22, 30, 22 };
    ASSERT_TRUE(waitUntil([&] { return count(screenshot("dates_calendar"), third, isBlue) > 150; }));
    click(third.x + 2 * 30 + 15, third.y + 22 + 11);
    press("Return");
    app->expect("ran 2027-03-23 2027-04-01");
}

TEST_F(DatePanelOnScreen, ADayIsChosenFromTheCalendarByKeys)
{
    press("Tab");
    press("Tab");
    press("Tab");
    press("alt+Down");
    Place const below { to.x, to.y + to.height, 226, 190 };
    ASSERT_TRUE(waitUntil([&] { return count(screenshot("dates_keys"), below, isBlue) > 150; }));
    press("Next");
    press("End");
    press("space");
    press("Return");
    app->expect("ran 2027-03-14 2027-05-31");
}

TEST_F(DatePanelOnScreen, WhatIsEmptyIsRefusedVisibly)
{
    auto const before = count(screenshot("dates_whole"), from, isRed);
    EXPECT_EQ(before, 0);
    press("BackSpace");
    press("Return");
    EXPECT_TRUE(waitUntil([&] { return count(screenshot("dates_refused"), from, isRed) > 50; }));
    EXPECT_EQ(app->countOf("ran "), 0);
    type("7");
    press("Return");
    app->expect("ran 2027-07-14 2027-04-01");
}

}
}

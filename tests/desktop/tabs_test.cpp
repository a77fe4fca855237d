#include <tests/desktop/support/DesktopTest.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <map>

namespace plix::desktop {
namespace {

using testing::Each;
using testing::Ge;
using testing::Gt;
using testing::Le;
using testing::SizeIs;

constexpr std::uint32_t red = 0xff0000;
constexpr std::uint32_t green = 0x00ff00;
constexpr std::uint32_t blue = 0x0000ff;
constexpr std::uint32_t magenta = 0xff00ff;

/// How high the content is for each tab: tabs and border take 46 points, the panes what is in them and 35.
constexpr int low = 46 + 40 + 35;
constexpr int high = 46 + 300 + 35;
constexpr int wide = 46 + 100;

class TabsOnScreen : public DesktopTest {
protected:
    /// The content's upper left corner is at (100, 100) of the screen, or lower by so much. A change of 150 points takes a second.
    void open(int lower = 0)
    {
        moveMouse(1200, 20);
        app = &start("tabs", {}, { std::to_string(lower), "-NSWindowResizeTime", "1" });
        for (auto const* name : { "low", "high", "wide" }) {
            // What was said before the program was ready is in the transcript.
            auto const said = app->transcript();
            auto const numbers = numbersAfter(said.substr(said.find(std::string("tab ") + name)), name);
            places[name] = { static_cast<int>(numbers.at(0)), static_cast<int>(numbers.at(1)) };
        }
        app->expect("key");
        top = 100 + lower;
    }
    void clickTab(std::string const& name) { click(places[name].first, places[name].second); }

    /// Looks at the screen until the program has shown that tab; the heights of the content that were seen, in order.
    std::vector<long> heightsUntil(std::string const& name)
    {
        ScreenWatch const watch(display().name());
        std::vector<long> heights;
        while (app->countOf("shown " + name + " at") == 0) {
            auto const column = watch.column(102, top, 600);
            auto const seen = std::ranges::find_if(column, [](std::uint32_t colour) { return colour != green; }) - column.begin();
            if (heights.empty() || heights.back() != seen)
                heights.push_back(seen);
            // At its last step the window has long been higher, and what comes then is behind it.
            auto const pane = watch.column(190, top + 60, 200);
            showedBlue |= seen < high - 60 && std::ranges::count(pane, blue) > 0;
        }
        return heights;
    }

    Application* app { nullptr };
    std::map<std::string, std::pair<int, int>> places;
    int top { 100 };
    bool showedBlue { false };
};

TEST_F(TabsOnScreen, TheWindowGrowsDownwardsInSteps)
{
    open();
    EXPECT_TRUE(waitForPixel(102, 110, green));
    EXPECT_TRUE(waitForPixel(140, top + low - 13 - 30, red));
    clickTab("high");
    auto const heights = heightsUntil("high");
    EXPECT_THAT(heights, SizeIs(Gt(10U)));
    EXPECT_TRUE(std::ranges::is_sorted(heights));
    EXPECT_THAT(heights, Each(Ge(low)));
    EXPECT_THAT(heights, Each(Le(high)));
    EXPECT_FALSE(showedBlue);
    app->expect("shown high at 100 100 400 381");
    EXPECT_TRUE(waitForPixel(190, top + high - 13 - 21, blue));
    EXPECT_TRUE(waitForPixel(190, top + high - 13 - 319, blue));
    EXPECT_TRUE(waitForPixel(102, top + high - 1, green));
    screenshot("tabs_high");
}

TEST_F(TabsOnScreen, KeysGoOnFromTheTabThatWasClicked)
{
    open();
    clickTab("high");
    app->expect("shown high at");
    press("Left");
    auto const heights = heightsUntil("low");
    EXPECT_THAT(heights, SizeIs(Gt(10U)));
    EXPECT_TRUE(std::ranges::is_sorted(heights, std::ranges::greater()));
    app->expect("shown low at 100 100 400 121");
    press("ctrl+Tab");
    app->expect("shown high at 100 100 400 381");
    press("End");
    app->expect("shown wide at 40 100 520 146");
    EXPECT_TRUE(waitForPixel(300, top + wide / 2, magenta));
    EXPECT_TRUE(waitForPixel(42, top + 10, green));
    screenshot("tabs_wide");
    press("ctrl+Tab");
    app->expect("shown low at");
}

// The window manager may push the window up again, which the next tab goes by.
TEST_F(TabsOnScreen, AtTheLowerEdgeOfTheScreenThePaneComesWhereItsWindowIs)
{
    open(700);
    clickTab("high");
    app->expect("shown high at 100 800 400 381");
    EXPECT_TRUE(waitForPixel(190, 970, blue));
    screenshot("tabs_edge");
    press("Home");
    auto const place = numbersAfter(app->expect("shown low at 100"), "at");
    ASSERT_EQ(place.size(), 4U);
    EXPECT_LE(place[1], 800);
    EXPECT_EQ(place[3], low);
    EXPECT_TRUE(waitForPixel(140, static_cast<int>(place[1]) + low - 13 - 30, red));
    EXPECT_TRUE(waitForPixel(102, static_cast<int>(place[1]) + 5, green));
}

}
}

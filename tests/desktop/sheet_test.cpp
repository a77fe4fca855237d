#include <tests/desktop/support/RowsWindowTest.h>

#include <gmock/gmock.h>

#include <algorithm>

namespace plix::desktop {
namespace {

using testing::Each;
using testing::Gt;
using testing::Le;
using testing::SizeIs;

constexpr std::uint32_t red = 0xFF0000;
constexpr std::uint32_t blue = 0x0000FF;

/// A sheet of 200 by 120 that takes a second to slide.
class RealSheet : public RowsWindowTest {
protected:
    RealSheet()
        : RowsWindowTest({ "-NSWindowResizeTime", "1" })
    {
    }
    /// Looks at the screen until the program has said that it is done; the different heights that were seen, in order.
    std::vector<long> heightsUntil(std::string const& done)
    {
        ScreenWatch const watch(display().name());
        std::vector<long> heights;
        while (app.countOf(done) == 0) {
            auto const column = watch.column(300, 100, 130);
            auto const isSheet = [](std::uint32_t colour) { return colour == red || colour == blue; };
            long const height = std::ranges::count_if(column, isSheet);
            if (height > 0 && height <= 60)
                lowestPart.push_back(column[static_cast<std::size_t>(height) - 1]);
            if (heights.empty() || heights.back() != height)
                heights.push_back(height);
        }
        return heights;
    }

    std::vector<std::uint32_t> lowestPart;
};

TEST_F(RealSheet, SlidesOutWithItsLowerEdgeAheadAndBackAgain)
{
    app.say("sheet list 200 120");
    auto const down = heightsUntil("sheet is there");
    EXPECT_THAT(down, SizeIs(Gt(8U)));
    EXPECT_TRUE(std::ranges::is_sorted(down));
    EXPECT_THAT(down, Each(Le(119)));
    EXPECT_THAT(lowestPart, SizeIs(Gt(2U)));
    EXPECT_THAT(lowestPart, Each(blue));
    EXPECT_TRUE(waitForPixel(300, 101, red));
    EXPECT_TRUE(waitForPixel(300, 218, blue));
    screenshot("sheet");
    app.say("unsheet");
    auto const up = heightsUntil("sheet is gone");
    EXPECT_THAT(up, SizeIs(Gt(8U)));
    EXPECT_TRUE(std::ranges::is_sorted(up, std::ranges::greater()));
    press("x");
    app.expect("typed list [x]");
}

TEST_F(RealSheet, KeepsItsWindowFromInputAndFollowsIt)
{
    app.say("sheet list 200 120");
    app.expect("sheet is there");
    EXPECT_TRUE(waitForPixel(300, 101, red));
    click(150, 300);
    app.say("sync after");
    app.expect("sync after");
    EXPECT_EQ(app.countOf("selected list"), 0);
    tool({ "xdotool", "windowmove", windowTitled("list"), "300", "300" });
    EXPECT_TRUE(waitForPixel(500, 350, red));
    EXPECT_TRUE(waitForPixel(500, 410, blue));
    app.say("unsheet");
    app.expect("sheet is gone");
}

}
}

#include <tests/desktop/support/RowsWindowTest.h>

#include <csignal>

namespace plix::desktop {
namespace {

using RealWindow = RowsWindowTest;

TEST_F(RealWindow, AClickSelects)
{
    click(150, 165);
    app.expect("selected list row 3 clicks 1");
    app.expect("released list row 3");
    EXPECT_TRUE(waitForPixel(300, 170, 0x3366CC));
    EXPECT_EQ(colourOnScreen(display().name(), 300, 190), 0xFFFFFFU);
}

TEST_F(RealWindow, DoubleAndTripleClicksAreCounted)
{
    click(150, 165, 1, 3);
    app.expect("selected list row 3 clicks 1");
    app.expect("selected list row 3 clicks 2");
    app.expect("opened list row 3");
    app.expect("selected list row 3 clicks 3");
}

TEST_F(RealWindow, TheWheelScrolls)
{
    click(150, 165, 5);
    app.expect("scrolled list 60");
    click(150, 165, 5, 2);
    app.expect("scrolled list 180");
    click(150, 165, 4);
    app.expect("scrolled list 120");
}

TEST_F(RealWindow, PressDragReleaseFollowsThePointer)
{
    moveMouse(150, 105);
    holdButton();
    app.expect("selected list row 0 clicks 1");
    moveMouse(150, 205);
    app.expect("selected list row 5 clicks 0");
    moveMouse(700, 385);
    app.expect("selected list row 14 clicks 0");
    releaseButton();
    app.expect("released list row 14");
    EXPECT_TRUE(waitForPixel(300, 390, 0x3366CC));
}

TEST_F(RealWindow, ReturnOpens)
{
    click(150, 165);
    app.expect("released list");
    press("Return");
    app.expect("opened list row 3");
}

TEST_F(RealWindow, TypingArrives)
{
    type("ab");
    app.expect("typed list [a]");
    app.expect("typed list [b]");
    typeForeign("eacute");
    app.expect("typed list [é]");
    tool({ "setxkbmap", "us", "-variant", "intl" });
    press("dead_acute");
    app.expect("typed list []");
    press("o");
    app.expect("typed list [ó]");
    tool({ "setxkbmap", "us" });
}

TEST_F(RealWindow, TheFocusMovesBetweenTwoWindows)
{
    app.say("window other 600 624 300 300");
    app.say("front other");
    app.expect("unkey list");
    app.expect("key other");
    type("x");
    app.expect("typed other [x]");
    click(150, 165);
    app.expect("key list");
    type("y");
    app.expect("typed list [y]");
    app.catchUp();
    EXPECT_EQ(app.countOf("inactive"), 0);
}

TEST_F(RealWindow, TheApplicationIsActiveWhileAWindowOfItHasTheFocus)
{
    auto& other = start("probe");
    EXPECT_TRUE(app.hasSaid("active"));
    other.say("window else document 700 324 200 200");
    other.say("show else");
    other.say("focus else");
    other.expect("focus else gained");
    app.expect("inactive");
    click(150, 165);
    app.expect("active");
}

TEST_F(RealWindow, AModalWindowGetsTheInputAndTheOtherNone)
{
    app.say("window question 600 624 300 200");
    app.say("modal question");
    app.expect("key question");
    // It comes up in the middle of the screen.
    app.say("where question");
    auto const where = numbersAfter(app.expect("where question"), "where question");
    ASSERT_EQ(where.size(), 4U);
    auto const left = static_cast<int>(where[0]);
    auto const top = static_cast<int>(1024 - where[1] - where[3]);
    click(left + 50, top + 25);
    app.expect("selected question row 1");
    click(150, 165);
    type("x");
    app.expect("typed question [x]");
    click(left + 50, top + 45);
    app.expect("selected question row 2");
    EXPECT_FALSE(app.hasSaid("selected list"));
    EXPECT_FALSE(app.hasSaid("typed list"));
    app.say("unmodal");
    app.expect("modal ended 7");
    click(150, 165);
    app.expect("selected list row 3");
}

TEST_F(RealWindow, TheWindowManagerClosesAWindow)
{
    app.say("window other 600 624 300 300");
    app.say("front other");
    app.expect("key other");
    EXPECT_TRUE(waitUntil([this] { return tool({ "wmctrl", "-l" }).find("other") != std::string::npos; }));
    tool({ "wmctrl", "-c", "other" });
    app.expect("closing other");
    EXPECT_TRUE(waitUntil([this] { return windowTitled("other").empty(); }));
    EXPECT_NE(windowTitled("list"), "");
}

TEST_F(RealWindow, AResizeKeepsTheLayout)
{
    tool({ "xdotool", "windowsize", windowTitled("list"), "450", "320" });
    app.expect("layout list 0 0 450 320");
    app.say("where list");
    // The upper left corner stays where it was.
    app.expect("where list 100 604 450 320");
    EXPECT_TRUE(waitForPixel(545, 130, 0xE6F2FF));
    click(545, 165);
    app.expect("selected list row 3");
}

TEST_F(RealWindow, TheClipboardWorksBothWays)
{
    app.say("copy from the application: ü");
    app.catchUp();
    EXPECT_EQ(tool({ "xclip", "-selection", "clipboard", "-o", "-t", "UTF8_STRING" }), "from the application: ü");
    ChildProcess owner({ "sh", "-c", "exec xclip -quiet -selection clipboard -i 2>/dev/null" }, display().environment());
    owner.write("from elsewhere");
    owner.closeInput();
    auto const arrived = [this] {
        app.say("paste");
        return app.expect("paste").find("paste [from elsewhere]") != std::string::npos;
    };
    EXPECT_TRUE(waitUntil(arrived));
    owner.sendSignal(SIGKILL);
    owner.waitForEnd();
    app.say("paste");
    app.expect("paste nothing");
}

TEST_F(RealWindow, AnAttentionRequestIsSeenAndGoneAfterCancelling)
{
    auto& other = start("probe");
    other.say("window else document 700 324 200 200");
    other.say("show else");
    other.say("focus else");
    other.expect("focus else gained");
    app.expect("inactive");
    app.say("attention");
    EXPECT_TRUE(waitForProperty("list", "_NET_WM_STATE", "_NET_WM_STATE_DEMANDS_ATTENTION"));
    app.say("cancel");
    EXPECT_TRUE(waitUntil([this] { return property("list", "_NET_WM_STATE").find("DEMANDS_ATTENTION") == std::string::npos; }));
}

TEST_F(RealWindow, APopupIsPlacedAndDismissedByAClickElsewhere)
{
    app.say("borderless menu 300 724 200 100");
    app.say("track menu");
    app.expect("popup open");
    EXPECT_TRUE(waitForPixel(310, 230, 0xE6F2FF));
    EXPECT_TRUE(waitForPixel(300, 200, 0xFFFFFF));
    click(150, 385);
    app.expect("popup dismissed");
    app.expect("popup closed");
    EXPECT_FALSE(app.hasSaid("unkey list"));
}

TEST_F(RealWindow, APopupIsDismissedByLosingTheFocus)
{
    app.say("borderless menu 300 724 200 100");
    app.say("track menu");
    app.expect("popup open");
    click(1000, 900);
    app.expect("inactive");
    app.expect("popup closed");
    EXPECT_FALSE(app.hasSaid("popup dismissed"));
}

TEST_F(RealWindow, APopupTakesAPress)
{
    app.say("borderless menu 300 724 200 100");
    app.say("track menu");
    app.expect("popup open");
    click(350, 250);
    app.expect("popup chosen");
}

TEST_F(RealWindow, ATexturedWindowIsDraggedByItsBackground)
{
    app.say("textured plate 600 624 300 200");
    app.say("movable plate");
    app.say("front plate");
    app.expect("key plate");
    app.say("where plate");
    auto const before = numbersAfter(app.expect("where plate"), "where plate");
    ASSERT_EQ(before.size(), 4U);
    moveMouse(700, 220);
    holdButton();
    app.catchUp();
    moveMouse(720, 230);
    moveMouse(760, 250);
    releaseButton();
    auto const hasMoved = [this, &before] {
        app.say("where plate");
        auto const now = numbersAfter(app.expect("where plate"), "where plate");
        return now.size() == 4 && now[0] == before[0] + 60 && now[1] == before[1] - 30;
    };
    EXPECT_TRUE(waitUntil(hasMoved));
}

TEST_F(RealWindow, ADisplayThatGoesAwayEndsTheApplicationInOrder)
{
    useDisplay({});
    auto& lone = start("windows");
    lone.say("window list 100 624 400 300");
    lone.say("front list");
    lone.expect("key list");
    display().crash();
    lone.expect("terminating");
    lone.expect("ended");
    EXPECT_EQ(lone.process().waitForEnd(), 0);
}

TEST_F(RealWindow, AScreenThatShrinksIsTold)
{
    useDisplay({});
    auto& lone = start("windows");
    lone.say("window list 900 700 300 200");
    lone.say("front list");
    lone.expect("key list");
    tool({ "xrandr", "--newmode", "small", "25.18", "640", "656", "752", "800", "480", "490", "492", "525" });
    tool({ "xrandr", "--addmode", "screen", "small" });
    tool({ "xrandr", "--output", "screen", "--mode", "small", "--fb", "640x480" });
    lone.expect("screens changed");
    auto const isInReach = [&lone] {
        lone.say("where list");
        auto const where = numbersAfter(lone.expect("where list"), "where list");
        return where.size() == 4 && where[0] <= 600 && where[1] + where[3] <= 480 && where[1] + where[3] > 20;
    };
    EXPECT_TRUE(waitUntil(isInReach));
}

/// The same at two pixels a point.
class DoubledWindow : public DesktopTest {
protected:
    void SetUp() override
    {
        moveMouse(1270, 1000);
        app.say("window list 50 212 400 250");
        app.say("front list");
        app.expect("key list");
        app.catchUp();
    }
    Application& app { start("windows", { "PLIX_SCALE=2" }) };
};

TEST_F(DoubledWindow, EverythingIsTwiceAsLarge)
{
    app.say("where list");
    app.expect("where list 50 212 400 250", "scale 2");
    auto const seen = tool({ "xwininfo", "-id", windowTitled("list") });
    EXPECT_NE(seen.find("Width: 800"), seen.npos) << seen;
    // Row 3 is 40 pixels high, from 120 pixels below the content's upper edge.
    click(150, 100 + 125);
    app.expect("selected list row 3 clicks 1");
    EXPECT_TRUE(waitForPixel(880, 100 + 121, 0x3366CC));
    EXPECT_TRUE(waitForPixel(110, 100 + 158, 0x3366CC));
    EXPECT_EQ(screenshot("doubled").pixel(110, 100 + 162), 0xFFFFFFU);
}

}
}

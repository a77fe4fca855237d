#include <tests/desktop/support/DesktopTest.h>

#include <cstdlib>

namespace plix::desktop {
namespace {

class HostWindows : public DesktopTest {
protected:
    Application& app { start("probe") };

    void showWindow(std::string const& words)
    {
        auto const name = words.substr(0, words.find(' '));
        app.say("window " + words);
        app.say("show " + name);
        app.say("focus " + name);
        app.expect("focus " + name + " gained");
    }
    std::vector<double> place(std::string const& name)
    {
        app.catchUp();
        app.say("where " + name);
        return numbersAfter(app.expect("where " + name), name);
    }
};

TEST_F(HostWindows, TheContentIsPlacedExactly)
{
    showWindow("a document 100 624 400 300");
    EXPECT_EQ(place("a"), (std::vector<double> { 100, 624, 400, 300 }));
    auto const seen = tool({ "xwininfo", "-id", windowTitled("a") });
    EXPECT_NE(seen.find("Absolute upper-left X:  100"), seen.npos) << seen;
    EXPECT_NE(seen.find("Absolute upper-left Y:  100"), seen.npos) << seen;
    EXPECT_NE(seen.find("Width: 400"), seen.npos);
    EXPECT_NE(seen.find("Height: 300"), seen.npos);
}

TEST_F(HostWindows, AVisibleWindowMovesAndGrowsAsAsked)
{
    showWindow("a document 100 624 400 300");
    app.say("place a 200 500 500 350");
    app.expect("rect a 200 500 500 350");
    auto const isThere = [this] {
        auto const seen = tool({ "xwininfo", "-id", windowTitled("a") });
        return seen.find("Absolute upper-left X:  200") != seen.npos && seen.find("Absolute upper-left Y:  174") != seen.npos
            && seen.find("Width: 500") != seen.npos;
    };
    EXPECT_TRUE(waitUntil(isThere));
    EXPECT_EQ(place("a"), (std::vector<double> { 200, 500, 500, 350 }));
    EXPECT_EQ(app.countOf("rect a 100 624"), 0);
}

TEST_F(HostWindows, WhatIsDrawnIsSeen)
{
    app.say("window a document 100 624 400 300");
    app.say("colour a 3366cc");
    app.say("show a");
    EXPECT_TRUE(waitForPixel(300, 250, 0x3366CC));
    app.say("colour a cc6633");
    EXPECT_TRUE(waitForPixel(100, 100, 0xCC6633));
    EXPECT_EQ(screenshot("drawn").pixel(499, 399), 0xCC6633U);
}

TEST_F(HostWindows, WhatWasCoveredComesBackWithoutDrawingAnew)
{
    showWindow("a document 100 624 400 300");
    app.say("colour a 3366cc");
    app.say("window b document 100 624 400 300");
    app.say("colour b ffffff");
    app.say("show b");
    EXPECT_TRUE(waitForPixel(300, 250, 0xFFFFFF));
    app.catchUp();
    auto const repaints = app.countOf("repaint a");
    app.say("hide b");
    EXPECT_TRUE(waitForPixel(300, 250, 0x3366CC));
    EXPECT_EQ(app.countOf("repaint a"), repaints);
}

TEST_F(HostWindows, TheWindowManagersResizeIsTold)
{
    showWindow("a document 100 624 400 300");
    tool({ "xdotool", "windowsize", windowTitled("a"), "450", "320" });
    auto const line = app.expect("rect a 100");
    EXPECT_EQ(numbersAfter(line, "rect a"), (std::vector<double> { 100, 604, 450, 320 }));
}

TEST_F(HostWindows, DraggingTheFramesCornerIsALiveResizeThatKeepsDrawing)
{
    showWindow("a document 100 624 400 300");
    app.say("colour a 3366cc");
    app.catchUp();
    // The grip of the frame's lower right corner. The window manager takes the first moves for a trembling hand.
    moveMouse(499, 403);
    holdButton();
    auto step = 0;
    auto const isResizing = [this, &step] {
        ++step;
        moveMouse(500 + 4 * step, 404 + 4 * step);
        return app.hasSaid("rect a 100 6") || app.hasSaid("rect a 100 5");
    };
    EXPECT_TRUE(waitUntil(isResizing));
    app.expect("resizing a begins");
    moveMouse(600, 500);
    EXPECT_TRUE(waitUntil([this] { return numbersAfter(app.expect("rect a"), "rect a").at(2) > 480; }));
    EXPECT_TRUE(waitForPixel(570, 300, 0x3366CC));
    EXPECT_FALSE(app.hasSaid("resizing a ends"));
    releaseButton();
    app.expect("resizing a ends");
}

TEST_F(HostWindows, TheFrameIsKnownBeforeTheWindowIsShown)
{
    app.say("window a document 100 624 400 300");
    app.say("where a");
    auto const before = numbersAfter(app.expect("where a"), "extents");
    app.say("show a");
    app.say("focus a");
    app.expect("focus a gained");
    app.catchUp();
    app.say("where a");
    EXPECT_EQ(numbersAfter(app.expect("where a"), "extents"), before);
    EXPECT_GT(before.at(2), 0);
}

TEST_F(HostWindows, ClosingFromTheWindowManagerAsksOnly)
{
    showWindow("a document 100 624 400 300");
    tool({ "wmctrl", "-c", "a" });
    app.expect("close a");
    app.catchUp();
    EXPECT_NE(windowTitled("a"), "");
    app.say("destroy a");
    EXPECT_TRUE(waitUntil([this] { return windowTitled("a").empty(); }));
    app.catchUp();
    EXPECT_FALSE(app.hasSaid("quit wanted"));
}

TEST_F(HostWindows, AnAttentionRequestIsSeenAndCancelled)
{
    showWindow("a document 100 624 400 300");
    showWindow("b document 600 624 300 300");
    app.say("attention a");
    EXPECT_TRUE(waitForProperty("a", "_NET_WM_STATE", "_NET_WM_STATE_DEMANDS_ATTENTION"));
    EXPECT_TRUE(waitForProperty("a", "WM_HINTS", "urgency"));
    app.say("cancel a");
    EXPECT_TRUE(waitUntil([this] { return property("a", "_NET_WM_STATE").find("DEMANDS_ATTENTION") == std::string::npos; }));
    EXPECT_EQ(property("a", "WM_HINTS").find("urgency"), std::string::npos);
}

TEST_F(HostWindows, TheFocusEndsAnAttentionRequest)
{
    showWindow("a document 100 624 400 300");
    showWindow("b document 600 624 300 300");
    app.say("attention a");
    EXPECT_TRUE(waitForProperty("a", "_NET_WM_STATE", "_NET_WM_STATE_DEMANDS_ATTENTION"));
    app.say("focus a");
    app.expect("focus a gained");
    EXPECT_TRUE(waitUntil([this] { return property("a", "_NET_WM_STATE").find("DEMANDS_ATTENTION") == std::string::npos; }));
}

TEST_F(HostWindows, AWindowWithTheFocusNeedsNoAttention)
{
    showWindow("a document 100 624 400 300");
    app.say("attention a");
    app.catchUp();
    EXPECT_EQ(property("a", "_NET_WM_STATE").find("DEMANDS_ATTENTION"), std::string::npos);
}

TEST_F(HostWindows, AChildStaysAboveItsParent)
{
    showWindow("a document 100 624 400 300");
    app.say("colour a 000000");
    app.say("window child document 150 674 200 200 a");
    app.say("colour child ff0000");
    app.say("show child");
    EXPECT_TRUE(waitForPixel(200, 200, 0xFF0000));
    EXPECT_NE(property("child", "WM_TRANSIENT_FOR").find("window id"), std::string::npos);
    app.say("raise a");
    app.say("focus a");
    app.expect("focus a gained");
    EXPECT_EQ(screenshot("above").pixel(200, 200), 0xFF0000U);
}

TEST_F(HostWindows, APanelIsNotListedAmongTheWindows)
{
    app.say("window p panel 100 624 200 100");
    app.say("show p");
    EXPECT_TRUE(waitForProperty("p", "_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR"));
    EXPECT_NE(property("p", "_NET_WM_WINDOW_TYPE").find("_NET_WM_WINDOW_TYPE_UTILITY"), std::string::npos);
}

TEST_F(HostWindows, PopupsArePlacedExactlyAndKeptOnTheScreen)
{
    showWindow("a document 100 624 400 300");
    app.say("window m popup 150 674 200 150");
    app.say("show m");
    app.say("colour m 00ff00");
    EXPECT_TRUE(waitForPixel(150, 200, 0x00FF00));
    auto const shot = screenshot("popup");
    EXPECT_EQ(shot.pixel(349, 349), 0x00FF00U);
    EXPECT_NE(shot.pixel(149, 200), 0x00FF00U);
    EXPECT_NE(shot.pixel(350, 200), 0x00FF00U);
    EXPECT_NE(shot.pixel(200, 199), 0x00FF00U);
    EXPECT_NE(shot.pixel(200, 350), 0x00FF00U);
    app.say("place m 1200 -50 200 150");
    EXPECT_EQ(place("m"), (std::vector<double> { 1080, 0, 200, 150 }));
    EXPECT_TRUE(waitForPixel(1279, 1023, 0x00FF00));
}

TEST_F(HostWindows, AHiddenWindowComesBackWhereItWas)
{
    showWindow("a document 100 624 400 300");
    app.say("hide a");
    EXPECT_TRUE(waitUntil([this] { return windowTitled("a").empty(); }));
    app.expect("focus a lost");
    app.say("show a");
    app.say("focus a");
    app.expect("focus a gained");
    EXPECT_EQ(place("a"), (std::vector<double> { 100, 624, 400, 300 }));
}

TEST_F(HostWindows, MiniaturizingAndComingBackAreTold)
{
    showWindow("a document 100 624 400 300");
    app.say("miniaturize a");
    app.expect("miniaturized a yes");
    app.say("where a");
    app.expect("where a", "visible 0");
    app.say("deminiaturize a");
    app.expect("miniaturized a no");
    EXPECT_TRUE(waitUntil([this] { return place("a") == std::vector<double> { 100, 624, 400, 300 }; }));
}

TEST_F(HostWindows, ZoomingFillsTheScreenAndBack)
{
    showWindow("a document 100 624 400 300");
    app.say("zoom a");
    EXPECT_TRUE(waitUntil([this] { return numbersAfter(app.expect("rect a"), "rect a").at(2) > 1200; }));
    app.say("where a");
    app.expect("where a", "zoomed 1");
    app.say("zoom a");
    app.expect("rect a 100 624 400 300");
    EXPECT_TRUE(waitUntil([this] {
        app.say("where a");
        return app.expect("where a").find("zoomed 0") != std::string::npos;
    }));
}

TEST_F(HostWindows, SizeLimitsBindTheWindowManager)
{
    showWindow("a document 100 624 400 300");
    app.say("limits a 300 200 600 500");
    app.catchUp();
    auto const hints = property("a", "WM_NORMAL_HINTS");
    EXPECT_NE(hints.find("minimum size: 300 by 200"), hints.npos) << hints;
    EXPECT_NE(hints.find("maximum size: 600 by 500"), hints.npos) << hints;
}

TEST_F(HostWindows, AFixedWindowCannotBeResized)
{
    showWindow("a fixed 100 624 400 300");
    auto const hints = property("a", "WM_NORMAL_HINTS");
    EXPECT_NE(hints.find("minimum size: 400 by 300"), hints.npos) << hints;
    EXPECT_NE(hints.find("maximum size: 400 by 300"), hints.npos) << hints;
}

TEST_F(HostWindows, ATexturedWindowIsDraggedByItsBackground)
{
    showWindow("a document 100 624 400 300");
    app.say("movable a");
    app.catchUp();
    moveMouse(200, 200);
    holdButton();
    app.expect("move a begun");
    app.expect("up a", "held=0");
    moveMouse(250, 230);
    moveMouse(300, 260);
    releaseButton();
    app.expect("rect a 200 564 400 300");
    // The next press is a whole click again.
    click(400, 300);
    app.expect("down a", "button=0", "held=1");
}

TEST_F(HostWindows, TheScaleOfTheEnvironmentDoublesEverything)
{
    auto& doubled = start("probe", { "PLIX_SCALE=2" });
    doubled.say("window big document 50 300 200 150");
    doubled.say("show big");
    doubled.say("focus big");
    doubled.expect("focus big gained");
    auto const seen = tool({ "xwininfo", "-id", windowTitled("big") });
    EXPECT_NE(seen.find("Width: 400"), seen.npos) << seen;
    EXPECT_NE(seen.find("Absolute upper-left X:  100"), seen.npos) << seen;
    EXPECT_NE(seen.find("Absolute upper-left Y:  124"), seen.npos) << seen;
    click(120, 134);
    doubled.expect("down big", "at=60,445");
    doubled.say("screens");
    doubled.expect("screen 0 0 640 512", "scale 2");
}

TEST_F(HostWindows, TheScaleOfTheDesktopIsFollowed)
{
    useDisplay({});
    tool({ "xrdb", "-merge", "-" }, "Xft.dpi: 192\n");
    auto& scaled = start("probe");
    scaled.say("screens");
    scaled.expect("screen 0 0 640 512", "scale 2");
    scaled.say("window big document 50 200 200 150");
    scaled.say("show big");
    scaled.catchUp();
    tool({ "xrdb", "-merge", "-" }, "Xft.dpi: 96\n");
    scaled.expect("screens changed");
    scaled.expect("scale big 1");
    EXPECT_TRUE(waitUntil([this] {
        return tool({ "xwininfo", "-id", windowTitled("big") }).find("Width: 200") != std::string::npos;
    }));
}

TEST_F(HostWindows, CursorsAreTheSystems)
{
    showWindow("a document 100 624 400 300");
    moveMouse(300, 250);
    auto const pointer = [this] { return pointerOnScreen(display().name()); };
    std::vector<std::uint32_t> last;
    // Of an animated one, as the last is, the server tells the same single pixel as of none, the twelfth.
    for (int shape : { 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 0, 11 }) {
        app.say("cursor " + std::to_string(shape));
        EXPECT_TRUE(waitUntil([&] { return pointer() != last; })) << shape;
        last = pointer();
    }
}

TEST_F(HostWindows, AnIdleProgramWakesForNothing)
{
    showWindow("a document 100 624 400 300");
    moveMouse(1000, 900);
    // What showing the window set going comes to rest: the same count twice, half a second apart.
    long before = -1;
    auto const count = [this] {
        return std::atol(
            tool({ "grep", "^voluntary", "/proc/" + std::to_string(app.process().identifier()) + "/status" }).substr(24).c_str());
    };
    auto const isAtRest = [&before, &count] {
        auto const now = count();
        return std::exchange(before, now) == now && !waitUntil([&] { return count() != now; }, Seconds(0.5));
    };
    ASSERT_TRUE(waitUntil(isAtRest));
    EXPECT_FALSE(waitUntil([&] { return count() != before; }, Seconds(3)));
    // Nor for what happens elsewhere.
    for (int x = 0; x < 10; ++x)
        moveMouse(1000 + x, 900);
    EXPECT_EQ(count(), before);
}

}
}

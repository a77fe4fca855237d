#include <tests/desktop/support/DesktopTest.h>

#include <csignal>

namespace plix::desktop {
namespace {

class Trouble : public DesktopTest {
protected:
    static std::string probe() { return programPath("probe"); }
};

TEST_F(Trouble, WithoutADisplayWindowsStayInMemoryAndALineSaysSo)
{
    auto const output
        = outputOf({ "sh", "-c", probe() + " 2>&1 </dev/null" }, { "DISPLAY", "PLIX_HOST=desktop", "WAYLAND_DISPLAY" });
    EXPECT_NE(output.find("No desktop host: no display is named"), output.npos) << output;
    EXPECT_NE(output.find("ready headless"), output.npos) << output;
}

TEST_F(Trouble, ADisplayThatDoesNotAnswerIsSaidToo)
{
    auto const output = outputOf({ "sh", "-c", probe() + " 2>&1 </dev/null" }, { "DISPLAY=:65000", "PLIX_HOST=desktop" });
    EXPECT_NE(output.find("the display :65000 does not answer"), output.npos) << output;
    EXPECT_NE(output.find("ready headless"), output.npos) << output;
}

TEST_F(Trouble, ADisplayOfFewColoursIsRefused)
{
    useDisplay({ .depth = 16 });
    auto const output = tool({ "sh", "-c", probe() + " 2>&1 </dev/null" });
    EXPECT_NE(output.find("24-bit"), output.npos) << output;
    EXPECT_NE(output.find("ready headless"), output.npos) << output;
}

TEST_F(Trouble, ADisplayThatGoesAwayEndsTheProgramInOrder)
{
    useDisplay({});
    auto& app = start("probe");
    app.say("window a document 100 624 400 300");
    app.say("window m popup 100 624 40 30");
    app.say("show a");
    app.say("show m");
    app.say("cursor 2");
    app.say("copy something");
    app.catchUp();
    display().crash();
    app.expect("quit wanted");
    app.expect("ended");
    EXPECT_EQ(app.process().waitForEnd(), 0);
}

TEST_F(Trouble, WindowsOfALostDisplayDoNothing)
{
    useDisplay({});
    auto& app = start("probe", { "PROBE_STAYS=1" });
    app.say("window a document 100 624 400 300");
    app.say("show a");
    app.catchUp();
    display().crash();
    app.expect("quit wanted");
    for (auto const* const words : { "place a 1 2 30 40", "colour a ff", "focus a", "zoom a", "attention a", "paste", "copy x",
             "hastext", "screens", "window b document 1 2 3 4", "show b", "cursor 3", "edit 1 2 3 4", "destroy a", "quit" })
        app.say(words);
    app.expect("ended");
    EXPECT_EQ(app.process().waitForEnd(), 0);
}

TEST_F(Trouble, AScreenThatShrinksKeepsWindowsInReach)
{
    useDisplay({});
    auto& app = start("probe");
    app.say("window a document 900 150 300 200");
    app.say("show a");
    app.say("focus a");
    app.expect("focus a gained");
    app.catchUp();
    tool({ "xrandr", "--newmode", "small", "25.18", "640", "656", "752", "800", "480", "490", "492", "525" });
    tool({ "xrandr", "--addmode", "screen", "small" });
    tool({ "xrandr", "--output", "screen", "--mode", "small", "--fb", "640x480" });
    app.expect("screens changed");
    app.say("screens");
    app.expect("screen 0 0 640 480");
    // Of the frame enough can be seen to take hold of it.
    auto const isInReach = [this, &app] {
        app.catchUp();
        app.say("where a");
        auto const where = numbersAfter(app.expect("where a"), "where a");
        auto const seen = tool({ "xwininfo", "-id", windowTitled("a") });
        auto const left = numbersAfter(seen, "Absolute upper-left X:");
        auto const top = numbersAfter(seen, "Absolute upper-left Y:");
        return where.size() == 4 && where[0] < 640 - 40 && where[1] + where[3] > 20 && where[1] + where[3] < 480
            && left.at(0) == where[0] && top.at(0) == 480 - where[1] - where[3];
    };
    EXPECT_TRUE(waitUntil(isInReach));
}

TEST_F(Trouble, SeveralScreensAreToldApart)
{
    useDisplay({});
    tool({ "xrandr", "--setmonitor", "left", "800/200x1024/260+0+0", "screen" });
    tool({ "xrandr", "--setmonitor", "right", "480/120x600/150+800+100", "none" });
    auto& app = start("probe");
    app.say("screens");
    app.expect("screen 0 0 800 1024");
    app.expect("screen 800 324 480 600");
    app.say("window m popup 700 500 200 100");
    app.say("window n popup 1200 350 200 100");
    app.say("where m");
    app.expect("where m 600 500 200 100");
    app.say("where n");
    app.expect("where n 1080 350 200 100");
}

TEST_F(Trouble, PanelsTakeAPartOfTheScreen)
{
    useDisplay({ .windowManager = DisplayOptions::WindowManager::isMissing });
    auto& app = start("probe");
    tool({ "xprop", "-root", "-f", "_NET_WORKAREA", "32c", "-set", "_NET_WORKAREA", "0, 30, 1280, 960" });
    app.expect("screens changed");
    app.say("screens");
    app.expect("screen 0 0 1280 1024 visible 0 34 1280 960");
}

TEST_F(Trouble, WithoutAWindowManagerWindowsStillWork)
{
    useDisplay({ .windowManager = DisplayOptions::WindowManager::isMissing });
    auto& app = start("probe");
    app.say("window a document 100 624 400 300");
    app.say("show a");
    app.say("focus a");
    app.expect("focus a gained");
    click(150, 120);
    app.expect("down a", "at=150,904");
    press("x");
    app.expect("key a", "text=[x]");
}

TEST_F(Trouble, TwoHundredWindowsAreNoTrouble)
{
    auto& app = start("probe");
    for (int number = 0; number < 200; ++number) {
        auto const name = "w" + std::to_string(number);
        app.say("window " + name + " document " + std::to_string(10 + number * 4) + " " + std::to_string(100 + number * 3)
            + " 200 150");
        app.say("show " + name);
    }
    app.say("focus w199");
    app.expect("focus w199 gained");
    app.catchUp();
    click(10 + 199 * 4 + 50, 1024 - (100 + 199 * 3) - 50);
    app.expect("down w199", "clicks=1");
    app.say("quit");
    app.expect("ended");
    EXPECT_EQ(app.process().waitForEnd(), 0);
}

TEST_F(Trouble, AFrozenWindowManagerDoesNotHoldTheProgramUp)
{
    useDisplay({});
    auto& app = start("probe");
    app.catchUp();
    display().windowManager().sendSignal(SIGSTOP);
    app.say("window a document 100 624 400 300");
    app.say("show a");
    app.say("place a 150 500 300 200");
    app.say("focus a");
    app.catchUp();
    app.say("where a");
    app.expect("where a 150 500 300 200");
    display().windowManager().sendSignal(SIGCONT);
    app.expect("focus a gained");
}

}
}

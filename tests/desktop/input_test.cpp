#include <tests/desktop/support/DesktopTest.h>

namespace plix::desktop {
namespace {

/// One window whose content covers (100, 100) to (500, 400) of the screen.
class PointerInput : public DesktopTest {
protected:
    void SetUp() override
    {
        moveMouse(1200, 900);
        app.say("window a document 100 624 400 300");
        app.say("show a");
        app.say("focus a");
        app.expect("focus a gained");
        app.catchUp();
    }
    Application& app { start("probe") };
};

TEST_F(PointerInput, AClickArrivesWhereItWasMade)
{
    click(150, 120);
    app.expect("entered a", "at=150,904");
    app.expect("down a", "at=150,904", "held=1", "button=0", "clicks=1");
    app.expect("up a", "held=0", "button=0", "clicks=1");
}

TEST_F(PointerInput, DoubleAndTripleClicksAreCounted)
{
    click(150, 120, 1, 3);
    app.expect("down a", "clicks=1");
    app.expect("up a", "clicks=1");
    app.expect("down a", "clicks=2");
    app.expect("up a", "clicks=2");
    app.expect("down a", "clicks=3");
}

TEST_F(PointerInput, AClickElsewhereBeginsToCountAnew)
{
    click(150, 120);
    app.expect("up a", "clicks=1");
    click(180, 120);
    app.expect("down a", "at=180", "clicks=1");
}

TEST_F(PointerInput, OtherButtonsHaveTheirNumbers)
{
    click(150, 120, 3);
    app.expect("down a", "button=1", "held=2");
    click(150, 120, 2);
    app.expect("down a", "button=2", "held=4");
    click(150, 120, 8);
    app.expect("down a", "button=3", "held=8");
}

TEST_F(PointerInput, TheWheelScrollsBothWays)
{
    click(150, 120, 4);
    app.expect("wheel a", "at=150,904", "scroll=0,3");
    click(150, 120, 5);
    app.expect("wheel a", "scroll=0,-3");
    click(150, 120, 6);
    app.expect("wheel a", "scroll=3,0");
    click(150, 120, 7);
    app.expect("wheel a", "scroll=-3,0");
    EXPECT_FALSE(app.hasSaid("down a"));
}

TEST_F(PointerInput, ADragGoesOnOutsideTheWindow)
{
    moveMouse(150, 120);
    holdButton();
    app.expect("down a", "held=1");
    moveMouse(1000, 900);
    app.expect("exited a");
    app.expect("moved a", "at=1000,124", "held=1");
    releaseButton();
    app.expect("up a", "at=1000,124", "held=0");
}

TEST_F(PointerInput, EnteringAndLeavingAreTold)
{
    moveMouse(150, 120);
    app.expect("entered a", "at=150,904");
    moveMouse(160, 130);
    app.expect("moved a", "at=160,894", "held=0");
    moveMouse(1000, 900);
    app.expect("exited a");
}

TEST_F(PointerInput, ModifiersComeWithClicks)
{
    moveMouse(150, 120);
    tool({ "xdotool", "keydown", "shift", "keydown", "ctrl", "click", "1", "keyup", "ctrl", "keyup", "shift" });
    app.expect("down a", "mods=6");
}

TEST_F(PointerInput, TheClickThatFocusesAWindowIsNotSwallowed)
{
    app.say("window b document 600 624 300 300");
    app.say("show b");
    app.say("focus b");
    app.expect("focus b gained");
    click(150, 120);
    app.expect("down a", "clicks=1");
    app.expect("up a");
    app.catchUp();
    EXPECT_TRUE(waitUntil([this] { return app.countOf("focus a gained") == 2; }));
}

TEST_F(PointerInput, APopupGetsItsInputWhileTheKeysStayWithTheParent)
{
    app.say("window menu popup 300 724 200 100");
    app.say("show menu");
    app.catchUp();
    click(310, 210);
    app.expect("down menu", "at=310,814");
    app.expect("up menu");
    press("x");
    app.expect("key a", "text=[x]");
    EXPECT_FALSE(app.hasSaid("focus a lost"));
    EXPECT_FALSE(app.hasSaid("focus menu"));
}

TEST_F(PointerInput, PressDragReleaseReachesThePopupThatOpenedUnderThePress)
{
    moveMouse(150, 120);
    holdButton();
    app.expect("down a");
    app.say("window menu popup 300 724 200 100");
    app.say("show menu");
    app.catchUp();
    moveMouse(200, 300);
    app.expect("moved a", "at=200,724", "held=1");
    moveMouse(320, 250);
    app.expect("entered menu");
    app.expect("moved menu", "at=320,774", "held=1");
    releaseButton();
    app.expect("up menu", "at=320,774");
}

TEST_F(PointerInput, ADragPassesThroughThePopupThatWasThereBefore)
{
    app.say("window picture popup 300 724 200 100");
    app.say("show picture");
    app.catchUp();
    moveMouse(150, 120);
    holdButton();
    app.expect("down a");
    moveMouse(320, 250);
    app.expect("moved a", "at=320,774", "held=1");
    releaseButton();
    app.expect("up a", "at=320,774");
}

TEST_F(PointerInput, ADisplacedClickOutsideAnOpenPopupGoesToTheWindowBelow)
{
    app.say("window menu popup 300 724 200 100");
    app.say("show menu");
    app.catchUp();
    click(150, 390);
    app.expect("down a", "at=150,634");
}

TEST_F(PointerInput, AClickOnTheDesktopTakesTheFocusAway)
{
    app.say("window menu popup 300 724 200 100");
    app.say("show menu");
    app.catchUp();
    click(1000, 900);
    app.expect("focus a lost");
    app.catchUp();
    EXPECT_EQ(app.countOf("focus a gained"), 1);
}

/// The same window, with the keyboard.
class KeyInput : public PointerInput { };

TEST_F(KeyInput, KeysBringTheirCharacters)
{
    press("a");
    app.expect("key a", "code=4", "text=[a]", "plain=[a]", "repeat=0");
    app.expect("keyup a", "plain=[a]");
    press("Return");
    app.expect("key a", "text=[\\x0d]");
    press("Tab");
    app.expect("key a", "text=[\\x09]");
    press("shift+Tab");
    app.expect("key a", "mods=2", "text=[\\x19]");
    press("BackSpace");
    app.expect("key a", "text=[\\x7f]");
    press("Escape");
    app.expect("key a", "text=[\\x1b]");
    press("Up");
    app.expect("key a", "mods=160", "text=[\uF700]");
    press("F5");
    app.expect("key a", "mods=128", "text=[\uF708]");
}

TEST_F(KeyInput, ModifiersChangeWhatIsEntered)
{
    press("shift+a");
    app.expect("modifiers a", "mods=2");
    app.expect("key a", "mods=2", "text=[A]", "plain=[A]");
    app.expect("modifiers a", "mods=0");
    press("ctrl+a");
    app.expect("key a", "mods=4", "text=[\\x01]", "plain=[a]");
    press("shift+1");
    app.expect("key a", "text=[!]", "plain=[!]");
    press("super+k");
    app.expect("key a", "mods=16", "text=[k]");
}

TEST_F(KeyInput, ACharacterOutsideTheLayoutArrivesWithoutAKey)
{
    typeForeign("eacute");
    app.expect("key a", "code=65535", "text=[é]");
}

TEST_F(KeyInput, ACharacterOutsideLatinArrivesToo)
{
    typeForeign("U2192");
    app.expect("key a", "code=65535", "text=[→]");
}

TEST_F(KeyInput, ADeadKeyEntersNothingUntilTheNextOne)
{
    tool({ "setxkbmap", "us", "-variant", "intl" });
    press("dead_acute");
    app.expect("key a", "text=[]");
    press("e");
    app.expect("key a", "text=[é]", "plain=[e]");
    press("dead_acute");
    app.expect("key a", "text=[]");
    press("space");
    auto const composed = app.expect("key a", "code=44");
    tool({ "setxkbmap", "us" });
    EXPECT_TRUE(composed.find("text=[']") != composed.npos || composed.find("text=[´]") != composed.npos) << composed;
}

TEST_F(KeyInput, TheLayoutsShiftedCharactersAreKnown)
{
    tool({ "setxkbmap", "de" });
    press("shift+7");
    app.expect("key a", "text=[/]", "plain=[/]");
    press("odiaeresis");
    app.expect("key a", "text=[ö]", "plain=[ö]");
    tool({ "setxkbmap", "us" });
}

TEST_F(KeyInput, AHeldKeyRepeats)
{
    tool({ "xdotool", "keydown", "b" });
    app.expect("key a", "text=[b]", "repeat=0");
    app.expect("key a", "text=[b]", "repeat=1");
    app.expect("key a", "text=[b]", "repeat=1");
    tool({ "xdotool", "keyup", "b" });
    app.expect("keyup a");
}

TEST_F(KeyInput, FastTypingLosesNothing)
{
    std::string const text = "the quick brown fox jumps over the lazy dog 0123456789";
    tool({ "xdotool", "type", "--delay", "0", text });
    std::string entered;
    for (std::size_t index = 0; index < text.size(); ++index) {
        auto const line = app.expect("key a");
        auto const at = line.find("text=[");
        ASSERT_NE(at, line.npos);
        entered += line.substr(at + 6, line.find(']', at) - at - 6);
    }
    EXPECT_EQ(entered, text);
}

TEST_F(KeyInput, TheFocusMovesBetweenTwoWindows)
{
    app.say("window b document 600 624 300 300");
    app.say("show b");
    app.say("focus b");
    app.expect("focus a lost");
    app.expect("focus b gained");
    press("x");
    app.expect("key b", "text=[x]");
    app.say("focus a");
    app.expect("focus b lost");
    app.expect("focus a gained");
    press("y");
    app.expect("key a", "text=[y]");
}

}
}

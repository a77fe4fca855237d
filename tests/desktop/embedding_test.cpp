#if defined(PLIX_EMBED_QT) || defined(PLIX_EMBED_GTK)

#include <tests/desktop/support/DesktopTest.h>

#include <vector>

namespace plix::desktop {
namespace {

struct Toolkit {
    char const* name;
    char const* program;
    char const* title;
    /// What makes it draw twice as fine.
    char const* fine;
};

constexpr Toolkit s_toolkits[] {
#ifdef PLIX_EMBED_QT
    { "Qt", "embed_qt", "A view tree in Qt", "QT_SCALE_FACTOR=2" },
#endif
#ifdef PLIX_EMBED_GTK
    { "GTK", "embed_gtk", "A view tree in GTK", "GDK_SCALE=2" },
#endif
};

/// The example's view tree in a window of another toolkit.
class EmbeddedTree : public DesktopTest, public testing::WithParamInterface<Toolkit> {
protected:
    struct Place {
        int x { 0 };
        int y { 0 };
        int width { 0 };
        int height { 0 };
    };

    void open(std::vector<std::string> environment = {})
    {
        moveMouse(1270, 1010);
        // Renderers and input methods that are everywhere.
        for (auto const* const line : { "QT_QPA_PLATFORM=xcb", "QT_IM_MODULE=compose", "GSK_RENDERER=cairo", "GDK_BACKEND=x11",
                 "GTK_IM_MODULE=gtk-im-context-simple", "GTK_A11Y=none", "GTK_THEME=Adwaita", "QT_LOGGING_RULES=*=false",
                 // What toolkits keep until the end is theirs.
                 "ASAN_OPTIONS=detect_leaks=0" })
            environment.emplace_back(line);
        app = &start(GetParam().program, environment);
        EXPECT_TRUE(waitUntil([this] {
            return tool({ "xdotool", "getactivewindow", "getwindowname" }).find(GetParam().title) != std::string::npos;
        }));
    }
    /// Of a part, in the display's pixels; x and y are its middle.
    Place where(std::string const& part)
    {
        app->say("where " + part);
        auto const numbers = numbersAfter(app->expect("where " + part + " at "), " at ");
        if (numbers.size() < 4)
            return {};
        auto const whole = [](double number) { return static_cast<int>(number); };
        return { whole(numbers[0]), whole(numbers[1]), whole(numbers[2]), whole(numbers[3]) };
    }
    void clickOn(std::string const& part, int count = 1)
    {
        auto const place = where(part);
        click(place.x, place.y, 1, count);
    }
    std::string state()
    {
        app->say("state");
        return app->expect("state ");
    }
    /// Waits until the program stands like that.
    bool comesTo(std::string const& what)
    {
        auto const isThere = [&] { return state().find(what) != std::string::npos; };
        return waitUntil(isThere) || (ADD_FAILURE() << what << " is not in " << state(), false);
    }
    bool waitForMenu(bool isOpen)
    {
        return waitUntil([this, isOpen] { return (where("menu").width > 0) == isOpen; });
    }

    Application* app { nullptr };
};

TEST_P(EmbeddedTree, AClickArrives)
{
    open();
    clickOn("box");
    app->expect("box off");
    clickOn("box");
    app->expect("box on");
    screenshot("window");
}

TEST_P(EmbeddedTree, TheTimerOfAnIdleProgramTicks)
{
    open();
    app->expect("tick 1");
    app->expect("tick 2");
    EXPECT_TRUE(app->process().isRunning());
}

TEST_P(EmbeddedTree, TextIsTyped)
{
    open();
    clickOn("field", 2);
    type("Ceres");
    press("Return");
    app->expect("field [Ceres]");
    EXPECT_TRUE(comesTo("field=[Ceres]"));
}

TEST_P(EmbeddedTree, DeadKeysAndForeignCharactersAreTyped)
{
    open();
    clickOn("field", 2);
    tool({ "setxkbmap", "us", "-variant", "intl" });
    press("dead_acute");
    press("e");
    press("n");
    press("Return");
    app->expect("field [én]");
    tool({ "setxkbmap", "us" });
    press("End");
    typeForeign("U4F60");
    press("Return");
    app->expect("field [én你]");
}

TEST_P(EmbeddedTree, TabGoesThroughTheTreeAndOutAndBackAtBothEnds)
{
    open();
    clickOn("field");
    EXPECT_TRUE(comesTo("key=yes at=field"));
    press("Tab");
    EXPECT_TRUE(comesTo("key=yes at=box"));
    press("Tab");
    EXPECT_TRUE(comesTo("key=yes at=popup"));
    press("Tab");
    EXPECT_TRUE(comesTo("key=no at=none"));
    press("shift+Tab");
    EXPECT_TRUE(comesTo("key=yes at=popup"));
    press("Tab");
    EXPECT_TRUE(comesTo("key=no"));
    type("Uranus");
    EXPECT_TRUE(comesTo("name=[Uranus]"));
    press("Tab");
    press("Tab");
    EXPECT_TRUE(comesTo("key=yes at=table"));
    press("shift+Tab");
    EXPECT_TRUE(comesTo("key=no at=none"));
}

TEST_P(EmbeddedTree, TwoTreesInAWindowShareTheKeyboard)
{
    open();
    clickOn("box");
    EXPECT_TRUE(comesTo("key=yes"));
    app->say("second");
    // Before it is laid out it is in the corner of the screen.
    ASSERT_TRUE(waitUntil([this] { return where("second").x > 200; }));
    clickOn("second");
    type("Io");
    EXPECT_TRUE(comesTo("key=no"));
    press("Return");
    app->expect("second [Io]");
    press("shift+Tab");
    EXPECT_TRUE(comesTo("key=yes at=popup"));
    press("Tab");
    EXPECT_TRUE(comesTo("key=no"));
    type("Titan");
    press("Return");
    app->expect("second [Titan]");
    screenshot("two");
}

TEST_P(EmbeddedTree, ThePopUpIsChosenFromWithKeys)
{
    open();
    clickOn("popup");
    ASSERT_TRUE(waitForMenu(true));
    // All of it is there: the menu's own ground at both ends of the last item, and another behind it.
    auto const menu = where("menu");
    auto const colourAt = [&](int x) { return colourOnScreen(display().name(), x, menu.y + menu.height / 3); };
    EXPECT_TRUE(waitUntil([&] {
        auto const right = colourAt(menu.x + menu.width / 2 - 4);
        return right == colourAt(menu.x - menu.width / 2 + 4) && right != colourAt(menu.x + menu.width / 2 + 4);
    }));
    screenshot("menu");
    press("Down");
    press("Return");
    app->expect("chosen By name");
    EXPECT_TRUE(waitForMenu(false));
}

TEST_P(EmbeddedTree, ThePopUpIsChosenFromWithThePointer)
{
    open();
    clickOn("popup");
    ASSERT_TRUE(waitForMenu(true));
    auto const menu = where("menu");
    click(menu.x, menu.y + menu.height / 3);
    app->expect("chosen By length of the year");
    auto const popUp = where("popup");
    moveMouse(popUp.x, popUp.y);
    holdButton();
    ASSERT_TRUE(waitForMenu(true));
    auto const again = where("menu");
    moveMouse(again.x, again.y - 2);
    moveMouse(again.x, again.y);
    app->catchUp();
    releaseButton();
    app->expect("chosen By name");
}

TEST_P(EmbeddedTree, APressOnTheToolkitsButtonEndsAMenuAndNoMore)
{
    open();
    clickOn("popup");
    ASSERT_TRUE(waitForMenu(true));
    clickOn("add");
    EXPECT_TRUE(waitForMenu(false));
    EXPECT_TRUE(comesTo("rows=5"));
    clickOn("add");
    EXPECT_TRUE(comesTo("rows=6"));
}

TEST_P(EmbeddedTree, TheTimerGoesOnWhileAMenuIsOpen)
{
    open();
    clickOn("popup");
    ASSERT_TRUE(waitForMenu(true));
    app->say("destroy");
    app->expect("destroyed");
    EXPECT_TRUE(waitForMenu(false));
    app->catchUp();
    EXPECT_TRUE(app->process().isRunning());
}

TEST_P(EmbeddedTree, BothSidesAreConnected)
{
    open();
    clickOn("add");
    app->expect("Saturn is selected");
    EXPECT_TRUE(comesTo("label=[Saturn is selected]"));
    clickOn("row1");
    EXPECT_TRUE(comesTo("label=[Venus is selected]"));
    press("Down");
    EXPECT_TRUE(comesTo("label=[Earth is selected]"));
}

TEST_P(EmbeddedTree, TheWheelScrollsTheTable)
{
    open();
    clickOn("field");
    for (int count = 1; count <= 10; ++count)
        clickOn("add");
    EXPECT_TRUE(comesTo("rows=15"));
    auto const view = where("view");
    moveMouse(view.x, view.y - 20);
    click(view.x, view.y - 20, 4, 10);
    EXPECT_TRUE(comesTo("top=0."));
    click(view.x, view.y - 20, 5);
    // A notch is three lines, of ten points each.
    EXPECT_TRUE(comesTo("top=1."));
}

TEST_P(EmbeddedTree, ARowIsEditedInPlace)
{
    open();
    auto const row = where("row0");
    click(row.x - row.width / 3, row.y, 1, 2);
    EXPECT_TRUE(comesTo("key=yes at=table"));
    type("Hermes");
    press("Return");
    app->expect("row 0 [Hermes]");
}

TEST_P(EmbeddedTree, ARowIsDraggedElsewhere)
{
    open();
    auto const from = where("row0");
    auto const to = where("row3");
    moveMouse(from.x - from.width / 3, from.y);
    holdButton();
    for (int step = 1; step <= 4; ++step) {
        moveMouse(from.x - from.width / 3, from.y + step * (to.y - from.y) / 4 - 2);
        app->catchUp();
    }
    releaseButton();
    app->expect("moved Mercury to ");
}

TEST_P(EmbeddedTree, TheClipboardIsShared)
{
    open();
    clickOn("field", 2);
    type("Eris");
    press("ctrl+a");
    press("ctrl+c");
    clickOn("name");
    press("ctrl+a");
    press("ctrl+v");
    EXPECT_TRUE(comesTo("name=[Eris]"));
    press("End");
    type("x");
    press("ctrl+a");
    press("ctrl+c");
    clickOn("field", 2);
    press("ctrl+v");
    EXPECT_TRUE(comesTo("field=[Erisx]"));
}

TEST_P(EmbeddedTree, AnAlertIsModalForTheToolkitToo)
{
    open();
    app->say("alert");
    app->expect("alert runs");
    EXPECT_TRUE(waitUntil([this] { return !windowTitled("Alert").empty(); }));
    EXPECT_TRUE(waitUntil([this] {
        return tool({ "xdotool", "getactivewindow", "getwindowname" }).find("Alert") != std::string::npos;
    }));
    screenshot("alert");
    press("Return");
    app->expect("alert answered 7");
    EXPECT_TRUE(waitUntil([this] { return windowTitled("Alert").empty(); }));
    clickOn("box");
    app->expect("box off");
}

TEST_P(EmbeddedTree, ASheetHangsFromTheTreesTopUntilItIsAnswered)
{
    open();
    auto const view = where("view");
    app->say("sheet");
    app->expect("sheet begins");
    // Left of the title of its button, which is the blue one.
    EXPECT_TRUE(waitUntil([&] {
        auto const colour = colourOnScreen(display().name(), view.x + 18, view.y - view.height / 2 + 56);
        return (colour & 0xFF) > 0xA0 && colour >> 16 < 0x60;
    }));
    screenshot("sheet");
    clickOn("box");
    press("Return");
    app->expect("sheet answered 7");
    clickOn("box");
    app->expect("box off");
}

TEST_P(EmbeddedTree, ThePointerSaysWhatIsUnderIt)
{
    open();
    auto const pointer = [this] { return pointerOnScreen(display().name()); };
    auto const moveTo = [this](Place place) { moveMouse(place.x, place.y); };
    auto const box = where("box");
    auto const field = where("field");
    moveTo(box);
    app->catchUp();
    auto const arrow = pointer();
    moveTo(field);
    EXPECT_TRUE(waitUntil([&] { return pointer() != arrow; }));
    moveTo(box);
    EXPECT_TRUE(waitUntil([&] { return pointer() == arrow; }));
}

TEST_P(EmbeddedTree, AResizedWindowIsPaintedWhole)
{
    open();
    auto const before = where("view");
    auto const window = windowTitled(GetParam().title);
    tool({ "xdotool", "windowsize", window, "700", "560" });
    ASSERT_TRUE(waitUntil([&] { return where("view").width > before.width + 100; }));
    auto const after = where("view");
    EXPECT_GT(after.height, before.height + 100);
    auto const left = after.x - after.width / 2;
    auto const bottom = after.y + after.height / 2;
    auto const ground = screenshot("large").pixel(left + 3, bottom - 3);
    EXPECT_TRUE(waitForPixel(after.x + after.width / 2 - 4, bottom - 4, ground));
    EXPECT_TRUE(waitForPixel(after.x + after.width / 2 - 4, after.y - after.height / 2 + 4, ground));
    clickOn("box");
    app->expect("box off");
    tool({ "xdotool", "windowsize", window, "430", "400" });
    ASSERT_TRUE(waitUntil([&] { return where("view").width < after.width - 100; }));
    clickOn("box");
    app->expect("box on");
    screenshot("small");
}

TEST_P(EmbeddedTree, AtTwiceTheScaleThePixelsAreFine)
{
    open({ GetParam().fine });
    auto const view = where("view");
    EXPECT_GE(view.width, 780);
    clickOn("box");
    app->expect("box off");
    clickOn("field", 2);
    type("Sedna");
    press("Return");
    app->expect("field [Sedna]");
    auto const shot = screenshot("fine");
    // Were it blown up, each square of four pixels had one colour.
    int fine = 0;
    auto const left = (view.x - view.width / 2) / 2 * 2;
    auto const top = (view.y - view.height / 2) / 2 * 2;
    for (int y = top + 20; y < top + view.height - 20; y += 2) {
        for (int x = left + 20; x < left + view.width - 20; x += 2) {
            auto const colour = shot.pixel(x, y);
            fine += shot.pixel(x + 1, y) != colour || shot.pixel(x, y + 1) != colour ? 1 : 0;
        }
    }
    EXPECT_GT(fine, 500);
    clickOn("popup");
    ASSERT_TRUE(waitForMenu(true));
    screenshot("fine_menu");
    auto const menu = where("menu");
    click(menu.x, menu.y + menu.height / 3);
    app->expect("chosen By length of the year");
}

TEST_P(EmbeddedTree, ClosingTheWindowEndsTheProgram)
{
    open();
    clickOn("popup");
    ASSERT_TRUE(waitForMenu(true));
    press("Escape");
    EXPECT_TRUE(waitForMenu(false));
    tool({ "wmctrl", "-c", GetParam().title });
    EXPECT_EQ(app->process().waitForEnd(), 0);
}

INSTANTIATE_TEST_SUITE_P(In, EmbeddedTree, testing::ValuesIn(s_toolkits), [](auto const& toolkit) { return toolkit.param.name; });

}
}

#endif

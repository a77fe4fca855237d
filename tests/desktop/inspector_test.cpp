#if PLIX_INSPECTOR

#include <tests/desktop/support/DesktopTest.h>

namespace plix::desktop {
namespace {

/// A program with a window whose first field, with (200, 129) of the screen in it, has the keyboard.
class RealInspector : public DesktopTest {
protected:
    void SetUp() override
    {
        moveMouse(1200, 900);
        app.expect("key");
        click(200, 129);
        press("ctrl+shift+i");
        ASSERT_TRUE(waitUntil([this] { return !windowTitled(panel).empty(); }));
    }

    static constexpr char const* panel = "Inspector: first";
    Application& app { start("fields", {}, { "first", "100", "824" }) };
};

TEST_F(RealInspector, LeavesTheKeyboardToTheWindowUntilThePanelIsClicked)
{
    type("ab");
    app.expect("changed 1 [ab]");
    click(600, 500);
    press("Down");
    click(200, 129);
    type("c");
    app.expect("changed 1 [");
    EXPECT_EQ(app.countOf("ended"), 0);
    EXPECT_EQ(app.countOf("key"), 1);
}

TEST_F(RealInspector, GoesByItsKeysAlsoFromThePanel)
{
    click(600, 500);
    press("ctrl+shift+i");
    EXPECT_TRUE(waitUntil([this] { return windowTitled(panel).empty(); }));
    click(200, 129);
    type("x");
    app.expect("changed 1 [x]");
}

}
}

#endif

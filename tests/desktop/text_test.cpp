#include <tests/desktop/support/DesktopTest.h>

namespace plix::desktop {
namespace {

/// Two programs with a window each; of the first the fields are at (120, 118) and (120, 158) of the screen, of the second at
/// (520, ...). The virtual screen is 1024 points high.
class TextFields : public DesktopTest {
protected:
    void SetUp() override
    {
        moveMouse(1200, 900);
        first = &start("fields", {}, { "first", "100", "824" });
        first->expect("key");
    }
    static constexpr int upper = 129;
    static constexpr int lower = 169;

    Application* first { nullptr };
};

TEST_F(TextFields, TypesDeadKeysAndForeignCharacters)
{
    click(200, upper);
    tool({ "setxkbmap", "us", "-variant", "intl" });
    press("dead_acute");
    press("e");
    first->expect("changed 1 [é]");
    press("dead_diaeresis");
    press("o");
    first->expect("changed 1 [éö]");
    press("BackSpace");
    first->expect("changed 1 [é]");
    tool({ "setxkbmap", "us" });
    typeForeign("U4F60");
    first->expect("changed 1 [é你]");
}

TEST_F(TextFields, SelectsByMouseAndMovesOnByTab)
{
    click(200, upper);
    type("one two");
    first->expect("changed 1 [one two]");
    click(128, upper, 1, 2);
    type("1");
    first->expect("changed 1 [1 two]");
    press("Tab");
    first->expect("ended 1 [1 two]");
    type("next");
    first->expect("changed 2 [next]");
    press("ctrl+z");
    first->expect("changed 2 []");
    press("ctrl+y");
    first->expect("changed 2 [next]");
    press("Return");
    first->expect("action next");
}

TEST_F(TextFields, CopiesFromOneProgramAndPastesIntoAnother)
{
    auto& second = start("fields", {}, { "second", "500", "824" });
    second.expect("key");
    click(200, upper);
    first->expect("key");
    type("shared text");
    first->expect("changed 1 [shared text]");
    press("ctrl+a");
    press("ctrl+c");
    click(600, lower);
    second.expect("key");
    press("ctrl+v");
    second.expect("changed 2 [shared text]");
    press("shift+Home");
    press("ctrl+x");
    second.expect("changed 2 []");
    click(200, lower);
    press("ctrl+v");
    first->expect("changed 2 [shared text]");
}

}
}

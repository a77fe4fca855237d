#include <tests/desktop/support/DesktopTest.h>

namespace plix::desktop {
namespace {

class Tables : public DesktopTest {
protected:
    void startWith(std::string const& kind)
    {
        moveMouse(1200, 20);
        app = &start("tables", {}, { kind });
        auto const place = numbersAfter(lineWith("row 0 at"), " at ");
        auto const line = numbersAfter(lineWith("divider at"), " at ");
        ASSERT_EQ(place.size(), 2U);
        ASSERT_EQ(line.size(), 2U);
        x = static_cast<int>(place[0]);
        y = static_cast<int>(place[1]);
        pitch = static_cast<int>(numbersAfter(lineWith("pitch"), "pitch").at(0));
        divider = static_cast<int>(line[0]);
        header = static_cast<int>(line[1]);
        app->expect("key");
    }
    std::string lineWith(std::string const& part)
    {
        auto const all = app->transcript();
        auto const at = all.find(part);
        return at == std::string::npos ? "" : all.substr(at, all.find('\n', at) - at);
    }
    int rowY(int row) const { return y + row * pitch; }
    void clickRow(int row, std::string const& modifier = {})
    {
        if (!modifier.empty())
            tool({ "xdotool", "keydown", modifier });
        click(x, rowY(row));
        if (!modifier.empty())
            tool({ "xdotool", "keyup", modifier });
    }
    void drag(int fromX, int fromY, int toX, int toY)
    {
        moveMouse(fromX, fromY);
        holdButton();
        for (int step = 1; step <= 5; ++step)
            moveMouse(fromX + (toX - fromX) * step / 5, fromY + (toY - fromY) * step / 5);
        releaseButton();
    }

    Application* app { nullptr };
    int x { 0 };
    int y { 0 };
    int pitch { 18 };
    int divider { 0 };
    int header { 0 };
};

TEST_F(Tables, SelectsByMouseWithShiftAndControl)
{
    startWith("table");
    clickRow(2);
    app->expect("selected 2 end");
    clickRow(5, "shift");
    app->expect("selected 2 3 4 5 end");
    clickRow(3, "ctrl");
    app->expect("selected 2 4 5 end");
    screenshot("selected_rows");
    clickRow(7);
    app->expect("selected 7 end");
}

TEST_F(Tables, ArrowsAndLettersSelect)
{
    startWith("table");
    clickRow(0);
    app->expect("selected 0 end");
    press("Down");
    app->expect("selected 1 end");
    press("shift+Down");
    app->expect("selected 1 2 end");
    type("fig");
    app->expect("selected 25 end");
    press("Home");
    app->expect("selected 0 end");
    press("Up");
    press("Down");
    app->expect("selected 1 end");
}

TEST_F(Tables, ADoubleClickOnADividerFitsTheColumn)
{
    startWith("table");
    click(divider, header, 1, 2);
    auto const width = numbersAfter(app->expect("name is", "wide"), "name is ").at(0);
    EXPECT_LT(width, 200);
    EXPECT_GT(width, 40);
    screenshot("fitted_column");
}

TEST_F(Tables, ADividerIsDraggedAndAColumnMoved)
{
    startWith("table");
    drag(divider, header, divider + 40, header);
    app->expect("name is 240 wide");
    drag(divider - 100, header, divider + 110, header);
    app->expect("first column size");
    screenshot("moved_column");
}

TEST_F(Tables, ACellIsEditedAndTabTakesItOver)
{
    startWith("table");
    click(x, rowY(1), 1, 2);
    press("ctrl+a");
    type("Quince");
    screenshot("edited_cell");
    press("Tab");
    app->expect("edited 1 [Quince]");
    press("Escape");
}

TEST_F(Tables, ARowIsDragged)
{
    startWith("table");
    drag(x, rowY(1), x, rowY(4) + pitch / 2 - 2);
    app->expect("dropped 1 before 5");
}

TEST_F(Tables, TheWheelScrolls)
{
    startWith("table");
    click(x, rowY(3), 5, 2);
    EXPECT_GT(numbersAfter(app->expect("scrolled to"), "scrolled to ").at(0), 0);
    screenshot("scrolled_table");
}

TEST_F(Tables, AnOutlineIsExpandedByKeyboard)
{
    startWith("outline");
    clickRow(1);
    app->expect("selected 1 end");
    press("Right");
    app->expect("expanded South");
    press("Down");
    app->expect("selected 2 end");
    screenshot("expanded_outline");
    press("Left");
    app->expect("selected 1 end");
    press("Left");
    app->expect("collapsed South");
}

}
}

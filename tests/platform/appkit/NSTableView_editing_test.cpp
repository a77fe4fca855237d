#include <tests/support/TableTest.h>

#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/foundation/NSNotification.h>

namespace plix {
namespace {

using Names = std::vector<std::string>;

class EditingHost : public NSObject {
public:
    bool init() { return true; }
    bool shouldEditTableColumn(NSTableView&, NSTableColumn& column, long) { return column.identifier() != ObjectValue(refused); }
    bool textShouldEndEditing(NSControl&, NSText& editor) { return editor.string() != "never"; }
    void controlTextDidBeginEditing(NSNotification const&) { log.emplace_back("begin"); }
    void controlTextDidEndEditing(NSNotification const&) { log.emplace_back("end"); }
    std::string refused;
    Names log;
};

class TableEditing : public TableTest {
protected:
    void SetUp() override
    {
        TableTest::SetUp();
        host = make<EditingHost>();
        table->setDelegate(host);
        table->selectRow(1, false);
    }
    std::string edited() const
    {
        if (table->editedRow() < 0)
            return "none";
        return column(table->editedColumn()).identifier().description() + std::to_string(table->editedRow());
    }
    std::string text() const { return table->currentEditor() ? table->currentEditor()->string() : "no editor"; }

    Ref<EditingHost> host;
};

TEST_F(TableEditing, ADoubleClickEditsACell)
{
    click(*table, cellPoint(1, 1), { .count = 2 });
    EXPECT_EQ(edited(), "b1");
    EXPECT_EQ(text(), "Beta b");
    EXPECT_EQ(window->firstResponder(), table->currentEditor());
}

TEST_F(TableEditing, ReturnEditsTheSelectedRow)
{
    key(NSCarriageReturnCharacter);
    EXPECT_EQ(edited(), "a1");
    type("New\r");
    EXPECT_EQ(data->taken, (Names { "a1=New" }));
}

TEST_F(TableEditing, ReturnGoesOnToTheRowBelow)
{
    table->editColumn(0, 1, nullptr, true);
    type("New\r");
    EXPECT_EQ(edited(), "a2");
    EXPECT_EQ(table->selectedRow(), 2);
    key(NSEscapeCharacter);
    table->editColumn(0, 4, nullptr, true);
    type("Last\r");
    EXPECT_EQ(edited(), "none");
    EXPECT_EQ(window->firstResponder(), table.get());
}

TEST_F(TableEditing, TabGoesFromCellToCell)
{
    table->editColumn(1, 1, nullptr, true);
    type("X\t");
    EXPECT_EQ(edited(), "c1");
    key(NSTabCharacter);
    EXPECT_EQ(edited(), "a2");
    EXPECT_EQ(table->selectedRow(), 2);
    key(NSTabCharacter, NSShiftKeyMask);
    EXPECT_EQ(edited(), "c1");
    EXPECT_EQ(data->taken, (Names { "b1=X" }));
}

TEST_F(TableEditing, TabPassesCellsThatMayNotBeEdited)
{
    column(1).setEditable(false);
    host->refused = "c";
    table->editColumn(0, 1, nullptr, true);
    key(NSTabCharacter);
    EXPECT_EQ(edited(), "a2");
}

TEST_F(TableEditing, EscapeKeepsWhatWasThere)
{
    table->editColumn(0, 1, nullptr, true);
    type("Gone");
    key(NSEscapeCharacter);
    EXPECT_EQ(edited(), "none");
    EXPECT_EQ(data->taken, Names {});
    EXPECT_EQ(window->firstResponder(), table.get());
}

TEST_F(TableEditing, AClickElsewhereTakesTheText)
{
    table->editColumn(0, 1, nullptr, true);
    type("Kept");
    clickRow(3);
    EXPECT_EQ(data->taken, (Names { "a1=Kept" }));
    EXPECT_EQ(table->selectedRow(), 3);
}

TEST_F(TableEditing, ARefusedTextKeepsTheEditor)
{
    table->editColumn(0, 1, nullptr, true);
    type("never");
    clickRow(3);
    EXPECT_EQ(edited(), "a1");
    EXPECT_EQ(table->selectedRow(), 1);
    EXPECT_EQ(data->taken, Names {});
}

TEST_F(TableEditing, TheDelegateHearsOfIt)
{
    table->editColumn(0, 1, nullptr, true);
    type("x\r");
    EXPECT_EQ(host->log.front(), "begin");
    EXPECT_EQ(host->log[1], "end");
}

TEST_F(TableEditing, UnchangedTextIsNotTaken)
{
    table->editColumn(0, 4, nullptr, true);
    key(NSCarriageReturnCharacter);
    EXPECT_EQ(data->taken, Names {});
}

TEST_F(TableEditing, NothingIsEditedWhereThatIsNotAllowed)
{
    host->refused = "a";
    table->editColumn(0, 1, nullptr, true);
    EXPECT_EQ(edited(), "none");
    host->refused.clear();
    column(0).dataCell()->setEditable(false);
    table->editColumn(0, 1, nullptr, true);
    EXPECT_EQ(edited(), "none");
    table->editColumn(1, 99, nullptr, true);
    table->editColumn(-1, 1, nullptr, true);
    table->setEnabled(false);
    table->editColumn(1, 1, nullptr, true);
    EXPECT_EQ(edited(), "none");
}

TEST_F(TableEditing, ReloadingEndsIt)
{
    table->editColumn(0, 1, nullptr, true);
    table->reloadData();
    EXPECT_EQ(edited(), "none");
    EXPECT_EQ(window->firstResponder(), table.get());
}

TEST_F(TableEditing, TheEditorFollowsItsColumn)
{
    table->editColumn(1, 1, nullptr, true);
    auto const before = table->currentEditor()->superview()->frame();
    column(0).setWidth(150);
    EXPECT_EQ(edited(), "b1");
    EXPECT_EQ(table->currentEditor()->superview()->frame().x, before.x + 50);
}

TEST_F(TableEditing, RemovingTheColumnEndsIt)
{
    table->editColumn(1, 1, nullptr, true);
    type("lost");
    table->removeTableColumn(column(1));
    EXPECT_EQ(edited(), "none");
    EXPECT_EQ(data->taken, Names {});
}

TEST_F(TableEditing, TakingTheTableOutOfItsWindowEndsIt)
{
    table->editColumn(1, 1, nullptr, true);
    window->setContentView(make<NSView>(Rect { 0, 0, 10, 10 }));
    pump();
    EXPECT_EQ(table->currentEditor(), nullptr);
    EXPECT_EQ(edited(), "none");
}

TEST_F(TableEditing, TheOtherRowsAreDrawnByTheColumnsCell)
{
    table->editColumn(0, 1, nullptr, true);
    EXPECT_FALSE(column(0).dataCell()->isBeingEdited());
    EXPECT_TRUE(table->selectedCell()->isBeingEdited());
}

}
}

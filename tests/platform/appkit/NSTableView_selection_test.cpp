#include <tests/support/TableTest.h>

#include <plix/platform/foundation/NSNotification.h>

namespace plix {
namespace {

using Indexes = std::vector<long>;

/// Decides and hears what happens to the selection.
class Chooser : public NSObject {
public:
    bool init() { return true; }
    bool shouldSelectRow(NSTableView&, long row) { return row != refused; }
    bool selectionShouldChangeInTableView(NSTableView&) { return mayChange; }
    void tableViewSelectionDidChange(NSNotification const& told)
    {
        ++changes;
        last = told.name;
    }
    void tableViewSelectionIsChanging(NSNotification const&) { ++changing; }

    long refused { -1 };
    bool mayChange { true };
    int changes { 0 };
    int changing { 0 };
    std::string last;
};

class TableSelection : public TableTest {
protected:
    void SetUp() override
    {
        TableTest::SetUp();
        table->setAllowsMultipleSelection(true);
        chooser = make<Chooser>();
        table->setDelegate(chooser);
    }
    Ref<Chooser> chooser;
};

TEST_F(TableSelection, ClicksWithModifiersExtendAndToggle)
{
    clickRow(1);
    EXPECT_EQ(selected(), (Indexes { 1 }));
    clickRow(3, NSShiftKeyMask);
    EXPECT_EQ(selected(), (Indexes { 1, 2, 3 }));
    clickRow(2, NSControlKeyMask);
    EXPECT_EQ(selected(), (Indexes { 1, 3 }));
    clickRow(0, NSCommandKeyMask);
    EXPECT_EQ(selected(), (Indexes { 0, 1, 3 }));
    clickRow(4);
    EXPECT_EQ(selected(), (Indexes { 4 }));
    EXPECT_EQ(chooser->changes, 5);
    EXPECT_EQ(chooser->last, NSTableViewSelectionDidChangeNotification);
}

TEST_F(TableSelection, AClickBelowTheRowsSelectsNothing)
{
    clickRow(1);
    click(*table, { 40, 180 });
    EXPECT_EQ(selected(), Indexes {});
    EXPECT_EQ(table->clickedRow(), -1);
    table->setAllowsEmptySelection(false);
    clickRow(1);
    click(*table, { 40, 180 });
    EXPECT_EQ(selected(), (Indexes { 1 }));
}

TEST_F(TableSelection, OnlyOneRowWhereMoreAreNotAllowed)
{
    table->setAllowsMultipleSelection(false);
    clickRow(1);
    clickRow(3, NSShiftKeyMask);
    EXPECT_EQ(selected(), (Indexes { 3 }));
    table->selectRowIndexes({ 0, 1, 2 }, true);
    EXPECT_EQ(table->numberOfSelectedRows(), 1);
    table->selectAll(nullptr);
    EXPECT_EQ(table->numberOfSelectedRows(), 1);
}

TEST_F(TableSelection, DraggingSelectsWhatThePointerPasses)
{
    drag(*table, rowPoint(1), rowPoint(3));
    EXPECT_EQ(selected(), (Indexes { 1, 2, 3 }));
    EXPECT_GT(chooser->changing, 0);
    drag(*table, rowPoint(3), rowPoint(0));
    EXPECT_EQ(selected(), (Indexes { 0, 1, 2, 3 }));
}

TEST_F(TableSelection, APressOnOneOfManySelectedRowsChoosesItWhenItIsLetGo)
{
    auto const draggable = make<DraggableRows>();
    draggable->count = 5;
    table->setDataSource(draggable);
    table->selectAll(nullptr);
    person().press(onScreen(*table, rowPoint(2)));
    Indexes whilePressed;
    person().then([&] { whilePressed = selected(); });
    person().release(onScreen(*table, rowPoint(2)));
    pump();
    EXPECT_EQ(whilePressed.size(), 5U);
    EXPECT_EQ(selected(), (Indexes { 2 }));
}

TEST_F(TableSelection, ArrowsMoveAndShiftExtends)
{
    key(NSDownArrowFunctionKey);
    EXPECT_EQ(selected(), (Indexes { 0 }));
    key(NSDownArrowFunctionKey);
    EXPECT_EQ(selected(), (Indexes { 1 }));
    key(NSDownArrowFunctionKey, NSShiftKeyMask);
    key(NSDownArrowFunctionKey, NSShiftKeyMask);
    EXPECT_EQ(selected(), (Indexes { 1, 2, 3 }));
    key(NSUpArrowFunctionKey, NSShiftKeyMask);
    EXPECT_EQ(selected(), (Indexes { 1, 2 }));
    key(NSUpArrowFunctionKey);
    EXPECT_EQ(selected(), (Indexes { 1 }));
    key(NSEndFunctionKey);
    EXPECT_EQ(selected(), (Indexes { 4 }));
    key(NSHomeFunctionKey, NSShiftKeyMask);
    EXPECT_EQ(selected(), (Indexes { 0, 1, 2, 3, 4 }));
    key(NSHomeFunctionKey);
    EXPECT_EQ(selected(), (Indexes { 0 }));
    key('a', NSControlKeyMask);
    EXPECT_EQ(table->numberOfSelectedRows(), 5);
}

TEST_F(TableSelection, UpFromNothingIsTheLastRow)
{
    key(NSUpArrowFunctionKey);
    EXPECT_EQ(selected(), (Indexes { 4 }));
}

TEST_F(TableSelection, PagesMoveByWhatIsSeen)
{
    setRows(100);
    key(NSHomeFunctionKey);
    key(NSPageDownFunctionKey);
    long const page = table->selectedRow();
    EXPECT_GE(page, 9);
    EXPECT_LE(page, 11);
    EXPECT_TRUE(NSContainsRect(table->visibleRect(), table->rectOfRow(page)));
    key(NSPageDownFunctionKey);
    EXPECT_EQ(table->selectedRow(), 2 * page);
    key(NSPageUpFunctionKey);
    EXPECT_EQ(table->selectedRow(), page);
}

TEST_F(TableSelection, KeysScrollToTheSelectedRow)
{
    setRows(100);
    key(NSEndFunctionKey);
    EXPECT_EQ(scrolled(), 1800 - 200);
    key(NSUpArrowFunctionKey);
    EXPECT_EQ(scrolled(), 1800 - 200);
    key(NSHomeFunctionKey);
    EXPECT_EQ(scrolled(), 0);
}

TEST_F(TableSelection, TheDelegateRefusesRows)
{
    chooser->refused = 1;
    clickRow(1);
    EXPECT_EQ(selected(), Indexes {});
    clickRow(0);
    key(NSDownArrowFunctionKey);
    EXPECT_EQ(selected(), (Indexes { 2 }));
    key('a', NSControlKeyMask);
    EXPECT_EQ(selected(), (Indexes { 0, 2, 3, 4 }));
    table->selectRow(1, false);
    EXPECT_EQ(selected(), (Indexes { 1 }));
}

TEST_F(TableSelection, TheDelegateRefusesAnyChange)
{
    clickRow(2);
    chooser->mayChange = false;
    clickRow(1);
    key(NSDownArrowFunctionKey);
    click(*table, { 40, 180 });
    EXPECT_EQ(selected(), (Indexes { 2 }));
}

TEST_F(TableSelection, ProgramsSelectWithoutAsking)
{
    table->selectRowIndexes({ 1, 3 }, false);
    table->selectRow(4, true);
    EXPECT_EQ(selected(), (Indexes { 1, 3, 4 }));
    table->deselectRow(3);
    table->selectRow(77, true);
    table->selectRow(-1, true);
    EXPECT_EQ(selected(), (Indexes { 1, 4 }));
    EXPECT_EQ(table->selectedRow(), 4);
    EXPECT_EQ(chooser->changes, 3);
    table->deselectAll(nullptr);
    EXPECT_EQ(table->selectedRow(), -1);
}

TEST_F(TableSelection, EqualSelectionsTellNobody)
{
    table->selectRow(1, false);
    table->selectRow(1, false);
    EXPECT_EQ(chooser->changes, 1);
}

TEST_F(TableSelection, ReloadingKeepsSelectionAndPlaceAsFarAsThereAreRows)
{
    setRows(100);
    table->selectRowIndexes({ 3, 50 }, false);
    scrollView->contentView()->scrollTo({ 0, 540 });
    chooser->changes = 0;
    table->reloadData();
    EXPECT_EQ(selected(), (Indexes { 3, 50 }));
    EXPECT_EQ(scrolled(), 540);
    EXPECT_EQ(chooser->changes, 0);
    setRows(20);
    EXPECT_EQ(selected(), (Indexes { 3 }));
    EXPECT_EQ(scrolled(), 160);
    EXPECT_EQ(chooser->changes, 1);
}

TEST_F(TableSelection, LettersFindRows)
{
    type("g");
    EXPECT_EQ(selected(), (Indexes { 2 }));
    pass(2);
    type("ep");
    EXPECT_EQ(selected(), (Indexes { 4 }));
    pass(2);
    type("zzz");
    EXPECT_EQ(selected(), (Indexes { 4 }));
}

TEST_F(TableSelection, TheSameLetterGoesFromRowToRow)
{
    data->rows = { { "ann" }, { "bob" }, { "Ada" }, { "abe" } };
    table->reloadData();
    type("a");
    EXPECT_EQ(selected(), (Indexes { 0 }));
    type("a");
    EXPECT_EQ(selected(), (Indexes { 2 }));
    type("a");
    EXPECT_EQ(selected(), (Indexes { 3 }));
    type("a");
    EXPECT_EQ(selected(), (Indexes { 0 }));
}

TEST_F(TableSelection, DoubleClicksAndReturnCallTheDoubleAction)
{
    int called = 0;
    long row = -1;
    table->setDoubleActionFunction([&](NSTableView& view) {
        ++called;
        row = view.clickedRow();
    });
    click(*table, rowPoint(3), { .count = 2 });
    EXPECT_EQ(called, 1);
    EXPECT_EQ(row, 3);
    key(NSCarriageReturnCharacter);
    EXPECT_EQ(called, 2);
}

TEST_F(TableSelection, AClickSendsTheAction)
{
    int called = 0;
    table->setActionFunction([&](NSObject* sender) { called += sender == table.get(); });
    clickRow(1);
    EXPECT_EQ(called, 1);
    table->setEnabled(false);
    clickRow(2);
    EXPECT_EQ(called, 1);
    EXPECT_EQ(selected(), (Indexes { 1 }));
}

TEST_F(TableSelection, ColumnsAreSelectedByTheirHeaders)
{
    table->setAllowsColumnSelection(true);
    clickRow(1);
    click(*table->headerView(), { 150, 10 });
    EXPECT_EQ(table->selectedColumn(), 1);
    EXPECT_EQ(selected(), Indexes {});
    click(*table->headerView(), { 50, 10 }, { .modifiers = NSControlKeyMask });
    EXPECT_EQ(table->selectedColumnIndexes(), (NSIndexSet { 0, 1 }));
    clickRow(1);
    EXPECT_EQ(table->selectedColumn(), -1);
}

TEST_F(TableSelection, OnlyRowsThatChangeAreDrawnAgain)
{
    clickRow(1);
    data->asked = 0;
    clickRow(3);
    EXPECT_LE(data->asked, 2 * 3 + 3);
    EXPECT_GT(data->asked, 0);
}

TEST_F(TableSelection, AutoscrollsWhileAPressIsDraggedOut)
{
    setRows(100);
    person().press(onScreen(*table, rowPoint(2)));
    for (int i = 0; i < 6; ++i)
        person().dragTo(onScreen(*scrollView, { 40, 260.F + static_cast<float>(i) }));
    person().release(onScreen(*scrollView, { 40, 266 }));
    pump();
    EXPECT_GT(scrolled(), 0);
    EXPECT_EQ(table->selectedRowIndexes().firstIndex(), 2);
    EXPECT_GT(table->numberOfSelectedRows(), 9);
}

}
}

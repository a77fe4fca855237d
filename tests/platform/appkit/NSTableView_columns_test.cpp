#include <tests/support/TableTest.h>
#include <tests/support/TestSurroundings.h>

#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSTableHeaderCell.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/graphics/NSImage.h>

namespace plix {
namespace {

using Names = std::vector<std::string>;

class HeaderHost : public NSObject {
public:
    bool init() { return true; }
    void mouseDownInHeaderOfTableColumn(NSTableView&, NSTableColumn& column) { note("pressed", column); }
    void didClickTableColumn(NSTableView&, NSTableColumn& column) { note("clicked", column); }
    void didDragTableColumn(NSTableView&, NSTableColumn& column) { note("dragged", column); }
    void tableViewColumnDidMove(NSNotification const& told)
    {
        log.push_back(
            "moved " + told.userInfo.at("NSOldColumn").description() + " " + told.userInfo.at("NSNewColumn").description());
    }
    void tableViewColumnDidResize(NSNotification const& told)
    {
        log.push_back("resized " + told.userInfo.at("NSOldWidth").description());
    }
    void note(std::string const& what, NSTableColumn& column) { log.push_back(what + " " + column.identifier().description()); }
    Names log;
};

class TableColumns : public TableTest {
protected:
    void SetUp() override
    {
        TableTest::SetUp();
        host = make<HeaderHost>();
        table->setDelegate(host);
    }
    NSTableHeaderView& header() { return *table->tableHeaderView(); }
    std::vector<float> widths() const
    {
        std::vector<float> all;
        for (auto const& each : table->tableColumns())
            all.push_back(each->width());
        return all;
    }
    Ref<HeaderHost> host;
};

TEST_F(TableColumns, AreFoundByIdentifierAndPlace)
{
    EXPECT_EQ(table->columnWithIdentifier("b"), 1);
    EXPECT_EQ(table->columnWithIdentifier("x"), -1);
    EXPECT_EQ(table->tableColumnWithIdentifier("c"), &column(2));
    EXPECT_EQ(table->columnAtPoint({ 103.5F, 5 }), 1);
    EXPECT_EQ(table->columnAtPoint({ 102.5F, 5 }), 0);
    EXPECT_EQ(table->columnAtPoint({ 309, 5 }), -1);
    EXPECT_EQ(table->columnsInRect({ 50, 0, 60, 10 }), (NSRange { 0, 2 }));
    EXPECT_EQ(table->columnsInRect({ 400, 0, 60, 10 }), (NSRange {}));
    EXPECT_EQ(table->rectOfColumn(1), (Rect { 103, 0, 103, 200 }));
    EXPECT_EQ(table->rectOfColumn(3), (Rect {}));
}

TEST_F(TableColumns, BelongToOneTable)
{
    auto const other = make<NSTableView>(Rect { 0, 0, 100, 100 });
    Ref<NSTableColumn> const moved(column(0));
    other->addTableColumn(*moved);
    EXPECT_EQ(order(), (Names { "b", "c" }));
    EXPECT_EQ(moved->tableView(), other.get());
    table->removeTableColumn(*moved);
    EXPECT_EQ(other->numberOfColumns(), 1);
    other->addTableColumn(*moved);
    EXPECT_EQ(other->numberOfColumns(), 1);
}

TEST_F(TableColumns, KeepTheirWidthWithinLimits)
{
    auto& first = column(0);
    first.setMinWidth(50);
    first.setMaxWidth(150);
    first.setWidth(500);
    EXPECT_EQ(first.width(), 150);
    first.setWidth(5);
    EXPECT_EQ(first.width(), 50);
    first.setWidth(std::numeric_limits<float>::quiet_NaN());
    first.setWidth(std::numeric_limits<float>::infinity());
    EXPECT_EQ(first.width(), 50);
    first.setMinWidth(80);
    EXPECT_EQ(first.width(), 80);
}

TEST_F(TableColumns, ADividerIsDraggedToResize)
{
    drag(header(), { 102, 10 }, { 142, 10 });
    EXPECT_EQ(column(0).width(), 140);
    EXPECT_EQ(host->log.back().substr(0, 7), "resized");
    table->setAllowsColumnResizing(false);
    drag(header(), { 142, 10 }, { 102, 10 });
    EXPECT_EQ(column(0).width(), 140);
}

TEST_F(TableColumns, AColumnThatAPersonMayNotResizeStays)
{
    column(0).setResizingMask(NSTableColumnAutoresizingMask);
    drag(header(), { 102, 10 }, { 142, 10 });
    EXPECT_EQ(column(0).width(), 100);
}

TEST_F(TableColumns, AHeaderIsClicked)
{
    click(header(), { 150, 10 });
    EXPECT_EQ(host->log, (Names { "pressed b", "clicked b" }));
    host->log.clear();
    table->setAllowsColumnReordering(false);
    drag(header(), { 150, 10 }, { 20, 10 });
    EXPECT_EQ(host->log, (Names { "pressed b" }));
}

TEST_F(TableColumns, AHeaderIsDraggedToMoveItsColumn)
{
    drag(header(), { 50, 10 }, { 260, 10 });
    EXPECT_EQ(order(), (Names { "b", "c", "a" }));
    EXPECT_EQ(host->log, (Names { "pressed a", "moved 0 2", "dragged a" }));
    EXPECT_EQ(header().draggedColumn(), -1);
}

TEST_F(TableColumns, TheDraggedHeaderFollowsThePointer)
{
    person().press(onScreen(header(), { 50, 10 }));
    person().dragTo(onScreen(header(), { 60, 10 }));
    person().dragTo(onScreen(header(), { 90, 10 }));
    float distance = 0;
    long dragged = -1;
    person().then([&] {
        distance = header().draggedDistance();
        dragged = header().draggedColumn();
    });
    person().release(onScreen(header(), { 50, 10 }));
    pump();
    EXPECT_EQ(dragged, 0);
    EXPECT_EQ(distance, 40);
    EXPECT_EQ(order(), (Names { "a", "b", "c" }));
}

TEST_F(TableColumns, EscapeEndsADragOfAColumn)
{
    person().press(onScreen(header(), { 50, 10 }));
    person().dragTo(onScreen(header(), { 160, 10 }));
    person().dragTo(onScreen(header(), { 260, 10 }));
    person().key(NSEscapeCharacter);
    person().release(onScreen(header(), { 260, 10 }));
    pump();
    EXPECT_EQ(order(), (Names { "a", "b", "c" }));
}

TEST_F(TableColumns, MovingKeepsColumnSelectionOnItsColumns)
{
    table->setAllowsMultipleSelection(true);
    table->selectColumnIndexes({ 0, 2 }, false);
    table->moveColumn(0, 1);
    EXPECT_EQ(order(), (Names { "b", "a", "c" }));
    EXPECT_EQ(table->selectedColumnIndexes(), (NSIndexSet { 1, 2 }));
    table->moveColumn(2, 0);
    EXPECT_EQ(table->selectedColumnIndexes(), (NSIndexSet { 0, 2 }));
    table->moveColumn(5, 0);
    table->moveColumn(0, -1);
    EXPECT_EQ(order(), (Names { "c", "b", "a" }));
    table->removeTableColumn(column(0));
    EXPECT_EQ(table->selectedColumnIndexes(), (NSIndexSet { 1 }));
}

TEST_F(TableColumns, HiddenOnesTakeNoRoomAndKeepTheirPlace)
{
    column(1).setHidden(true);
    EXPECT_EQ(table->rectOfColumn(2).x, 103);
    EXPECT_EQ(table->columnAtPoint({ 110, 4 }), 2);
    EXPECT_TRUE(table->frameOfCellAtColumn(1, 0).isEmpty());
    column(1).setHidden(false);
    EXPECT_EQ(table->rectOfColumn(2).x, 206);
    EXPECT_EQ(column(1).width(), 100);
}

TEST_F(TableColumns, AMenuOfTheHeaderHidesAndShowsColumns)
{
    auto const event = mouseEvent(NSRightMouseDown, header(), { 50, 10 });
    EXPECT_EQ(header().menuForEvent(*event), nullptr);
    header().setOffersColumnMenu(true);
    auto* menu = header().menuForEvent(*event);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->numberOfItems(), 3);
    EXPECT_EQ(menu->itemAtIndex(1)->title(), "Column b");
    menu->performActionForItemAtIndex(1);
    menu->performActionForItemAtIndex(2);
    EXPECT_TRUE(column(1).isHidden());
    menu = header().menuForEvent(*event);
    EXPECT_EQ(menu->itemAtIndex(0)->state(), NSOnState);
    EXPECT_EQ(menu->itemAtIndex(1)->state(), NSOffState);
    EXPECT_FALSE(menu->itemAtIndex(0)->isEnabled());
}

TEST_F(TableColumns, FillTheScrollViewWhereTheyAreSizedToFit)
{
    table->sizeToFit();
    EXPECT_EQ(widths(), (std::vector<float> { 100, 100, 191 }));
    table->setColumnAutoresizingStyle(NSTableViewUniformColumnAutoresizingStyle);
    column(2).setWidth(100);
    table->sizeToFit();
    EXPECT_EQ(widths(), (std::vector<float> { 131, 130, 130 }));
    table->sizeLastColumnToFit();
    EXPECT_EQ(table->rectOfColumn(2).maxX(), 400);
}

TEST_F(TableColumns, FollowTheWindowWhileTheyFillIt)
{
    table->sizeToFit();
    window->setContentSize({ 450, 222 });
    pump();
    EXPECT_EQ(widths(), (std::vector<float> { 100, 100, 241 }));
    EXPECT_EQ(table->frame().width, 450);
}

TEST_F(TableColumns, IndicatorsAreDrawnAtTheRightEnd)
{
    auto const image = make<NSImage>(Size { 8, 8 });
    table->setIndicatorImage(image, column(1));
    EXPECT_EQ(table->indicatorImageInTableColumn(column(1)), image.get());
    EXPECT_EQ(table->indicatorImageInTableColumn(column(0)), nullptr);
    auto& cell = dynamic_cast<NSTableHeaderCell&>(*column(1).headerCell());
    cell.setIndicatorImage(image);
    EXPECT_EQ(cell.indicatorRectForBounds({ 0, 0, 100, 22 }), (Rect { 89, 7, 8, 8 }));
    EXPECT_LE(cell.titleRectForBounds({ 0, 0, 100, 22 }).maxX(), 89);
    table->setIndicatorImage(nullptr, column(1));
    EXPECT_EQ(table->indicatorImageInTableColumn(column(1)), nullptr);
}

TEST_F(TableColumns, ADisabledTablesHeaderIgnoresClicks)
{
    table->setEnabled(false);
    click(header(), { 150, 10 });
    drag(header(), { 102, 10 }, { 142, 10 });
    EXPECT_EQ(host->log, Names {});
}

TEST_F(TableColumns, ManyAreRemovedOneByOne)
{
    for (int i = 0; i < 10000; ++i)
        addColumn("d" + std::to_string(i));
    EXPECT_EQ(table->rectOfColumn(10002).maxX(), 10003 * 103);
    while (table->numberOfColumns() > 1)
        table->removeTableColumn(column(1));
    pump();
    EXPECT_EQ(table->rectOfColumn(0), (Rect { 0, 0, 103, 200 }));
    EXPECT_EQ(table->frame().width, 400);
}

TEST_F(TableColumns, WidthsOrderAndHiddenOnesAreSavedUnderAName)
{
    NSUserDefaults::standardUserDefaults().removeObjectForKey("NSTableView Columns test");
    table->setAutosaveTableColumns(true);
    table->setAutosaveName("test");
    column(0).setWidth(77);
    column(1).setHidden(true);
    table->moveColumn(2, 0);

    auto const again = make<NSTableView>(Rect { 0, 0, 100, 100 });
    for (auto const* name : { "new", "a", "b", "c" })
        again->addTableColumn(*make<NSTableColumn>(name));
    again->setAutosaveName("test");
    EXPECT_EQ(again->columnWithIdentifier("a"), 1);
    again->setAutosaveTableColumns(true);
    EXPECT_EQ(again->columnWithIdentifier("c"), 0);
    EXPECT_EQ(again->columnWithIdentifier("a"), 1);
    EXPECT_EQ(again->columnWithIdentifier("new"), 3);
    EXPECT_EQ(again->tableColumnWithIdentifier("a")->width(), 77);
    EXPECT_TRUE(again->tableColumnWithIdentifier("b")->isHidden());
}

TEST_F(TableColumns, DamagedSettingsAreIgnored)
{
    auto& defaults = NSUserDefaults::standardUserDefaults();
    defaults.setObject(ObjectValue::Array { 7, ObjectValue::Dictionary { { "Width", 5 } },
                           ObjectValue::Dictionary { { "Identifier", "b" }, { "Width", "wide" } },
                           ObjectValue::Dictionary { { "Identifier", "b" }, { "Width", -3 } } },
        "NSTableView Columns broken");
    table->setAutosaveTableColumns(true);
    table->setAutosaveName("broken");
    EXPECT_EQ(order(), (Names { "b", "a", "c" }));
    EXPECT_EQ(widths(), (std::vector<float> { 100, 100, 100 }));
}

}
}

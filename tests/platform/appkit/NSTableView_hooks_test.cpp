#include <tests/support/TableTest.h>
#include <tests/support/pixels.h>

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSComboBoxCell.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/appkit/event_constants.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>

namespace plix {
namespace {

using Names = std::vector<std::string>;

class TableHooks : public TableTest {
protected:
    void redraw()
    {
        table->setNeedsDisplay(true);
        pump();
    }
};

TEST_F(TableHooks, AskForVisibleRowsOnly)
{
    setRows(1000000);
    data->asked = 0;
    redraw();
    EXPECT_LE(data->asked, 12 * 3);
    EXPECT_GE(data->asked, 11 * 3);
}

TEST_F(TableHooks, ScrollingAsksForWhatComesIntoView)
{
    setRows(1000);
    data->asked = 0;
    scrollView->contentView()->scrollTo({ 0, pitch });
    pump();
    EXPECT_LE(data->asked, 2 * 3);
    EXPECT_GE(data->asked, 3);
}

TEST_F(TableHooks, RowsThatVanishWhileTheyAreDrawnEndTheFrame)
{
    setRows(100);
    data->onAsk = [&] {
        data->count = 2;
        table->noteNumberOfRowsChanged();
    };
    redraw();
    EXPECT_EQ(table->numberOfRows(), 2);
    EXPECT_LE(data->lastAsked, 2);
}

TEST_F(TableHooks, ReloadingWhileDrawingDrawsOn)
{
    data->onAsk = [&] { table->reloadData(); };
    redraw();
    data->onAsk = nullptr;
    redraw();
    EXPECT_EQ(data->lastAsked, 4);
}

TEST_F(TableHooks, ColumnsThatAreRemovedWhileDrawingAreNotAskedFor)
{
    data->onAsk = [&] {
        while (table->numberOfColumns() > 0)
            table->removeTableColumn(column(0));
    };
    data->asked = 0;
    redraw();
    EXPECT_EQ(data->asked, 1);
    EXPECT_EQ(table->numberOfColumns(), 0);
}

TEST_F(TableHooks, TheWindowMayBeClosedWhileItIsDrawn)
{
    data->onAsk = [&] { window->close(); };
    redraw();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(TableHooks, TheTableMayBeLetGoWhileItIsDrawn)
{
    Weak<NSTableView> const watched(*table);
    data->onAsk = [&] {
        scrollView->setDocumentView(nullptr);
        table = nullptr;
    };
    table->setNeedsDisplay(true);
    pump();
    EXPECT_EQ(watched.get(), nullptr);
}

TEST_F(TableHooks, TheTableMayBeLetGoWhileItFollowsTheMouse)
{
    Weak<NSTableView> const watched(*table);
    auto const from = onScreen(*table, rowPoint(1));
    auto const to = onScreen(*table, rowPoint(3));
    person().press(from);
    person().then([&] {
        scrollView->setDocumentView(nullptr);
        table = nullptr;
    });
    person().dragTo(to);
    person().release(to);
    pump();
    EXPECT_EQ(watched.get(), nullptr);
}

TEST_F(TableHooks, TheWindowMayBeClosedWhileAHeaderIsPressed)
{
    auto const at = onScreen(*table->headerView(), { 50, 10 });
    person().press(at);
    person().then([&] { window->close(); });
    person().release(at);
    pump();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(TableHooks, TheDataSourceMayGoAway)
{
    data = nullptr;
    redraw();
    table->reloadData();
    EXPECT_EQ(table->numberOfRows(), 0);
    EXPECT_EQ(table->dataSource(), nullptr);
}

TEST_F(TableHooks, ADelegateMayReloadWhenTheSelectionChanges)
{
    NSTableViewDelegate hooks;
    hooks.tableViewSelectionDidChange = [&](NSNotification const&) {
        data->rows.resize(1);
        table->reloadData();
    };
    table->setDelegateHooks(std::move(hooks));
    clickRow(3);
    EXPECT_EQ(table->numberOfRows(), 1);
    EXPECT_EQ(selected(), std::vector<long> {});
}

struct BadValue {
    char const* what;
    ObjectValue value;
};

TEST_F(TableHooks, ValuesOfAnyKindAreDrawn)
{
    std::string const long1(1 << 20, 'x');
    for (auto const& bad : { BadValue { "nil", {} }, BadValue { "number", 3.5 }, BadValue { "array", ObjectValue::Array { 1, 2 } },
             BadValue { "dictionary", ObjectValue::Dictionary { { "a", 1 } } }, BadValue { "image", make<NSImage>(Size { 4, 4 }) },
             BadValue { "broken text", "\xff\xfe\xc0" }, BadValue { "lines", "a\nb\r\nc" }, BadValue { "a megabyte", long1 },
             BadValue { "empty", "" } }) {
        data->rows = { { bad.value, bad.value, bad.value }, { "after", "after", "after" } };
        table->reloadData();
        redraw();
        EXPECT_EQ(data->lastAsked, 1) << bad.what;
    }
}

TEST_F(TableHooks, RowHeightsThatAreNoneAreRefused)
{
    for (float const height : { 0.F, -5.F, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity() }) {
        table->setRowHeight(height);
        EXPECT_EQ(table->rowHeight(), 16);
    }
    table->setIntercellSpacing({ -1, 2 });
    table->setIntercellSpacing({ 3, std::numeric_limits<float>::quiet_NaN() });
    EXPECT_EQ(table->intercellSpacing(), (Size { 3, 2 }));
    table->setRowHeight(0.01F);
    redraw();
    table->setRowHeight(40);
    EXPECT_EQ(table->rectOfRow(1), (Rect { 0, 42, 385, 42 }));
}

TEST_F(TableHooks, ACountThatIsNoneIsEmpty)
{
    NSTableViewDataSource hooks;
    hooks.numberOfRowsInTableView = [](NSTableView&) { return -7L; };
    table->setDataSourceHooks(std::move(hooks));
    redraw();
    EXPECT_EQ(table->numberOfRows(), 0);
    EXPECT_EQ(table->rowAtPoint({ 5, 5 }), -1);
}

TEST_F(TableHooks, CellsAreToldBeforeTheyAreDrawn)
{
    Names seen;
    NSTableViewDelegate hooks;
    hooks.willDisplayCell = [&](NSTableView&, NSCell& cell, NSTableColumn&, long row) {
        if (row == 1)
            seen.push_back(cell.stringValue());
    };
    table->setDelegateHooks(std::move(hooks));
    redraw();
    EXPECT_EQ(seen, (Names { "Beta", "Beta b", "7" }));
}

TEST_F(TableHooks, AButtonCellIsClickedWithoutSelecting)
{
    auto const box = make<NSButtonCell>("");
    box->setButtonType(NSSwitchButton);
    column(2).setDataCell(box);
    data->rows[1][2] = 0;
    redraw();
    click(*table, cellPoint(2, 1));
    EXPECT_EQ(data->taken, (Names { "c1=1" }));
    EXPECT_EQ(selected(), std::vector<long> {});
    column(2).setEditable(false);
    click(*table, cellPoint(2, 1));
    EXPECT_EQ(data->taken.size(), 1U);
    EXPECT_EQ(selected(), (std::vector<long> { 1 }));
}

TEST_F(TableHooks, AButtonCellIsSeenWhileItIsPressed)
{
    auto const box = make<NSButtonCell>("");
    box->setButtonType(NSSwitchButton);
    column(2).setDataCell(box);
    data->rows[1][2] = 0;
    redraw();
    auto const frame = table->frameOfCellAtColumn(2, 1);
    PixelRect const place { static_cast<int>(frame.x), 22 + static_cast<int>(frame.y), 18, static_cast<int>(frame.height) };
    auto const inkWhile = [&] { return hasInk(window->snapshot(), place, NSColor::controlBackgroundColor()->components()); };
    ASSERT_TRUE(inkWhile());
    bool isSeen = false;
    person().press(onScreen(*table, cellPoint(2, 1)));
    person().dragTo(onScreen(*table, cellPoint(2, 1)));
    person().then([&] { isSeen = inkWhile(); });
    person().release(onScreen(*table, cellPoint(2, 1)));
    pump();
    EXPECT_TRUE(isSeen);
    EXPECT_EQ(data->taken, (Names { "c1=1" }));
}

TEST_F(TableHooks, AComboBoxCellOpensItsListWithoutSelecting)
{
    auto const combo = make<NSComboBoxCell>("");
    combo->addItemsWithObjectValues({ "one", "two" });
    column(2).setDataCell(combo);
    redraw();
    auto const frame = table->frameOfCellAtColumn(2, 1);
    auto const button = combo->buttonRectForBounds(frame);
    Point const onButton = onScreen(*table, { button.midX(), button.midY() });
    person().click(onButton);
    person().key(NSEscapeCharacter);
    pump();
    EXPECT_EQ(data->taken, Names {});
    person().click(onButton);
    person().then([&] { table->reloadData(); });
    person().key(NSDownArrowFunctionKey);
    person().key(NSDownArrowFunctionKey);
    person().key(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(data->taken, (Names { "c1=two" }));
    EXPECT_EQ(selected(), std::vector<long> {});
    click(*table, { frame.x + 5, frame.midY() });
    EXPECT_EQ(selected(), (std::vector<long> { 1 }));
}

TEST_F(TableHooks, SelectedRowsAreFilledAndTheirTextStandsOut)
{
    clickRow(1);
    auto const active = NSColor::alternateSelectedControlColor()->components();
    EXPECT_GT(countPixels(window->snapshot(), { 0, 22 + 18, 400, 18 }, active), 5000);
    person().focusNothing();
    pump();
    EXPECT_EQ(countPixels(window->snapshot(), { 0, 22 + 18, 400, 18 }, active), 0);
}

TEST_F(TableHooks, StripesAndGridLinesAreDrawn)
{
    table->setUsesAlternatingRowBackgroundColors(true);
    table->setGridStyleMask(NSTableViewSolidVerticalGridLineMask | NSTableViewSolidHorizontalGridLineMask);
    table->setGridColor(NSColor::redColor());
    pump();
    auto const image = window->snapshot();
    auto const stripes = NSColor::controlAlternatingRowBackgroundColors();
    EXPECT_TRUE(pixelNear(image, 350, 22 + 8, stripes[0]->components()));
    EXPECT_TRUE(pixelNear(image, 350, 22 + 18 + 8, stripes[1]->components()));
    EXPECT_TRUE(pixelNear(image, 350, 22 + 150, stripes[(150 / 18) % 2 == 0 ? 0 : 1]->components()));
    EXPECT_TRUE(pixelNear(image, 350, 22 + 17, NSColor::redColor()->components()));
    EXPECT_TRUE(pixelNear(image, 102, 22 + 8, NSColor::redColor()->components()));
}

TEST_F(TableHooks, CellsAndHeadersHaveToolTips)
{
    NSTableViewDelegate hooks;
    Names asked;
    hooks.toolTipForCell = [&](NSTableView&, NSCell& cell, Rect& rect, NSTableColumn& tipped, long row, Point) {
        asked.push_back(tipped.identifier().description() + std::to_string(row) + " " + cell.stringValue());
        EXPECT_EQ(rect, table->frameOfCellAtColumn(1, 2));
        return std::string("tip");
    };
    table->setDelegateHooks(std::move(hooks));
    column(0).setHeaderToolTip("header tip");
    pump();
    auto const shown = [&] {
        pass(3);
        return std::ranges::count_if(app().windows(), [](auto const& each) { return each->isVisible(); });
    };
    auto const before = shown();
    moveMouse(*table, cellPoint(1, 2));
    EXPECT_EQ(shown(), before + 1);
    EXPECT_EQ(asked.front(), "b2 Gamma b");
    moveMouse(*table->headerView(), { 50, 10 });
    EXPECT_EQ(shown(), before + 1);
    moveMouse(*table->headerView(), { 150, 10 });
    EXPECT_EQ(shown(), before);
}

TEST_F(TableHooks, ReturnAndEscapeGoToTheWindowsButtonsWhereTheTableHasNoUseForThem)
{
    Names pressed;
    auto const addButton = [&](char const* name, char const* keyEquivalent) {
        auto const button = make<NSButton>(Rect { 300, 0, 80, 24 });
        button->setKeyEquivalent(keyEquivalent);
        button->setActionFunction([&pressed, name](NSObject*) { pressed.emplace_back(name); });
        scrollView->addSubview(*button);
    };
    addButton("ok", "\r");
    addButton("cancel", "\x1b");
    table->setDelegateHooks({});
    for (auto const& each : table->tableColumns())
        each->setEditable(false);
    key(NSEscapeCharacter);
    key(NSCarriageReturnCharacter);
    EXPECT_EQ(pressed, (Names { "cancel", "ok" }));
}

// MARK: very many rows

class LongTables : public TableTest {
protected:
    static constexpr long count = 10000000;
    void SetUp() override
    {
        TableTest::SetUp();
        setRows(count);
    }
    long firstSeen() const { return table->rowsInRect(table->visibleRect()).location; }
    NSScroller& scroller() { return *scrollView->verticalScroller(); }
};

TEST_F(LongTables, TheWheelMovesByWholeStepsEverywhere)
{
    for (long const row : { 0L, 5000000L, 9999000L }) {
        table->scrollDocumentTo(static_cast<double>(row) * 18);
        pump();
        EXPECT_EQ(firstSeen(), row);
        scroll(*scrollView, 0, -1);
        auto const place = table->documentOffset() + static_cast<double>(scrolled());
        EXPECT_EQ(place, static_cast<double>(row) * 18 + 10);
    }
}

TEST_F(LongTables, ScrollingRowByRowMeetsAllRows)
{
    table->scrollRowToVisible(300000);
    pump();
    std::vector<long> seen;
    long differences = 0;
    for (long row = firstSeen(); row < 300020; ++row) {
        scrollView->contentView()->scrollTo({ 0, scrolled() + 18 });
        differences += firstSeen() != row + 1;
    }
    EXPECT_EQ(differences, 0);
}

TEST_F(LongTables, TheStretchMovesAlongUnseen)
{
    bool hasMoved = false;
    auto const before = table->documentOffset();
    for (int i = 0; i < 3000 && !hasMoved; ++i) {
        scrollView->contentView()->scrollTo({ 0, scrolled() + 3000 });
        hasMoved = table->documentOffset() != before;
        auto const place = table->documentOffset() + static_cast<double>(scrolled());
        ASSERT_EQ(place, 3000.0 * (i + 1));
    }
    EXPECT_TRUE(hasMoved);
}

TEST_F(LongTables, AnEditorStaysInItsCellWhenTheStretchMoves)
{
    table->scrollRowToVisible(150000);
    table->editColumn(0, 150000, nullptr, true);
    auto const before = table->documentOffset();
    scrollView->contentView()->scrollTo({ 0, scrolled() + 1000000 });
    ASSERT_NE(table->documentOffset(), before);
    auto const frame = table->frameOfCellAtColumn(0, 150000);
    ASSERT_TRUE(table->currentEditor());
    EXPECT_EQ(table->currentEditor()->superview()->frame().y, frame.y);
}

TEST_F(LongTables, KeysReachBothEnds)
{
    key(NSEndFunctionKey);
    EXPECT_EQ(table->selectedRow(), count - 1);
    EXPECT_TRUE(NSContainsRect(table->visibleRect(), table->rectOfRow(count - 1)));
    EXPECT_FLOAT_EQ(scroller().floatValue(), 1);
    key(NSUpArrowFunctionKey);
    EXPECT_EQ(table->selectedRow(), count - 2);
    key(NSHomeFunctionKey);
    EXPECT_EQ(firstSeen(), 0);
    EXPECT_EQ(scroller().floatValue(), 0);
}

TEST_F(LongTables, ClicksFindTheRowsThatAreSeen)
{
    table->scrollRowToVisible(7654321);
    pump();
    clickRow(7654321);
    EXPECT_EQ(table->selectedRow(), 7654321);
    EXPECT_EQ(data->lastAsked > 7000000, true);
}

TEST_F(LongTables, TheScrollerShowsThePlaceInTheWhole)
{
    table->scrollDocumentTo(table->documentLength() / 4);
    EXPECT_NEAR(scroller().floatValue(), 0.25F, 1e-4F);
    scrollView->scrollToEndOfDocument(nullptr);
    EXPECT_EQ(firstSeen() + table->rowsInRect(table->visibleRect()).length, count);
}

TEST_F(LongTables, FewerRowsBringTheEndIntoView)
{
    table->scrollRowToVisible(count - 1);
    setRows(50);
    EXPECT_EQ(table->documentOffset(), 0);
    EXPECT_EQ(scrolled(), 50 * 18 - 200);
}

TEST_F(LongTables, ReloadingKeepsThePlace)
{
    table->scrollRowToVisible(6000000);
    auto const place = table->documentOffset() + static_cast<double>(scrolled());
    table->reloadData();
    pump();
    EXPECT_EQ(table->documentOffset() + static_cast<double>(scrolled()), place);
}

}
}

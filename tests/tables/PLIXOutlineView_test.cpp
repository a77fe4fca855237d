#include <tests/tables/OutlineFixture.h>

#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/NSText.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/tables/PLIXNSTableHeaderView.h>
#include <plix/tables/outline_view_additions.h>
#include <plix/tables/table_column_additions.h>
#include <plix/tables/table_view_additions.h>

#include <gmock/gmock.h>

#include <cmath>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PLIXOutlineViewTest : public OutlineTest { };

class Listener : public NSObject {
public:
    void returnKey(NSOutlineView& outline, NSOutlineView& sender) { note("return", outline, sender); }
    void deleteBackward(NSOutlineView& outline, NSOutlineView& sender) { note("delete", outline, sender); }
    void outlineViewSelectionIsChanging(NSNotification const& notification)
    {
        calls.push_back(notification.name);
        object = notification.object.get();
    }
    bool shouldShowIndentationMarkerForItem(NSOutlineView&, NSObject* asked)
    {
        askedItem = asked;
        return showsMarker;
    }

    Strings calls;
    NSObject* object { nullptr };
    NSObject* askedItem { nullptr };
    bool showsMarker { true };

private:
    void note(char const* what, NSOutlineView& outline, NSOutlineView& sender)
    {
        calls.push_back(&outline == &sender ? what : "somebody else");
        object = &outline;
    }
};

// MARK: life

TEST_F(PLIXOutlineViewTest, BeginsWithItsDefaults)
{
    for (auto const& fresh : { make<PLIXOutlineView>(), make<PLIXOutlineView>(Rect { 0, 0, 100, 100 }) }) {
        EXPECT_FALSE(fresh->shouldCollapseAutoExpandedItemsForDeposited(true));
        EXPECT_TRUE(fresh->shouldCollapseAutoExpandedItemsForDeposited(false));
        EXPECT_TRUE(fresh->showsIndentationMarker());
        EXPECT_TRUE(fresh->highlightFollowsIndentation());
        EXPECT_EQ(fresh->highlightStyle(), 0U);
        EXPECT_EQ(fresh->inDragPrep(), 0);
        EXPECT_EQ(fresh->lastHighlightGradientRowHeight(), -1);
        EXPECT_THAT(fresh->hiddenTableColumns(), IsEmpty());
    }
    EXPECT_TRUE(dynamic_cast<PLIXNSTableHeaderView*>(outline->headerView()));
    EXPECT_FALSE(dynamic_cast<PLIXNSTableHeaderView*>(make<PLIXOutlineView>()->headerView()));
}

/// Has none of the class's values, as an interface file has not.
class EmptyCoder final : public NSCoder {
public:
    void encodeObject(ObjectValue const&) override { }
    ObjectValue decodeObject() override { return {}; }
    void encodeObject(ObjectValue const&, std::string_view) override { }
    ObjectValue decodeObjectForKey(std::string_view) override { return {}; }
    bool containsValueForKey(std::string_view) const override { return false; }
};

TEST_F(PLIXOutlineViewTest, ReadFromAnInterfaceFileItCollapsesAfterDeposits)
{
    EmptyCoder empty;
    NSCoder& coder = empty;
    auto const read = make<PLIXOutlineView>(coder);
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->shouldCollapseAutoExpandedItemsForDeposited(true));
    EXPECT_TRUE(read->shouldCollapseAutoExpandedItemsForDeposited(false));
    EXPECT_TRUE(read->showsIndentationMarker());
    EXPECT_TRUE(read->highlightFollowsIndentation());
    EXPECT_TRUE(dynamic_cast<PLIXNSTableHeaderView*>(read->headerView()));
}

TEST_F(PLIXOutlineViewTest, IsReadFromAnArchiveAsItWas)
{
    outline->setHighlightStyle(PLIXHighlightCapsule);
    outline->setShowsIndentationMarker(false);
    outline->setHighlightFollowsIndentation(false);
    outline->setShouldCollapseAutoExpandedItemsForDeposits(false);
    outline->setShouldCollapseAutoExpandedItemsForFailedDeposits(false);
    outline->hideColumnWithIdentifier("c");
    auto const data = NSArchiver::archivedDataWithRootObject(outline);
    auto const read = NSUnarchiver::unarchiveObjectWithData(*data)->as<PLIXOutlineView>();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->highlightStyle(), PLIXHighlightCapsule);
    EXPECT_FALSE(read->showsIndentationMarker());
    EXPECT_FALSE(read->highlightFollowsIndentation());
    EXPECT_FALSE(read->shouldCollapseAutoExpandedItemsForDeposited(true));
    EXPECT_FALSE(read->shouldCollapseAutoExpandedItemsForDeposited(false));
    EXPECT_THAT(identifiers(read->tableColumns()), ElementsAre("a", "b"));
    EXPECT_THAT(identifiers(read->hiddenTableColumns()), ElementsAre("c"));
}

TEST_F(PLIXOutlineViewTest, StoresItsAnswersAboutDeposits)
{
    for (bool const deposits : { true, false }) {
        for (bool const failures : { true, false }) {
            outline->setShouldCollapseAutoExpandedItemsForDeposits(deposits);
            outline->setShouldCollapseAutoExpandedItemsForFailedDeposits(failures);
            EXPECT_EQ(outline->shouldCollapseAutoExpandedItemsForDeposited(true), deposits);
            EXPECT_EQ(outline->shouldCollapseAutoExpandedItemsForDeposited(false), failures);
        }
    }
}

TEST_F(PLIXOutlineViewTest, StoresItsLooksWithoutRedisplay)
{
    ASSERT_FALSE(outline->needsDisplay());
    outline->setShowsIndentationMarker(false);
    outline->setHighlightFollowsIndentation(false);
    outline->setHighlightStyle(2);
    EXPECT_FALSE(outline->needsDisplay());
}

TEST_F(PLIXOutlineViewTest, MakesItsGradientAnewWhenTheApplicationBecomesActive)
{
    auto const first = outline->highlightGradientImage();
    EXPECT_EQ(outline->highlightGradientImage(), first);
    NSNotificationCenter::defaultCenter().postNotificationName("NSApplicationDidBecomeActiveNotification", Ref<NSObject>(&app()));
    EXPECT_NE(outline->highlightGradientImage(), first);
}

TEST_F(PLIXOutlineViewTest, LaysOutAndLogs)
{
    Strings lines;
    auto const size = outline->frame().size();
    outline->NSView::setFrameSize({ 10, 10 });
    auto const before = installLogSink([&](std::string_view line) { lines.emplace_back(line); });
    outline->tile2();
    installLogSink(before);
    char expected[64];
    std::snprintf(expected, sizeof expected, "numberOfRows:  6 (%x)",
        static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(outline.get()) & 0xFFFFFFFFU));
    EXPECT_THAT(lines, ElementsAre(expected));
    EXPECT_EQ(outline->frame().size(), size);
}

TEST_F(PLIXOutlineViewTest, ZappingClearsThePlatformsMarker)
{
    EXPECT_TRUE(outline->drawsIndentationMarkers());
    zapIndentationMarker(*outline);
    EXPECT_FALSE(outline->drawsIndentationMarkers());
    EXPECT_TRUE(outline->showsIndentationMarker());
}

// MARK: hidden columns

TEST_F(PLIXOutlineViewTest, HidingTheOutlineColumnGivesItsPartToAnother)
{
    auto const columns = outline->tableColumns();
    outline->hideColumn(0);
    EXPECT_EQ(outline->outlineTableColumn(), columns[1].get());
    EXPECT_THAT(identifiers(outline->tableColumns()), ElementsAre("b", "c"));
    outline->setOutlineTableColumn(columns[2].get());
    outline->hideColumn(1);
    EXPECT_EQ(outline->outlineTableColumn(), columns[1].get());
    EXPECT_THAT(identifiers(outline->hiddenTableColumns()), ElementsAre("a", "c"));
}

TEST_F(PLIXOutlineViewTest, HidingAnotherColumnLeavesTheOutlineColumn)
{
    auto const columns = outline->tableColumns();
    outline->hideColumnWithIdentifier("b");
    EXPECT_EQ(outline->outlineTableColumn(), columns[0].get());
}

TEST_F(PLIXOutlineViewTest, TheOnlyColumnIsNotHidden)
{
    outline->hideColumn(2);
    outline->hideColumn(1);
    outline->hideColumn(0);
    EXPECT_THAT(identifiers(outline->tableColumns()), ElementsAre("a"));
    for (long const column : { -1L, 1L, 99L })
        outline->hideColumn(column);
    EXPECT_THAT(identifiers(outline->tableColumns()), ElementsAre("a"));
    outline->showColumnWithIdentifier("b");
    EXPECT_THAT(identifiers(outline->tableColumns()), ElementsAre("a", "b"));
    EXPECT_EQ(outline->hiddenTableColumnWithIdentifier("b"), nullptr);
    EXPECT_NE(outline->hiddenTableColumnWithIdentifier("c"), nullptr);
}

// MARK: keys

TEST_F(PLIXOutlineViewTest, ReturnEnterAndBackspaceAreTheDelegates)
{
    auto const listener = make<Listener>();
    outline->setDelegate(listener);
    window->makeFirstResponder(outline.get());
    for (char32_t const character : { U'\r', U'\x03', U'\b', U'\x7F' })
        key(character);
    outline->doCommandBySelector(Selector("deleteBackward:"));
    EXPECT_THAT(listener->calls, ElementsAre("return", "return", "delete", "delete", "delete"));
    EXPECT_EQ(listener->object, outline.get());
}

TEST_F(PLIXOutlineViewTest, ArrowKeysTellThatTheSelectionIsChangingUnderTheTablesName)
{
    auto const listener = make<Listener>();
    outline->setDelegate(listener);
    outline->selectRow(4, false);
    window->makeFirstResponder(outline.get());
    listener->calls.clear();
    key(NSDownArrowFunctionKey);
    EXPECT_EQ(outline->selectedRow(), 5);
    EXPECT_THAT(listener->calls, ElementsAre("NSTableViewSelectionIsChangingNotification"));
    EXPECT_EQ(listener->object, outline.get());
    key(NSDownArrowFunctionKey);
    EXPECT_EQ(listener->calls.size(), 1U);
}

TEST_F(PLIXOutlineViewTest, ArrowsSidewaysExpandAndCollapse)
{
    window->makeFirstResponder(outline.get());
    outline->selectRow(4, false);
    key(NSRightArrowFunctionKey);
    EXPECT_EQ(outline->numberOfRows(), 7);
    key(NSLeftArrowFunctionKey);
    EXPECT_EQ(outline->numberOfRows(), 6);
}

// MARK: the mouse

TEST_F(PLIXOutlineViewTest, AClickOnTheMarkerExpands)
{
    auto const frame = outline->frameOfOutlineCellAtRow(4);
    click(*outline, { frame.midX(), frame.midY() });
    EXPECT_EQ(outline->numberOfRows(), 7);
    EXPECT_EQ(outline->selectedRow(), -1);
}

TEST_F(PLIXOutlineViewTest, WithoutMarkersAClickThereLandsOnTheRow)
{
    auto const frame = outline->frameOfOutlineCellAtRow(4);
    outline->setShowsIndentationMarker(false);
    click(*outline, { frame.midX(), frame.midY() });
    EXPECT_EQ(outline->numberOfRows(), 6);
    EXPECT_EQ(outline->selectedRow(), 4);
}

TEST_F(PLIXOutlineViewTest, TheDelegateDecidesAboutTheMarkerFirst)
{
    auto const listener = make<Listener>();
    listener->showsMarker = false;
    outline->setDelegate(listener);
    auto const frame = outline->frameOfOutlineCellAtRow(4);
    click(*outline, { frame.midX(), frame.midY() });
    EXPECT_EQ(outline->numberOfRows(), 6);
    EXPECT_EQ(listener->askedItem, item(4));
    outline->setShowsIndentationMarker(false);
    listener->showsMarker = true;
    click(*outline, { frame.midX(), frame.midY() });
    EXPECT_EQ(outline->numberOfRows(), 7);
}

TEST_F(PLIXOutlineViewTest, AClickBelowTheRowsIsNotMoved)
{
    outline->setShowsIndentationMarker(false);
    outline->selectRow(2, false);
    click(*outline, { 5, 150 });
    EXPECT_EQ(outline->selectedRow(), -1);
}

TEST_F(PLIXOutlineViewTest, ARightClickSelectsTheRowUnlessItIsSelected)
{
    auto const rightClick
        = [&](long row) { outline->rightMouseDown(*mouseEvent(NSRightMouseDown, *outline, middleOf(*outline, 0, row))); };
    outline->selectRowIndexes({ 0, 1 }, false);
    rightClick(1);
    EXPECT_EQ(outline->selectedRowIndexes(), (NSIndexSet { 0, 1 }));
    rightClick(3);
    EXPECT_EQ(outline->selectedRowIndexes(), (NSIndexSet { 3 }));
    outline->rightMouseDown(*mouseEvent(NSRightMouseDown, *outline, { 20, 150 }));
    EXPECT_EQ(outline->selectedRowIndexes(), (NSIndexSet { 3 }));
}

TEST_F(PLIXOutlineViewTest, KnowsWhenADragIsPrepared)
{
    auto const press = mouseEvent(NSLeftMouseDown, *outline, { 5, 5 });
    Point offset;
    outline->dragImageForRowsWithIndexes({ 1 }, outline->tableColumns(), *press, offset);
    EXPECT_EQ(outline->inDragPrep(), 1);
    outline->draggedImageBeganAt(nullptr, {});
    EXPECT_EQ(outline->inDragPrep(), 0);
}

// MARK: editing

TEST_F(PLIXOutlineViewTest, TheEditorShowsTheHighlightBehindIt)
{
    auto* editor = dynamic_cast<NSText*>(window->fieldEditor(true, outline.get()));
    ASSERT_TRUE(editor);
    editor->setDrawsBackground(true);
    outline->tableColumns()[0]->dataCell()->setEditable(true);
    window->makeFirstResponder(outline.get());
    outline->selectRow(1, false);
    outline->editColumn(0, 1, nullptr, true);
    EXPECT_EQ(outline->editedRow(), 1);
    EXPECT_FALSE(editor->drawsBackground());
}

// MARK: disabling

class DisabledOutline : public OutlineTest {
protected:
    NSTextFieldCell& cell(std::size_t column = 0)
    {
        return *static_cast<NSTextFieldCell*>(outline->tableColumns()[column]->dataCell());
    }
};

TEST_F(DisabledOutline, IsGrayAndKeepsItsColors)
{
    auto const red = NSColor::redColor();
    auto const yellow = NSColor::yellowColor();
    cell(0).setTextColor(red);
    cell(1).setBackgroundColor(yellow);
    auto* const text = cell(1).textColor();
    outline->setEnabled(false);
    for (std::size_t column = 0; column < 3; ++column) {
        EXPECT_EQ(cell(column).textColor()->components(), (ColorComponents { 0.5F, 0.5F, 0.5F, 1 }));
        EXPECT_EQ(cell(column).backgroundColor()->components(), (ColorComponents { 0.94F, 0.94F, 0.94F, 1 }));
    }
    outline->setEnabled(true);
    EXPECT_EQ(cell(0).textColor(), red.get());
    EXPECT_EQ(cell(1).backgroundColor(), yellow.get());
    EXPECT_EQ(cell(1).textColor(), text);
}

TEST_F(DisabledOutline, ColorsSetMeanwhileAreForgotten)
{
    auto const red = NSColor::redColor();
    cell().setTextColor(red);
    outline->setEnabled(false);
    cell().setTextColor(NSColor::blueColor());
    outline->setEnabled(false);
    outline->setEnabled(true);
    EXPECT_EQ(cell().textColor(), red.get());
}

TEST_F(DisabledOutline, ColumnsThatCameMeanwhileStayAsTheyAre)
{
    outline->setEnabled(false);
    auto const late = addColumn(*outline, "late", 50);
    auto* const color = static_cast<NSTextFieldCell*>(late->dataCell())->textColor();
    outline->setEnabled(true);
    EXPECT_EQ(static_cast<NSTextFieldCell*>(late->dataCell())->textColor(), color);
}

TEST_F(DisabledOutline, OtherCellsAreSkipped)
{
    auto const red = NSColor::redColor();
    cell(2).setTextColor(red);
    outline->tableColumns()[1]->setDataCell(make<NSCell>("plain"));
    outline->setEnabled(false);
    EXPECT_EQ(cell(2).textColor()->components(), (ColorComponents { 0.5F, 0.5F, 0.5F, 1 }));
    outline->setEnabled(true);
    EXPECT_EQ(cell(2).textColor(), red.get());
}

TEST_F(DisabledOutline, DisablesTheScrollersAndBringsThemBack)
{
    scrollView->setHasHorizontalScroller(true);
    pump();
    struct Row {
        bool vertical;
        bool horizontal;
    };
    for (auto const& row : { Row { true, false }, Row { false, true }, Row { true, true } }) {
        scrollView->verticalScroller()->setEnabled(row.vertical);
        scrollView->horizontalScroller()->setEnabled(row.horizontal);
        outline->setEnabled(false);
        EXPECT_FALSE(scrollView->verticalScroller()->isEnabled());
        EXPECT_FALSE(scrollView->horizontalScroller()->isEnabled());
        outline->setEnabled(true);
        EXPECT_EQ(scrollView->verticalScroller()->isEnabled(), row.vertical);
        EXPECT_EQ(scrollView->horizontalScroller()->isEnabled(), row.horizontal);
    }
}

TEST_F(DisabledOutline, WorksWithoutAScrollView)
{
    auto const alone = make<PLIXOutlineView>(Rect { 0, 0, 100, 100 });
    addColumn(*alone, "a", 50);
    alone->setEnabled(false);
    alone->setEnabled(true);
    EXPECT_TRUE(alone->isEnabled());
}

TEST_F(DisabledOutline, TakesNeitherClicksNorTheKeyboard)
{
    EXPECT_TRUE(outline->acceptsFirstResponder());
    outline->setEnabled(false);
    EXPECT_FALSE(outline->acceptsFirstResponder());
    window->makeFirstResponder(nullptr);
    click(*outline, middleOf(*outline, 0, 2));
    EXPECT_EQ(outline->selectedRow(), -1);
    auto const frame = outline->frameOfOutlineCellAtRow(4);
    click(*outline, { frame.midX(), frame.midY() });
    EXPECT_EQ(outline->numberOfRows(), 6);
}

TEST_F(DisabledOutline, SavingTheStateAgainReplacesIt)
{
    cell().setTextColor(NSColor::redColor());
    outline->saveState();
    auto const blue = NSColor::blueColor();
    cell().setTextColor(blue);
    outline->saveState();
    outline->setEnabled(false);
    outline->setEnabled(true);
    EXPECT_EQ(cell().textColor(), blue.get());
}

// MARK: widths

TEST_F(PLIXOutlineViewTest, WidthsAskWithTheIndentationAndAddRoomForTheMarker)
{
    auto& column = *outline->tableColumns()[0];
    float widest = column.minWidth();
    for (long row = 0; row < outline->numberOfRows(); ++row) {
        auto const cell = Ref(column.dataCell())->copy();
        cell->setObjectValue(tree->objectValueForTableColumn(*outline, column, item(row)));
        float const width = cell->cellSize().width;
        if (widest < 14 * static_cast<float>(outline->levelForRow(row)) + width)
            widest = width;
    }
    EXPECT_EQ(dataWidth(column), std::trunc(static_cast<float>(static_cast<double>(widest) * 1.1) + 16.0F) + 4);
    auto& other = *outline->tableColumns()[1];
    outline->setOutlineTableColumn(&other);
    EXPECT_EQ(dataWidth(column), std::trunc(static_cast<double>(widest) * 1.1) + 4);
}

TEST_F(PLIXOutlineViewTest, ADoubleClickOnADividerFitsTheColumn)
{
    auto& header = *outline->headerView();
    auto const edge = dynamic_cast<PLIXNSTableHeaderView&>(header).headerRectOfColumn(0).maxX();
    click(header, { edge, header.bounds().midY() }, { .count = 2 });
    EXPECT_EQ(outline->tableColumns()[0]->width(), dataWidth(*outline->tableColumns()[0]));
}

// MARK: colours

TEST_F(PLIXOutlineViewTest, HasTheTablesSelectionColors)
{
    window->makeFirstResponder(outline.get());
    EXPECT_TRUE(selectionShouldDrawGradient(*outline));
    window->makeFirstResponder(nullptr);
    EXPECT_FALSE(selectionShouldDrawGradient(*outline));
    EXPECT_EQ(selectionColor(*outline)->components(), (ColorComponents { 0.7F, 0.7F, 0.7F, 1 }));
}

}
}

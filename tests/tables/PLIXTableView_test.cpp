#include <tests/support/StyledTableTest.h>

#include <plix/platform/appkit/MenuTracker.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/tables/PLIXNSTableHeaderView.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PLIXTableViewTest : public StyledTableTest { };

/// Notes which hooks were called.
class Listener : public NSObject {
public:
    void returnKey(NSTableView& table, NSTableView& sender) { note("return", table, sender); }
    void deleteBackward(NSTableView& table, NSTableView& sender) { note("delete", table, sender); }
    void tableViewSelectionIsChanging(NSNotification const& notification)
    {
        calls.push_back(notification.name);
        object = notification.object.get();
    }

    Strings calls;
    NSObject* object { nullptr };

private:
    void note(char const* what, NSTableView& table, NSTableView& sender)
    {
        calls.push_back(&table == &sender ? what : "somebody else");
        object = &table;
    }
};

// MARK: life

TEST_F(PLIXTableViewTest, BeginsWithNothingHiddenAndPlainHighlights)
{
    for (auto const& fresh : { make<PLIXTableView>(), make<PLIXTableView>(Rect { 0, 0, 100, 100 }) }) {
        EXPECT_EQ(fresh->inDragPrep(), 0);
        EXPECT_EQ(fresh->lastHighlightGradientRowHeight(), -1);
        EXPECT_EQ(fresh->highlightStyle(), 0U);
        EXPECT_THAT(fresh->hiddenTableColumns(), IsEmpty());
        EXPECT_EQ(fresh->emptyString(), std::nullopt);
        EXPECT_EQ(fresh->emptyAttributedString(), nullptr);
    }
}

TEST_F(PLIXTableViewTest, BringsAHeaderOfItsOwnWhenMadeWithAFrame)
{
    auto const* header = dynamic_cast<PLIXNSTableHeaderView*>(table->headerView());
    ASSERT_TRUE(header);
    auto const plain = make<NSTableView>(Rect { 0, 0, 300, 180 });
    auto const fresh = make<PLIXTableView>(Rect { 0, 0, 300, 180 });
    EXPECT_EQ(fresh->headerView()->frame().height, plain->headerView()->frame().height);
    EXPECT_FALSE(dynamic_cast<PLIXNSTableHeaderView*>(make<PLIXTableView>()->headerView()));
}

TEST_F(PLIXTableViewTest, MakesItsGradientAnewWhenTheApplicationBecomesActive)
{
    auto const first = table->highlightGradientImage();
    EXPECT_EQ(table->lastHighlightGradientRowHeight(), 18);
    EXPECT_EQ(table->highlightGradientImage(), first);
    NSNotificationCenter::defaultCenter().postNotificationName("NSApplicationDidBecomeActiveNotification", Ref<NSObject>(&app()));
    EXPECT_EQ(table->lastHighlightGradientRowHeight(), -1);
    EXPECT_NE(table->highlightGradientImage(), first);
}

TEST_F(PLIXTableViewTest, MakesItsGradientAnewForAnotherRowHeight)
{
    table->setRowHeight(17);
    auto const first = table->highlightGradientImage();
    table->setRowHeight(18);
    auto const second = table->highlightGradientImage();
    EXPECT_NE(second, first);
    EXPECT_EQ(second->size(), (Size { 64, 18 }));
    EXPECT_TRUE(second->isFlipped());
}

TEST_F(PLIXTableViewTest, StoresStylesAndMessagesWithoutRedisplay)
{
    ASSERT_FALSE(table->needsDisplay());
    table->setHighlightStyle(7);
    table->setEmptyString("Nothing");
    auto const text = make<NSAttributedString>("Nothing at all");
    table->setEmptyAttributedString(text);
    EXPECT_FALSE(table->needsDisplay());
    EXPECT_EQ(table->highlightStyle(), 7U);
    EXPECT_EQ(table->emptyString(), "Nothing");
    EXPECT_EQ(table->emptyAttributedString(), text.get());
    table->setEmptyString(std::nullopt);
    table->setEmptyAttributedString(nullptr);
    EXPECT_EQ(table->emptyString(), std::nullopt);
    EXPECT_EQ(table->emptyAttributedString(), nullptr);
}

TEST_F(PLIXTableViewTest, SharesItsShadowsWithTheGlobals)
{
    auto const standard = PLIXTableView::standardShadow();
    auto const deactivated = PLIXTableView::deactivatedShadow();
    EXPECT_EQ(standard.get(), plixTableView_StandardShadow.get());
    EXPECT_EQ(deactivated.get(), plixTableView_DeactivatedShadow.get());
    EXPECT_NE(standard, deactivated);
}

TEST_F(PLIXTableViewTest, IsReadFromAnArchive)
{
    table->setHighlightStyle(PLIXHighlightRounded);
    table->setEmptyString("Nothing");
    table->hideColumnWithIdentifier("b");
    auto const data = NSArchiver::archivedDataWithRootObject(table);
    auto const read = NSUnarchiver::unarchiveObjectWithData(*data)->as<PLIXTableView>();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->highlightStyle(), PLIXHighlightRounded);
    EXPECT_EQ(read->emptyString(), "Nothing");
    EXPECT_EQ(read->emptyAttributedString(), nullptr);
    EXPECT_THAT(identifiers(read->tableColumns()), ElementsAre("a", "c"));
    EXPECT_THAT(identifiers(read->hiddenTableColumns()), ElementsAre("b"));
    EXPECT_TRUE(dynamic_cast<PLIXNSTableHeaderView*>(read->headerView()));
}

// MARK: hidden columns

TEST_F(PLIXTableViewTest, AHiddenColumnComesBackAsTheLast)
{
    auto const hidden = table->tableColumns()[1];
    hidden->setWidth(77);
    table->hideColumn(1);
    EXPECT_THAT(identifiers(table->tableColumns()), ElementsAre("a", "c"));
    EXPECT_THAT(identifiers(table->hiddenTableColumns()), ElementsAre("b"));
    EXPECT_EQ(hidden->tableView(), nullptr);
    table->showColumnWithIdentifier("b");
    EXPECT_THAT(identifiers(table->tableColumns()), ElementsAre("a", "c", "b"));
    EXPECT_THAT(table->hiddenTableColumns(), IsEmpty());
    EXPECT_EQ(table->tableColumns()[2], hidden);
    EXPECT_EQ(hidden->width(), 77);
}

TEST_F(PLIXTableViewTest, HidingIgnoresWhatIsNotThere)
{
    for (long const column : { -1L, 3L, 1000000L, -1000000L })
        table->hideColumn(column);
    table->hideColumnWithIdentifier("nobody");
    table->hideColumnWithIdentifier({});
    table->showColumnWithIdentifier("nobody");
    table->showColumnWithIdentifier("a");
    EXPECT_THAT(identifiers(table->tableColumns()), ElementsAre("a", "b", "c"));
    EXPECT_THAT(table->hiddenTableColumns(), IsEmpty());
}

TEST_F(PLIXTableViewTest, ATableMayHideAllItsColumns)
{
    for (int i = 0; i < 4; ++i)
        table->hideColumn(0);
    EXPECT_EQ(table->numberOfColumns(), 0);
    EXPECT_THAT(identifiers(table->hiddenTableColumns()), ElementsAre("a", "b", "c"));
    pump();
    table->showColumnWithIdentifier("b");
    EXPECT_THAT(identifiers(table->tableColumns()), ElementsAre("b"));
    EXPECT_THAT(identifiers(table->hiddenTableColumns()), ElementsAre("a", "c"));
}

TEST_F(PLIXTableViewTest, FindsTheFirstHiddenColumnOfAnIdentifier)
{
    auto const first = addColumn(*table, "twin", 50);
    auto const second = addColumn(*table, "twin", 60);
    EXPECT_EQ(table->hiddenTableColumnWithIdentifier("twin"), nullptr);
    table->hideColumn(4);
    table->hideColumn(3);
    EXPECT_EQ(table->hiddenTableColumnWithIdentifier("twin"), second.get());
    EXPECT_EQ(table->hiddenTableColumnWithIdentifier({}), nullptr);
    EXPECT_EQ(table->hiddenTableColumnWithIdentifier("Twin"), nullptr);
    table->showColumnWithIdentifier("twin");
    EXPECT_EQ(table->tableColumns().back(), second);
    EXPECT_EQ(table->hiddenTableColumnWithIdentifier("twin"), first.get());
}

TEST_F(PLIXTableViewTest, HidingTakesTheIndicatorImageAway)
{
    auto const image = make<NSImage>(Size { 8, 8 });
    auto const column = table->tableColumns()[1];
    table->setIndicatorImage(image, *column);
    table->hideColumn(1);
    table->showColumnWithIdentifier("b");
    EXPECT_EQ(table->indicatorImageInTableColumn(*column), nullptr);
}

// MARK: keys

TEST_F(PLIXTableViewTest, ReturnEnterAndBackspaceAreTheDelegates)
{
    auto const listener = make<Listener>();
    table->setDelegate(listener);
    window->makeFirstResponder(table.get());
    for (char32_t const character : { U'\r', U'\x03', U'\b', U'\x7F' })
        key(character);
    EXPECT_THAT(listener->calls, ElementsAre("return", "return", "delete", "delete"));
    EXPECT_EQ(listener->object, table.get());
}

TEST_F(PLIXTableViewTest, ReturnAndDeleteNeverReachThePlatform)
{
    class Editable : public NSObject {
    public:
        bool shouldEditTableColumn(NSTableView&, NSTableColumn&, long)
        {
            asked = true;
            return true;
        }
        bool asked { false };
    };
    auto const editable = make<Editable>();
    table->setDelegate(editable);
    table->selectRow(1, false);
    for (char const* character : { "\r", "\x03", "\b", "\x7F" })
        table->keyDown(*keyDown(character));
    EXPECT_FALSE(editable->asked);
    EXPECT_EQ(table->editedRow(), -1);
    EXPECT_EQ(table->selectedRow(), 1);
}

TEST_F(PLIXTableViewTest, TheActionDeleteBackwardIsTheDelegatesToo)
{
    auto const listener = make<Listener>();
    table->setDelegate(listener);
    table->deleteBackward(nullptr);
    table->doCommandBySelector(Selector("deleteBackward:"));
    EXPECT_THAT(listener->calls, ElementsAre("delete", "delete"));
    table->setDelegate(nullptr);
    table->deleteBackward(nullptr);
    EXPECT_EQ(listener->calls.size(), 2U);
}

TEST_F(PLIXTableViewTest, ArrowKeysTellThatTheSelectionIsChanging)
{
    auto const listener = make<Listener>();
    table->setDelegate(listener);
    table->selectRow(1, false);
    window->makeFirstResponder(table.get());
    listener->calls.clear();
    key(NSDownArrowFunctionKey);
    EXPECT_EQ(table->selectedRow(), 2);
    EXPECT_THAT(listener->calls, ElementsAre("NSTableViewSelectionIsChangingNotification"));
    EXPECT_EQ(listener->object, table.get());
    key(NSUpArrowFunctionKey);
    EXPECT_EQ(table->selectedRow(), 1);
    EXPECT_EQ(listener->calls.size(), 2U);
}

TEST_F(PLIXTableViewTest, ArrowKeysAtTheEndsTellNothing)
{
    auto const listener = make<Listener>();
    table->setDelegate(listener);
    window->makeFirstResponder(table.get());
    for (auto const& [row, arrow] : { std::pair(0L, NSUpArrowFunctionKey), std::pair(4L, NSDownArrowFunctionKey) }) {
        table->selectRow(row, false);
        listener->calls.clear();
        key(static_cast<char32_t>(arrow));
        EXPECT_EQ(table->selectedRow(), row);
        EXPECT_THAT(listener->calls, IsEmpty());
    }
}

TEST_F(PLIXTableViewTest, OtherKeysAreThePlatforms)
{
    source->value = [](NSTableColumn&, long row) { return ObjectValue(row == 3 ? "Mango" : "Apple"); };
    window->makeFirstResponder(table.get());
    type("m");
    EXPECT_EQ(table->selectedRow(), 3);
}

class Commander : public NSWindow {
    PLIX_CLASS(Commander, NSWindow);

public:
    using NSWindow::init;
    void commandIt(NSObject* sender) { told = sender; }
    NSObject* told { nullptr };
};

PLIX_DESCRIBE(Commander)
{
    description.action("commandIt:", &Commander::commandIt);
}

TEST_F(PLIXTableViewTest, CommandsAreOfferedAlongTheChain)
{
    auto const commander = make<Commander>(content, usualStyle, NSBackingStoreBuffered, false);
    commander->setContentView(table);
    table->doCommandBySelector(Selector("commandIt:"));
    EXPECT_EQ(commander->told, table.get());
    table->doCommandBySelector(Selector("nobodyKnowsThis:"));
}

// MARK: the mouse

TEST_F(PLIXTableViewTest, ARightClickSelectsTheRowAloneAndShowsTheMenu)
{
    auto const menu = make<NSMenu>("Menu");
    menu->addItemWithTitle("Item", {}, "");
    table->setMenu(menu);
    table->selectRowIndexes({ 0, 1, 2 }, false);
    NSIndexSet selectedWhileOpen;
    bool wasOpen = false;
    person().click(onScreen(*table, middleOf(*table, 0, 3)), { .button = 1 });
    person().then([&] {
        selectedWhileOpen = table->selectedRowIndexes();
        wasOpen = MenuTracker::isOpen(*menu);
    });
    person().key(U'\x1B');
    pump();
    EXPECT_TRUE(wasOpen);
    EXPECT_EQ(selectedWhileOpen, (NSIndexSet { 3 }));
}

class UpdateCounter : public NSObject {
public:
    void menuNeedsUpdate(NSMenu&) { ++updates; }
    int updates { 0 };
};

TEST_F(PLIXTableViewTest, ARightClickUpdatesTheMenuOnceMore)
{
    auto const updates = [&](NSTableView& clicked) {
        auto const counter = make<UpdateCounter>();
        auto const menu = make<NSMenu>("Menu");
        menu->addItemWithTitle("Item", {}, "");
        menu->setDelegate(counter);
        clicked.setMenu(menu);
        person().key(U'\x1B');
        clicked.rightMouseDown(*mouseEvent(NSRightMouseDown, clicked, { 5, 5 }));
        pump();
        return counter->updates;
    };
    auto const plain = make<NSTableView>(Rect { 0, 0, 300, 180 });
    window->contentView()->addSubview(*plain);
    int const usual = updates(*plain);
    EXPECT_EQ(updates(*table), usual + 1);
}

TEST_F(PLIXTableViewTest, ARightClickDrawsTheSelectionAtOnce)
{
    table->rightMouseDown(*mouseEvent(NSRightMouseDown, *table, middleOf(*table, 0, 3)));
    EXPECT_EQ(table->selectedRow(), 3);
    EXPECT_FALSE(table->needsDisplay());
}

TEST_F(PLIXTableViewTest, ARightClickBelowTheRowsLeavesTheSelection)
{
    table->selectRowIndexes({ 1, 2 }, false);
    table->rightMouseDown(*mouseEvent(NSRightMouseDown, *table, { 20, 150 }));
    EXPECT_EQ(table->selectedRowIndexes(), (NSIndexSet { 1, 2 }));
}

class Choosy : public NumberedRows {
public:
    bool tableviewShouldSelectRow(NSTableView&, long)
    {
        ADD_FAILURE() << "only its presence counts";
        return true;
    }
    bool shouldSelectRow(NSTableView&, long row)
    {
        questions.push_back(row);
        return row != refused;
    }
    std::vector<long> questions;
    long refused { 4 };
};

class OnlyPresent : public NumberedRows {
public:
    bool tableviewShouldSelectRow(NSTableView&, long) { return false; }
};

class OnlyRefusing : public NumberedRows {
public:
    bool shouldSelectRow(NSTableView&, long) { return false; }
};

TEST_F(PLIXTableViewTest, ADataSourceWithTheSmallNameMayRefuseRightClicks)
{
    auto const choosy = make<Choosy>();
    table->setDataSource(choosy);
    auto const rightClick
        = [&](long row) { table->rightMouseDown(*mouseEvent(NSRightMouseDown, *table, middleOf(*table, 0, row))); };
    table->selectRowIndexes({ 0, 1, 2 }, false);
    rightClick(1);
    EXPECT_EQ(table->selectedRowIndexes(), (NSIndexSet { 0, 1, 2 }));
    EXPECT_THAT(choosy->questions, IsEmpty());
    rightClick(4);
    EXPECT_EQ(table->selectedRowIndexes(), (NSIndexSet { 0, 1, 2 }));
    rightClick(3);
    EXPECT_EQ(table->selectedRowIndexes(), (NSIndexSet { 3 }));
    EXPECT_THAT(choosy->questions, ElementsAre(4, 3));
}

TEST_F(PLIXTableViewTest, WithoutTheSmallNameNothingIsRefused)
{
    auto const refusing = make<OnlyRefusing>();
    table->setDataSource(refusing);
    table->selectRowIndexes({ 0, 1 }, false);
    table->rightMouseDown(*mouseEvent(NSRightMouseDown, *table, middleOf(*table, 0, 1)));
    EXPECT_EQ(table->selectedRowIndexes(), (NSIndexSet { 1 }));
}

TEST_F(PLIXTableViewTest, WithTheSmallNameAloneOnlySelectedRowsAreKept)
{
    auto const present = make<OnlyPresent>();
    table->setDataSource(present);
    table->selectRowIndexes({ 0, 1 }, false);
    auto const rightClick
        = [&](long row) { table->rightMouseDown(*mouseEvent(NSRightMouseDown, *table, middleOf(*table, 0, row))); };
    rightClick(1);
    EXPECT_EQ(table->selectedRowIndexes(), (NSIndexSet { 0, 1 }));
    rightClick(2);
    EXPECT_EQ(table->selectedRowIndexes(), (NSIndexSet { 2 }));
}

class PressedTable : public PLIXTableView {
    PLIX_CLASS(PressedTable, PLIXTableView);

public:
    using PLIXTableView::init;
    void mouseDown(NSEvent&) override { ++presses; }
    int presses { 0 };
};

PLIX_DESCRIBE(PressedTable)
{
}

TEST_F(PLIXTableViewTest, AControlClickIsAClickBeforeItsMenuIsShown)
{
    auto const pressed = make<PressedTable>(Rect { 0, 0, 100, 100 });
    auto const menu = make<NSMenu>("Menu");
    pressed->setMenu(menu);
    show(*pressed);
    struct Row {
        NSEventType type;
        unsigned modifiers;
        long clickCount;
        int presses;
    };
    for (auto const& row : {
             Row { NSLeftMouseDown, NSControlKeyMask, 1, 1 },
             Row { NSLeftMouseDown, NSControlKeyMask | NSShiftKeyMask, 1, 1 },
             Row { NSLeftMouseDown, NSControlKeyMask, 2, 0 },
             Row { NSLeftMouseDown, 0, 1, 0 },
             Row { NSLeftMouseDown, NSCommandKeyMask, 1, 0 },
             Row { NSRightMouseDown, NSControlKeyMask, 1, 0 },
         }) {
        pressed->presses = 0;
        EXPECT_EQ(pressed->menuForEvent(*mouseEvent(row.type, *pressed, { 5, 5 }, row.modifiers, row.clickCount)), menu.get());
        EXPECT_EQ(pressed->presses, row.presses) << row.type << " " << row.modifiers << " " << row.clickCount;
    }
}

// MARK: dragging and live resize

TEST_F(PLIXTableViewTest, KnowsWhenADragIsPrepared)
{
    auto const press = mouseEvent(NSLeftMouseDown, *table, { 5, 5 });
    Point offset;
    EXPECT_TRUE(table->dragImageForRowsWithIndexes({ 1 }, table->tableColumns(), *press, offset));
    EXPECT_EQ(table->inDragPrep(), 1);
    table->draggedImageBeganAt(nullptr, {});
    EXPECT_EQ(table->inDragPrep(), 0);
    EXPECT_TRUE(table->dragImageForRows({ 1 }, *press, offset));
    EXPECT_EQ(table->inDragPrep(), 1);
    table->draggedImage(nullptr, {}, 0);
    EXPECT_EQ(table->inDragPrep(), 0);
}

TEST_F(PLIXTableViewTest, CountsItsRowsAnewAfterALiveResize)
{
    source->count = 9;
    EXPECT_EQ(table->numberOfRows(), 5);
    table->viewDidEndLiveResize();
    EXPECT_EQ(table->numberOfRows(), 9);
}

TEST_F(PLIXTableViewTest, IsNotInLiveResizeOutsideOfOne)
{
    source->count = 9;
    EXPECT_FALSE(table->inLiveResize());
    EXPECT_EQ(table->numberOfRows(), 5);
}

TEST_F(PLIXTableViewTest, CountsItsRowsDuringALiveResizeOnlyWhileTheApplicationRuns)
{
    struct Answer {
        bool isRunning;
        bool inLiveResize;
        long rows;
    };
    std::vector<Answer> answers;
    PLIXTableViewDelegate hooks;
    hooks.willDrawRect = [&](NSTableView&, Rect) {
        if (window->inLiveResize())
            answers.push_back({ app().isRunning(), table->inLiveResize(), table->numberOfRows() });
    };
    table->setDelegateHooks(hooks);
    scrollView->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    auto const resize = [&](Rect to) {
        source->count = 9;
        person().resizeWindow([&] { return hostWindow(*window); }, { to });
    };
    resize({ 100, 180, 320, 220 });
    pump();
    ASSERT_FALSE(answers.empty());
    for (auto const& answer : answers) {
        EXPECT_FALSE(answer.isRunning);
        EXPECT_FALSE(answer.inLiveResize);
    }
    answers.clear();
    source->count = 5;
    table->reloadData();
    resize({ 100, 160, 340, 240 });
    person().then([&] { app().stop(nullptr); });
    app().run();
    ASSERT_FALSE(answers.empty());
    for (auto const& answer : answers) {
        EXPECT_TRUE(answer.isRunning);
        EXPECT_TRUE(answer.inLiveResize);
        EXPECT_EQ(answer.rows, 9);
    }
}

TEST_F(PLIXTableViewTest, CellsHaveNoHighlightColorOfThePlatforms)
{
    EXPECT_EQ(table->_highlightColorForCell(*table->tableColumns()[0]->dataCell()), nullptr);
}

// MARK: what hooks may do

class Doer : public NSObject {
public:
    void returnKey(NSTableView&, NSTableView&) { act(); }
    void deleteBackward(NSTableView&, NSTableView&) { act(); }
    void tableViewSelectionIsChanging(NSNotification const&) { act(); }
    std::function<void()> act;
};

class Questioner : public NumberedRows {
public:
    bool tableviewShouldSelectRow(NSTableView&, long) { return true; }
    bool shouldSelectRow(NSTableView&, long)
    {
        act();
        return true;
    }
    std::function<void()> act;
};

TEST_F(PLIXTableViewTest, HooksMayCloseTheWindowAndDestroyTheTable)
{
    for (char32_t const character : { U'\r', U'\b', static_cast<char32_t>(NSDownArrowFunctionKey) }) {
        source = make<NumberedRows>();
        table = make<PLIXTableView>(Rect { 0, 0, 300, 180 });
        prepare(*table);
        table->setDataSource(source);
        show(*table);
        window->makeFirstResponder(table.get());
        table->selectRow(1, false);
        auto const doer = make<Doer>();
        bool isDone = false;
        doer->act = [&] {
            isDone = true;
            window->close();
            scrollView->setDocumentView(nullptr);
            table = nullptr;
        };
        table->setDelegate(doer);
        key(character);
        EXPECT_TRUE(isDone);
        EXPECT_FALSE(table);
    }
}

TEST_F(PLIXTableViewTest, ARightClicksQuestionMayDestroyTheTable)
{
    auto const questioner = make<Questioner>();
    questioner->act = [&] {
        scrollView->setDocumentView(nullptr);
        table = nullptr;
    };
    table->setDataSource(questioner);
    auto const event = mouseEvent(NSRightMouseDown, *table, middleOf(*table, 0, 1));
    Ref(table)->rightMouseDown(*event);
    EXPECT_FALSE(table);
}

TEST_F(PLIXTableViewTest, LetsGoOfItsDelegateAndDataSource)
{
    auto listener = make<Listener>();
    table->setDelegate(listener);
    listener = nullptr;
    source = nullptr;
    window->makeFirstResponder(table.get());
    for (char32_t const character : { U'\r', U'\b', static_cast<char32_t>(NSDownArrowFunctionKey) })
        key(character);
    table->reloadData();
    EXPECT_EQ(table->numberOfRows(), 0);
}

TEST_F(PLIXTableViewTest, LambdasMayBeHooks)
{
    PLIXTableViewDelegate hooks;
    int returns = 0;
    hooks.returnKey = [&](NSTableView&, NSTableView&) { ++returns; };
    table->setDelegateHooks(hooks);
    table->keyDown(*keyDown("\r"));
    EXPECT_EQ(returns, 1);
    PLIXTableViewDataSource dataHooks;
    dataHooks.numberOfRowsInTableView = [](NSTableView&) { return 7L; };
    table->setDataSourceHooks(dataHooks);
    EXPECT_EQ(table->numberOfRows(), 7);
}

TEST_F(PLIXTableViewTest, HiddenColumnsAreNotSaved)
{
    table->setAutosaveName("hidden");
    table->setAutosaveTableColumns(true);
    table->tableColumns()[1]->setWidth(55);
    table->hideColumnWithIdentifier("b");
    table->tableColumns()[0]->setWidth(44);
    auto const other = make<PLIXTableView>(Rect { 0, 0, 300, 180 });
    prepare(*other);
    other->setAutosaveTableColumns(true);
    other->setAutosaveName("hidden");
    EXPECT_THAT(identifiers(other->tableColumns()), ElementsAre("a", "c", "b"));
    EXPECT_EQ(other->tableColumns()[0]->width(), 44);
    EXPECT_EQ(other->tableColumns()[2]->width(), 80);
}

TEST_F(PLIXTableViewTest, TenThousandColumnsAreHiddenOneByOne)
{
    while (table->numberOfColumns() > 0)
        table->removeTableColumn(*table->tableColumns().back());
    for (int i = 0; i < 10000; ++i)
        table->addTableColumn(*make<NSTableColumn>(ObjectValue(i)));
    for (int i = 0; i < 10000; ++i)
        table->hideColumn(table->numberOfColumns() - 1);
    EXPECT_EQ(table->numberOfColumns(), 0);
    EXPECT_EQ(table->hiddenTableColumns().size(), 10000U);
    table->showColumnWithIdentifier(5);
    pump();
    EXPECT_EQ(table->numberOfColumns(), 1);
}

}
}

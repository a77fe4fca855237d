#include <tests/support/TabTest.h>
#include <tests/support/pixels.h>

#include <plix/platform/appkit/MenuView.h>
#include <plix/platform/appkit/NSComboBox.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/graphics/NSFont.h>

namespace plix {
namespace {

// MARK: items

TEST_F(TabTest, TheFirstItemIsSelectedAndItsPaneFillsTheContent)
{
    EXPECT_EQ(selected(), "General");
    EXPECT_EQ(item(0).tabState(), NSSelectedTab);
    EXPECT_EQ(item(1).tabState(), NSBackgroundTab);
    EXPECT_EQ(panes[0]->superview(), tabs.get());
    EXPECT_EQ(panes[0]->frame(), tabs->contentRect());
    EXPECT_EQ(tabs->contentRect(), (Rect { 10, 33, 340, 174 }));
    EXPECT_EQ(panes[1]->superview(), nullptr);
}

TEST_F(TabTest, ItemsAreFoundByPlaceAndIdentifier)
{
    EXPECT_EQ(tabs->numberOfTabViewItems(), 3);
    EXPECT_EQ(tabs->indexOfTabViewItem(item(2)), 2);
    EXPECT_EQ(tabs->indexOfTabViewItemWithIdentifier("Columns"), 1);
    EXPECT_EQ(tabs->indexOfTabViewItemWithIdentifier("Elsewhere"), NSNotFound);
    EXPECT_EQ(tabs->indexOfTabViewItem(*tabItem("other")), NSNotFound);
    EXPECT_THROW(tabs->tabViewItemAtIndex(3), NSRangeException);
    EXPECT_THROW(tabs->tabViewItemAtIndex(-1), NSRangeException);
    EXPECT_THROW(tabs->selectTabViewItemAtIndex(3), NSRangeException);
    EXPECT_THROW(tabs->selectTabViewItemWithIdentifier("Elsewhere"), NSRangeException);
    EXPECT_THROW(tabs->insertTabViewItem(*tabItem("x"), 4), NSRangeException);
    EXPECT_EQ(item(1).tabView(), tabs.get());
}

TEST_F(TabTest, InsertingKeepsTheSelection)
{
    auto const added = tabItem("First");
    tabs->insertTabViewItem(*added, 0);
    EXPECT_EQ(selected(), "General");
    EXPECT_EQ(tabs->indexOfTabViewItem(*added), 0);
    EXPECT_EQ(delegate->log, (Strings { "count 4" }));
}

TEST_F(TabTest, AnItemIsInOneTabViewOnly)
{
    auto const other = make<NSTabView>(Rect { 0, 0, 100, 100 });
    other->addTabViewItem(item(1));
    EXPECT_EQ(other->numberOfTabViewItems(), 0);
    tabs->addTabViewItem(item(1));
    EXPECT_EQ(tabs->numberOfTabViewItems(), 3);
    other->removeTabViewItem(item(1));
    EXPECT_EQ(tabs->numberOfTabViewItems(), 3);
}

TEST_F(TabTest, RemovingTheSelectedItemSelectsTheNextOne)
{
    tabs->selectTabViewItemAtIndex(1);
    delegate->log.clear();
    Ref<NSTabViewItem> const removed(item(1));
    tabs->removeTabViewItem(*removed);
    EXPECT_EQ(selected(), "Sounds");
    EXPECT_EQ(removed->tabView(), nullptr);
    EXPECT_EQ(removed->tabState(), NSBackgroundTab);
    EXPECT_EQ(panes[1]->superview(), nullptr);
    EXPECT_EQ(panes[2]->superview(), tabs.get());
    tabs->removeTabViewItem(item(1));
    EXPECT_EQ(selected(), "General");
    tabs->removeTabViewItem(item(0));
    EXPECT_EQ(selected(), "none");
    EXPECT_TRUE(tabs->subviews().empty());
    EXPECT_EQ(delegate->log,
        (Strings { "should Sounds", "will Sounds", "did Sounds", "count 2", "should General", "will General", "did General",
            "count 1", "count 0" }));
}

TEST_F(TabTest, RemovingAnotherItemLeavesTheSelection)
{
    tabs->removeTabViewItem(item(1));
    EXPECT_EQ(selected(), "General");
    EXPECT_EQ(delegate->log, (Strings { "count 2" }));
}

// MARK: selection

TEST_F(TabTest, SelectingExchangesThePanes)
{
    tabs->selectTabViewItemAtIndex(2);
    EXPECT_EQ(panes[0]->superview(), nullptr);
    EXPECT_EQ(panes[2]->frame(), tabs->contentRect());
    EXPECT_EQ(tabs->subviews().size(), 1U);
    EXPECT_EQ(item(0).tabState(), NSBackgroundTab);
    EXPECT_EQ(item(2).tabState(), NSSelectedTab);
    EXPECT_EQ(delegate->log, (Strings { "should Sounds", "will Sounds", "did Sounds" }));
}

TEST_F(TabTest, WhatIsSelectedAlreadyIsNotSelectedAgain)
{
    tabs->selectTabViewItemAtIndex(0);
    tabs->selectTabViewItem(nullptr);
    tabs->selectTabViewItem(tabItem("elsewhere").get());
    EXPECT_TRUE(delegate->log.empty());
    EXPECT_EQ(selected(), "General");
}

TEST_F(TabTest, TheDelegateMayRefuse)
{
    delegate->refused = "Columns";
    clickTab(1);
    EXPECT_EQ(selected(), "General");
    EXPECT_EQ(delegate->log, (Strings { "should Columns" }));
    EXPECT_EQ(item(1).tabState(), NSBackgroundTab);
}

TEST_F(TabTest, ADelegateThatRemovesTheItemMeanwhileIsObeyed)
{
    delegate->whenWillSelect = [](NSTabView& sender, NSTabViewItem& wanted) { sender.removeTabViewItem(wanted); };
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(selected(), "General");
    EXPECT_EQ(tabs->numberOfTabViewItems(), 2);
    EXPECT_EQ(delegate->log, (Strings { "should Columns", "will Columns", "count 2" }));
}

TEST_F(TabTest, ADelegateThatSelectsAnotherMeanwhileWins)
{
    delegate->whenWillSelect = [this](NSTabView& sender, NSTabViewItem&) {
        delegate->whenWillSelect = nullptr;
        sender.selectTabViewItemAtIndex(1);
    };
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(selected(), "Columns");
    EXPECT_EQ(delegate->log, (Strings { "should Columns", "will Columns", "should Columns", "will Columns", "did Columns" }));
}

TEST_F(TabTest, ADelegateMayLetGoOfTheTabView)
{
    delegate->whenWillSelect = [this](NSTabView& sender, NSTabViewItem&) {
        sender.removeFromSuperview();
        tabs = nullptr;
    };
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(delegate->log.back(), "did Columns");
    EXPECT_EQ(panes[1]->superview(), nullptr);
}

TEST_F(TabTest, ActionsSelectFirstLastNextAndPrevious)
{
    tabs->selectPreviousTabViewItem(nullptr);
    EXPECT_EQ(selected(), "General");
    tabs->tryToPerform(Selector("selectNextTabViewItem:"), nullptr);
    EXPECT_EQ(selected(), "Columns");
    tabs->tryToPerform(Selector("selectLastTabViewItem:"), nullptr);
    EXPECT_EQ(selected(), "Sounds");
    tabs->selectNextTabViewItem(nullptr);
    EXPECT_EQ(selected(), "Sounds");
    tabs->tryToPerform(Selector("selectPreviousTabViewItem:"), nullptr);
    EXPECT_EQ(selected(), "Columns");
    tabs->tryToPerform(Selector("selectFirstTabViewItem:"), nullptr);
    EXPECT_EQ(selected(), "General");
}

TEST_F(TabTest, TakesTheIndexOfASender)
{
    auto const segments = make<NSSegmentedControl>(Rect { 0, 0, 100, 24 });
    segments->setSegmentCount(5);
    segments->setSelectedSegment(2);
    tabs->takeSelectedTabViewItemFromSender(segments.get());
    EXPECT_EQ(selected(), "Sounds");
    segments->setSelectedSegment(4);
    tabs->takeSelectedTabViewItemFromSender(segments.get());
    EXPECT_EQ(selected(), "Sounds");
    auto const button = make<NSPopUpButton>(Rect { 0, 0, 100, 24 });
    button->addItemsWithTitles({ "a", "b" });
    button->selectItemAtIndex(1);
    tabs->takeSelectedTabViewItemFromSender(button.get());
    EXPECT_EQ(selected(), "Columns");
    tabs->takeSelectedTabViewItemFromSender(nullptr);
    EXPECT_EQ(selected(), "Columns");
}

// MARK: panes

TEST_F(TabTest, ThePaneFollowsTheTabViewsSize)
{
    tabs->setFrameSize({ 300, 200 });
    EXPECT_EQ(panes[0]->frame(), (Rect { 10, 33, 280, 154 }));
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(panes[1]->frame(), (Rect { 10, 33, 280, 154 }));
}

TEST_F(TabTest, AnotherKindOfTabsMovesThePane)
{
    tabs->setTabViewType(NSNoTabsNoBorder);
    EXPECT_EQ(panes[0]->frame(), tabs->bounds());
    EXPECT_FALSE(tabs->acceptsFirstResponder());
    EXPECT_EQ(tabs->tabViewItemAtPoint({ 180, 15 }), nullptr);
    EXPECT_TRUE(tabs->rectForTabViewItem(item(0)).isEmpty());
    tabs->setTabViewType(NSLeftTabsBezelBorder);
    EXPECT_EQ(panes[0]->frame(), (Rect { 33, 10, 314, 200 }));
    tabs->setTabViewType(NSTopTabsBezelBorder);
    tabs->setControlSize(NSSmallControlSize);
    EXPECT_EQ(panes[0]->frame(), (Rect { 10, 29, 340, 178 }));
}

TEST_F(TabTest, AnotherViewOfTheSelectedItemIsShownAtOnce)
{
    auto const other = make<CountingView>();
    item(0).setView(other);
    EXPECT_EQ(other->superview(), tabs.get());
    EXPECT_EQ(other->frame(), tabs->contentRect());
    EXPECT_EQ(panes[0]->superview(), nullptr);
    item(0).setView(nullptr);
    EXPECT_TRUE(tabs->subviews().empty());
    item(1).setView(other);
    EXPECT_EQ(other->superview(), nullptr);
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(other->superview(), tabs.get());
}

TEST_F(TabTest, APaneThatIsPutBackStandsInItsPlace)
{
    panes[0]->removeFromSuperview();
    tabs->setFrameSize({ 300, 200 });
    EXPECT_EQ(panes[0]->frame().width, 340);
    tabs->addSubview(*panes[0]);
    EXPECT_EQ(panes[0]->frame(), tabs->contentRect());
}

// MARK: mouse

TEST_F(TabTest, AClickSelectsWhenTheButtonIsReleased)
{
    NSTabState pressed {};
    person().press(onScreen(*tabs, middleOf(1)));
    person().then([&] { pressed = item(1).tabState(); });
    person().release(onScreen(*tabs, middleOf(1)));
    pump();
    EXPECT_EQ(pressed, NSPressedTab);
    EXPECT_EQ(selected(), "Columns");
}

TEST_F(TabTest, AReleaseElsewhereSelectsNothing)
{
    drag(*tabs, middleOf(1), { 180, 120 });
    EXPECT_EQ(selected(), "General");
    EXPECT_EQ(item(1).tabState(), NSBackgroundTab);
    drag(*tabs, middleOf(1), middleOf(2));
    EXPECT_EQ(selected(), "General");
    person().press(onScreen(*tabs, middleOf(1)));
    person().dragTo(onScreen(*tabs, { 180, 120 }));
    person().dragTo(onScreen(*tabs, middleOf(1)));
    person().release(onScreen(*tabs, middleOf(1)));
    pump();
    EXPECT_EQ(selected(), "Columns");
}

TEST_F(TabTest, AnItemThatGoesAwayWhileItIsPressedIsNotSelected)
{
    Ref<NSTabViewItem> const pressed(item(1));
    person().press(onScreen(*tabs, middleOf(1)));
    person().then([this] { tabs->removeTabViewItem(item(1)); });
    person().release(onScreen(*tabs, middleOf(1)));
    pump();
    EXPECT_EQ(selected(), "General");
    EXPECT_EQ(pressed->tabView(), nullptr);
    EXPECT_EQ(pressed->tabState(), NSBackgroundTab);
}

TEST_F(TabTest, TabsStandSideBySideInTheMiddle)
{
    tabs->setFrameSize({ 360, 420 });
    for (auto const type : { NSTopTabsBezelBorder, NSBottomTabsBezelBorder, NSLeftTabsBezelBorder, NSRightTabsBezelBorder }) {
        tabs->setTabViewType(type);
        bool const isUpright = type == NSTopTabsBezelBorder || type == NSBottomTabsBezelBorder;
        Rect all = tabs->rectForTabViewItem(item(0));
        for (long i = 1; i < 3; ++i) {
            auto const before = tabs->rectForTabViewItem(item(i - 1));
            auto const rect = tabs->rectForTabViewItem(item(i));
            EXPECT_EQ(isUpright ? rect.x : rect.y, isUpright ? before.maxX() : before.maxY()) << type;
            EXPECT_EQ(tabs->tabViewItemAtPoint({ rect.midX(), rect.midY() }), &item(i)) << type;
            all = NSUnionRect(all, rect);
        }
        EXPECT_NEAR(isUpright ? all.midX() : all.midY(), isUpright ? 180 : 210, 1) << type;
        EXPECT_FALSE(NSIntersectsRect(all, tabs->contentRect())) << type;
    }
}

// MARK: overflow

TEST_F(TabTest, LabelsAreShortenedWhereThatIsAllowed)
{
    float const wanted = tabs->rectForTabViewItem(item(2)).maxX() - tabs->rectForTabViewItem(item(0)).x;
    EXPECT_EQ(tabs->minimumSize(), (Size { wanted + 20, 46 }));
    tabs->setAllowsTruncatedLabels(true);
    EXPECT_LT(tabs->minimumSize().width, wanted + 20);
    tabs->setFrameSize({ wanted - 10, 200 });
    EXPECT_TRUE(tabs->overflowRect().isEmpty());
    for (long i = 0; i < 3; ++i)
        EXPECT_FALSE(tabs->rectForTabViewItem(item(i)).isEmpty());
    tabs->setAllowsTruncatedLabels(false);
    EXPECT_FALSE(tabs->overflowRect().isEmpty());
}

TEST_F(TabTest, TheMenuHasTheTabsForWhichThereIsNoRoom)
{
    tabs->setFrameSize({ 140, 200 });
    pump();
    ASSERT_FALSE(tabs->overflowRect().isEmpty());
    ASSERT_TRUE(tabs->rectForTabViewItem(item(1)).isEmpty());
    Strings titles;
    Point const button { tabs->overflowRect().midX(), tabs->overflowRect().midY() };
    person().click(onScreen(*tabs, button));
    person().then([&] {
        for (auto const& each : app().windows()) {
            auto const* shown = dynamic_cast<MenuView*>(each->contentView());
            for (auto const& line : shown ? shown->shownMenu().itemArray() : std::vector<Ref<NSMenuItem>> {})
                titles.push_back(line->title());
        }
    });
    person().key(NSDownArrowFunctionKey);
    person().key(NSDownArrowFunctionKey);
    person().key(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(titles, (Strings { "Columns", "Sounds" }));
    EXPECT_EQ(selected(), "Sounds");
    EXPECT_FALSE(tabs->rectForTabViewItem(item(2)).isEmpty());
    EXPECT_TRUE(tabs->rectForTabViewItem(item(1)).isEmpty());
}

TEST_F(TabTest, EscapeLeavesTheMenuWithoutAChoice)
{
    tabs->setFrameSize({ 140, 200 });
    pump();
    person().click(onScreen(*tabs, { tabs->overflowRect().midX(), tabs->overflowRect().midY() }));
    person().key(NSDownArrowFunctionKey);
    person().key(NSEscapeCharacter);
    pump();
    EXPECT_EQ(selected(), "General");
    EXPECT_TRUE(delegate->log.empty());
}

TEST_F(TabTest, HundredsOfTabsAllReachable)
{
    for (int i = 0; i < 300; ++i)
        tabs->addTabViewItem(*tabItem("Tab " + std::to_string(i)));
    window->makeFirstResponder(tabs.get());
    key(NSEndFunctionKey);
    EXPECT_EQ(selected(), "Tab 299");
    EXPECT_FALSE(tabs->rectForTabViewItem(item(302)).isEmpty());
    key(NSLeftArrowFunctionKey);
    EXPECT_EQ(selected(), "Tab 298");
}

// MARK: keys

TEST_F(TabTest, ArrowsHomeAndEndChoose)
{
    window->makeFirstResponder(tabs.get());
    key(NSRightArrowFunctionKey);
    EXPECT_EQ(selected(), "Columns");
    key(NSEndFunctionKey);
    EXPECT_EQ(selected(), "Sounds");
    key(NSRightArrowFunctionKey);
    EXPECT_EQ(selected(), "Sounds");
    key(NSLeftArrowFunctionKey);
    EXPECT_EQ(selected(), "Columns");
    key(NSHomeFunctionKey);
    EXPECT_EQ(selected(), "General");
    EXPECT_EQ(window->firstResponder(), tabs.get());
}

TEST_F(TabTest, TabsAtTheSidesGoByTheOtherArrows)
{
    tabs->setTabViewType(NSLeftTabsBezelBorder);
    window->makeFirstResponder(tabs.get());
    key(NSRightArrowFunctionKey);
    EXPECT_EQ(selected(), "General");
    key(NSDownArrowFunctionKey);
    EXPECT_EQ(selected(), "Columns");
    key(NSUpArrowFunctionKey);
    EXPECT_EQ(selected(), "General");
}

TEST_F(TabTest, ControlTabGoesRoundFromAnywhereInTheView)
{
    auto const inner = field({ 10, 10, 80, 22 });
    panes[0]->addSubview(*inner);
    window->makeFirstResponder(inner.get());
    ASSERT_TRUE(isEditing(*inner));
    key(NSTabCharacter, NSControlKeyMask);
    EXPECT_EQ(selected(), "Columns");
    EXPECT_EQ(window->firstResponder(), tabs.get());
    key(NSTabCharacter, NSControlKeyMask);
    key(NSTabCharacter, NSControlKeyMask);
    EXPECT_EQ(selected(), "General");
    key(NSTabCharacter, NSControlKeyMask | NSShiftKeyMask);
    EXPECT_EQ(selected(), "Sounds");
    key(NSPageUpFunctionKey, NSControlKeyMask);
    EXPECT_EQ(selected(), "Columns");
    key(NSPageDownFunctionKey, NSControlKeyMask);
    EXPECT_EQ(selected(), "Sounds");
    window->makeFirstResponder(below.get());
    key(NSTabCharacter, NSControlKeyMask);
    EXPECT_EQ(selected(), "Sounds");
}

TEST_F(TabTest, OfNestedTabViewsTheInnerOneAnswers)
{
    auto const inner = make<NSTabView>(Rect { 0, 0, 300, 150 });
    inner->addTabViewItem(*tabItem("a"));
    inner->addTabViewItem(*tabItem("b"));
    panes[0]->addSubview(*inner);
    window->makeFirstResponder(inner.get());
    key(NSTabCharacter, NSControlKeyMask);
    EXPECT_EQ(inner->selectedTabViewItem()->label(), "b");
    EXPECT_EQ(selected(), "General");
    window->makeFirstResponder(tabs.get());
    key(NSTabCharacter, NSControlKeyMask);
    EXPECT_EQ(inner->selectedTabViewItem()->label(), "b");
    EXPECT_EQ(selected(), "Columns");
}

// MARK: the keyboard's way through panes

TEST_F(TabTest, TabGoesThroughThePaneThatIsShown)
{
    auto const first = field({ 10, 100, 80, 22 });
    auto const second = field({ 10, 50, 80, 22 });
    auto const other = field({ 10, 50, 80, 22 });
    panes[0]->addSubview(*second);
    panes[0]->addSubview(*first);
    panes[1]->addSubview(*other);
    window->recalculateKeyViewLoop();
    window->makeFirstResponder(above.get());
    key(NSTabCharacter);
    EXPECT_EQ(window->firstResponder(), tabs.get());
    key(NSTabCharacter);
    EXPECT_TRUE(isEditing(*first));
    key(NSTabCharacter);
    EXPECT_TRUE(isEditing(*second));
    key(NSTabCharacter);
    EXPECT_TRUE(isEditing(*below));

    tabs->selectTabViewItemAtIndex(1);
    key(NSTabCharacter, NSShiftKeyMask);
    EXPECT_TRUE(isEditing(*other));
    key(NSTabCharacter, NSShiftKeyMask);
    EXPECT_EQ(window->firstResponder(), tabs.get());
    key(NSTabCharacter);
    key(NSTabCharacter);
    EXPECT_TRUE(isEditing(*below));

    tabs->selectTabViewItemAtIndex(2);
    window->makeFirstResponder(tabs.get());
    key(NSTabCharacter);
    EXPECT_TRUE(isEditing(*below));

    tabs->selectTabViewItemAtIndex(0);
    window->makeFirstResponder(tabs.get());
    key(NSTabCharacter);
    EXPECT_TRUE(isEditing(*first));
    key(NSTabCharacter);
    EXPECT_TRUE(isEditing(*second));
}

TEST_F(TabTest, LinksThatTheHostMadeInAPaneAreKept)
{
    auto const first = field({ 10, 100, 80, 22 });
    auto const second = field({ 10, 50, 80, 22 });
    panes[1]->addSubview(*first);
    panes[1]->addSubview(*second);
    second->setNextKeyView(first.get());
    first->setNextKeyView(second.get());
    item(1).setInitialFirstResponder(second.get());
    window->recalculateKeyViewLoop();
    tabs->selectTabViewItemAtIndex(1);
    window->makeFirstResponder(tabs.get());
    key(NSTabCharacter);
    EXPECT_TRUE(isEditing(*second));
    key(NSTabCharacter);
    EXPECT_TRUE(isEditing(*first));
    key(NSTabCharacter);
    EXPECT_TRUE(isEditing(*below));
}

TEST_F(TabTest, LinksBeginWhereTheHostBeganThem)
{
    auto const top = field({ 10, 100, 80, 22 });
    auto const middle = field({ 10, 60, 80, 22 });
    auto const last = field({ 10, 20, 80, 22 });
    for (auto const& each : { top, middle, last })
        panes[1]->addSubview(*each);
    last->setNextKeyView(top.get());
    top->setNextKeyView(middle.get());
    window->recalculateKeyViewLoop();
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(tabs->nextKeyView(), last.get());
    EXPECT_EQ(middle->nextKeyView(), below.get());
}

TEST_F(TabTest, ATabViewThatIsAloneInItsLoopStaysInIt)
{
    auto const only = make<NSTabView>(Rect { 0, 0, 300, 200 });
    auto const inFirst = field({ 10, 10, 80, 22 });
    auto const inSecond = field({ 10, 10, 80, 22 });
    auto const pane = make<NSView>();
    pane->addSubview(*inFirst);
    auto const otherPane = make<NSView>();
    otherPane->addSubview(*inSecond);
    only->addTabViewItem(*tabItem("a", pane));
    only->addTabViewItem(*tabItem("b", otherPane));
    only->setNextKeyView(inFirst.get());
    inFirst->setNextKeyView(only.get());
    only->selectTabViewItemAtIndex(1);
    EXPECT_EQ(only->nextKeyView(), otherPane.get());
    EXPECT_EQ(inSecond->nextKeyView(), only.get());
}

TEST_F(TabTest, TheKeyboardGoesOnToTheNewPane)
{
    auto const inFirst = field({ 10, 10, 80, 22 });
    auto const top = field({ 10, 100, 80, 22 });
    auto const wanted = field({ 10, 10, 80, 22 });
    panes[0]->addSubview(*inFirst);
    panes[1]->addSubview(*top);
    panes[1]->addSubview(*wanted);
    window->makeFirstResponder(inFirst.get());
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_TRUE(isEditing(*top));
    tabs->selectTabViewItemAtIndex(0);
    item(1).setInitialFirstResponder(wanted.get());
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_TRUE(isEditing(*wanted));
    tabs->selectTabViewItemAtIndex(2);
    EXPECT_EQ(window->firstResponder(), tabs.get());
}

TEST_F(TabTest, TheKeyboardStaysWithWhatIsOutside)
{
    window->makeFirstResponder(below.get());
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_TRUE(isEditing(*below));
}

TEST_F(TabTest, TextThatDoesNotLetGoKeepsItsPane)
{
    panes[0]->takesKeyboard = true;
    panes[0]->refusesToResign = true;
    window->makeFirstResponder(panes[0].get());
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(selected(), "General");
    EXPECT_EQ(window->firstResponder(), panes[0].get());
    EXPECT_EQ(delegate->log, (Strings { "should Columns" }));
    clickTab(1);
    EXPECT_EQ(selected(), "General");
}

TEST_F(TabTest, AnotherViewOfTheItemTakesTheKeyboardOver)
{
    panes[0]->takesKeyboard = true;
    window->makeFirstResponder(panes[0].get());
    panes[1]->takesKeyboard = true;
    item(0).setView(panes[1]);
    EXPECT_EQ(window->firstResponder(), panes[1].get());
}

TEST_F(TabTest, RemovingTheItemThatHasTheKeyboardHandsItOn)
{
    panes[0]->takesKeyboard = true;
    panes[1]->takesKeyboard = true;
    window->makeFirstResponder(panes[0].get());
    tabs->removeTabViewItem(item(0));
    EXPECT_EQ(window->firstResponder(), panes[1].get());
}

// MARK: labels

class MeasuredItem : public NSTabViewItem {
    PLIX_CLASS(MeasuredItem, NSTabViewItem);

public:
    using NSTabViewItem::init;
    struct Drawn {
        bool truncates;
        Rect rect;
    };
    std::vector<Drawn> drawn;
    bool initWithCoder() override
    {
        calls += 1;
        return answer;
    }
    Size sizeOfLabel(bool computeMin) const override { return { computeMin ? 30.F : 70.F, 14 }; }
    void drawLabel(bool shouldTruncateLabel, Rect inRect) override { drawn.push_back({ shouldTruncateLabel, inRect }); }

    static inline int calls = 0;
    static inline bool answer = true;
};

PLIX_DESCRIBE(MeasuredItem)
{
}

TEST_F(TabTest, SubclassesMeasureAndDrawTheirLabels)
{
    auto const own = make<MeasuredItem>("own");
    tabs->addTabViewItem(*own);
    EXPECT_EQ(tabs->rectForTabViewItem(*own).width, 70 + 24);
    pump();
    ASSERT_EQ(own->drawn.size(), 1U);
    EXPECT_FALSE(own->drawn[0].truncates);
    EXPECT_EQ(own->drawn[0].rect.size(), (Size { 70, 14 }));
    EXPECT_EQ(own->drawn[0].rect.y, 5);

    own->drawn.clear();
    tabs->setAllowsTruncatedLabels(true);
    tabs->setFrameSize({ tabs->minimumSize().width, 220 });
    pump();
    ASSERT_FALSE(own->drawn.empty());
    EXPECT_TRUE(own->drawn.back().truncates);
    EXPECT_EQ(own->drawn.back().rect.width, 30);
}

TEST_F(TabTest, LabelsAreAsWideAsTheirTextInTheTabViewsFont)
{
    auto const full = item(0).sizeOfLabel(false);
    auto const least = item(0).sizeOfLabel(true);
    EXPECT_LT(least.width, full.width);
    EXPECT_EQ(least.height, full.height);
    EXPECT_EQ(tabs->font(), nullptr);
    tabs->setFont(NSFont::systemFontOfSize(20));
    EXPECT_GT(item(0).sizeOfLabel(false).width, full.width);
    tabs->setFont(nullptr);
    tabs->setControlSize(NSSmallControlSize);
    EXPECT_LT(item(0).sizeOfLabel(false).width, full.width);
    item(0).setLabel("");
    EXPECT_EQ(item(0).sizeOfLabel(false).width, 0);
    EXPECT_GT(item(0).sizeOfLabel(false).height, 10);
}

TEST_F(TabTest, OnlyTheStripIsDrawnAnewForALabel)
{
    panes[0]->forget();
    item(1).setLabel("Rows");
    EXPECT_TRUE(tabs->needsDisplay());
    pump();
    EXPECT_EQ(panes[0]->drawCount, 0);
    EXPECT_EQ(item(1).label(), "Rows");
}

TEST_F(TabTest, TheTabUnderThePointerIsLit)
{
    moveMouse(*above, { 5, 5 });
    pump();
    auto const before = window->snapshot();
    moveMouse(*tabs, middleOf(1));
    pump();
    EXPECT_GT(countDifferences(before, window->snapshot()), 20);
    moveMouse(*above, { 5, 5 });
    pump();
    EXPECT_EQ(countDifferences(before, window->snapshot()), 0);
}

TEST_F(TabTest, WithoutWindowNothingFails)
{
    auto const alone = make<NSTabView>(Rect { 0, 0, 100, 80 });
    alone->addTabViewItem(*tabItem("a", make<NSView>()));
    alone->addTabViewItem(*tabItem("b"));
    alone->selectTabViewItemAtIndex(1);
    alone->setTabViewType(NSRightTabsBezelBorder);
    alone->setFrame({});
    EXPECT_EQ(alone->selectedTabViewItem()->label(), "b");
}

// MARK: archives

TEST_F(TabTest, ComesBackFromAnArchive)
{
    auto const inner = field({ 10, 10, 80, 22 });
    panes[1]->addSubview(*inner);
    auto const plain = make<NSView>(Rect { 1, 2, 3, 4 });
    plain->addSubview(*field({ 5, 5, 50, 22 }));
    auto const first = plain->subviews()[0];
    auto const archived = make<NSTabView>(Rect { 20, 40, 360, 220 });
    archived->addTabViewItem(*tabItem("one", plain));
    archived->addTabViewItem(*tabItem("two"));
    archived->addSubview(*make<NSTextField>(Rect { 1, 1, 20, 20 }));
    item(1).setInitialFirstResponder(inner.get());
    archived->tabViewItemAtIndex(0)->setInitialFirstResponder(first.get());
    archived->setTabViewType(NSBottomTabsBezelBorder);
    archived->setControlSize(NSSmallControlSize);
    archived->setAllowsTruncatedLabels(true);
    archived->setDrawsBackground(false);
    archived->setFont(NSFont::systemFontOfSize(15));
    archived->selectTabViewItemAtIndex(1);
    auto const bytes = NSArchiver::archivedDataWithRootObject(archived);
    auto const read = NSUnarchiver::unarchiveObjectWithData(*bytes);
    ASSERT_TRUE(read);
    auto const copy = read->as<NSTabView>();
    ASSERT_TRUE(copy);
    ASSERT_EQ(copy->numberOfTabViewItems(), 2);
    EXPECT_EQ(copy->selectedTabViewItem()->label(), "two");
    EXPECT_EQ(copy->selectedTabViewItem()->tabState(), NSSelectedTab);
    EXPECT_EQ(copy->tabViewType(), NSBottomTabsBezelBorder);
    EXPECT_EQ(copy->controlSize(), NSSmallControlSize);
    EXPECT_TRUE(copy->allowsTruncatedLabels());
    EXPECT_FALSE(copy->drawsBackground());
    EXPECT_EQ(copy->font()->pointSize(), 15);
    EXPECT_EQ(copy->indexOfTabViewItemWithIdentifier("one"), 0);
    auto* const one = copy->tabViewItemAtIndex(0);
    EXPECT_EQ(one->tabView(), copy.get());
    ASSERT_EQ(one->view()->subviews().size(), 1U);
    EXPECT_EQ(one->initialFirstResponder(), one->view()->subviews()[0].get());
    EXPECT_EQ(copy->subviews().size(), 2U);
    copy->selectTabViewItemAtIndex(0);
    EXPECT_EQ(one->view()->frame(), copy->contentRect());
}

TEST_F(TabTest, AnItemThatRefusesItsArchiveIsLeftOut)
{
    auto const archived = make<NSTabView>(Rect { 0, 0, 300, 200 });
    archived->addTabViewItem(*make<MeasuredItem>("x"));
    archived->addTabViewItem(*tabItem("two"));
    auto const bytes = NSArchiver::archivedDataWithRootObject(archived);
    MeasuredItem::calls = 0;
    EXPECT_EQ(NSUnarchiver::unarchiveObjectWithData(*bytes)->as<NSTabView>()->numberOfTabViewItems(), 2);
    EXPECT_EQ(MeasuredItem::calls, 1);
    MeasuredItem::answer = false;
    auto const read = NSUnarchiver::unarchiveObjectWithData(*bytes);
    MeasuredItem::answer = true;
    auto const copy = read ? read->as<NSTabView>() : nullptr;
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->numberOfTabViewItems(), 1);
    EXPECT_EQ(copy->selectedTabViewItem()->label(), "two");
}

}
}

#include <tests/support/MenuTest.h>

#include <plix/controls/PLIXPopUpButton.h>
#include <plix/platform/base/exceptions.h>

namespace plix {
namespace {

class Shower : public NSObject {
public:
    void willDisplayMenu(PLIXPopUpButton& button, NSMenu& shown)
    {
        ++calls;
        wasHighlighted = button.cell()->isHighlighted();
        isItsMenu = button.menu() == &shown;
        if (onCall)
            onCall(shown);
    }
    int calls { 0 };
    bool wasHighlighted { true };
    bool isItsMenu { false };
    std::function<void(NSMenu&)> onCall;
};

class SilentDelegate : public NSObject { };

class PLIXPopUpButtonTest : public MenuTest {
protected:
    void SetUp() override
    {
        MenuTest::SetUp();
        view->setMenu(nullptr);
        button = make<PLIXPopUpButton>(Rect { 100, 200, 140, 26 });
        for (auto const* title : { "Day", "Week", "Month" }) {
            auto const item = button->addItemWithTitle(title);
            item->setTarget(Ref<NSObject>(receiver));
            item->setAction(Selector("act:"));
        }
        view->addSubview(*button);
        pump();
    }
    void clickButton() { person().click(centerOnScreen(*button)); }
    std::vector<int> states() const
    {
        std::vector<int> all;
        for (auto const& item : button->menu()->itemArray())
            all.push_back(item->state());
        return all;
    }

    Ref<PLIXPopUpButton> button;
};

TEST_F(PLIXPopUpButtonTest, StartsWithAnEmptyMenuThatEnablesNothing)
{
    for (auto const& fresh : { make<PLIXPopUpButton>(), make<PLIXPopUpButton>(Rect { 0, 0, 10, 10 }) }) {
        ASSERT_NE(fresh->menu(), nullptr);
        EXPECT_EQ(fresh->menu()->title(), "Untitled");
        EXPECT_FALSE(fresh->menu()->autoenablesItems());
        EXPECT_EQ(fresh->menu()->numberOfItems(), 0);
        EXPECT_EQ(fresh->selectedItemIndex(), 0);
        EXPECT_EQ(fresh->lastItem(), nullptr);
    }
}

TEST_F(PLIXPopUpButtonTest, SelectingChecksTheItemAndShowsItsTitle)
{
    button->menu()->itemAtIndex(0)->setState(NSMixedState);
    button->selectItemAtIndex(1);
    EXPECT_EQ(states(), (std::vector<int> { NSOffState, NSOnState, NSOffState }));
    EXPECT_EQ(button->title(), "Week");
    EXPECT_EQ(button->selectedItemIndex(), 1);
    EXPECT_EQ(button->selectedItem()->title(), "Week");
    button->selectItemAtIndex(2);
    EXPECT_EQ(states(), (std::vector<int> { NSOffState, NSOffState, NSOnState }));
    EXPECT_EQ(button->title(), "Month");
}

TEST_F(PLIXPopUpButtonTest, SelectingBeyondTheEndDoesNothing)
{
    button->selectItemAtIndex(1);
    for (long const index : { 3L, 4L, 1000000L }) {
        button->selectItemAtIndex(index);
        EXPECT_EQ(states(), (std::vector<int> { NSOffState, NSOnState, NSOffState }));
        EXPECT_EQ(button->title(), "Week");
        EXPECT_EQ(button->selectedItemIndex(), 1);
    }
}

TEST_F(PLIXPopUpButtonTest, ANegativeIndexClearsTheChecksAndRaises)
{
    button->selectItemAtIndex(1);
    EXPECT_THROW(button->selectItemAtIndex(-1), NSRangeException);
    EXPECT_EQ(states(), (std::vector<int> { NSOffState, NSOffState, NSOffState }));
    EXPECT_EQ(button->title(), "Week");
    EXPECT_EQ(button->selectedItemIndex(), 1);
}

TEST_F(PLIXPopUpButtonTest, SelectsByTag)
{
    button->menu()->itemAtIndex(2)->setTag(30);
    button->selectItemWithTag(30);
    EXPECT_EQ(button->selectedItemIndex(), 2);
    EXPECT_THROW(button->selectItemWithTag(31), NSRangeException);
    EXPECT_EQ(states(), (std::vector<int> { NSOffState, NSOffState, NSOffState }));
    EXPECT_EQ(button->selectedItemIndex(), 2);
    EXPECT_EQ(button->title(), "Month");
}

TEST_F(PLIXPopUpButtonTest, RemovingAllLeavesTitleAndSelection)
{
    button->selectItemAtIndex(2);
    button->removeAllItems();
    EXPECT_EQ(button->menu()->numberOfItems(), 0);
    EXPECT_EQ(button->selectedItemIndex(), 2);
    EXPECT_EQ(button->title(), "Month");
    EXPECT_THROW(button->selectedItem(), NSRangeException);
    button->selectItemAtIndex(0);
    EXPECT_EQ(button->selectedItemIndex(), 2);
}

TEST_F(PLIXPopUpButtonTest, AddsItemsAtTheEnd)
{
    auto const year = make<NSMenuItem>("Year");
    button->addItem(year.get());
    EXPECT_EQ(button->lastItem(), year.get());
    button->addItem(nullptr);
    EXPECT_EQ(button->menu()->numberOfItems(), 4);
    auto const added = button->addItemWithTitle("Ever");
    EXPECT_EQ(button->lastItem(), added.get());
    EXPECT_FALSE(added->hasAction());
    EXPECT_EQ(added->keyEquivalent(), "");
    EXPECT_EQ(button->addItemWithTitle(std::nullopt)->title(), "");
    EXPECT_EQ(button->menu()->numberOfItems(), 6);
}

TEST_F(PLIXPopUpButtonTest, ChoosingSendsTheItemsActionAndSelectsNothing)
{
    clickButton();
    clickItem(*button->menu(), 1);
    pump();
    EXPECT_EQ(receiver->chosen, Strings { "Week" });
    EXPECT_EQ(button->selectedItemIndex(), 0);
    EXPECT_EQ(states(), (std::vector<int> { NSOffState, NSOffState, NSOffState }));
    EXPECT_EQ(button->title(), make<PLIXPopUpButton>()->title());
}

TEST_F(PLIXPopUpButtonTest, PressDragReleaseChooses)
{
    person().press(centerOnScreen(*button));
    person().then([this] {
        auto const place = placeOf(*button->menu(), 2);
        person().dragTo(place);
        person().release(place);
    });
    pump();
    EXPECT_EQ(receiver->chosen, Strings { "Month" });
}

TEST_F(PLIXPopUpButtonTest, TheMenuHangsFourPointsBelow)
{
    Rect frame;
    clickButton();
    person().then([&] { frame = MenuTracker::windowOfMenu(*button->menu())->frame(); });
    dismiss();
    pump();
    auto const corner = onScreen(*view, { button->frame().x, button->frame().y - 4 });
    EXPECT_FLOAT_EQ(frame.maxY(), corner.y);
    EXPECT_NEAR(frame.x, corner.x, 1);
}

TEST_F(PLIXPopUpButtonTest, IsHighlightedAsLongAsTheMenuIsOpen)
{
    std::vector<bool> highlighted;
    clickButton();
    person().then([&] { highlighted.push_back(button->cell()->isHighlighted()); });
    dismiss();
    person().then([&] { highlighted.push_back(button->cell()->isHighlighted()); });
    pump();
    EXPECT_EQ(highlighted, (std::vector<bool> { true, false }));
}

TEST_F(PLIXPopUpButtonTest, ASubclassSeesThePressEnd)
{
    class Watching : public PLIXPopUpButton {
    public:
        using PLIXPopUpButton::init;
        void mouseUp(NSEvent& event) override
        {
            types.push_back(event.type());
            PLIXPopUpButton::mouseUp(event);
        }
        std::vector<NSEventType> types;
    };
    auto const watching = make<Watching>(Rect { 10, 10, 80, 20 });
    watching->addItemWithTitle("One");
    view->addSubview(*watching);
    person().press(centerOnScreen(*watching));
    dismiss();
    pump();
    EXPECT_EQ(watching->types, std::vector<NSEventType> { NSLeftMouseDown });
}

TEST_F(PLIXPopUpButtonTest, TheDelegateMayChangeTheMenuBeforeItShows)
{
    auto const shower = make<Shower>();
    shower->onCall = [](NSMenu& shown) { shown.addItemWithTitle("Year", {}, ""); };
    button->setDelegate(shower);
    clickButton();
    press(NSEndFunctionKey);
    note(*button->menu());
    dismiss();
    pump();
    EXPECT_EQ(shower->calls, 1);
    EXPECT_FALSE(shower->wasHighlighted);
    EXPECT_TRUE(shower->isItsMenu);
    EXPECT_EQ(seen, Strings { "Year" });
}

TEST_F(PLIXPopUpButtonTest, ADelegateMayBeSilentGoneOrNone)
{
    button->setDelegate(make<SilentDelegate>());
    clickButton();
    note(*button->menu());
    dismiss();
    pump();
    button->setDelegate(make<Shower>()); // held by nobody
    clickButton();
    note(*button->menu());
    dismiss();
    pump();
    button->setDelegate(nullptr);
    clickButton();
    note(*button->menu());
    dismiss();
    pump();
    EXPECT_EQ(seen, (Strings { "-", "-", "-" }));
}

TEST_F(PLIXPopUpButtonTest, ADisabledOneIgnoresPresses)
{
    auto const shower = make<Shower>();
    button->setDelegate(shower);
    button->setEnabled(false);
    clickButton();
    note(*button->menu());
    pump();
    EXPECT_EQ(shower->calls, 0);
    EXPECT_FALSE(button->cell()->isHighlighted());
    EXPECT_EQ(seen, Strings { "closed" });
}

TEST_F(PLIXPopUpButtonTest, ARightClickNeitherOpensNorPassesOn)
{
    view->setMenu(menu);
    person().click(centerOnScreen(*button), { .button = 1 });
    note(*button->menu());
    note(*menu);
    pump();
    EXPECT_EQ(seen, (Strings { "closed", "closed" }));
}

TEST_F(PLIXPopUpButtonTest, KeysOpenItToo)
{
    window->makeFirstResponder(button.get());
    press(U' ');
    press(NSDownArrowFunctionKey);
    press(NSDownArrowFunctionKey);
    press(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(receiver->chosen, Strings { "Week" });
}

TEST_F(PLIXPopUpButtonTest, OutsideAWindowAPressEndsAtOnce)
{
    auto const alone = make<PLIXPopUpButton>(Rect { 0, 0, 80, 20 });
    alone->addItemWithTitle("One");
    alone->mouseDown(*mouseEvent(NSLeftMouseDown, *button, { 5, 5 }));
    EXPECT_FALSE(alone->cell()->isHighlighted());
}

TEST_F(PLIXPopUpButtonTest, SurvivesADelegateThatTakesItAway)
{
    auto const shower = make<Shower>();
    shower->onCall = [this](NSMenu&) {
        button->removeFromSuperview();
        button = nullptr;
    };
    button->setDelegate(shower);
    clickButton();
    pump();
    EXPECT_EQ(shower->calls, 1);
    EXPECT_TRUE(view->subviews().empty());
}

}
}

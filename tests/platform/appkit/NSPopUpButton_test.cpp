#include <tests/support/MenuTest.h>

#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSPopUpButtonCell.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/graphics/NSImage.h>

namespace plix {
namespace {

class ButtonReceiver : public NSObject {
    PLIX_CLASS(ButtonReceiver, NSObject);

public:
    void act(NSObject* sender)
    {
        if (auto const* button = dynamic_cast<NSPopUpButton*>(sender))
            chosen.push_back(button->titleOfSelectedItem());
    }
    Strings chosen;
};

PLIX_DESCRIBE(ButtonReceiver)
{
    description.action("act:", &ButtonReceiver::act);
}

class PopUpTest : public MenuTest {
protected:
    void SetUp() override
    {
        MenuTest::SetUp();
        view->setMenu(nullptr);
        buttonReceiver = make<ButtonReceiver>();
        button = addButton({ 100, 200, 140, 26 }, false);
    }
    Ref<NSPopUpButton> addButton(Rect frame, bool pullsDown)
    {
        auto added = make<NSPopUpButton>(frame, pullsDown);
        added->addItemsWithTitles({ "Small", "Medium", "Large" });
        added->setTarget(Ref<NSObject>(buttonReceiver));
        added->setAction(Selector("act:"));
        view->addSubview(*added);
        pump();
        return added;
    }
    void clickButton() { person().click(centerOnScreen(*button)); }
    static Rect frameOf(NSMenu const& shown) { return MenuTracker::windowOfMenu(shown)->frame(); }

    Ref<ButtonReceiver> buttonReceiver;
    Ref<NSPopUpButton> button;
};

// MARK: items and selection

TEST_F(PopUpTest, SelectsTheFirstItem)
{
    EXPECT_EQ(button->indexOfSelectedItem(), 0);
    EXPECT_EQ(button->titleOfSelectedItem(), "Small");
    EXPECT_EQ(button->title(), "Small");
    EXPECT_EQ(button->itemAtIndex(0)->state(), NSOnState);
}

TEST_F(PopUpTest, ItsValueIsTheIndexOfTheSelectedItem)
{
    button->selectItemAtIndex(2);
    EXPECT_EQ(button->intValue(), 2);
    EXPECT_EQ(button->cell()->objectValue(), ObjectValue(2));
    EXPECT_EQ(button->stringValue(), "Large");
    button->setIntValue(1);
    EXPECT_EQ(button->titleOfSelectedItem(), "Medium");
    button->setIntValue(7);
    EXPECT_EQ(button->indexOfSelectedItem(), -1);
}

TEST_F(PopUpTest, SelectingMovesTheCheckMark)
{
    button->selectItemWithTitle("Large");
    EXPECT_EQ(button->itemAtIndex(0)->state(), NSOffState);
    EXPECT_EQ(button->itemAtIndex(2)->state(), NSOnState);
    button->selectItemWithTitle("Huge");
    EXPECT_EQ(button->selectedItem(), nullptr);
    EXPECT_EQ(button->itemAtIndex(2)->state(), NSOffState);
    EXPECT_EQ(button->title(), "");
}

TEST_F(PopUpTest, MayLeaveTheStatesAlone)
{
    static_cast<NSPopUpButtonCell*>(button->cell())->setAltersStateOfSelectedItem(false);
    button->selectItemAtIndex(1);
    EXPECT_EQ(button->itemAtIndex(0)->state(), NSOffState);
    EXPECT_EQ(button->itemAtIndex(1)->state(), NSOffState);
}

TEST_F(PopUpTest, SelectingBeyondTheEndRaises)
{
    EXPECT_THROW(button->selectItemAtIndex(3), NSRangeException);
    EXPECT_EQ(button->indexOfSelectedItem(), 0);
    button->selectItemAtIndex(-1);
    EXPECT_EQ(button->indexOfSelectedItem(), -1);
}

TEST_F(PopUpTest, AnItemOfTheSameTitleIsReplaced)
{
    button->addItemWithTitle("Small");
    EXPECT_EQ(button->itemTitles(), (Strings { "Medium", "Large", "Small" }));
    button->insertItemWithTitle("Large", 0);
    EXPECT_EQ(button->itemTitles(), (Strings { "Large", "Medium", "Small" }));
}

TEST_F(PopUpTest, ATitleThatIsNotThereIsAdded)
{
    button->setTitle("Huge");
    EXPECT_EQ(button->numberOfItems(), 4);
    EXPECT_EQ(button->titleOfSelectedItem(), "Huge");
    button->setTitle("Medium");
    EXPECT_EQ(button->numberOfItems(), 4);
    EXPECT_EQ(button->titleOfSelectedItem(), "Medium");
}

TEST_F(PopUpTest, RemovingTheSelectedItemSelectsTheFirst)
{
    button->selectItemAtIndex(2);
    button->removeItemAtIndex(2);
    EXPECT_EQ(button->titleOfSelectedItem(), "Small");
    button->removeAllItems();
    EXPECT_EQ(button->indexOfSelectedItem(), -1);
    EXPECT_EQ(button->title(), "");
    button->addItemWithTitle("New");
    EXPECT_EQ(button->titleOfSelectedItem(), "New");
}

TEST_F(PopUpTest, ATitleThatChangesIsShown)
{
    button->itemAtIndex(0)->setTitle("Tiny");
    EXPECT_EQ(button->title(), "Tiny");
}

TEST_F(PopUpTest, ShowsTheImageOfTheSelectedItem)
{
    auto const image = make<NSImage>(Size { 16, 16 });
    button->itemAtIndex(1)->setImage(image);
    EXPECT_EQ(button->cell()->image(), nullptr);
    button->selectItemAtIndex(1);
    EXPECT_EQ(button->cell()->image(), image.get());
}

TEST_F(PopUpTest, IsAsWideAsItsWidestItem)
{
    float const before = button->cell()->cellSize().width;
    button->addItemWithTitle("A choice that is a good deal wider than all the others");
    EXPECT_GT(button->cell()->cellSize().width, before + 100);
    EXPECT_EQ(button->titleOfSelectedItem(), "Small");
}

TEST_F(PopUpTest, FindsItems)
{
    button->itemAtIndex(1)->setTag(42);
    button->itemAtIndex(2)->setRepresentedObject("L");
    EXPECT_EQ(button->indexOfItemWithTag(42), 1);
    EXPECT_EQ(button->indexOfItemWithTag(43), -1);
    EXPECT_EQ(button->indexOfItemWithTitle("Large"), 2);
    EXPECT_EQ(button->indexOfItemWithRepresentedObject("L"), 2);
    EXPECT_EQ(button->indexOfItem(button->lastItem()), 2);
    EXPECT_EQ(button->indexOfItem(nullptr), -1);
    EXPECT_EQ(button->itemAtIndex(3), nullptr);
    button->selectItemAtIndex(1);
    EXPECT_EQ(button->selectedTag(), 42);
}

TEST_F(PopUpTest, ACopyOfTheCellHasItemsOfItsOwn)
{
    button->selectItemAtIndex(1);
    auto const copy = button->cell()->copy();
    auto& cell = static_cast<NSPopUpButtonCell&>(*copy);
    EXPECT_EQ(cell.itemTitles(), (Strings { "Small", "Medium", "Large" }));
    EXPECT_EQ(cell.indexOfSelectedItem(), 1);
    cell.removeAllItems();
    EXPECT_EQ(button->numberOfItems(), 3);
}

TEST_F(PopUpTest, WithoutAMenuItIsEmpty)
{
    button->setMenu(nullptr);
    button->addItemWithTitle("Nowhere");
    EXPECT_EQ(button->numberOfItems(), 0);
    EXPECT_EQ(button->selectedItem(), nullptr);
    clickButton();
    pump();
    EXPECT_TRUE(buttonReceiver->chosen.empty());
}

TEST_F(PopUpTest, TakesAMenuThatIsShared)
{
    button->setMenu(menu);
    EXPECT_EQ(button->titleOfSelectedItem(), "Apple");
    menu->removeItemAtIndex(0);
    EXPECT_EQ(button->titleOfSelectedItem(), "Banana");
}

// MARK: choosing

TEST_F(PopUpTest, ClickAndClickChoose)
{
    clickButton();
    note(*button->menu());
    clickItem(*button->menu(), 2);
    pump();
    EXPECT_EQ(seen, Strings { "Small" });
    EXPECT_EQ(buttonReceiver->chosen, Strings { "Large" });
    EXPECT_EQ(button->itemAtIndex(2)->state(), NSOnState);
    EXPECT_EQ(button->title(), "Large");
}

TEST_F(PopUpTest, PressDragReleaseChooses)
{
    person().press(centerOnScreen(*button));
    person().then([this] {
        auto const place = placeOf(*button->menu(), 1);
        person().dragTo(place);
        person().release(place);
    });
    pump();
    EXPECT_EQ(buttonReceiver->chosen, Strings { "Medium" });
    EXPECT_FALSE(button->menu()->isTracking());
}

TEST_F(PopUpTest, TheSelectedItemLiesOverTheButton)
{
    button->selectItemAtIndex(2);
    Rect item;
    clickButton();
    person().then([&] {
        auto const* content = MenuTracker::windowOfMenu(*button->menu())->contentView();
        auto const rect = static_cast<MenuView const*>(content)->rectOfItem(2);
        item = { onScreen(*content, { 0, 0 }).x, onScreen(*content, { 0, rect.midY() }).y, rect.width, rect.height };
    });
    dismiss();
    pump();
    EXPECT_NEAR(item.y, centerOnScreen(*button).y, 1.5F);
    EXPECT_GE(item.width, button->frame().width - 12);
}

TEST_F(PopUpTest, IsPressedAsLongAsItsMenuIsOpen)
{
    std::vector<bool> highlighted;
    auto const look = [&] { person().then([&] { highlighted.push_back(button->cell()->isHighlighted()); }); };
    look();
    clickButton();
    look();
    dismiss();
    look();
    pump();
    EXPECT_EQ(highlighted, (std::vector<bool> { false, true, false }));
    EXPECT_TRUE(buttonReceiver->chosen.empty());
}

TEST_F(PopUpTest, ADisabledOneStaysClosed)
{
    button->setEnabled(false);
    clickButton();
    person().then([this] { seen.push_back(button->menu()->isTracking() ? "open" : "closed"); });
    pump();
    EXPECT_EQ(seen, Strings { "closed" });
}

TEST_F(PopUpTest, TheWheelChangesNothing)
{
    window->makeFirstResponder(button.get());
    scroll(*button, 0, 3);
    scroll(*button, 0, -3);
    EXPECT_EQ(button->indexOfSelectedItem(), 0);
    EXPECT_TRUE(buttonReceiver->chosen.empty());
}

TEST_F(PopUpTest, KeysOpenItAndChoose)
{
    for (char32_t const key : { U' ', char32_t { NSDownArrowFunctionKey }, char32_t { NSUpArrowFunctionKey } }) {
        button->selectItemAtIndex(0);
        window->makeFirstResponder(button.get());
        press(key);
        note(*button->menu());
        press(NSDownArrowFunctionKey);
        press(NSCarriageReturnCharacter);
        pump();
    }
    EXPECT_EQ(seen, (Strings { "Small", "Small", "Small" }));
    EXPECT_EQ(buttonReceiver->chosen, (Strings { "Medium", "Medium", "Medium" }));
}

TEST_F(PopUpTest, TypingAheadChooses)
{
    clickButton();
    person().type("la");
    press(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(buttonReceiver->chosen, Strings { "Large" });
}

TEST_F(PopUpTest, AnItemsOwnActionGoesBeforeTheButtons)
{
    button->itemAtIndex(1)->setTarget(Ref<NSObject>(receiver));
    button->itemAtIndex(1)->setAction(Selector("act:"));
    clickButton();
    clickItem(*button->menu(), 1);
    pump();
    EXPECT_EQ(receiver->chosen, Strings { "Medium" });
    EXPECT_TRUE(buttonReceiver->chosen.empty());
    EXPECT_EQ(button->titleOfSelectedItem(), "Medium");
}

TEST_F(PopUpTest, AKeyEquivalentChoosesWhileItIsClosed)
{
    button->itemAtIndex(2)->setTarget(Ref<NSObject>(receiver));
    button->itemAtIndex(2)->setAction(Selector("act:"));
    button->itemAtIndex(2)->setKeyEquivalent("l");
    key(U'l', NSCommandKeyMask);
    EXPECT_EQ(receiver->chosen, Strings { "Large" });
}

// MARK: pulling down

TEST_F(PopUpTest, OneThatPullsDownKeepsItsTitle)
{
    button = addButton({ 100, 150, 140, 26 }, true);
    EXPECT_EQ(button->title(), "Small");
    clickButton();
    person().then([this] { person().click(placeOf(*button->menu(), 1)); });
    pump();
    EXPECT_EQ(buttonReceiver->chosen, Strings { "Medium" });
    EXPECT_EQ(button->title(), "Small");
    EXPECT_EQ(button->itemAtIndex(1)->state(), NSOffState);
}

TEST_F(PopUpTest, OneThatPullsDownShowsItsMenuBelowWithoutTheTitle)
{
    button = addButton({ 100, 150, 140, 26 }, true);
    Rect frame;
    Rect first;
    clickButton();
    person().then([&] {
        frame = frameOf(*button->menu());
        first = static_cast<MenuView*>(MenuTracker::windowOfMenu(*button->menu())->contentView())->rectOfItem(0);
    });
    dismiss();
    pump();
    EXPECT_FLOAT_EQ(frame.maxY(), onScreen(*button, { 0, button->bounds().maxY() }).y);
    EXPECT_EQ(first.height, 0);
    EXPECT_FALSE(button->itemAtIndex(0)->isHidden());
}

TEST_F(PopUpTest, OneThatPullsDownOpensUpwardsAtTheScreensEnd)
{
    auto const low = showWindow({ 300, 4, 200, 40 }, NSBorderlessWindowMask);
    button = make<NSPopUpButton>(Rect { 10, 4, 140, 26 }, true);
    button->addItemsWithTitles({ "Title", "One", "Two", "Three" });
    low->contentView()->addSubview(*button);
    pump();
    Rect frame;
    clickButton();
    person().then([&] { frame = frameOf(*button->menu()); });
    dismiss();
    pump();
    EXPECT_GE(frame.y, onScreen(*button, { 0, 0 }).y);
}

// MARK: hosts that misbehave

TEST_F(PopUpTest, SurvivesItsRemovalWhileItIsOpen)
{
    button->itemAtIndex(1)->setTarget(Ref<NSObject>(receiver));
    button->itemAtIndex(1)->setAction(Selector("act:"));
    clickButton();
    person().then([this] {
        button->removeFromSuperview();
        button = nullptr;
    });
    person().moveMouse({ 5, 5 });
    pump();
    EXPECT_TRUE(receiver->chosen.empty());
    EXPECT_TRUE(view->subviews().empty());
}

TEST_F(PopUpTest, SurvivesItemsThatGoWhileItIsOpen)
{
    clickButton();
    person().then([this] { button->removeAllItems(); });
    person().click({ 5, 5 });
    pump();
    EXPECT_FALSE(window->contentView()->subviews().empty());
    EXPECT_EQ(button->numberOfItems(), 0);
    EXPECT_TRUE(buttonReceiver->chosen.empty());
}

}
}

#include <tests/support/TextTest.h>
#include <tests/support/pixels.h>

#include <plix/platform/appkit/ComboList.h>
#include <plix/platform/appkit/NSComboBox.h>
#include <plix/platform/appkit/NSComboBoxCell.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/NSDateFormatter.h>

#include <functional>

namespace plix {
namespace {

using Strings = std::vector<std::string>;

class ComboTarget : public NSObject {
    PLIX_CLASS(ComboTarget, NSObject);

public:
    void act(NSObject* sender)
    {
        if (auto const* control = dynamic_cast<NSControl*>(sender))
            values.push_back(control->stringValue());
    }
    Strings values;
};

PLIX_DESCRIBE(ComboTarget)
{
    description.action("act:", &ComboTarget::act);
}

class Cities : public NSObject {
public:
    long numberOfItemsInComboBox(NSComboBox&)
    {
        ++asked;
        return count;
    }
    ObjectValue objectValueForItemAtIndex(NSComboBox&, long index) { return "City " + std::to_string(index); }
    long indexOfItemWithStringValue(NSComboBox&, std::string_view text)
    {
        return text.starts_with("City ") ? intValue(text.substr(5)) : -1;
    }
    std::optional<std::string> completedString(NSComboBox&, std::string_view typed)
    {
        return typed == "C" ? std::optional<std::string>("City 7") : std::nullopt;
    }
    long count { 100000 };
    int asked { 0 };
};

class ComboDelegate : public NSObject {
public:
    void comboBoxWillPopUp(NSNotification const&)
    {
        told.push_back("open");
        if (onOpen)
            onOpen();
    }
    void comboBoxWillDismiss(NSNotification const&) { told.push_back("close"); }
    void comboBoxSelectionDidChange(NSNotification const&) { told.push_back("selection"); }
    void comboBoxSelectionIsChanging(NSNotification const&) { told.push_back("changing"); }
    void controlTextDidChange(NSNotification const&) { told.push_back("text"); }
    Strings told;
    std::function<void()> onOpen;
};

class ComboTest : public TextTest {
protected:
    void SetUp() override
    {
        TextTest::SetUp();
        box = make<NSComboBox>(Rect { 20, 150, 160, 22 });
        box->addItemsWithObjectValues({ "Apple", "Banana", "Cherry", "Date", "Elderberry", "Fig", "Grape" });
        target = make<ComboTarget>();
        box->setTarget(Ref<NSObject>(target));
        box->setAction(Selector("act:"));
        window->contentView()->addSubview(*box);
        pump();
    }
    Point button() const { return onScreen(*box, { 152, 11 }); }
    static Point middleOf(long index)
    {
        auto const rect = ComboList::rectOfItem(index);
        return { rect.midX(), rect.midY() };
    }
    void later(std::function<void()> step) { person().then(std::move(step)); }
    void noteOpen()
    {
        later([this] { seen.push_back(ComboList::window() ? "open" : "closed"); });
    }
    void press(char32_t key) { person().key(key, 0); }

    Ref<NSComboBox> box;
    Ref<ComboTarget> target;
    Strings seen;
};

// MARK: the list

TEST_F(ComboTest, ClickAndClickChoose)
{
    person().click(button());
    noteOpen();
    later([this] { person().click(middleOf(2)); });
    noteOpen();
    pump();
    EXPECT_EQ(seen, (Strings { "open", "closed" }));
    EXPECT_EQ(box->stringValue(), "Cherry");
    EXPECT_EQ(box->indexOfSelectedItem(), 2);
    EXPECT_EQ(target->values, Strings { "Cherry" });
}

TEST_F(ComboTest, PressDragReleaseChooses)
{
    person().press(button());
    later([this] {
        person().dragTo(middleOf(3));
        person().release(middleOf(3));
    });
    pump();
    EXPECT_EQ(box->stringValue(), "Date");
    EXPECT_EQ(target->values, Strings { "Date" });
}

TEST_F(ComboTest, ReleasingElsewhereOrEscapeLeavesTheValue)
{
    box->setStringValue("mine");
    person().click(button());
    press(NSEscapeCharacter);
    noteOpen();
    person().click(button());
    later([this] { person().click(onScreen(*window->contentView(), { 390, 5 })); });
    noteOpen();
    pump();
    EXPECT_EQ(seen, (Strings { "closed", "closed" }));
    EXPECT_EQ(box->stringValue(), "mine");
    EXPECT_TRUE(target->values.empty());
}

TEST_F(ComboTest, TheDownArrowOpensAndKeysChoose)
{
    window->makeFirstResponder(box.get());
    press(NSDownArrowFunctionKey);
    noteOpen();
    press(NSDownArrowFunctionKey);
    press(NSDownArrowFunctionKey);
    press(NSUpArrowFunctionKey);
    press(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(seen, Strings { "open" });
    EXPECT_EQ(box->stringValue(), "Apple");
    EXPECT_NE(box->currentEditor(), nullptr);
    EXPECT_EQ(box->currentEditor()->selectedRange(), (NSRange { 0, 5 }));
}

TEST_F(ComboTest, PagesOfKeysStayWithinTheList)
{
    window->makeFirstResponder(box.get());
    press(NSDownArrowFunctionKey);
    for (int i = 0; i < 5; ++i)
        press(NSPageDownFunctionKey);
    press(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(box->stringValue(), "Grape");
}

TEST_F(ComboTest, BeginsAtTheItemWithTheFieldsText)
{
    box->setStringValue("Elderberry");
    window->makeFirstResponder(box.get());
    press(NSDownArrowFunctionKey);
    press(NSDownArrowFunctionKey);
    press(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(box->stringValue(), "Fig");
}

TEST_F(ComboTest, TypingGoesOnWhileTheListIsOpen)
{
    window->makeFirstResponder(box.get());
    press(NSDownArrowFunctionKey);
    person().type("Date");
    press(NSCarriageReturnCharacter);
    noteOpen();
    pump();
    EXPECT_EQ(seen, Strings { "closed" });
    EXPECT_EQ(box->stringValue(), "Date");
    EXPECT_EQ(box->indexOfSelectedItem(), 3);
}

TEST_F(ComboTest, TheListIsAsHighAsItsVisibleItems)
{
    std::vector<Rect> frames;
    auto const open = [&] {
        person().click(button());
        later([&] { frames.push_back(ComboList::window()->frame()); });
        press(NSEscapeCharacter);
        pump();
    };
    open();
    box->setNumberOfVisibleItems(3);
    open();
    box->setNumberOfVisibleItems(100);
    open();
    ASSERT_EQ(frames.size(), 3U);
    EXPECT_EQ(frames[0].height, 5 * 19 + 2);
    EXPECT_EQ(frames[1].height, 3 * 19 + 2);
    EXPECT_EQ(frames[2].height, 7 * 19 + 2);
    EXPECT_EQ(frames[0].width, 160);
    EXPECT_EQ(frames[0].maxY(), onScreen(*box, { 0, 22 }).y);
}

TEST_F(ComboTest, TheListGoesAboveAtTheScreensEnd)
{
    window->setFrameOrigin({ 100, NSScreen::mainScreen().visibleFrame().y - 140 });
    pump();
    Rect frame;
    person().click(button());
    later([&] { frame = ComboList::window()->frame(); });
    press(NSEscapeCharacter);
    pump();
    EXPECT_EQ(frame.y, onScreen(*box, { 0, 0 }).y);
}

TEST_F(ComboTest, TheWheelScrollsTheListAndNeverTheClosedField)
{
    scroll(*box, 0, -3);
    EXPECT_EQ(box->stringValue(), "");
    EXPECT_EQ(box->indexOfSelectedItem(), -1);
    std::vector<float> places;
    person().click(button());
    later([&] { places.push_back(ComboList::rectOfItem(0).y); });
    later([&] {
        person().moveMouse(middleOf(1));
        person().scroll(middleOf(1), 0, -1);
    });
    later([&] { places.push_back(ComboList::rectOfItem(0).y); });
    press(NSEscapeCharacter);
    pump();
    ASSERT_EQ(places.size(), 2U);
    EXPECT_GT(places[1], places[0]);
    EXPECT_TRUE(target->values.empty());
}

TEST_F(ComboTest, ADisabledOneStaysClosed)
{
    box->setEnabled(false);
    person().click(button());
    noteOpen();
    pump();
    EXPECT_EQ(seen, Strings { "closed" });
}

TEST_F(ComboTest, AnEmptyListDoesNotOpen)
{
    box->removeAllItems();
    person().click(button());
    noteOpen();
    pump();
    EXPECT_EQ(seen, Strings { "closed" });
}

TEST_F(ComboTest, LosingTheFocusClosesTheList)
{
    person().click(button());
    person().focusNothing();
    person().then([] {});
    noteOpen();
    pump();
    EXPECT_EQ(seen, Strings { "closed" });
}

TEST_F(ComboTest, ClickingTheTextEditsIt)
{
    person().click(onScreen(*box, { 20, 11 }));
    noteOpen();
    pump();
    EXPECT_EQ(seen, Strings { "closed" });
    EXPECT_NE(box->currentEditor(), nullptr);
}

// MARK: completion

TEST_F(ComboTest, CompletesWhatIsTyped)
{
    box->setCompletes(true);
    window->makeFirstResponder(box.get());
    type("b");
    EXPECT_EQ(box->currentEditor()->string(), "Banana");
    EXPECT_EQ(box->currentEditor()->selectedRange(), (NSRange { 1, 5 }));
    type("a");
    EXPECT_EQ(box->currentEditor()->selectedRange(), (NSRange { 2, 4 }));
    key(NSDeleteCharacter);
    EXPECT_EQ(box->currentEditor()->string(), "Ba");
    type("x");
    EXPECT_EQ(box->currentEditor()->string(), "Bax");
}

TEST_F(ComboTest, CompletesNothingUnlessItIsAsked)
{
    window->makeFirstResponder(box.get());
    type("b");
    EXPECT_EQ(box->currentEditor()->string(), "b");
}

// MARK: items

TEST_F(ComboTest, ItemsComeAndGo)
{
    box->insertItemWithObjectValue("Blueberry", 1);
    EXPECT_EQ(box->itemObjectValueAtIndex(1), ObjectValue("Blueberry"));
    box->selectItemAtIndex(3);
    box->removeItemAtIndex(0);
    EXPECT_EQ(box->indexOfSelectedItem(), 2);
    box->removeItemWithObjectValue("Cherry");
    EXPECT_EQ(box->indexOfSelectedItem(), -1);
    EXPECT_EQ(box->indexOfItemWithObjectValue("Date"), 2);
    EXPECT_EQ(box->indexOfItemWithObjectValue("Apple"), -1);
    box->removeItemWithObjectValue("Apple");
    EXPECT_EQ(box->numberOfItems(), 6);
    box->selectItemWithObjectValue("Fig");
    EXPECT_EQ(box->objectValueOfSelectedItem(), ObjectValue("Fig"));
    box->deselectItemAtIndex(box->indexOfSelectedItem());
    EXPECT_TRUE(box->objectValueOfSelectedItem().isNil());
    EXPECT_EQ(box->stringValue(), "");
}

TEST_F(ComboTest, IndexesOutsideRaise)
{
    EXPECT_THROW(box->selectItemAtIndex(7), NSRangeException);
    EXPECT_THROW(box->removeItemAtIndex(-1), NSRangeException);
    EXPECT_THROW(box->insertItemWithObjectValue("x", 8), NSRangeException);
    EXPECT_THROW((void)box->itemObjectValueAtIndex(7), NSRangeException);
}

TEST_F(ComboTest, ADataSourceGivesTheItems)
{
    auto const cities = make<Cities>();
    box->setUsesDataSource(true);
    box->setDataSource(cities);
    EXPECT_EQ(box->numberOfItems(), 100000);
    EXPECT_THROW(box->addItemWithObjectValue("x"), std::logic_error);
    box->setStringValue("City 50000");
    window->makeFirstResponder(box.get());
    press(NSDownArrowFunctionKey);
    press(NSDownArrowFunctionKey);
    press(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(box->stringValue(), "City 50001");
    box->setCompletes(true);
    box->setStringValue("");
    window->makeFirstResponder(box.get());
    type("C");
    EXPECT_EQ(box->currentEditor()->string(), "City 7");
}

TEST_F(ComboTest, ADataSourceMayBeGoneOrLie)
{
    box->setUsesDataSource(true);
    EXPECT_EQ(box->numberOfItems(), 0);
    box->setDataSource(make<Cities>()); // held by nobody
    EXPECT_EQ(box->numberOfItems(), 0);
    auto const cities = make<Cities>();
    cities->count = 5;
    box->setDataSource(cities);
    person().click(button());
    later([&] {
        cities->count = 0;
        person().click(middleOf(2));
    });
    pump();
    EXPECT_EQ(box->stringValue(), "");
    cities->count = -4;
    EXPECT_EQ(box->numberOfItems(), 0);
}

TEST_F(ComboTest, TheDelegateIsTold)
{
    auto const delegate = make<ComboDelegate>();
    box->setDelegate(delegate);
    person().click(button());
    later([this] { person().moveMouse(middleOf(1)); });
    later([this] { person().click(middleOf(1)); });
    pump();
    EXPECT_EQ(delegate->told, (Strings { "open", "changing", "close", "selection" }));
    delegate->told.clear();
    type("x");
    EXPECT_EQ(delegate->told, Strings { "text" });
}

TEST_F(ComboTest, TheFormatterShowsTheItems)
{
    box->removeAllItems();
    box->setFormatter(make<NSDateFormatter>("%Y", false));
    box->addItemWithObjectValue(NSDate::dateWithTimeIntervalSinceReferenceDate(0));
    auto const& cell = static_cast<NSComboBoxCell const&>(*box->cell());
    EXPECT_EQ(cell.textOfItem(0), "2001");
}

TEST_F(ComboTest, SurvivesItsEndWhileTheListIsOpen)
{
    person().click(button());
    later([this] {
        box->removeFromSuperview();
        box = nullptr;
    });
    person().moveMouse({ 5, 5 });
    noteOpen();
    pump();
    EXPECT_EQ(seen, Strings { "closed" });
    EXPECT_TRUE(target->values.empty());
}

TEST_F(ComboTest, SurvivesADelegateThatEmptiesItAsItOpens)
{
    auto const delegate = make<ComboDelegate>();
    delegate->onOpen = [this] { box->removeAllItems(); };
    box->setDelegate(delegate);
    person().click(button());
    noteOpen();
    pump();
    EXPECT_EQ(seen, Strings { "closed" });
}

TEST_F(ComboTest, TextStopsBeforeTheButton)
{
    auto const* cell = box->cell();
    EXPECT_LE(cell->drawingRectForBounds(box->bounds()).maxX(), 140);
    EXPECT_EQ(make<NSComboBoxCell>("x")->cellSize().width, make<NSTextFieldCell>("x")->cellSize().width + 20);
}

TEST_F(ComboTest, IsArchived)
{
    box->setStringValue("Fig");
    box->setNumberOfVisibleItems(9);
    box->setCompletes(true);
    auto const data = NSArchiver::archivedDataWithRootObject(box);
    auto const again = NSUnarchiver::unarchiveObjectWithData(*data)->as<NSComboBox>();
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->stringValue(), "Fig");
    EXPECT_EQ(again->numberOfItems(), 7);
    EXPECT_EQ(again->numberOfVisibleItems(), 9);
    EXPECT_TRUE(again->completes());
}

}
}

#include <examples/gallery/Form.h>
#include <examples/gallery/Transcript.h>
#include <examples/gallery/pages.h>

#include <plix/app/PLIXApplication.h>
#include <plix/inspector/inspector.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSBox.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSComboBox.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/NSSplitView.h>
#include <plix/platform/appkit/NSTabView.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/foundation/NSRunLoop.h>

#include <tests/support/HeadlessTest.h>

#include <gmock/gmock.h>

#include <algorithm>

namespace gallery {
namespace {

using namespace plix;

/// A page in a window of its own, used by a person.
class ControlPages : public HeadlessTest {
protected:
    void TearDown() override
    {
        closeInspector();
        for (auto const& window : app().windows())
            window->close();
        m_window = nullptr;
        // What was counting ends with its page.
        pass(1);
        EXPECT_FALSE(NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode));
    }

    void open(std::string_view name)
    {
        auto const all = pages();
        auto const page = std::find_if(all.begin(), all.end(), [&](Page const& one) { return one.name == name; });
        ASSERT_NE(page, all.end()) << name;
        auto const view = page->makeView();
        m_window = showWindowWith(view, { 100, 200, view->frame().width, view->frame().height });
    }
    NSWindow& window() { return *m_window; }

    /// The n-th of that class, from back to front and deeper ones in between.
    template <typename View> View& find(long number = 0)
    {
        return find<View>(number, [](View&) { return true; });
    }
    template <typename View, typename Condition> View& find(long number, Condition const& fits)
    {
        View* found = nullptr;
        walk(*m_window->contentView(), [&](NSView& view) {
            auto* const one = dynamic_cast<View*>(&view);
            if (one && !found && fits(*one) && number-- == 0)
                found = one;
        });
        EXPECT_TRUE(found);
        return *found;
    }
    NSButton& button(std::string_view title)
    {
        return find<NSButton>(0, [&](NSButton& one) { return one.title() == title; });
    }
    void press(std::string_view title) { clickCenter(button(title)); }

    /// The texts of the page's fields.
    std::vector<std::string> texts()
    {
        std::vector<std::string> all;
        walk(*m_window->contentView(), [&](NSView& view) {
            if (auto* const field = dynamic_cast<NSTextField*>(&view))
                all.push_back(field->stringValue());
        });
        return all;
    }
    bool shows(std::string const& text)
    {
        auto const all = texts();
        return std::find(all.begin(), all.end(), text) != all.end();
    }
    /// What the log's last line says.
    std::string lastLine()
    {
        auto const& log = find<Transcript>();
        return log.expressionAt(log.lineCount() - 1) + " = " + log.resultAt(log.lineCount() - 1);
    }

    template <typename Visit> void forEachView(Visit const& visit) { walk(*m_window->contentView(), visit); }

private:
    template <typename Visit> static void walk(NSView& view, Visit const& visit)
    {
        visit(view);
        for (auto const& subview : view.subviews())
            walk(*subview, visit);
    }

    Ref<NSWindow> m_window;
};

// MARK: buttons and cells

TEST_F(ControlPages, ButtonsSayWhatTheyAre)
{
    open("NSButton");
    press("Italic");
    EXPECT_TRUE(shows("NSButton: Italic"));
    press("Brass");
    EXPECT_EQ(button("Winds").state(), NSOffState);
    key(NSCarriageReturnCharacter);
    EXPECT_TRUE(shows("NSButton: Save"));
}

TEST_F(ControlPages, AKeyPressesAButtonOnce)
{
    open("PLIXButton");
    person().keyDown("n", 0, "n", false);
    pump();
    EXPECT_TRUE(shows("Next Page was pressed 1 time."));
    person().keyUp("n", 0, "n");
    pump();
    EXPECT_TRUE(shows("Next Page was pressed 1 time."));
}

TEST_F(ControlPages, ASegmentedCellHasManyOn)
{
    open("NSSegmentedCell");
    auto& any = find<NSControl>(0, [](NSControl& one) { return one.describedClass().name() == "NSSegmentedControl"; });
    clickCenter(any);
    EXPECT_TRUE(shows("Tags that are on: 20"));
}

TEST_F(ControlPages, StarsAreGivenByTheMouse)
{
    open("NSActionCell");
    auto& rating = find<NSControl>(0, [](NSControl& one) { return one.frame().width == 140; });
    click(rating, { 125, 12 });
    EXPECT_TRUE(shows("The score: 5 of 5"));
}

TEST_F(ControlPages, ABarRunsToItsEnd)
{
    open("NSProgressIndicator");
    press("Run");
    pass(3);
    EXPECT_TRUE(shows("100 %"));
    EXPECT_EQ(find<NSProgressIndicator>().doubleValue(), 100);
}

TEST_F(ControlPages, PicturesAreCopiedFromOneViewToAnother)
{
    open("NSImageView");
    press("Copy Left");
    press("Paste Right");
    EXPECT_TRUE(shows("The right one has a picture now."));
}

TEST_F(ControlPages, ADividerIsDraggedAndAPaneCollapses)
{
    open("NSSplitView");
    auto& split = find<NSSplitView>();
    auto const divider = split.rectOfDivider(0);
    drag(split, { divider.midX(), divider.midY() }, { 10, divider.midY() });
    EXPECT_EQ(split.subviews()[0]->frame().width, 60);
    auto const last = split.rectOfDivider(1);
    click(split, { last.midX(), last.midY() }, { .count = 2 });
    EXPECT_TRUE(split.isSubviewCollapsed(*split.subviews()[2]));
}

// MARK: choices and dates

TEST_F(ControlPages, AComboBoxCompletesWhatIsTyped)
{
    open("NSComboBox");
    auto& combo = find<NSComboBox>();
    click(combo, { 20, 11 });
    type("el");
    key(NSCarriageReturnCharacter);
    EXPECT_TRUE(shows("NSComboBox: Elderberry"));
}

TEST_F(ControlPages, AKnobInATableOpensAList)
{
    open("TQComboBoxCell");
    auto& table = find<NSTableView>();
    auto const frame = table.frameOfCellAtColumn(1, 1);
    person().click(onScreen(table, { frame.maxX() - 5, frame.midY() }));
    person().key(NSDownArrowFunctionKey);
    person().key(NSCarriageReturnCharacter);
    pump();
    EXPECT_TRUE(shows("Bruno plays the Horn."));
}

TEST_F(ControlPages, ADatePickerTakesDigits)
{
    open("NSDatePicker");
    auto& picker = find<NSControl>(0, [](NSControl& one) { return one.describedClass().name() == "NSDatePicker"; });
    click(picker, { 14, 11 });
    type("9");
    key(NSTabCharacter);
    EXPECT_THAT(texts(), testing::Contains(testing::StartsWith("NSDatePicker: 9/12")));
}

// MARK: menus, tabs and scrolling

TEST_F(ControlPages, AMenuIsChosenFromByMouseAndKey)
{
    open("NSMenu");
    key('i', NSControlKeyMask);
    EXPECT_TRUE(shows("Chosen: Italic"));
    auto& ground = find<NSView>(0, [](NSView& one) { return one.frame().size() == Size { 390, 90 }; });
    person().click(onScreen(ground, { 50, 40 }), { .button = 1 });
    person().key(NSDownArrowFunctionKey);
    person().key(NSCarriageReturnCharacter);
    pump();
    EXPECT_TRUE(shows("Chosen: Bold"));
}

TEST_F(ControlPages, AnItemOfAMenuIsEnabledByItsTarget)
{
    open("NSMenuValidation");
    auto& popUp = find<NSPopUpButton>();
    popUp.menu()->update();
    EXPECT_TRUE(popUp.itemAtIndex(1)->isEnabled());
    popUp.menu()->performActionForItemAtIndex(1);
    EXPECT_TRUE(shows("desserts"));
    popUp.menu()->performActionForItemAtIndex(2);
    popUp.menu()->update();
    EXPECT_FALSE(popUp.itemAtIndex(1)->isEnabled());
}

TEST_F(ControlPages, TabsAreChosenAndAdded)
{
    open("NSTabView");
    auto& tabs = find<NSTabView>();
    auto const fonts = tabs.rectForTabViewItem(*tabs.tabViewItemAtIndex(1));
    click(tabs, { fonts.midX(), fonts.midY() });
    EXPECT_TRUE(shows("Selected: Fonts"));
    open("NSTabViewItem");
    press("Add");
    EXPECT_TRUE(shows("3 items"));
}

TEST_F(ControlPages, TheWheelScrolls)
{
    open("NSScrollView");
    scroll(find<NSScrollView>(), 0, -3);
    pass(1);
    EXPECT_EQ(find<NSScrollView>().documentVisibleRect().y, 180);
    EXPECT_THAT(texts(), testing::Contains(testing::StartsWith("Visible from (0, 180)")));
    open("NSScroller");
    auto& scroller = find<NSScroller>();
    click(scroller, { 370, 7 });
    EXPECT_FALSE(shows("Drag a knob, press beside it, hold an arrow."));
    EXPECT_GT(scroller.floatValue(), 0.3F);
}

// MARK: tables

TEST_F(ControlPages, ATableIsSortedByAClickAndEdited)
{
    open("NSTableHeaderView");
    auto& table = find<NSTableView>();
    auto const year = table.tableHeaderView()->headerRectOfColumn(2);
    click(*table.tableHeaderView(), { year.x + 20, year.midY() });
    EXPECT_TRUE(shows("Sorted by year"));
    open("NSTableView");
    auto& rivers = find<NSTableView>();
    click(rivers, { 30, rivers.rectOfRow(0).midY() });
    type("vi");
    EXPECT_EQ(rivers.selectedRow(), 12);
    key(NSCarriageReturnCharacter);
    EXPECT_EQ(rivers.editedRow(), 12);
    type("Wisla");
    key(NSCarriageReturnCharacter);
    EXPECT_EQ(rivers.preparedCellAtColumn(0, 12)->stringValue(), "Wisla");
    EXPECT_EQ(rivers.editedRow(), 13);
}

TEST_F(ControlPages, RowsAreDraggedToAnotherPlace)
{
    open("NSDraggingInfo");
    auto& table = find<NSTableView>();
    Point const from { 40, table.rectOfRow(0).midY() };
    Point const to { 40, table.rectOfRow(3).y + 1 };
    drag(table, from, to);
    EXPECT_TRUE(shows("“Tune” moved from place 1"));
}

TEST_F(ControlPages, DeleteTakesARowOutOfTheLibrarysTable)
{
    open("PLIXTableView");
    auto& table = find<NSTableView>();
    click(table, { 30, table.rectOfRow(1).midY() });
    key(NSBackspaceCharacter);
    EXPECT_TRUE(shows("Deleted: Water Music"));
    EXPECT_EQ(table.numberOfRows(), 11);
}

TEST_F(ControlPages, AnOutlineOpensWithTheArrowKeys)
{
    open("NSOutlineView");
    auto& outline = find<NSOutlineView>();
    click(outline, { 60, outline.rectOfRow(4).midY() });
    key(NSRightArrowFunctionKey);
    EXPECT_TRUE(shows("12 rows"));
}

// MARK: text

TEST_F(ControlPages, DigitsAreRefusedAndTypingIsUndone)
{
    open("NSTextView");
    auto& text = find<NSTextView>();
    auto const before = text.string();
    click(text, { 10, 150 });
    type("7");
    EXPECT_TRUE(shows("Digits are refused."));
    type("ab");
    EXPECT_NE(text.string(), before);
    press("Undo");
    EXPECT_EQ(text.string(), before);
}

TEST_F(ControlPages, AFieldTellsOfEachChange)
{
    open("NSTextField");
    click(find<NSTextField>(0, [](NSTextField& one) { return one.isEditable(); }), { 20, 11 });
    type("Ada");
    EXPECT_TRUE(shows("While typing: “Ada”"));
}

// MARK: windows

TEST_F(ControlPages, AnAlertIsAnsweredByAKey)
{
    open("TQAlert");
    person().click(centerOnScreen(button("As a Window")));
    person().key(NSEscapeCharacter);
    pump();
    EXPECT_TRUE(shows("Cancel"));
    person().click(centerOnScreen(button("As a Sheet")));
    person().key(NSCarriageReturnCharacter);
    pump();
    EXPECT_TRUE(shows("Save"));
}

TEST_F(ControlPages, ARangeOfDatesIsEntered)
{
    open("TQDateRangePanel");
    person().click(centerOnScreen(button("Enter Dates")));
    person().key(NSCarriageReturnCharacter);
    pump();
    EXPECT_TRUE(shows("From 2027-03-14 to 2027-12-28"));
}

TEST_F(ControlPages, AWindowOfADocumentOpens)
{
    open("NSNib");
    auto const before = app().windows().size();
    press("Open Another");
    ASSERT_EQ(app().windows().size(), before + 1);
    EXPECT_EQ(app().keyWindow()->title(), "From a document");
}

TEST_F(ControlPages, AModalSessionCounts)
{
    open("NSModalSession");
    press("To a Hundred");
    pass(10);
    EXPECT_TRUE(shows("Counted to 100"));
}

TEST_F(ControlPages, AProgressWindowIsCancelled)
{
    open("PLIXProgressWindow");
    press("One That Runs");
    pass(1);
    key(NSEscapeCharacter);
    EXPECT_THAT(texts(), testing::Contains(testing::StartsWith("Cancelled at ")));
}

// MARK: events and the application

TEST_F(ControlPages, EventsAndCommandsAreWrittenDown)
{
    open("NSEvent");
    auto& pad = find<NSView>(0, [](NSView& one) { return one.frame().size() == Size { 520, 90 }; });
    click(pad, { 100, 40 });
    EXPECT_THAT(lastLine(), testing::HasSubstr("clickCount() 1"));
    type("x");
    EXPECT_EQ(lastLine(), "Key up = characters() \"x\"");
    open("NSResponder");
    clickCenter(find<NSView>(0, [](NSView& one) { return one.frame().size() == Size { 520, 70 }; }));
    key(NSLeftArrowFunctionKey);
    EXPECT_EQ(lastLine(), "doCommandBySelector() = \"moveLeft:\"");
}

TEST_F(ControlPages, ASheetEndsWithItsNumber)
{
    open("NSApplication");
    press("Begin");
    ASSERT_TRUE(window().attachedSheet());
    key(NSCarriageReturnCharacter);
    EXPECT_TRUE(shows("The sheet ended with 7."));
}

TEST_F(ControlPages, DocumentsOpenAndClose)
{
    open("NSDocumentController");
    press("New");
    EXPECT_TRUE(shows("1 open; “Score 1.score” is the current one."));
    press("Close All");
    EXPECT_TRUE(shows("0 open; none is current."));
}

// MARK: sound and speech

TEST_F(ControlPages, ASoundIsPlayedToItsEnd)
{
    open("NSSound");
    press("Play");
    EXPECT_TRUE(shows("Low A plays."));
    pass(3);
    EXPECT_TRUE(shows("Low A was played to its end."));
}

TEST_F(ControlPages, ATextIsSpoken)
{
    open("NSSpeechSynthesizer");
    press("Speak");
    EXPECT_TRUE(shows("Speaking."));
    pass(20);
    EXPECT_TRUE(shows("Said it all."));
}

// MARK: all of them

TEST_F(ControlPages, EveryButtonOfEveryPageCanBePressed)
{
    long pressed = 0;
    for (auto const& page : pages()) {
        if (std::string_view(page.section) == statesSection || std::string_view(page.section) == welcomeSection)
            continue;
        SCOPED_TRACE(page.name);
        open(page.name);
        for (long number = 0;; ++number) {
            NSButton* next = nullptr;
            long left = number;
            forEachView([&](NSView& view) {
                auto* const button = dynamic_cast<NSButton*>(&view);
                if (button && !dynamic_cast<NSPopUpButton*>(button) && left-- == 0)
                    next = button;
            });
            if (!next)
                break;
            bool const isSeen = next->window() == &window()
                && window().contentView()->hitTest(
                       next->convertPointToView({ next->bounds().midX(), next->bounds().midY() }, nullptr))
                    == next;
            if (!isSeen || !next->isEnabled() || next->title() == "Enter Dates")
                continue;
            person().click(centerOnScreen(*next));
            person().key(NSEscapeCharacter); // menus and alerts wait for an answer
            pump();
            pass(0.1);
            ++pressed;
            if (auto* const sheet = window().attachedSheet())
                app().endSheet(*sheet);
        }
        TearDown();
    }
    EXPECT_GT(pressed, 100);
}

}
}

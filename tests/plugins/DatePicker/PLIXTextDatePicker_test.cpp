#include <tests/support/HeadlessTest.h>
#include <tests/support/TestSurroundings.h>
#include <tests/support/pixels.h>

#include <plugins/DatePicker/calendar_month.h>

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSDatePicker.h>
#include <plix/platform/appkit/theme_palette.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/foundation/NSTimeZone.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/appearance.h>
#include <plix/windows/date_entry.h>
#include <plix/windows/date_entry_loading.h>

#include <limits>

namespace plix {
namespace {

/// A window that notes the events of the application's own type that it is sent.
class EventNoter : public NSWindow {
public:
    using NSWindow::init;
    void sendEvent(NSEvent& event) override
    {
        if (event.type() == NSApplicationDefined)
            subtypes.push_back(event.subtype());
        NSWindow::sendEvent(event);
    }
    std::vector<short> subtypes;
};

class TextDatePickerTest : public HeadlessTest {
protected:
    TextDatePickerTest()
        : TextDatePickerTest(1)
    {
    }
    explicit TextDatePickerTest(float scale)
        : HeadlessTest(scale)
    {
    }
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow();
        picker = entry({ 20, 200, 100, 22 });
        other = entry({ 20, 150, 100, 22 });
        picker->setDateValue(dateOf({ 2027, 3, 14, 9, 5, 30 }));
        pump();
    }
    Ref<NSDatePicker> entry(Rect frame)
    {
        auto const view = makeDateEntry(dateEntryClass(), frame);
        Ref<NSDatePicker> const made(dynamic_cast<NSDatePicker*>(view.get()));
        EXPECT_TRUE(made);
        window->contentView()->addSubview(*made);
        made->setTimeZone(NSTimeZone::timeZoneForSecondsFromGMT(0));
        return made;
    }
    static NSDate dateOf(CalendarFields const& fields) { return NSTimeZone::timeZoneForSecondsFromGMT(0).dateForFields(fields); }
    CalendarFields reading() const
    {
        return NSTimeZone::timeZoneForSecondsFromGMT(0).fieldsForDate(dynamic_cast<DateEntry&>(*picker).dateValue());
    }
    NSDatePickerCell& cell() { return dynamic_cast<NSDatePickerCell&>(*picker->cell()); }
    void clickField(long index)
    {
        auto const rect = cell().rectOfField(index, picker->bounds());
        click(*picker, { rect.midX(), rect.midY() });
    }
    int refusedPixels()
    {
        return countPixels(
            *window->snapshot(), Pixels(window->snapshot()).all(), themeColor(ThemeRole::errorText, Appearance::light));
    }
    Point button() const { return onScreen(*picker, { picker->bounds().maxX() - 8, 11 }); }

    /// The calendar's window while it is open.
    NSWindow* calendar()
    {
        for (auto const& shown : app().orderedWindows()) {
            if (shown->level() == NSPopUpMenuWindowLevel)
                return shown.get();
        }
        return nullptr;
    }
    Point inCalendar(Rect rect) { return onScreen(*calendar()->contentView(), { rect.midX(), rect.midY() }); }
    /// Of the page of March 2027, whose weeks begin on Sundays: 28 February.
    Point march(int day) { return inCalendar(CalendarLayout::ofPage().days[static_cast<std::size_t>(day)]); }
    void press(char32_t character, unsigned modifiers = 0) { person().key(character, modifiers); }
    void later(std::function<void()> step) { person().then(std::move(step)); }
    void noteOpen()
    {
        later([this] { seen.push_back(calendar() != nullptr); });
    }

    TestSurroundings surroundings;
    Ref<NSWindow> window;
    Ref<NSDatePicker> picker;
    Ref<NSDatePicker> other;
    std::vector<bool> seen;
};

// MARK: the fields

TEST_F(TextDatePickerTest, IsAFieldWithADateWithoutTime)
{
    EXPECT_EQ(picker->stringValue(), "3/14/2027");
    EXPECT_EQ(picker->isa().name(), "PLIXTextDatePicker");
    EXPECT_EQ(picker->frame(), (Rect { 20, 200, 100, 22 }));
    EXPECT_EQ(dynamic_cast<DateEntry&>(*picker).dateValue(), dateOf({ 2027, 3, 14, 9, 5, 30 }));
}

TEST_F(TextDatePickerTest, TheDateAndTheButtonFitIntoAHundredPoints)
{
    for (auto const* locale : { "en_US", "de_DE", "fr_FR", "ja_JP", "sv_SE" }) {
        surroundings.locale = locale;
        auto const wide = entry({ 20, 100, 100, 22 });
        auto& wideCell = dynamic_cast<NSDatePickerCell&>(*wide->cell());
        wide->setDateValue(dateOf({ 2028, 12, 28 }));
        auto const last = wideCell.rectOfField(2, wide->bounds());
        EXPECT_LE(last.maxX(), 82) << locale;
        EXPECT_GE(wide->font()->pointSize(), NSFont::smallSystemFontSize()) << locale;
    }
}

TEST_F(TextDatePickerTest, AWideOneHasTextOfTheUsualSize)
{
    picker->setFrameSize({ 200, 22 });
    EXPECT_EQ(picker->font()->pointSize(), NSFont::systemFontSize());
    picker->setFrameSize({ 60, 22 });
    EXPECT_EQ(picker->font()->pointSize(), NSFont::smallSystemFontSize());
}

TEST_F(TextDatePickerTest, EveryDigitCounts)
{
    clickField(0);
    type("12312031");
    EXPECT_EQ(reading(), (CalendarFields { 2031, 12, 31, 9, 5, 30 }));
    picker->setDateValue(dateOf({ 2027, 2, 14 }));
    clickField(0);
    type("02/29/2028");
    EXPECT_EQ(reading(), (CalendarFields { 2028, 2, 29 }));
    surroundings.locale = "de_DE";
    clickField(0);
    type("31.1.2030");
    EXPECT_EQ(reading(), (CalendarFields { 2030, 1, 31 }));
}

TEST_F(TextDatePickerTest, ArrowsChangeTheFieldWithTheCaret)
{
    clickField(1);
    key(NSUpArrowFunctionKey);
    EXPECT_EQ(reading().day, 15);
    key(NSLeftArrowFunctionKey);
    key(NSDownArrowFunctionKey);
    EXPECT_EQ(reading(), (CalendarFields { 2027, 2, 15, 9, 5, 30 }));
}

TEST_F(TextDatePickerTest, AnEmptyFieldIsRefused)
{
    clickField(1);
    key(NSBackspaceCharacter);
    EXPECT_EQ(picker->stringValue(), "3/--/2027");
    key(NSRightArrowFunctionKey);
    EXPECT_EQ(picker->stringValue(), "3/--/2027");
    EXPECT_EQ(refusedPixels(), 0);
    click(*other, { 10, 11 });
    EXPECT_EQ(window->firstResponder(), picker.get());
    EXPECT_EQ(cell().selectedField(), 1);
    EXPECT_GT(refusedPixels(), 50);
    EXPECT_FALSE(window->makeFirstResponder(nullptr));
    type("7");
    EXPECT_EQ(refusedPixels(), 0);
    EXPECT_TRUE(window->makeFirstResponder(nullptr));
    EXPECT_EQ(reading(), (CalendarFields { 2027, 3, 7, 9, 5, 30 }));
}

TEST_F(TextDatePickerTest, TabDoesNotLeaveAnEmptyField)
{
    window->recalculateKeyViewLoop();
    clickField(2);
    key(NSDeleteFunctionKey);
    key(NSTabCharacter);
    EXPECT_EQ(window->firstResponder(), picker.get());
    key(NSEscapeCharacter);
    EXPECT_EQ(picker->stringValue(), "3/14/2027");
    key(NSTabCharacter);
    EXPECT_EQ(window->firstResponder(), other.get());
}

TEST_F(TextDatePickerTest, ADisabledOneGivesTheKeyboardAwayWhateverIsEmpty)
{
    clickField(1);
    key(NSBackspaceCharacter);
    picker->setEnabled(false);
    EXPECT_NE(window->firstResponder(), picker.get());
    person().click(button());
    noteOpen();
    pump();
    EXPECT_EQ(seen, std::vector<bool> { false });
}

// MARK: the calendar

TEST_F(TextDatePickerTest, AClickOnTheButtonOpensTheCalendar)
{
    person().click(button());
    noteOpen();
    later([this] { person().click(march(20)); });
    noteOpen();
    pump();
    EXPECT_EQ(seen, (std::vector<bool> { true, false }));
    EXPECT_EQ(reading(), (CalendarFields { 2027, 3, 20, 9, 5, 30 }));
    EXPECT_EQ(window->firstResponder(), picker.get());
}

TEST_F(TextDatePickerTest, PressDragReleaseChooses)
{
    person().press(button());
    later([this] {
        person().dragTo(march(9));
        person().release(march(9));
    });
    noteOpen();
    pump();
    EXPECT_EQ(seen, std::vector<bool> { false });
    EXPECT_EQ(reading().day, 9);
}

TEST_F(TextDatePickerTest, APressElsewhereDismisses)
{
    person().click(button());
    noteOpen();
    later([this] { person().click(onScreen(*window->contentView(), { 390, 290 })); });
    noteOpen();
    pump();
    EXPECT_EQ(seen, (std::vector<bool> { true, false }));
    EXPECT_EQ(reading().day, 14);
    EXPECT_EQ(window->firstResponder(), picker.get());
}

TEST_F(TextDatePickerTest, ThePagesTurn)
{
    auto const layout = CalendarLayout::ofPage();
    person().click(button());
    later([=, this] {
        person().click(inCalendar(layout.next));
        person().click(inCalendar(layout.next));
        person().click(inCalendar(layout.previous));
        // April 2027 begins on a Thursday.
        person().click(inCalendar(layout.days[4]));
    });
    pump();
    EXPECT_EQ(reading(), (CalendarFields { 2027, 4, 1, 9, 5, 30 }));
    person().click(button());
    later([=, this] {
        person().scroll(inCalendar(layout.title), 0, 1);
        person().key(NSCarriageReturnCharacter);
    });
    pump();
    EXPECT_EQ(reading(), (CalendarFields { 2027, 3, 1, 9, 5, 30 }));
}

TEST_F(TextDatePickerTest, AWheelThatTurnsWithoutEndTurnsAHundredYears)
{
    auto const title = CalendarLayout::ofPage().title;
    std::vector<std::int64_t> years;
    for (float const turn : { 1e9F, std::numeric_limits<float>::infinity(), -1e9F, 0.6F, 0.6F }) {
        person().click(button());
        later([=, this] {
            person().scroll(inCalendar(title), 0, turn);
            person().key(NSCarriageReturnCharacter);
        });
        pump();
        years.push_back(reading().year);
    }
    EXPECT_EQ(years, (std::vector<std::int64_t> { 1927, 1927, 2027, 2027, 2027 }));
    EXPECT_EQ(reading().month, 3);
}

TEST_F(TextDatePickerTest, TheWheelAddsUpPartsOfATurn)
{
    person().click(button());
    later([this] {
        for (float const turn : { -0.5F, -0.25F, -0.5F })
            person().scroll(inCalendar(CalendarLayout::ofPage().title), 0, turn);
        person().key(NSCarriageReturnCharacter);
    });
    pump();
    EXPECT_EQ(reading(), (CalendarFields { 2027, 4, 14, 9, 5, 30 }));
}

TEST_F(TextDatePickerTest, EventsOfTheApplicationAreNotTakenFromIt)
{
    auto const receiver = make<EventNoter>(Rect { 0, 0, 50, 50 }, usualStyle, NSBackingStoreBuffered, false);
    person().click(button());
    later([&] {
        EXPECT_TRUE(calendar());
        app().postEvent(
            *NSEvent::otherEventWithType(NSApplicationDefined, {}, 0, 0, receiver->windowNumber(), nullptr, 7, 0, 0), false);
        press(NSEscapeCharacter);
    });
    pump();
    EXPECT_EQ(receiver->subtypes, std::vector<short> { 7 });
}

TEST_F(TextDatePickerTest, OnlyWhatIsUnderThePointerIsDrawnAnew)
{
    std::vector<Ref<NSBitmapImageRep>> pictures;
    person().click(button());
    later([&] {
        auto const take = [this, &pictures] {
            calendar()->displayIfNeeded();
            pictures.push_back(Ref<NSBitmapImageRep>(calendar()->snapshot()));
        };
        auto& view = *calendar()->contentView();
        take();
        for (int const day : { 10, 20 }) {
            person().moveMouse(march(day));
            later([&view, take] {
                take();
                view.setNeedsDisplay(true);
                take();
            });
        }
        later([this] { press(NSEscapeCharacter); });
    });
    pump();
    ASSERT_EQ(pictures.size(), 5U);
    EXPECT_GT(countDifferences(pictures[0], pictures[1]), 20);
    EXPECT_EQ(countDifferences(pictures[1], pictures[2]), 0);
    EXPECT_GT(countDifferences(pictures[2], pictures[3]), 20);
    EXPECT_EQ(countDifferences(pictures[3], pictures[4]), 0);
}

TEST_F(TextDatePickerTest, TheButtonIsInTheArchive)
{
    auto const archived = [&] {
        auto const back = NSUnarchiver::unarchiveObjectWithData(*NSArchiver::archivedDataWithRootObject(picker));
        auto const view = back ? back->as<NSDatePicker>() : nullptr;
        return view ? view->cell()->cellSize().width : 0;
    };
    float const with = archived();
    EXPECT_EQ(with, cell().cellSize().width);
    dynamic_cast<DateEntry&>(*picker).setShowsDatePickerButton(false);
    EXPECT_LT(cell().cellSize().width, with);
    EXPECT_EQ(archived(), cell().cellSize().width);
}

TEST_F(TextDatePickerTest, ADayOfTheNextMonthMayBeChosen)
{
    person().click(button());
    later([this] { person().click(march(41)); });
    pump();
    EXPECT_EQ(reading(), (CalendarFields { 2027, 4, 10, 9, 5, 30 }));
}

TEST_F(TextDatePickerTest, KeysOpenMoveAndChoose)
{
    struct Row {
        std::vector<std::pair<char32_t, unsigned>> keys;
        CalendarFields expected;
    };
    for (auto const& row : {
             Row { { { NSRightArrowFunctionKey, 0 } }, { 2027, 3, 15 } },
             Row { { { NSLeftArrowFunctionKey, 0 }, { NSUpArrowFunctionKey, 0 } }, { 2027, 3, 6 } },
             Row { { { NSDownArrowFunctionKey, 0 } }, { 2027, 3, 21 } },
             Row { { { NSPageDownFunctionKey, 0 } }, { 2027, 4, 14 } },
             Row { { { NSPageUpFunctionKey, NSShiftKeyMask } }, { 2026, 3, 14 } },
             Row { { { NSPageDownFunctionKey, NSShiftKeyMask } }, { 2028, 3, 14 } },
             Row { { { NSHomeFunctionKey, 0 } }, { 2027, 3, 1 } },
             Row { { { NSEndFunctionKey, 0 } }, { 2027, 3, 31 } },
         }) {
        picker->setDateValue(dateOf({ 2027, 3, 14 }));
        clickField(0);
        press(NSF4FunctionKey);
        noteOpen();
        for (auto const& [character, modifiers] : row.keys)
            press(character, modifiers);
        press(NSCarriageReturnCharacter);
        noteOpen();
        pump();
        EXPECT_EQ(reading(), row.expected) << row.expected.day;
    }
    EXPECT_EQ(std::count(seen.begin(), seen.end(), true), 8);
}

TEST_F(TextDatePickerTest, OptionAndAnArrowOpenAndCloseIt)
{
    clickField(0);
    press(NSDownArrowFunctionKey, NSAlternateKeyMask);
    noteOpen();
    press(NSDownArrowFunctionKey);
    press(NSUpArrowFunctionKey, NSAlternateKeyMask);
    noteOpen();
    press(NSF4FunctionKey);
    press(NSDownArrowFunctionKey);
    press(U' ');
    pump();
    EXPECT_EQ(seen, (std::vector<bool> { true, false }));
    EXPECT_EQ(reading().day, 21);
}

TEST_F(TextDatePickerTest, EscapeLeavesTheDateAndTabGoesOn)
{
    window->recalculateKeyViewLoop();
    clickField(2);
    press(NSF4FunctionKey);
    press(NSDownArrowFunctionKey);
    press(NSEscapeCharacter);
    noteOpen();
    pump();
    EXPECT_EQ(reading().day, 14);
    press(NSF4FunctionKey);
    press(NSTabCharacter);
    noteOpen();
    pump();
    EXPECT_EQ(seen, (std::vector<bool> { false, false }));
    EXPECT_EQ(window->firstResponder(), other.get());
}

TEST_F(TextDatePickerTest, WithoutTheButtonThereIsNoCalendar)
{
    dynamic_cast<DateEntry&>(*picker).setShowsDatePickerButton(false);
    clickField(0);
    press(NSF4FunctionKey);
    noteOpen();
    person().click(button());
    noteOpen();
    pump();
    EXPECT_EQ(seen, (std::vector<bool> { false, false }));
}

TEST_F(TextDatePickerTest, DaysOutsideTheLimitsAreNotChosen)
{
    picker->setMinDate(dateOf({ 2027, 3, 10 }));
    picker->setMaxDate(dateOf({ 2027, 3, 20, 23, 59, 59 }));
    person().click(button());
    later([this] {
        person().click(march(5));
        noteOpen();
        person().key(NSPageUpFunctionKey);
        person().key(NSCarriageReturnCharacter);
    });
    pump();
    EXPECT_EQ(seen, std::vector<bool> { true });
    EXPECT_EQ(reading().day, 10);
}

TEST_F(TextDatePickerTest, TheCalendarGoesWithItsField)
{
    person().click(button());
    later([this] { picker->removeFromSuperview(); });
    noteOpen();
    pump();
    EXPECT_EQ(seen, std::vector<bool> { false });
    window->contentView()->addSubview(*picker);
    seen.clear();
    person().click(button());
    noteOpen();
    person().focusNothing();
    later([] {});
    pump();
    EXPECT_EQ(seen, std::vector<bool> { true });
    EXPECT_EQ(calendar(), nullptr);
}

TEST_F(TextDatePickerTest, AChosenDayFillsWhatWasEmpty)
{
    clickField(1);
    key(NSBackspaceCharacter);
    press(NSF4FunctionKey);
    press(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(picker->stringValue(), "3/14/2027");
    EXPECT_TRUE(window->makeFirstResponder(nullptr));
}

// MARK: looks

class TextDatePickerLooks : public TextDatePickerTest,
                            public testing::WithParamInterface<std::tuple<int, Appearance, char const*>> {
protected:
    TextDatePickerLooks()
        : TextDatePickerTest(static_cast<float>(std::get<0>(GetParam())))
    {
        setCurrentAppearance(std::get<1>(GetParam()));
    }
    ~TextDatePickerLooks() override { setCurrentAppearance(Appearance::light); }
};

TEST_P(TextDatePickerLooks, CalendarsLookAsTheirReferencesShow)
{
    auto const [scale, appearance, locale] = GetParam();
    surroundings.locale = locale;
    machine().headlessClock().setNow(dateOf({ 2027, 3, 20, 12 }));
    Ref<NSBitmapImageRep> picture;
    person().click(button());
    later([&] { person().moveMouse(march(24)); });
    later([&] {
        calendar()->displayIfNeeded();
        picture = calendar()->snapshot();
    });
    press(NSEscapeCharacter);
    pump();
    ASSERT_TRUE(picture);
    auto const name = std::string("plugins/calendar_") + locale + (appearance == Appearance::dark ? "_dark" : "");
    EXPECT_TRUE(matchesReference(picture, scale == 2 ? name + "@2x" : name));
}

TEST_P(TextDatePickerLooks, ARefusedEntryLooksAsItsReferencesShow)
{
    auto const [scale, appearance, locale] = GetParam();
    surroundings.locale = locale;
    window->setContentSize({ 140, 62 });
    picker->setFrameOrigin({ 20, 20 });
    clickField(1);
    key(NSBackspaceCharacter);
    key(NSRightArrowFunctionKey);
    type("20");
    key(NSLeftArrowFunctionKey);
    EXPECT_FALSE(window->makeFirstResponder(nullptr));
    pump();
    auto const name = std::string("plugins/refused_") + locale + (appearance == Appearance::dark ? "_dark" : "");
    EXPECT_TRUE(matchesReference(window->snapshot(), scale == 2 ? name + "@2x" : name));
}

INSTANTIATE_TEST_SUITE_P(Looks, TextDatePickerLooks,
    testing::Combine(
        testing::Values(1, 2), testing::Values(Appearance::light, Appearance::dark), testing::Values("en_US", "de_DE")));

}
}

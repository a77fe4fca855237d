#include <tests/support/HeadlessTest.h>
#include <tests/support/TestSurroundings.h>
#include <tests/support/pixels.h>

#include <plix/platform/appkit/NSDatePicker.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/NSTimeZone.h>

namespace plix {
namespace {

class DateTarget : public NSObject {
    PLIX_CLASS(DateTarget, NSObject);

public:
    void act(NSObject*) { ++calls; }
    int calls { 0 };
};

PLIX_DESCRIBE(DateTarget)
{
    description.action("act:", &DateTarget::act);
}

class NoWeekends : public NSObject {
public:
    void validateProposedDateValue(NSDatePickerCell& cell, NSDate& proposed, NSTimeInterval&)
    {
        while (dayOfWeek(cell.timeZone().fieldsForDate(proposed)) % 6 == 0)
            proposed = proposed.addTimeInterval(86400);
    }
};

class DatePickerTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow();
        picker = make<NSDatePicker>(Rect { 20, 100, 240, 24 });
        picker->setTimeZone(NSTimeZone::timeZoneForSecondsFromGMT(0));
        picker->setDateValue(dateOf({ 2027, 3, 14, 9, 5, 30 }));
        target = make<DateTarget>();
        picker->setTarget(Ref<NSObject>(target));
        picker->setAction(Selector("act:"));
        window->contentView()->addSubview(*picker);
        pump();
    }
    static NSDate dateOf(CalendarFields const& fields) { return NSTimeZone::timeZoneForSecondsFromGMT(0).dateForFields(fields); }
    CalendarFields reading() const { return NSTimeZone::timeZoneForSecondsFromGMT(0).fieldsForDate(picker->dateValue()); }
    NSDatePickerCell& cell() { return *static_cast<NSDatePickerCell*>(picker->cell()); }
    void clickField(long index)
    {
        auto const rect = cell().rectOfField(index, picker->bounds());
        click(*picker, { rect.midX(), rect.midY() });
    }
    long fieldOf(DateFieldKind kind)
    {
        for (long i = 0; i < cell().numberOfFields(); ++i) {
            if (cell().kindOfField(i) == kind)
                return i;
        }
        return -1;
    }

    Ref<NSWindow> window;
    Ref<NSDatePicker> picker;
    Ref<DateTarget> target;
};

TEST_F(DatePickerTest, ShowsTheFieldsOfTheLocale)
{
    EXPECT_EQ(picker->stringValue(), "3/14/2027 9:05 AM");
    picker->setDatePickerElements(NSYearMonthDayDatePickerElementFlag);
    EXPECT_EQ(picker->stringValue(), "3/14/2027");
    picker->setDatePickerElements(NSHourMinuteSecondDatePickerElementFlag);
    EXPECT_EQ(picker->stringValue(), "9:05:30 AM");
    picker->setDatePickerElements(NSYearMonthDatePickerElementFlag);
    EXPECT_EQ(picker->stringValue(), "3/2027");
    picker->setDatePickerElements(0);
    EXPECT_EQ(picker->stringValue(), "");
    key(NSUpArrowFunctionKey);
    EXPECT_EQ(reading(), (CalendarFields { 2027, 3, 14, 9, 5, 30 }));
}

TEST_F(DatePickerTest, ArrowsChangeTheFieldThatWasClicked)
{
    clickField(fieldOf(DateFieldKind::day));
    EXPECT_EQ(window->firstResponder(), picker.get());
    key(NSUpArrowFunctionKey);
    EXPECT_EQ(reading().day, 15);
    key(NSDownArrowFunctionKey);
    key(NSDownArrowFunctionKey);
    EXPECT_EQ(reading().day, 13);
    EXPECT_EQ(target->calls, 3);
}

TEST_F(DatePickerTest, FieldsGoAroundByThemselves)
{
    clickField(fieldOf(DateFieldKind::month));
    for (int i = 0; i < 3; ++i)
        key(NSDownArrowFunctionKey);
    EXPECT_EQ(reading(), (CalendarFields { 2027, 12, 14, 9, 5, 30 }));
    clickField(fieldOf(DateFieldKind::minute));
    for (int i = 0; i < 6; ++i)
        key(NSDownArrowFunctionKey);
    EXPECT_EQ(reading(), (CalendarFields { 2027, 12, 14, 9, 59, 30 }));
}

TEST_F(DatePickerTest, ADayThatTheMonthLacksBecomesItsLast)
{
    picker->setDateValue(dateOf({ 2027, 1, 31, 9, 5, 0 }));
    clickField(fieldOf(DateFieldKind::month));
    key(NSUpArrowFunctionKey);
    EXPECT_EQ(reading(), (CalendarFields { 2027, 2, 28, 9, 5, 0 }));
}

TEST_F(DatePickerTest, DigitsFillAFieldAndGoOn)
{
    clickField(0);
    type("12252031");
    EXPECT_EQ(reading(), (CalendarFields { 2031, 12, 25, 9, 5, 30 }));
    type("4");
    EXPECT_EQ(reading().hour, 4);
    type("45p");
    EXPECT_EQ(reading(), (CalendarFields { 2031, 12, 25, 16, 45, 30 }));
    type("a");
    EXPECT_EQ(reading().hour, 4);
}

TEST_F(DatePickerTest, AYearCountsWhenItIsWhole)
{
    clickField(fieldOf(DateFieldKind::year));
    type("19");
    EXPECT_EQ(reading().year, 2027);
    type("84");
    EXPECT_EQ(reading().year, 1984);
    clickField(fieldOf(DateFieldKind::year));
    type("31");
    key(NSTabCharacter);
    EXPECT_EQ(reading().year, 1931);
    clickField(fieldOf(DateFieldKind::year));
    type("07");
    window->makeFirstResponder(nullptr);
    EXPECT_EQ(reading().year, 1907);
}

TEST_F(DatePickerTest, SeparatorsGoToTheNextField)
{
    clickField(0);
    type("1/2/");
    EXPECT_EQ(reading().month, 1);
    EXPECT_EQ(reading().day, 2);
    EXPECT_EQ(cell().selectedField(), 2);
    key(NSHomeFunctionKey);
    EXPECT_EQ(cell().selectedField(), 0);
    key(NSEndFunctionKey);
    EXPECT_EQ(cell().selectedField(), cell().numberOfFields() - 1);
}

TEST_F(DatePickerTest, ADateMayBeTypedAsItIsWritten)
{
    clickField(0);
    type("12/31/2031 4:45 p");
    EXPECT_EQ(reading(), (CalendarFields { 2031, 12, 31, 16, 45, 30 }));
    clickField(0);
    type("2/29/2028");
    EXPECT_EQ(reading(), (CalendarFields { 2028, 2, 29, 16, 45, 30 }));
}

TEST_F(DatePickerTest, ADigitThatDoesNotFitGoesIntoTheNextField)
{
    clickField(0);
    type("13");
    EXPECT_EQ(reading(), (CalendarFields { 2027, 1, 3, 9, 5, 30 }));
    EXPECT_EQ(cell().selectedField(), fieldOf(DateFieldKind::day));
    type("5");
    EXPECT_EQ(picker->stringValue(), "1/3/5 9:05 AM");
    type("025");
    EXPECT_EQ(reading().year, 5025);
    clickField(fieldOf(DateFieldKind::minute));
    type("59");
    type("7");
    EXPECT_EQ(reading().minute, 59);
}

TEST_F(DatePickerTest, ADigitThatDoesNotFitIntoTheLastFieldBeginsItAnew)
{
    TestSurroundings surroundings;
    surroundings.locale = "sv_SE";
    picker->setDatePickerElements(NSYearMonthDayDatePickerElementFlag);
    ASSERT_EQ(fieldOf(DateFieldKind::day), cell().numberOfFields() - 1);
    auto const beeps = display().beepCount();
    clickField(fieldOf(DateFieldKind::day));
    type("32");
    EXPECT_EQ(reading(), (CalendarFields { 2027, 3, 2, 9, 5, 30 }));
    type("7");
    EXPECT_EQ(reading().day, 27);
    type("4");
    EXPECT_EQ(reading().day, 4);
    EXPECT_EQ(display().beepCount(), beeps);
}

TEST_F(DatePickerTest, ADayWaitsForAMonthThatHasIt)
{
    picker->setDateValue(dateOf({ 2027, 2, 14, 9, 5, 30 }));
    clickField(fieldOf(DateFieldKind::day));
    type("31");
    EXPECT_EQ(reading().day, 28);
    EXPECT_EQ(picker->stringValue(), "2/31/2027 9:05 AM");
    clickField(0);
    type("12");
    EXPECT_EQ(reading(), (CalendarFields { 2027, 12, 31, 9, 5, 30 }));
    clickField(0);
    type("2");
    EXPECT_EQ(reading().day, 28);
    window->makeFirstResponder(nullptr);
    EXPECT_EQ(picker->stringValue(), "2/28/2027 9:05 AM");
}

TEST_F(DatePickerTest, BackspaceTakesDigitsBack)
{
    clickField(fieldOf(DateFieldKind::year));
    type("203");
    EXPECT_EQ(picker->stringValue(), "3/14/203 9:05 AM");
    key(NSBackspaceCharacter);
    key(NSBackspaceCharacter);
    type("198");
    EXPECT_EQ(picker->stringValue(), "3/14/2198 9:05 AM");
    // An empty field is the date's again.
    clickField(0);
    key(NSBackspaceCharacter);
    EXPECT_EQ(picker->stringValue(), "--/14/2198 9:05 AM");
    key(NSRightArrowFunctionKey);
    EXPECT_EQ(picker->stringValue(), "3/14/2198 9:05 AM");
}

TEST_F(DatePickerTest, EscapeBringsBackWhatWasThere)
{
    clickField(0);
    type("12252031");
    key(NSEscapeCharacter);
    EXPECT_EQ(reading(), (CalendarFields { 2027, 3, 14, 9, 5, 30 }));
    EXPECT_EQ(picker->stringValue(), "3/14/2027 9:05 AM");
    int const calls = target->calls;
    key(NSEscapeCharacter);
    EXPECT_EQ(target->calls, calls);
}

TEST_F(DatePickerTest, TabGoesThroughTheFieldsAndOut)
{
    auto const other = make<NSDatePicker>(Rect { 20, 50, 240, 24 });
    window->contentView()->addSubview(*other);
    window->recalculateKeyViewLoop();
    clickField(0);
    for (long i = 1; i < cell().numberOfFields(); ++i) {
        key(NSTabCharacter);
        EXPECT_EQ(cell().selectedField(), i);
    }
    key(NSTabCharacter);
    EXPECT_EQ(window->firstResponder(), other.get());
    EXPECT_EQ(static_cast<NSDatePickerCell*>(other->cell())->selectedField(), 0);
    key(NSBackTabCharacter, NSShiftKeyMask);
    EXPECT_EQ(window->firstResponder(), picker.get());
    EXPECT_EQ(cell().selectedField(), cell().numberOfFields() - 1);
}

TEST_F(DatePickerTest, TheStepperStepsAndGoesOnWhileItIsHeld)
{
    clickField(fieldOf(DateFieldKind::day));
    auto const stepper = cell().stepperRect(picker->bounds());
    click(*picker, { stepper.midX(), stepper.y + 4 });
    EXPECT_EQ(reading().day, 15);
    click(*picker, { stepper.midX(), stepper.maxY() - 4 });
    EXPECT_EQ(reading().day, 14);
    person().press(onScreen(*picker, { stepper.midX(), stepper.y + 4 }));
    machine().headlessEvents().postAfter(0.65, [&] { person().release(onScreen(*picker, { stepper.midX(), stepper.y + 4 })); });
    pass(1);
    EXPECT_EQ(reading().day, 18);
}

TEST_F(DatePickerTest, StaysWithinItsLimits)
{
    picker->setMinDate(dateOf({ 2027, 3, 10, 0, 0, 0 }));
    picker->setMaxDate(dateOf({ 2027, 3, 20, 0, 0, 0 }));
    picker->setDateValue(dateOf({ 2030, 1, 1, 0, 0, 0 }));
    EXPECT_EQ(reading(), (CalendarFields { 2027, 3, 20, 0, 0, 0 }));
    clickField(fieldOf(DateFieldKind::day));
    type("01");
    EXPECT_EQ(reading(), (CalendarFields { 2027, 3, 10, 0, 0, 0 }));
    picker->setMinDate(std::nullopt);
    picker->setDateValue(dateOf({ 1999, 1, 1, 0, 0, 0 }));
    EXPECT_EQ(reading().year, 1999);
}

TEST_F(DatePickerTest, TheDelegateMayMakeItAnotherDate)
{
    auto const delegate = make<NoWeekends>();
    picker->setDelegate(delegate);
    clickField(fieldOf(DateFieldKind::day));
    type("19");
    EXPECT_EQ(reading().day, 19);
    clickField(fieldOf(DateFieldKind::day));
    key(NSUpArrowFunctionKey);
    EXPECT_EQ(reading().day, 22);
}

TEST_F(DatePickerTest, TheWheelChangesNothing)
{
    clickField(0);
    scroll(*picker, 0, 3);
    EXPECT_EQ(reading(), (CalendarFields { 2027, 3, 14, 9, 5, 30 }));
    EXPECT_EQ(target->calls, 0);
}

TEST_F(DatePickerTest, ADisabledOneTakesNothing)
{
    picker->setEnabled(false);
    clickField(0);
    key(NSUpArrowFunctionKey);
    auto const stepper = cell().stepperRect(picker->bounds());
    click(*picker, { stepper.midX(), stepper.y + 4 });
    EXPECT_EQ(reading(), (CalendarFields { 2027, 3, 14, 9, 5, 30 }));
}

TEST_F(DatePickerTest, ItsValueIsADate)
{
    picker->setObjectValue(dateOf({ 2001, 2, 3, 4, 5, 6 }));
    EXPECT_EQ(reading(), (CalendarFields { 2001, 2, 3, 4, 5, 6 }));
    EXPECT_EQ(picker->objectValue(), ObjectValue(picker->dateValue()));
    picker->setObjectValue("no date");
    EXPECT_EQ(reading(), (CalendarFields { 2001, 2, 3, 4, 5, 6 }));
}

TEST_F(DatePickerTest, IsArchived)
{
    picker->setMaxDate(dateOf({ 2040, 1, 1, 0, 0, 0 }));
    picker->setDatePickerElements(NSYearMonthDayDatePickerElementFlag);
    auto const data = NSArchiver::archivedDataWithRootObject(picker);
    auto const again = NSUnarchiver::unarchiveObjectWithData(*data)->as<NSDatePicker>();
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->dateValue(), picker->dateValue());
    EXPECT_EQ(again->maxDate(), picker->maxDate());
    EXPECT_EQ(again->datePickerElements(), NSYearMonthDayDatePickerElementFlag);
}

TEST_F(DatePickerTest, ASingleDigitStandsNextToWhatFollowsIt)
{
    cell().setDrawsBackground(false);
    cell().setBezeled(false);
    picker->setDatePickerElements(NSYearMonthDayDatePickerElementFlag);
    auto const picture = picker->bitmapImageRepForCachingDisplayInRect(picker->bounds());
    auto const month = cell().rectOfField(fieldOf(DateFieldKind::month), picker->bounds());
    PixelRect const tens { static_cast<int>(month.x), 0, static_cast<int>(month.width) / 2 - 1, 24 };
    PixelRect const units { static_cast<int>(month.midX()) + 1, 0, static_cast<int>(month.width) / 2, 24 };
    EXPECT_FALSE(hasInk(picture, tens, colors::clear));
    EXPECT_TRUE(hasInk(picture, units, colors::clear));
}

TEST_F(DatePickerTest, TheWidthHoldsWhileDigitsChange)
{
    auto const before = cell().rectOfField(fieldOf(DateFieldKind::minute), picker->bounds());
    picker->setDateValue(dateOf({ 2027, 11, 28, 11, 44, 0 }));
    EXPECT_EQ(cell().rectOfField(fieldOf(DateFieldKind::minute), picker->bounds()), before);
    EXPECT_LE(cell().cellSize().width, 240);
}

}
}

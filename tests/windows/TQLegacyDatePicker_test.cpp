#include <tests/support/HeadlessTest.h>
#include <tests/support/TestSurroundings.h>
#include <tests/support/pixels.h>

#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/windows/TQLegacyDatePicker.h>

#include <algorithm>
#include <cmath>

namespace plix {
namespace {

class LegacyDatePickerTest : public HeadlessTest {
protected:
    LegacyDatePickerTest()
        : LegacyDatePickerTest(1)
    {
    }
    explicit LegacyDatePickerTest(float scale)
        : HeadlessTest(scale)
    {
    }
    ~LegacyDatePickerTest() override { NSUserDefaults::standardUserDefaults().removeObjectForKey(NSShortDateFormatString); }

    void SetUp() override
    {
        HeadlessTest::SetUp();
        makePicker();
    }
    void makePicker() { picker = make<TQLegacyDatePicker>(Rect { 10, 20, 300, 60 }); }
    std::vector<NSTextField*> all() const
    {
        return { picker->month_Title_Field(), picker->year_Title_Field(), picker->day_Title_Field(), picker->month_Field(),
            picker->day_Field(), picker->year_Field(), picker->separator_Field(), picker->separator2_Field() };
    }
    std::vector<NSTextField*> entries() const { return { picker->month_Field(), picker->day_Field(), picker->year_Field() }; }
    NSTextField* named(char letter) const
    {
        return letter == 'M' ? picker->month_Field() : letter == 'D' ? picker->day_Field() : picker->year_Field();
    }
    NSTextField* titleNamed(char letter) const
    {
        return letter == 'M' ? picker->month_Title_Field() : letter == 'D' ? picker->day_Title_Field() : picker->year_Title_Field();
    }
    std::vector<float> places() const
    {
        std::vector<float> x;
        for (auto const* view : all())
            x.push_back(view->frame().x);
        return x;
    }
    static std::string written(NSCalendarDate const& date) { return date.descriptionWithCalendarFormat("%Y-%m-%d %H:%M:%S"); }
    std::string shown() const
    {
        return picker->month_Field()->stringValue() + ' ' + picker->day_Field()->stringValue() + ' '
            + picker->year_Field()->stringValue();
    }

    TestSurroundings surroundings;
    Ref<TQLegacyDatePicker> picker;
};

// MARK: how it is built

TEST_F(LegacyDatePickerTest, ShowsThePresentDateInTheUsersOrder)
{
    auto const now = NSCalendarDate::calendarDate();
    EXPECT_EQ(written(picker->date()), written(now));
    EXPECT_EQ(shown(), now.descriptionWithCalendarFormat("%1m %e %Y"));
    EXPECT_LT(picker->month_Field()->frame().x, picker->day_Field()->frame().x);
    EXPECT_LT(picker->day_Field()->frame().x, picker->year_Field()->frame().x);
}

TEST_F(LegacyDatePickerTest, HasEightBezeledViews)
{
    ASSERT_EQ(picker->subviews().size(), 8U);
    for (auto* view : all()) {
        EXPECT_TRUE(view->isBezeled());
        EXPECT_EQ(view->superview(), picker.get());
    }
}

TEST_F(LegacyDatePickerTest, TitlesAreSmallAndOnlyRead)
{
    for (auto const* title : { picker->month_Title_Field(), picker->year_Title_Field(), picker->day_Title_Field() }) {
        EXPECT_EQ(title->frame().y, 10);
        EXPECT_EQ(title->cell()->controlSize(), NSSmallControlSize);
        EXPECT_EQ(title->font()->pointSize(), NSFont::smallSystemFontSize());
        EXPECT_FALSE(title->isEditable() || title->isSelectable());
        EXPECT_EQ(title->frame().size(), title->cell()->cellSize());
    }
}

TEST_F(LegacyDatePickerTest, EntriesStandTwoPointsAboveTheirTitlesAndAreAsWideAsTheirTemplates)
{
    for (char const letter : { 'M', 'D', 'Y' }) {
        auto const* entry = named(letter);
        EXPECT_EQ(entry->frame().y, titleNamed(letter)->frame().maxY() + 2) << letter;
        EXPECT_TRUE(entry->isEditable());
        EXPECT_EQ(entry->delegate(), picker.get());
        EXPECT_EQ(entry->cell()->controlSize(), NSRegularControlSize);
        auto const sized = make<NSTextField>(Rect { 0, 0, 1, 1 });
        sized->setFont(NSFont::systemFontOfSize(NSFont::systemFontSizeForControlSize(NSRegularControlSize)));
        sized->setStringValue(letter == 'Y' ? "XXXX" : "XX");
        sized->sizeToFit();
        EXPECT_EQ(entry->frame().size(), sized->frame().size()) << letter;
    }
}

TEST_F(LegacyDatePickerTest, SeparatorsAreLevelWithTheEntries)
{
    for (auto const* separator : { picker->separator_Field(), picker->separator2_Field() }) {
        EXPECT_EQ(separator->stringValue(), "/");
        EXPECT_FALSE(separator->isEditable() || separator->isSelectable());
        EXPECT_EQ(separator->frame().y, picker->month_Field()->frame().y);
        EXPECT_EQ(separator->frame().height, picker->month_Field()->frame().height);
    }
}

TEST_F(LegacyDatePickerTest, TheBoundsEndWithTheFields)
{
    float width = 0;
    float height = 0;
    for (auto const* view : all()) {
        width = std::max(width, view->frame().maxX());
        height = std::max(height, view->frame().maxY());
    }
    EXPECT_EQ(picker->bounds(), (Rect { 0, 0, std::trunc(width), std::trunc(height) }));
    EXPECT_EQ(picker->frame(), (Rect { 10, 20, 300, 60 }));
}

TEST_F(LegacyDatePickerTest, TitlesAreInTheUsersLanguage)
{
    struct Row {
        char const* language;
        char const* month;
        char const* day;
        char const* year;
    };
    for (auto const& row : { Row { "de", "Monat", "Tag", "Jahr" }, Row { "fr", "Mois", "Jour", "Année" },
             Row { "ja", "月", "日", "年" }, Row { "en", "Month", "Day", "Year" } }) {
        surroundings.languages = { row.language };
        makePicker();
        EXPECT_EQ(picker->month_Title_Field()->stringValue(), row.month);
        EXPECT_EQ(picker->day_Title_Field()->stringValue(), row.day);
        EXPECT_EQ(picker->year_Title_Field()->stringValue(), row.year);
    }
}

TEST_F(LegacyDatePickerTest, TakesTheUsersShortFormat)
{
    EXPECT_EQ(picker->dateFormat(), "%1m/%e/%y");
    NSUserDefaults::standardUserDefaults().setObject("%Y-%m-%d", NSShortDateFormatString);
    makePicker();
    EXPECT_EQ(picker->dateFormat(), "%Y-%m-%d");
    EXPECT_EQ(picker->year_Field()->frame().x, 99);
    NSUserDefaults::standardUserDefaults().setObject("no order at all: ?", NSShortDateFormatString);
    // The letters d, e and so on count wherever they stand.
    makePicker();
    EXPECT_EQ(picker->dateFormat(), "no order at all: ?");
}

TEST_F(LegacyDatePickerTest, ComesFromAnArchiveWithOneSetOfFields)
{
    picker->setDate(NSCalendarDate::dateWithYear(2001, 2, 3, 0, 0, 0));
    auto const data = NSArchiver::archivedDataWithRootObject(picker);
    auto const again = NSUnarchiver::unarchiveObjectWithData(*data)->as<TQLegacyDatePicker>();
    ASSERT_TRUE(again);
    EXPECT_EQ(again->subviews().size(), 8U);
    EXPECT_EQ(again->frame(), picker->frame());
    // The date is the present one again.
    EXPECT_EQ(written(again->date()), written(NSCalendarDate::calendarDate()));
}

// MARK: dates

TEST_F(LegacyDatePickerTest, SettingTheDateFillsTheFields)
{
    picker->setDate(NSCalendarDate::dateWithYear(2027, 3, 4, 5, 6, 7));
    EXPECT_EQ(shown(), "3 4 2027");
    EXPECT_EQ(written(picker->date()), "2027-03-04 05:06:07");
    picker->setDate(std::nullopt);
    EXPECT_EQ(shown(), "3 4 2027");
    EXPECT_EQ(written(picker->date()), "2027-03-04 05:06:07");
}

TEST_F(LegacyDatePickerTest, TypingDoesNotChangeTheDateAndIsLogged)
{
    auto const window = showWindow();
    window->contentView()->addSubview(*picker);
    picker->setDate(NSCalendarDate::dateWithYear(2027, 3, 4, 5, 6, 7));
    std::vector<std::string> lines;
    auto const before = installLogSink([&](std::string_view line) { lines.emplace_back(line); });
    window->makeFirstResponder(picker->month_Field());
    type("12");
    installLogSink(before);
    picker->syncDateFromInterface(nullptr);
    EXPECT_EQ(picker->month_Field()->stringValue(), "12");
    EXPECT_EQ(written(picker->date()), "2027-03-04 05:06:07");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_TRUE(lines[0].starts_with("NSControlTextDidChangeNotification of <NSTextField")) << lines[0];
    EXPECT_EQ(std::ranges::count(lines[0], '\n'), 0);
}

// MARK: the order

TEST_F(LegacyDatePickerTest, StandsInTheFormatsOrder)
{
    struct Row {
        char const* format;
        char const* order;
        std::vector<float> entries;
        std::vector<float> separators;
        std::vector<float> titles;
    };
    for (auto const& row : {
             Row { "%m/%d/%Y", "MDY", { 99, 157, 215 }, { 132, 190 }, { 92, 150, 207 } },
             Row { "%d.%m.%Y", "DMY", { 99, 157, 215 }, { 132, 190 }, { 92, 150, 207 } },
             Row { "%d %Y %m", "DYM", { 99, 157, 225 }, { 132, 200 }, { 92, 149, 218 } },
             Row { "%b %Y %e", "MYD", { 99, 157, 225 }, { 132, 200 }, { 92, 149, 218 } },
             Row { "%Y-%d-%m", "YDM", { 99, 167, 225 }, { 142, 200 }, { 91, 160, 218 } },
             Row { "%Y-%m-%d", "YMD", { 99, 167, 225 }, { 142, 200 }, { 91, 160, 218 } },
             Row { "%Y", "YDM", { 99, 167, 225 }, { 142, 200 }, { 91, 160, 218 } },
         }) {
        std::vector<float> heights;
        for (auto const* view : all())
            heights.push_back(view->frame().y);
        picker->setDateFormat(row.format);
        EXPECT_EQ(picker->dateFormat(), row.format);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(named(row.order[i])->frame().x, row.entries[i]) << row.format << i;
            EXPECT_EQ(titleNamed(row.order[i])->frame().x, row.titles[i]) << row.format << i;
        }
        EXPECT_EQ(picker->separator_Field()->frame().x, row.separators[0]) << row.format;
        EXPECT_EQ(picker->separator2_Field()->frame().x, row.separators[1]) << row.format;
        std::vector<float> after;
        for (auto const* view : all())
            after.push_back(view->frame().y);
        EXPECT_EQ(after, heights) << row.format;
        EXPECT_EQ(named(row.order[0])->nextKeyView(), named(row.order[1])) << row.format;
        EXPECT_EQ(named(row.order[1])->nextKeyView(), named(row.order[2])) << row.format;
    }
}

TEST_F(LegacyDatePickerTest, AFormatWithoutOrderMovesNothing)
{
    picker->setDateFormat("%Y-%m-%d");
    auto const before = places();
    for (auto const* format : { "", "%H:%S", "?" }) {
        picker->setDateFormat(format);
        EXPECT_EQ(picker->dateFormat(), format);
        EXPECT_EQ(places(), before);
        EXPECT_EQ(picker->year_Field()->nextKeyView(), picker->month_Field());
    }
    picker->setDateFormat(std::nullopt);
    EXPECT_EQ(picker->dateFormat(), "?");
}

// MARK: the keyboard

TEST_F(LegacyDatePickerTest, TabComesFromTheViewBeforeAndGoesToTheOneAfter)
{
    auto const window = showWindow();
    auto const before = make<NSTextField>(Rect { 10, 200, 80, 22 });
    auto const after = make<NSTextField>(Rect { 10, 5, 80, 22 });
    for (auto const& view : { Ref<NSView>(before), Ref<NSView>(picker), Ref<NSView>(after) })
        window->contentView()->addSubview(*view);
    before->setNextKeyView(picker->month_Field());
    picker->year_Field()->setNextKeyView(after.get());
    after->setNextKeyView(before.get());

    for (auto const* format : { "%d.%m.%Y", "%Y-%m-%d", "%m/%d/%Y", "%d %Y %m" }) {
        picker->setDateFormat(format);
        window->makeFirstResponder(before.get());
        std::vector<NSTextField*> way;
        for (int i = 0; i < 4; ++i) {
            key(NSTabCharacter);
            for (auto* field : { picker->month_Field(), picker->day_Field(), picker->year_Field(), after.get() }) {
                if (field->currentEditor())
                    way.push_back(field);
            }
        }
        std::vector<NSTextField*> expected = entries();
        std::ranges::sort(expected, {}, [](NSTextField const* field) { return field->frame().x; });
        expected.push_back(after.get());
        EXPECT_EQ(way, expected) << format;
    }
    key(NSBackTabCharacter, NSShiftKeyMask);
    EXPECT_TRUE(picker->month_Field()->currentEditor());
}

TEST_F(LegacyDatePickerTest, ANeighborThatIsMissingIsPassedOver)
{
    auto const outside = make<NSTextField>(Rect { 0, 0, 10, 10 });
    // Of three fields in a row only the last leads out, and nothing leads in.
    picker->setDateFormat("%m/%d/%Y");
    picker->year_Field()->setNextKeyView(outside.get());
    picker->setDateFormat("%Y-%m-%d");
    EXPECT_EQ(picker->day_Field()->nextKeyView(), outside.get());
    EXPECT_EQ(picker->year_Field()->previousKeyView(), nullptr);
    // Without anything around, the last leads nowhere.
    picker->day_Field()->setNextKeyView(nullptr);
    picker->setDateFormat("%d.%m.%Y");
    EXPECT_EQ(picker->year_Field()->nextKeyView(), nullptr);
    // The picker itself does not count.
    picker->setNextKeyView(picker->day_Field());
    picker->setDateFormat("%m/%d/%Y");
    EXPECT_EQ(picker->nextKeyView(), nullptr);
    EXPECT_EQ(picker->month_Field()->nextKeyView(), picker->day_Field());
    EXPECT_EQ(picker->month_Field()->previousKeyView(), nullptr);
}

TEST_F(LegacyDatePickerTest, TheMonthsNeighborCountsBeforeThoseOfTheOthers)
{
    std::vector<Ref<NSView>> outside;
    for (int i = 0; i < 6; ++i)
        outside.push_back(make<NSView>(Rect { 0, 0, 10, 10 }));
    auto const fields = entries();
    for (std::size_t i = 0; i < 3; ++i) {
        outside[i]->setNextKeyView(fields[i]);
        fields[i]->setNextKeyView(outside[i + 3].get());
    }
    picker->setDateFormat("%Y-%d-%m");
    EXPECT_EQ(picker->year_Field()->previousKeyView(), outside[0].get());
    EXPECT_EQ(picker->month_Field()->nextKeyView(), outside[3].get());
}

TEST_F(LegacyDatePickerTest, TabLeavesAfterTheWindowMadeItsLoopAnew)
{
    auto const window = showWindow();
    auto const before = make<NSTextField>(Rect { 10, 200, 80, 22 });
    auto const after = make<NSTextField>(Rect { 10, 0, 80, 18 });
    for (auto const& view : { Ref<NSView>(before), Ref<NSView>(picker), Ref<NSView>(after) })
        window->contentView()->addSubview(*view);
    for (auto const* format : { "%m/%d/%Y", "%Y-%m-%d", "%d %Y %m" }) {
        window->recalculateKeyViewLoop();
        picker->setDateFormat(format);
        auto ordered = entries();
        std::ranges::sort(ordered, {}, [](NSTextField const* field) { return field->frame().x; });
        EXPECT_EQ(before->nextKeyView(), ordered[0]) << format;
        EXPECT_EQ(ordered[2]->nextKeyView(), after.get()) << format;
        window->makeFirstResponder(ordered[2]);
        key(NSTabCharacter);
        EXPECT_TRUE(after->currentEditor()) << format;
    }
}

// MARK: subclasses

class FieldlessPicker : public TQLegacyDatePicker {
    PLIX_CLASS(FieldlessPicker, TQLegacyDatePicker);

public:
    using TQLegacyDatePicker::init;

protected:
    void initFields() override { }
};

PLIX_DESCRIBE(FieldlessPicker)
{
}

TEST_F(LegacyDatePickerTest, MayDoWithoutFields)
{
    auto const fieldless = make<FieldlessPicker>(Rect { 10, 20, 300, 60 });
    fieldless->setDate(NSCalendarDate::dateWithYear(2027, 3, 4, 5, 6, 7));
    fieldless->setDateFormat("%Y-%m-%d");
    EXPECT_EQ(fieldless->month_Field(), nullptr);
    EXPECT_EQ(fieldless->dateFormat(), "%Y-%m-%d");
    EXPECT_EQ(written(fieldless->date()), "2027-03-04 05:06:07");
    auto const data = NSArchiver::archivedDataWithRootObject(fieldless);
    EXPECT_TRUE(NSUnarchiver::unarchiveObjectWithData(*data)->as<FieldlessPicker>());
}

class CountingPicker : public TQLegacyDatePicker {
    PLIX_CLASS(CountingPicker, TQLegacyDatePicker);

public:
    using TQLegacyDatePicker::init;
    void setDate(std::optional<NSCalendarDate> const& date) override
    {
        ++dates;
        Base::setDate(date);
    }
    void syncDateFromInterface(NSObject* sender) override { source = sender; }
    int dates { 0 };
    NSObject* source { nullptr };
};

PLIX_DESCRIBE(CountingPicker)
{
}

TEST_F(LegacyDatePickerTest, ASubclasssSetDateIsNotCalledWhileTheFieldsAreBuilt)
{
    auto const counting = make<CountingPicker>(Rect { 10, 20, 300, 60 });
    EXPECT_EQ(counting->dates, 0);
    EXPECT_EQ(counting->year_Field()->intValue(), NSCalendarDate::calendarDate().yearOfCommonEra());
    counting->setDate(NSCalendarDate::dateWithYear(2027, 3, 4, 5, 6, 7));
    EXPECT_EQ(counting->dates, 1);
}

TEST_F(LegacyDatePickerTest, SyncDateFromInterfaceMayBeSentToIt)
{
    auto const counting = make<CountingPicker>(Rect { 10, 20, 300, 60 });
    auto* const sender = counting->year_Field();
    sender->setTarget(Ref<NSObject>(counting));
    sender->setAction(Selector("syncDateFromInterface:"));
    sender->sendAction(sender->action(), sender->target());
    EXPECT_EQ(counting->source, sender);
}

// MARK: looks

class LegacyDatePickerLooks : public LegacyDatePickerTest, public testing::WithParamInterface<int> {
protected:
    LegacyDatePickerLooks()
        : LegacyDatePickerTest(static_cast<float>(GetParam()))
    {
    }
};

TEST_P(LegacyDatePickerLooks, LooksAsItsReferencesShow)
{
    auto const window = make<NSWindow>(Rect { 0, 0, 300, 220 }, NSBorderlessWindowMask, NSBackingStoreBuffered, false);
    float y = 150;
    for (auto const* format : { "%m/%d/%Y", "%d %Y %m", "%Y-%m-%d" }) {
        NSUserDefaults::standardUserDefaults().setObject(format, NSShortDateFormatString);
        auto const shownPicker = make<TQLegacyDatePicker>(Rect { 0, y, 280, 60 });
        shownPicker->setDate(NSCalendarDate::dateWithYear(2027, 12, 28, 0, 0, 0));
        shownPicker->setFrameSize(shownPicker->bounds().size());
        shownPicker->setBounds(rectWith({}, shownPicker->frame().size()));
        window->contentView()->addSubview(*shownPicker);
        y -= 70;
    }
    window->orderFront(nullptr);
    window->displayIfNeeded();
    EXPECT_TRUE(
        matchesReference(window->snapshot(), GetParam() == 2 ? "windows/legacy_date_picker@2x" : "windows/legacy_date_picker"));
}

INSTANTIATE_TEST_SUITE_P(Scales, LegacyDatePickerLooks, testing::Values(1, 2));

}
}

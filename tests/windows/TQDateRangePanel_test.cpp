#include <tests/support/HeadlessTest.h>
#include <tests/support/SystemVersion.h>
#include <tests/support/TestSurroundings.h>
#include <tests/support/pixels.h>

#include <plix/controls/PLIXChiseledTextField.h>
#include <plix/format/TQTimeIntervalFormatter.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSDatePicker.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/foundation/NSDateFormatter.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/windows/TQDateRangePanel.h>
#include <plix/windows/date_entry.h>
#include <plix/windows/date_entry_loading.h>
#include <plix/windows/date_plans.h>

#include <algorithm>

namespace plix {
namespace {

class DateRangePanelTest : public HeadlessTest {
protected:
    DateRangePanelTest()
        : DateRangePanelTest(1)
    {
    }
    explicit DateRangePanelTest(float scale)
        : HeadlessTest(scale)
    {
    }

    static NSCalendarDate day(int year, int month, int dayOfMonth)
    {
        return NSCalendarDate::dateWithYear(year, month, dayOfMonth, 9, 5, 30);
    }
    void makePanel(std::optional<NSCalendarDate> from, std::optional<NSCalendarDate> to)
    {
        panel = make<TQDateRangePanel>(Point { 300, 300 }, std::move(from), std::move(to));
    }
    template <typename T> std::vector<T*> viewsOf() const
    {
        std::vector<T*> found;
        for (auto const& view : content().subviews()) {
            if (auto* wanted = dynamic_cast<T*>(view.get()))
                found.push_back(wanted);
        }
        return found;
    }
    NSView& content() const { return *panel->contentView()->subviews().back(); }
    NSButton& okButton() const { return *viewsOf<NSButton>().front(); }
    NSDatePicker& fromPicker() const { return dynamic_cast<NSDatePicker&>(*panel->fromObject()); }
    NSDatePicker& toPicker() const { return dynamic_cast<NSDatePicker&>(*panel->toObject()); }
    NSTextField& fromField() const { return dynamic_cast<NSTextField&>(*panel->fromObject()); }
    NSTextField& toField() const { return dynamic_cast<NSTextField&>(*panel->toObject()); }
    std::string labels() const
    {
        std::string text;
        for (auto const* label : viewsOf<PLIXChiseledTextField>())
            text += label->stringValue() + ' ';
        return text;
    }
    static std::string written(NSCalendarDate const& date) { return date.descriptionWithCalendarFormat("%Y-%m-%d %H:%M:%S"); }
    void later(std::function<void()> step) { person().then(std::move(step)); }
    /// A person who presses OK at the end of what was entered before.
    void pressOK() { person().key(NSCarriageReturnCharacter); }

    TestSurroundings surroundings;
    Ref<TQDateRangePanel> panel;
};

// MARK: how it is built

TEST_F(DateRangePanelTest, StandsAsItsPlanSays)
{
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    auto const labelViews = viewsOf<PLIXChiseledTextField>();
    ASSERT_EQ(labelViews.size(), 2U);
    auto const layout = datePanelLayout(
        { labelViews[0]->frame().size(), labelViews[1]->frame().size(), fromPicker().frame().size(), okButton().frame().size() },
        DateEntryKind::picker);
    EXPECT_EQ(content().frame(), rectWith({}, layout.content));
    EXPECT_EQ(panel->contentView()->frame().size(), layout.content);
    EXPECT_EQ(labelViews[0]->frame().origin(), layout.fromLabel);
    EXPECT_EQ(fromPicker().frame(), rectWith(layout.fromEntry, { 100, 22 }));
    EXPECT_EQ(labelViews[1]->frame().origin(), layout.toLabel);
    EXPECT_EQ(toPicker().frame(), rectWith(layout.toEntry, { 100, 22 }));
    EXPECT_EQ(okButton().frame().origin(), layout.button);
    // In this order: entries, button, labels.
    auto const& views = content().subviews();
    ASSERT_EQ(views.size(), 5U);
    EXPECT_EQ(views[0].get(), panel->fromObject());
    EXPECT_EQ(views[1].get(), panel->toObject());
    EXPECT_EQ(views[2].get(), &okButton());
    EXPECT_EQ(views[3].get(), labelViews[0]);
}

TEST_F(DateRangePanelTest, IsATitledTexturedWindow)
{
    makePanel({}, {});
    EXPECT_EQ(panel->styleMask(), 257U);
    EXPECT_EQ(panel->title(), "Enter Date Range");
    EXPECT_EQ(labels(), "From: To: ");
    EXPECT_FALSE(panel->isVisible());
}

TEST_F(DateRangePanelTest, TheButtonIsAWiderOne)
{
    makePanel({}, {});
    auto& button = okButton();
    EXPECT_EQ(button.title(), "OK");
    EXPECT_EQ(button.keyEquivalent(), "\r");
    EXPECT_EQ(button.bezelStyle(), NSRoundedBezelStyle);
    EXPECT_TRUE(button.isBordered());
    EXPECT_EQ(button.font()->pointSize(), NSFont::systemFontSizeForControlSize(NSRegularControlSize));
    EXPECT_EQ(button.target(), panel.get());
    EXPECT_EQ(button.action(), Selector("OK_Button:"));
    Size const widened = button.frame().size();
    button.sizeToFit();
    EXPECT_EQ(widened, (Size { button.frame().width + 10, button.frame().height }));
}

TEST_F(DateRangePanelTest, TheLabelsAreOnlyRead)
{
    makePanel({}, {});
    for (auto const* label : viewsOf<PLIXChiseledTextField>()) {
        EXPECT_FALSE(label->isBordered() || label->isEditable() || label->isSelectable() || label->drawsBackground());
        EXPECT_EQ(label->font()->pointSize(), NSFont::systemFontSizeForControlSize(NSRegularControlSize));
    }
}

TEST_F(DateRangePanelTest, SpeaksTheUsersLanguage)
{
    struct Row {
        char const* language;
        char const* title;
        char const* labels;
    };
    for (auto const& row : {
             Row { "de", "Zeitraum eingeben", "Von: Bis: " },
             Row { "fr", "Saisir une période", "Du: Au: " },
             Row { "ja", "期間を入力", "開始: 終了: " },
             Row { "en", "Enter Date Range", "From: To: " },
         }) {
        surroundings.languages = { row.language };
        makePanel({}, {});
        EXPECT_EQ(panel->title(), row.title);
        EXPECT_EQ(labels(), row.labels);
        EXPECT_EQ(okButton().title(), "OK");
        panel->internationalize();
        EXPECT_EQ(panel->title(), row.title);
    }
}

TEST_F(DateRangePanelTest, ThePluginsClassBelongsToThePlugin)
{
    makePanel({}, {});
    auto const& described = fromPicker().isa();
    EXPECT_EQ(described.name(), "PLIXTextDatePicker");
    EXPECT_TRUE(NSBundle::bundleForClass(described).bundlePath().ends_with("/DatePicker.bundle"));
    EXPECT_EQ(&described, NSClassFromString("PLIXTextDatePicker"));
    EXPECT_TRUE(dynamic_cast<DateEntry*>(panel->toObject()));
}

// MARK: dates

TEST_F(DateRangePanelTest, NilIsThePresentDate)
{
    auto const now = written(NSCalendarDate::calendarDate());
    makePanel({}, {});
    EXPECT_EQ(written(panel->fromDate()), now);
    EXPECT_EQ(written(panel->toDate()), now);
    panel->setFromDate(day(2001, 2, 3));
    panel->setToDate(day(2002, 3, 4));
    EXPECT_EQ(written(panel->fromDate()), "2001-02-03 09:05:30");
    EXPECT_EQ(written(panel->toDate()), "2002-03-04 09:05:30");
    panel->setFromDate(std::nullopt);
    panel->setToDate(std::nullopt);
    EXPECT_EQ(written(panel->fromDate()), now);
    EXPECT_EQ(written(panel->toDate()), now);
}

TEST_F(DateRangePanelTest, RunShowsTheDatesInTheMiddleOfTheScreenAndAnswersTrue)
{
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    EXPECT_NE(fromPicker().stringValue(), "3/14/2027");
    std::vector<std::string> seen;
    later([&] {
        seen = { fromPicker().stringValue(), toPicker().stringValue() };
        EXPECT_TRUE(panel->isKeyWindow());
        EXPECT_EQ(app().modalWindow(), panel.get());
        auto const centered = panel->frame();
        panel->center();
        EXPECT_EQ(panel->frame(), centered);
    });
    pressOK();
    EXPECT_TRUE(panel->run());
    EXPECT_EQ(seen, (std::vector<std::string> { "3/14/2027", "4/1/2027" }));
    EXPECT_FALSE(panel->isVisible());
    EXPECT_EQ(app().modalWindow(), nullptr);
    EXPECT_EQ(written(panel->fromDate()), "2027-03-14 09:05:30");
    EXPECT_EQ(written(panel->toDate()), "2027-04-01 09:05:30");
}

TEST_F(DateRangePanelTest, TypedThroughWithTheKeyboard)
{
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    person().type("12/31/2026");
    person().key(NSTabCharacter);
    person().type("2/29/28");
    pressOK();
    EXPECT_TRUE(panel->run());
    EXPECT_EQ(written(panel->fromDate()), "2026-12-31 09:05:30");
    EXPECT_EQ(written(panel->toDate()), "2028-02-29 09:05:30");
}

TEST_F(DateRangePanelTest, TheButtonMayBeClicked)
{
    makePanel(day(2027, 3, 14), day(2026, 4, 1));
    person().type("5");
    later([this] { person().click(centerOnScreen(okButton())); });
    EXPECT_TRUE(panel->run());
    EXPECT_EQ(written(panel->fromDate()), "2027-05-14 09:05:30");
    // The dates are not compared.
    EXPECT_EQ(written(panel->toDate()), "2026-04-01 09:05:30");
}

TEST_F(DateRangePanelTest, AnEmptyEntryKeepsThePanelOpen)
{
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    person().key(NSBackspaceCharacter);
    pressOK();
    later([this] {
        EXPECT_TRUE(panel->isVisible());
        EXPECT_EQ(panel->firstResponder(), &fromPicker());
        EXPECT_EQ(app().modalWindow(), panel.get());
    });
    person().type("7");
    pressOK();
    EXPECT_TRUE(panel->run());
    EXPECT_EQ(written(panel->fromDate()), "2027-07-14 09:05:30");
}

TEST_F(DateRangePanelTest, EscapeIsNoWayOut)
{
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    person().key(NSEscapeCharacter);
    later([this] { EXPECT_TRUE(panel->isVisible()); });
    pressOK();
    EXPECT_TRUE(panel->run());
}

TEST_F(DateRangePanelTest, TheCalendarOpensAboveTheModalPanel)
{
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    person().key(NSF4FunctionKey);
    person().key(NSDownArrowFunctionKey);
    person().key(NSCarriageReturnCharacter);
    pressOK();
    EXPECT_TRUE(panel->run());
    EXPECT_EQ(written(panel->fromDate()), "2027-03-21 09:05:30");
}

TEST_F(DateRangePanelTest, OtherWindowsWait)
{
    auto const other = showWindow();
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    later([&] { person().click(onScreen(*other->contentView(), { 5, 5 })); });
    later([&] { EXPECT_FALSE(other->isKeyWindow()); });
    pressOK();
    EXPECT_TRUE(panel->run());
    pump();
    EXPECT_TRUE(other->isKeyWindow());
}

TEST_F(DateRangePanelTest, MayRunAgainAndAbove)
{
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    auto const first = panel;
    later([&] {
        makePanel(day(2020, 1, 2), day(2020, 1, 3));
        auto const second = panel;
        pressOK();
        EXPECT_TRUE(second->run());
        EXPECT_EQ(app().modalWindow(), first.get());
        pressOK();
    });
    EXPECT_TRUE(first->run());
    first->setFromDate(day(2030, 1, 1));
    pressOK();
    EXPECT_TRUE(first->run());
    EXPECT_EQ(written(first->fromDate()), "2030-01-01 09:05:30");
}

TEST_F(DateRangePanelTest, ASecondRunWhileItRunsAnswersFalseAtOnce)
{
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    std::optional<bool> inner;
    person().type("5");
    later([&] { inner = panel->run(); });
    pressOK();
    EXPECT_TRUE(panel->run());
    EXPECT_EQ(inner, false);
    EXPECT_EQ(written(panel->fromDate()), "2027-05-14 09:05:30");
    EXPECT_EQ(app().modalWindow(), nullptr);
    pressOK();
    EXPECT_TRUE(panel->run());
}

TEST_F(DateRangePanelTest, RunAnswersWhatItEndedWith)
{
    struct Row {
        int code;
        bool expected;
    };
    for (auto const& row : { Row { 0, false }, Row { 1, true }, Row { NSRunAbortedResponse, true } }) {
        makePanel(day(2027, 3, 14), day(2027, 4, 1));
        later([&] { app().stopModalWithCode(row.code); });
        EXPECT_EQ(panel->run(), row.expected) << row.code;
        // Whoever ended it otherwise than with OK leaves it open and its dates as they were.
        EXPECT_TRUE(panel->isVisible());
        EXPECT_EQ(written(panel->fromDate()), "2027-03-14 09:05:30");
        panel->orderOut(nullptr);
    }
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    later([&] { app().abortModal(); });
    EXPECT_TRUE(panel->run());
    panel->orderOut(nullptr);
}

// MARK: text fields

class OldDateRangePanelTest : public DateRangePanelTest {
protected:
    /// Where the first date is none.
    void expectFromThePresentTo(std::string_view last)
    {
        pressOK();
        EXPECT_TRUE(panel->run());
        EXPECT_EQ(written(panel->fromDate()), written(NSCalendarDate::calendarDate()));
        EXPECT_EQ(written(panel->toDate()).substr(0, 10), last);
    }

    SystemVersion version { 0x103F };
};

TEST_F(OldDateRangePanelTest, StandsAsItsPlanSays)
{
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    auto const labelViews = viewsOf<PLIXChiseledTextField>();
    auto const layout = datePanelLayout(
        { labelViews[0]->frame().size(), labelViews[1]->frame().size(), fromField().frame().size(), okButton().frame().size() },
        DateEntryKind::textField);
    EXPECT_EQ(content().frame(), rectWith({}, layout.content));
    EXPECT_EQ(labelViews[0]->frame().origin(), layout.fromLabel);
    EXPECT_EQ(fromField().frame().origin(), layout.fromEntry);
    EXPECT_EQ(toField().frame().origin(), layout.toEntry);
    EXPECT_EQ(okButton().frame().origin(), layout.button);
    auto const template_ = make<NSTextField>(Rect { 0, 0, 100, 22 });
    template_->setStringValue(" XX/XX/XXXX");
    template_->sizeToFit();
    EXPECT_EQ(fromField().frame().size(), template_->frame().size());
    EXPECT_EQ(toField().frame().size(), template_->frame().size());
}

TEST_F(OldDateRangePanelTest, FieldsTakeTheShortestFormat)
{
    NSUserDefaults::standardUserDefaults().setObject("%d.%m.%Y", NSShortDateFormatString);
    makePanel(day(2027, 3, 4), day(2027, 4, 1));
    auto const& formatter = dynamic_cast<NSDateFormatter&>(*fromField().formatter());
    EXPECT_EQ(formatter.dateFormat(), "%e/%1m/%y");
    EXPECT_TRUE(formatter.allowsNaturalLanguage());
    EXPECT_NE(fromField().formatter(), toField().formatter());
    // At first the present day, whatever the dates are.
    auto const today = NSCalendarDate::calendarDate().descriptionWithCalendarFormat("%e/%1m/%y");
    EXPECT_EQ(fromField().stringValue(), today);
    EXPECT_EQ(toField().stringValue(), today);
    std::string shown;
    later([&] { shown = fromField().stringValue() + ' ' + toField().stringValue(); });
    pressOK();
    EXPECT_TRUE(panel->run());
    EXPECT_EQ(shown, "4/3/27 1/4/27");
    NSUserDefaults::standardUserDefaults().removeObjectForKey(NSShortDateFormatString);
}

TEST_F(OldDateRangePanelTest, TypedTextIsReadWithTheFormat)
{
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    person().type("12/31/26");
    person().key(NSTabCharacter);
    person().type("2/29/28");
    pressOK();
    EXPECT_TRUE(panel->run());
    EXPECT_EQ(written(panel->fromDate()).substr(0, 10), "2026-12-31");
    EXPECT_EQ(written(panel->toDate()).substr(0, 10), "2028-02-29");
}

TEST_F(OldDateRangePanelTest, WhatIsNoDateBecomesThePresentOne)
{
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    // A field without text has no date in it.
    person().key(NSBackspaceCharacter);
    expectFromThePresentTo("2027-04-01");
}

TEST_F(OldDateRangePanelTest, ATextThatDoesNotParseBecomesThePresentDate)
{
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    later([this] {
        fromField().setFormatter(nullptr);
        fromField().setStringValue("no date");
        toField().setStringValue("2/3/28");
    });
    expectFromThePresentTo("2028-02-03");
}

TEST_F(OldDateRangePanelTest, ToleratesOtherFormattersAndNone)
{
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    fromField().setFormatter(nullptr);
    toField().setFormatter(make<TQTimeIntervalFormatter>());
    std::string shown;
    later([&] { shown = fromField().stringValue(); });
    pressOK();
    EXPECT_TRUE(panel->run());
    EXPECT_EQ(shown, "");
}

TEST_F(OldDateRangePanelTest, ARefusedTextKeepsThePanelOpen)
{
    makePanel(day(2027, 3, 14), day(2027, 4, 1));
    person().type("no date");
    pressOK();
    later([this] { EXPECT_TRUE(panel->isVisible()); });
    person().key('a', NSControlKeyMask);
    person().type("1/2/27");
    pressOK();
    EXPECT_TRUE(panel->run());
    EXPECT_EQ(written(panel->fromDate()).substr(0, 10), "2027-01-02");
}

TEST_F(DateRangePanelTest, TheFirstVersionWithPickersIs0x1040)
{
    SystemVersion const version { 0x1040 };
    makePanel({}, {});
    EXPECT_TRUE(dynamic_cast<NSDatePicker*>(panel->fromObject()));
}

TEST_F(DateRangePanelTest, ComesFromAnArchiveForThePresentDate)
{
    makePanel(day(2001, 2, 3), day(2001, 2, 3));
    auto const data = NSArchiver::archivedDataWithRootObject(panel);
    auto const again = NSUnarchiver::unarchiveObjectWithData(*data)->as<TQDateRangePanel>();
    ASSERT_TRUE(again);
    EXPECT_EQ(written(again->fromDate()), written(NSCalendarDate::calendarDate()));
    EXPECT_EQ(written(again->toDate()), written(NSCalendarDate::calendarDate()));
    EXPECT_EQ(again->fromObject(), nullptr);
    EXPECT_TRUE(make<TQDateRangePanel>()->toObject());
}

// MARK: entries of another class

class NoView : public NSObject, public DateEntry {
    PLIX_CLASS(NoView, NSObject);

public:
    bool init() { return Base::init(); }
    void setShowsDatePickerButton(bool) override { }
    void setDateValue(NSDate) override { }
    NSDate dateValue() const override { return {}; }
};

PLIX_DESCRIBE(NoView)
{
}

class NoEntry : public NSView {
    PLIX_CLASS(NoEntry, NSView);
};

PLIX_DESCRIBE(NoEntry)
{
}

class PlainEntry : public NSView, public DateEntry {
    PLIX_CLASS(PlainEntry, NSView);

public:
    using NSView::init;
    void setShowsDatePickerButton(bool shows) override { showsButton = shows; }
    void setDateValue(NSDate) override { }
    NSDate dateValue() const override { return {}; }
    bool showsButton { false };
};

PLIX_DESCRIBE(PlainEntry)
{
}

TEST_F(DateRangePanelTest, WhatIsNoViewOrNoDateEntryCountsAsMissing)
{
    Rect const frame { 1, 2, 100, 22 };
    EXPECT_EQ(makeDateEntry(nullptr, frame), nullptr);
    EXPECT_EQ(makeDateEntry(&NoView::staticClass(), frame), nullptr);
    EXPECT_EQ(makeDateEntry(&NoEntry::staticClass(), frame), nullptr);
    auto const entry = makeDateEntry(&PlainEntry::staticClass(), frame);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->frame(), frame);
    EXPECT_TRUE(dynamic_cast<PlainEntry&>(*entry).showsButton);
}

// MARK: looks

class DateRangePanelLooks : public DateRangePanelTest, public testing::WithParamInterface<int> {
protected:
    DateRangePanelLooks()
        : DateRangePanelTest(static_cast<float>(GetParam()))
    {
    }
};

TEST_P(DateRangePanelLooks, LooksAsItsReferencesShow)
{
    Ref<NSBitmapImageRep> picture;
    makePanel(day(2027, 3, 14), day(2027, 12, 28));
    later([&] {
        panel->displayIfNeeded();
        picture = panel->snapshot();
    });
    pressOK();
    panel->run();
    EXPECT_TRUE(matchesReference(picture, GetParam() == 2 ? "windows/date_range_panel@2x" : "windows/date_range_panel"));
    SystemVersion const version { 0x103F };
    makePanel(day(2027, 3, 14), day(2027, 12, 28));
    later([&] {
        panel->displayIfNeeded();
        picture = panel->snapshot();
    });
    pressOK();
    panel->run();
    EXPECT_TRUE(matchesReference(picture, GetParam() == 2 ? "windows/old_date_range_panel@2x" : "windows/old_date_range_panel"));
}

INSTANTIATE_TEST_SUITE_P(Scales, DateRangePanelLooks, testing::Values(1, 2));

}
}

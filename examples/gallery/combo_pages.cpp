#include "combo_pages.h"
#include "Form.h"
#include "page_parts.h"

#include <plix/controls/TQComboBoxCell.h>
#include <plix/platform/appkit/NSComboBox.h>
#include <plix/platform/appkit/NSComboBoxCell.h>
#include <plix/platform/appkit/NSDatePicker.h>
#include <plix/platform/appkit/NSDatePickerCell.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/base/Weak.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSTimeZone.h>
#include <plix/platform/foundation/calendar_fields.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>

#include <array>
#include <string>
#include <utility>

namespace gallery {

using namespace plix;

namespace {

// MARK: combo boxes

Ref<NSView> makeNSComboBoxPage()
{
    class Measures : public NSObject {
    public:
        long numberOfItemsInComboBox(NSComboBox&) { return 10000; }
        ObjectValue objectValueForItemAtIndex(NSComboBox&, long index) { return "Measure " + std::to_string(index + 1); }
    };
    class Listener : public NSObject {
    public:
        void comboBoxSelectionDidChange(NSNotification const& notification)
        {
            auto& combo = *static_cast<NSComboBox*>(notification.object.get());
            if (form)
                form->setStatus("Chosen from the list: " + combo.itemObjectValueAtIndex(combo.indexOfSelectedItem()).description());
        }
        Weak<Form> form; // the page may go first
    };
    auto const form = Form::page();
    auto const listener = form->keep(make<Listener>());
    listener->form = form;
    auto const fruit = make<NSComboBox>(Rect { 0, 0, 180, 22 });
    fruit->addItemsWithObjectValues({ "Apple", "Apricot", "Banana", "Cherry", "Elderberry", "Fig", "Grape" });
    fruit->setCompletes(true);
    fruit->setDelegate(listener);
    form->addRow("Completes", { form->told(fruit), hint("Type “el”, or open the list.") });
    auto const numbers = make<NSComboBox>(Rect { 0, 0, 180, 22 });
    numbers->addItemsWithObjectValues({ 9, 10, 11, 12, 14, 18, 24, 36, 48 });
    numbers->selectItemWithObjectValue(12);
    numbers->setObjectValue(numbers->objectValueOfSelectedItem());
    numbers->setNumberOfVisibleItems(4);
    numbers->setDelegate(listener);
    form->addRow("Four at a time", { form->told(numbers), hint("Any other number can be typed.") });
    auto const many = make<NSComboBox>(Rect { 0, 0, 180, 22 });
    many->setUsesDataSource(true);
    many->setDataSource(form->keep(make<Measures>()));
    many->setStringValue("Measure 1");
    many->setDelegate(listener);
    form->addRow("Data source", { form->told(many), hint("Ten thousand items.") });
    auto const disabled = make<NSComboBox>(Rect { 0, 0, 180, 22 });
    disabled->setStringValue("Not now");
    disabled->setEnabled(false);
    form->addRow("Disabled", { disabled });
    form->addStatus("Choose, or type something that is not in the list.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSComboBoxCellPage()
{
    auto const form = Form::page();
    auto const combo = [&](NSControlSize size, float height) {
        auto const made = make<NSComboBox>(Rect { 0, 0, 150, height });
        made->cell()->setControlSize(size);
        made->setFont(NSFont::systemFontOfSize(NSFont::systemFontSizeForControlSize(size)));
        made->addItemsWithObjectValues({ "Largo", "Andante", "Presto" });
        made->selectItemAtIndex(1);
        made->setStringValue("Andante");
        return form->told(made);
    };
    auto const cellOf = [](NSComboBox& box) { return static_cast<NSComboBoxCell*>(box.cell()); };
    form->addRow("Regular", { combo(NSRegularControlSize, 22) });
    form->addRow("Small", { combo(NSSmallControlSize, 19) });
    form->addRow("Mini", { combo(NSMiniControlSize, 16) });
    auto const bare = combo(NSRegularControlSize, 22);
    cellOf(*bare)->setButtonBordered(false);
    form->addRow("No border", { bare, hint("around the button") });
    auto const spacious = combo(NSRegularControlSize, 22);
    cellOf(*spacious)->setItemHeight(28);
    cellOf(*spacious)->setIntercellSpacing({ 12, 4 });
    form->addRow("High items", { spacious, hint("28 points, with room between") });
    auto const tell = pushButton("Complete “pr”", [cell = Ref<NSComboBoxCell>(cellOf(*spacious)), page = form.get()] {
        page->setStatus("completedString(\"pr\") is " + cell->completedString("pr").value_or("nil"));
    });
    form->addRow("Completion", { tell });
    form->addStatus("The cell keeps the items, completes and shows the list.");
    form->sizeToRows();
    return form;
}

/// For rows of tables: no bezel, the text, and a small knob in the place of the button.
Ref<NSView> makeTQComboBoxCellPage()
{
    class Parts : public NSObject {
    public:
        long numberOfRowsInTableView(NSTableView&) { return std::ssize(rows); }
        ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn& column, long row)
        {
            auto const& part = rows[static_cast<std::size_t>(row)];
            return column.identifier() == ObjectValue("player") ? part.first : part.second;
        }
        void setObjectValue(NSTableView&, ObjectValue value, NSTableColumn&, long row)
        {
            auto& part = rows[static_cast<std::size_t>(row)];
            part.second = value.description();
            if (form)
                form->setStatus(part.first + " plays the " + part.second + ".");
        }
        std::array<std::pair<std::string, std::string>, 4> rows { { { "Anna", "Flute" }, { "Bruno", "Oboe" }, { "Clara", "Horn" },
            { "David", "Bassoon" } } };
        Weak<Form> form; // the page may go first
    };
    auto const form = Form::page();
    auto const parts = form->keep(make<Parts>());
    parts->form = form;
    auto const table = make<NSTableView>(Rect { 0, 0, 380, 120 });
    table->setRowHeight(18);
    addColumn(*table, "player", "Player", 180)->setEditable(false);
    auto const instrument = addColumn(*table, "instrument", "Instrument", 200);
    auto const cell = make<TQComboBoxCell>();
    cell->setEditable(true);
    cell->setCompletes(true);
    cell->addItemsWithObjectValues({ "Flute", "Oboe", "Horn", "Bassoon", "Clarinet", "Trumpet" });
    instrument->setDataCell(cell);
    table->setDataSource(parts);
    form->addRow("In a table", { scrolled(table, { 400, 124 }) });
    form->addStatus("Click the arrows at the end of a row, or double-click the text.");
    form->sizeToRows();
    return form;
}

// MARK: dates

Ref<NSDatePicker> picker(Form& form, unsigned elements, float width)
{
    auto made = make<NSDatePicker>(Rect { 0, 0, width, 22 });
    auto const zone = NSTimeZone::timeZoneForSecondsFromGMT(0);
    made->setTimeZone(zone);
    made->setDatePickerElements(elements);
    made->setDateValue(zone.dateForFields({ 2008, 7, 12, 15, 23, 45 }));
    return form.told(made);
}

Ref<NSView> makeNSDatePickerPage()
{
    auto const form = Form::page();
    constexpr unsigned day = NSYearMonthDayDatePickerElementFlag;
    form->addRow("Day", { picker(*form, day, 130), hint("Type digits, or press the arrow keys.") });
    form->addRow("Month", { picker(*form, NSYearMonthDatePickerElementFlag, 110) });
    form->addRow("Time", { picker(*form, NSHourMinuteSecondDatePickerElementFlag, 140) });
    form->addRow("Day and time", { picker(*form, day | NSHourMinuteDatePickerElementFlag, 220) });
    auto const limited = picker(*form, day, 130);
    auto const zone = NSTimeZone::timeZoneForSecondsFromGMT(0);
    limited->setMinDate(zone.dateForFields({ 2008, 7, 1, 0, 0, 0 }));
    limited->setMaxDate(zone.dateForFields({ 2008, 7, 31, 0, 0, 0 }));
    form->addRow("In July", { limited, hint("It stays within its limits.") });
    auto const field = picker(*form, day, 110);
    field->setDatePickerStyle(NSTextFieldDatePickerStyle);
    form->addRow("No stepper", { field });
    auto const disabled = picker(*form, day, 130);
    disabled->setEnabled(false);
    form->addRow("Disabled", { disabled });
    form->addStatus("Change a date.");
    form->sizeToRows();
    return form;
}

/// A delegate has the last word on each change.
Ref<NSView> makeNSDatePickerCellPage()
{
    class Mondays : public NSObject {
    public:
        void validateProposedDateValue(NSDatePickerCell&, NSDate& proposed, NSTimeInterval&)
        {
            auto const zone = NSTimeZone::timeZoneForSecondsFromGMT(0);
            constexpr NSTimeInterval secondsOfDay = 86400;
            while (dayOfWeek(zone.fieldsForDate(proposed)) != 1)
                proposed = proposed.addTimeInterval(-secondsOfDay);
        }
    };
    auto const form = Form::page();
    auto const mondays = picker(*form, NSYearMonthDayDatePickerElementFlag, 140);
    mondays->setDelegate(form->keep(make<Mondays>()));
    form->addRow("Mondays only", { mondays, hint("Other days become the Monday before.") });
    auto const colored = picker(*form, NSYearMonthDayDatePickerElementFlag, 140);
    auto* const cell = static_cast<NSDatePickerCell*>(colored->cell());
    cell->setTextColor(NSColor::blueColor());
    cell->setBackgroundColor(NSColor::colorWithCalibratedRed(1, 0.96F, 0.8F, 1));
    cell->setDrawsBackground(true);
    form->addRow("Colours", { colored });
    auto const fields = make<NSSegmentedControl>(Rect { 0, 0, 200, 24 });
    fields->setSegmentCount(cell->numberOfFields());
    for (long i = 0; i < cell->numberOfFields(); ++i)
        fields->setLabel("Field " + std::to_string(i), i);
    fields->setActionFunction([cell = Ref<NSDatePickerCell>(cell), page = form.get()](NSObject* sender) {
        cell->selectField(static_cast<NSSegmentedControl*>(sender)->selectedSegment());
        cell->step(1);
        page->setStatus("One more: " + cell->stringValue());
    });
    form->addRow("One more in", { fields });
    form->addStatus("The cell shows a date as fields, each changed by itself.");
    form->sizeToRows();
    return form;
}

constexpr char source[] = "combo_pages.cpp";
constexpr Page familyPages[] {
    { "NSComboBox", "Combo box", controlsSection, source, makeNSComboBoxPage },
    { "NSComboBoxCell", "Combo box cell", controlsSection, source, makeNSComboBoxCellPage },
    { "TQComboBoxCell", "Combo box cell for tables", controlsSection, source, makeTQComboBoxCellPage },
    { "NSDatePicker", "Date picker", controlsSection, source, makeNSDatePickerPage },
    { "NSDatePickerCell", "Date picker cell", controlsSection, source, makeNSDatePickerCellPage },
};

}

std::span<Page const> comboPages()
{
    return familyPages;
}

}

#include "combos_page.h"
#include "StateSheet.h"

#include <plix/platform/appkit/NSComboBox.h>
#include <plix/platform/appkit/NSComboBoxCell.h>
#include <plix/platform/appkit/NSDatePicker.h>
#include <plix/platform/appkit/NSDatePickerCell.h>
#include <plix/platform/foundation/NSTimeZone.h>

#include <string_view>

namespace gallery {

using namespace plix;

namespace {

Ref<NSComboBox> combo(std::string_view text)
{
    auto box = make<NSComboBox>(Rect { 0, 0, 120, 24 });
    box->addItemsWithObjectValues({ "Clarinet", "Oboe", "Bassoon" });
    box->setStringValue(text);
    return box;
}

Ref<NSDatePicker> picker(unsigned elements, NSDatePickerStyle style)
{
    auto field = make<NSDatePicker>(Rect { 0, 0, 120, 24 });
    field->setTimeZone(NSTimeZone::timeZoneForSecondsFromGMT(0));
    field->setDatePickerStyle(style);
    field->setDatePickerElements(elements);
    field->setDateValue(NSDate::dateWithTimeIntervalSinceReferenceDate(237'569'025));
    return field;
}

}

Ref<NSView> makeCombosPage()
{
    auto sheet = make<StateSheet>(Size { 126, 26 });
    sheet->addHeading("Combo boxes");
    sheet->addRow("With a value", [] { return combo("Clarinet"); });
    sheet->addRow("Placeholder", [] {
        auto box = combo("");
        dynamic_cast<NSComboBoxCell&>(*box->cell()).setPlaceholderString("Instrument");
        return box;
    });
    sheet->addRow("Long value", [] { return combo("Contrabass clarinet in B flat"); });
    sheet->addHeading("Date fields");
    sheet->addRow(
        "Date, stepper", [] { return picker(NSYearMonthDayDatePickerElementFlag, NSTextFieldAndStepperDatePickerStyle); });
    sheet->addRow(
        "Time, stepper", [] { return picker(NSHourMinuteSecondDatePickerElementFlag, NSTextFieldAndStepperDatePickerStyle); });
    sheet->addRow("Date", [] { return picker(NSYearMonthDayDatePickerElementFlag, NSTextFieldDatePickerStyle); });
    sheet->sizeToRows();
    return sheet;
}

}

#include <plix/platform/appkit/NSDatePicker.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSTimeZone.h>

#include <stdexcept>

namespace plix {

PLIX_DESCRIBE(NSDatePicker)
{
    description.hookOutlet("delegate", &NSDatePicker::takeHooks);
}

bool NSDatePicker::init()
{
    return NSDatePicker::init(Rect {});
}

bool NSDatePicker::init(Rect frame)
{
    return Base::init(frame);
}

bool NSDatePicker::init(NSCoder& coder)
{
    return Base::init(coder);
}

Class const* NSDatePicker::cellClass()
{
    return &NSDatePickerCell::staticClass();
}

NSDatePickerCell& NSDatePicker::pickerCell() const
{
    auto* picker = dynamic_cast<NSDatePickerCell*>(cell());
    if (!picker)
        throw std::logic_error("NSDatePicker: its cell is no NSDatePickerCell");
    return *picker;
}

NSDate NSDatePicker::dateValue() const
{
    return pickerCell().dateValue();
}

void NSDatePicker::setDateValue(NSDate date)
{
    pickerCell().setDateValue(date);
}

std::optional<NSDate> NSDatePicker::minDate() const
{
    return pickerCell().minDate();
}

void NSDatePicker::setMinDate(std::optional<NSDate> date)
{
    pickerCell().setMinDate(date);
}

std::optional<NSDate> NSDatePicker::maxDate() const
{
    return pickerCell().maxDate();
}

void NSDatePicker::setMaxDate(std::optional<NSDate> date)
{
    pickerCell().setMaxDate(date);
}

unsigned NSDatePicker::datePickerElements() const
{
    return pickerCell().datePickerElements();
}

void NSDatePicker::setDatePickerElements(unsigned flags)
{
    pickerCell().setDatePickerElements(flags);
}

NSDatePickerStyle NSDatePicker::datePickerStyle() const
{
    return pickerCell().datePickerStyle();
}

void NSDatePicker::setDatePickerStyle(NSDatePickerStyle style)
{
    pickerCell().setDatePickerStyle(style);
}

void NSDatePicker::setTimeZone(std::optional<NSTimeZone> zone)
{
    pickerCell().setTimeZone(std::move(zone));
}

void NSDatePicker::takeHooks(HookSource const& source)
{
    pickerCell().takeHooks(source);
}

void NSDatePicker::setEnabled(bool isEnabled)
{
    if (!isEnabled) {
        pickerCell().selectField(pickerCell().selectedField());
        pickerCell().setDateValue(pickerCell().dateValue());
    }
    Base::setEnabled(isEnabled);
}

void NSDatePicker::mouseDown(NSEvent& event)
{
    if (isEnabled() && acceptsFirstResponder() && window())
        window()->makeFirstResponder(this);
    Base::mouseDown(event);
}

void NSDatePicker::keyDown(NSEvent& event)
{
    Ref<NSDatePicker> const protector(this);
    if (!pickerCell().takeKey(event))
        Base::keyDown(event);
}

// Coming along the key view loop begins at the end that it came from.
bool NSDatePicker::becomeFirstResponder()
{
    auto const* direction = window();
    if (direction && direction->keyViewSelectionDirection() == NSSelectingNext)
        pickerCell().selectField(0);
    else if (direction && direction->keyViewSelectionDirection() == NSSelectingPrevious)
        pickerCell().selectField(pickerCell().numberOfFields() - 1);
    return Base::becomeFirstResponder();
}

bool NSDatePicker::resignFirstResponder()
{
    Ref<NSDatePicker> const protector(this);
    return pickerCell().commitTyping() && Base::resignFirstResponder();
}

}

#include <plugins/DatePicker/PLIXTextDatePicker.h>

#include <plugins/DatePicker/PLIXTextDatePickerCell.h>
#include <plugins/DatePicker/calendar_popup.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/foundation/plugin_module.h>
#include <plix/platform/graphics/NSFont.h>

#include <stdexcept>

namespace plix {

PLIX_DESCRIBE(PLIXTextDatePicker)
{
}

bool PLIXTextDatePicker::init()
{
    return PLIXTextDatePicker::init(Rect {});
}

bool PLIXTextDatePicker::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    fitText();
    return true;
}

bool PLIXTextDatePicker::init(NSCoder& coder)
{
    return Base::init(coder);
}

Class const* PLIXTextDatePicker::cellClass()
{
    return &PLIXTextDatePickerCell::staticClass();
}

PLIXTextDatePickerCell& PLIXTextDatePicker::textCell() const
{
    auto* const picker = dynamic_cast<PLIXTextDatePickerCell*>(cell());
    if (!picker)
        throw std::logic_error("PLIXTextDatePicker: its cell is no PLIXTextDatePickerCell");
    return *picker;
}

bool PLIXTextDatePicker::showsDatePickerButton() const
{
    return textCell().showsButton();
}

void PLIXTextDatePicker::setShowsDatePickerButton(bool shows)
{
    textCell().setShowsButton(shows);
    fitText();
}

void PLIXTextDatePicker::setDateValue(NSDate date)
{
    Base::setDateValue(date);
}

NSDate PLIXTextDatePicker::dateValue() const
{
    return Base::dateValue();
}

void PLIXTextDatePicker::keyDown(NSEvent& event)
{
    if (isCalendarKey(event) && !event.hasShortcutModifier() && showsDatePickerButton())
        textCell().openCalendar(bounds(), *this, nullptr);
    else
        Base::keyDown(event);
}

void PLIXTextDatePicker::viewWillMoveToWindow(NSWindow* newWindow)
{
    dismissCalendar(*this);
    Base::viewWillMoveToWindow(newWindow);
}

void PLIXTextDatePicker::setFrameSize(Size size)
{
    Base::setFrameSize(size);
    if (cell())
        fitText();
}

void PLIXTextDatePicker::fitText()
{
    constexpr Rect unbounded { 0, 0, 10000, 100 };
    float size = NSFont::systemFontSize();
    for (;; size -= 1) {
        setFont(NSFont::systemFontOfSize(size));
        if (size <= NSFont::smallSystemFontSize() || textCell().cellSizeForBounds(unbounded).width <= bounds().width)
            return;
    }
}

PLIX_PLUGIN_MODULE(PLIX_PLUGIN_CLASS(PLIXTextDatePicker), PLIX_PLUGIN_CLASS(PLIXTextDatePickerCell));

}

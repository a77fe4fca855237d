#include <plugins/DatePicker/PLIXTextDatePickerCell.h>

#include <plugins/DatePicker/calendar_popup.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSTimeZone.h>

#include <algorithm>

namespace plix {

namespace {

constexpr float buttonWidth = 18;
constexpr char const* buttonKey = "showsDatePickerButton";

}

PLIX_DESCRIBE(PLIXTextDatePickerCell)
{
}

bool PLIXTextDatePickerCell::init()
{
    if (!Base::init())
        return false;
    setDatePickerStyle(NSTextFieldDatePickerStyle);
    setDatePickerElements(NSYearMonthDayDatePickerElementFlag);
    return true;
}

bool PLIXTextDatePickerCell::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    coder.read(buttonKey, [&](ObjectValue const& value) { m_showsButton = value.boolValue(); });
    return true;
}

void PLIXTextDatePickerCell::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeBool(m_showsButton, buttonKey);
}

void PLIXTextDatePickerCell::setShowsButton(bool shows)
{
    m_showsButton = shows;
    looksChanged();
}

Rect PLIXTextDatePickerCell::buttonRect(Rect frame) const
{
    if (!m_showsButton)
        return {};
    float const width = std::min(buttonWidth, std::max(0.F, frame.width));
    return { frame.maxX() - width, frame.y, width, frame.height };
}

CalendarChoice PLIXTextDatePickerCell::choice() const
{
    auto const zone = timeZone();
    auto const dayOf = [&](NSDate date) { return CalendarDay::of(zone.fieldsForDate(date)); };
    CalendarChoice choice { dayOf(dateValue()), dayOf(NSDate::date()), {} };
    if (auto const first = minDate())
        choice.limits.first = dayOf(*first);
    if (auto const last = maxDate())
        choice.limits.last = dayOf(*last);
    return choice;
}

void PLIXTextDatePickerCell::openCalendar(Rect frame, NSView& controlView, NSEvent* opening)
{
    if (!isEnabled() || m_isCalendarOpen)
        return;
    Ref<PLIXTextDatePickerCell> const protector(this);
    Ref<NSView> const view(controlView);
    selectField(selectedField());
    m_isCalendarOpen = true;
    looksChanged();
    auto const chosen = runCalendar(controlView, frame, choice(), opening);
    m_isCalendarOpen = false;
    looksChanged();
    if (chosen)
        takeDay(chosen->year, chosen->month, chosen->day);
}

Size PLIXTextDatePickerCell::cellSizeForBounds(Rect bounds) const
{
    float const button = m_showsButton ? buttonWidth : 0;
    auto const size = Base::cellSizeForBounds({ bounds.x, bounds.y, std::max(0.F, bounds.width - button), bounds.height });
    return { size.width + button, size.height };
}

bool PLIXTextDatePickerCell::trackMouse(NSEvent& event, Rect frame, NSView& controlView, bool untilMouseUp)
{
    Point const point = controlView.convertPointFromView(event.locationInWindow(), nullptr);
    if (!isEnabled() || !controlView.mouseInRect(point, buttonRect(frame)))
        return Base::trackMouse(event, frame, controlView, untilMouseUp);
    setControlView(&controlView);
    openCalendar(frame, controlView, &event);
    return true;
}

void PLIXTextDatePickerCell::drawInteriorWithFrame(Rect frame, NSView& controlView)
{
    Base::drawInteriorWithFrame(frame, controlView);
    auto const button = buttonRect(frame);
    if (button.isEmpty())
        return;
    Theme::current().drawComboButton(button, { .control = lookInView(controlView), .style = NSSmallSquareBezelStyle },
        isBezeled() || isBordered(), m_isCalendarOpen || isHighlighted());
}

void PLIXTextDatePickerCell::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    static_cast<PLIXTextDatePickerCell&>(fresh).m_showsButton = m_showsButton;
}

}

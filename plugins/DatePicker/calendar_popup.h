#pragma once

#include <plugins/DatePicker/calendar_month.h>

namespace plix {

class NSEvent;
class NSView;

struct CalendarChoice {
    CalendarDay marked;
    CalendarDay today;
    CalendarLimits limits;
};

/// Opens a calendar below a rectangle of a view, in a window of its own, and follows mouse and keyboard until a day is chosen,
/// which it answers, or the calendar is dismissed. `opening` is the press that is still held, or null. It goes by itself where the
/// view leaves its window or the application becomes inactive.
///
/// Arrows go by days and weeks, Page Up and Page Down by months and with Shift by years, Home and End within the month; Return and
/// Space choose, Escape and a press elsewhere dismiss, and so does Tab, which goes on to the view.
std::optional<CalendarDay> runCalendar(NSView&, Rect, CalendarChoice const&, NSEvent* opening);

/// Dismisses the calendar that is open for the view, if there is one.
void dismissCalendar(NSView const&);

/// Whether the event is the key that opens a calendar, and closes one: F4, or an upward or downward arrow with Option.
bool isCalendarKey(NSEvent&);

}

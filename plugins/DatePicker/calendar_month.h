#pragma once

#include <plix/platform/foundation/calendar_fields.h>
#include <plix/platform/graphics/geometry.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace plix {

struct CalendarDay {
    std::int64_t year { 2001 };
    int month { 1 };
    int day { 1 };

    static CalendarDay of(CalendarFields const& fields) { return { fields.year, fields.month, fields.day }; }
    friend auto operator<=>(CalendarDay const&, CalendarDay const&) = default;
};

/// A page of a calendar: six weeks, whole, of which the first has the month's first day in it.
constexpr int daysOfPage = 42;
std::array<CalendarDay, daysOfPage> daysOfMonthPage(std::int64_t year, int month, int firstWeekday);

enum class CalendarMove {
    previousDay,
    nextDay,
    previousWeek,
    nextWeek,
    previousMonth,
    nextMonth,
    previousYear,
    nextYear,
    firstOfMonth,
    lastOfMonth,
};
/// A day that the month lacks becomes its last. Stays within the years 1 to 9999.
CalendarDay dayAfterMove(CalendarDay, CalendarMove);

/// The days that may be chosen, both ends included.
struct CalendarLimits {
    std::optional<CalendarDay> first;
    std::optional<CalendarDay> last;

    bool contains(CalendarDay) const;
    CalendarDay nearest(CalendarDay) const;
};

/// How a month and its year are written together, where a whole date is written by a format.
std::string monthTitleFormat(std::string_view dateFormat);

/// Where everything is on the page, in points from its upper left corner, y downwards.
struct CalendarLayout {
    Rect title;
    Rect previous;
    Rect next;
    std::array<Rect, 7> weekdays;
    std::array<Rect, daysOfPage> days;

    static CalendarLayout ofPage();
    static Size size();
    std::optional<int> dayAt(Point) const;
};

/// Below a field on the screen, y upwards, or above it where there is no room, wholly on the screen where it fits.
Rect calendarFrame(Rect field, Size, Rect screen);

}

#pragma once

#include <optional>

namespace plix {

/// A moment as a clock on the wall shows it, in the proleptic Gregorian calendar and in no particular zone.
struct CalendarTime {
    int year { 2001 };
    int month { 1 };
    int day { 1 };
    int hour { 0 };
    int minute { 0 };
    int second { 0 };
    /// Of a second, 0 up to 1.
    double fraction { 0 };

    friend constexpr bool operator==(CalendarTime const&, CalendarTime const&) = default;
};

struct CalendarSpan {
    int years { 0 };
    int months { 0 };
    int days { 0 };
    int hours { 0 };
    int minutes { 0 };
    int seconds { 0 };
};

/// Years and months first, a day that the month lacks becoming its last; then the rest on a clock of 24 hours a day.
CalendarTime sum(CalendarTime const&, CalendarSpan const&);
/// 0 for Sunday up to 6.
int dayOfWeek(CalendarTime const&);

struct CalendarRange {
    CalendarTime start;
    CalendarTime end;
};

/// What DateRangeForMnemonic answers for a code; nothing for one that it does not know.
std::optional<CalendarRange> calendarRangeForMnemonic(int code, CalendarTime const& now);

}

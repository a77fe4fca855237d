#pragma once

#include <plix/platform/base/NSDate.h>

#include <cstdint>

namespace plix {

/// What a calendar on the wall and the clock beside it show: the proleptic Gregorian calendar, without a zone. The year before 1 is
/// 0.
struct CalendarFields {
    std::int64_t year { 2001 };
    int month { 1 };
    int day { 1 };
    int hour { 0 };
    int minute { 0 };
    int second { 0 };
    /// Of the second, from 0 to below 1.
    double fraction { 0 };

    friend bool operator==(CalendarFields const&, CalendarFields const&) = default;
};

struct CalendarInterval {
    int years { 0 };
    int months { 0 };
    int days { 0 };
    int hours { 0 };
    int minutes { 0 };
    int seconds { 0 };
};

PLIX_EXPORT bool isLeapYear(std::int64_t year);
/// Of month 1 to 12.
PLIX_EXPORT int daysInMonth(std::int64_t year, int month);
/// Days since 1 January 2001. Months and days outside their range count on.
PLIX_EXPORT std::int64_t dayNumber(std::int64_t year, std::int64_t month, std::int64_t day);

/// 0 for Sunday to 6 for Saturday.
PLIX_EXPORT int dayOfWeek(CalendarFields const&);
/// 1 for 1 January.
PLIX_EXPORT int dayOfYear(CalendarFields const&);

/// Seconds from 1 January 2001 00:00 on the same clock. Fields outside their range count on: 24 o'clock is the next day's 0.
PLIX_EXPORT NSTimeInterval clockSeconds(CalendarFields const&);
/// The other way. Beyond the years of about +-30 million the nearest reading; not a number: 1 January 2001.
PLIX_EXPORT CalendarFields fieldsFromClockSeconds(NSTimeInterval);

/// The reading after years and months, then days, then hours, minutes and seconds on the clock. After the months, a day that the
/// month lacks becomes its last day.
PLIX_EXPORT CalendarFields fieldsByAdding(CalendarFields const&, CalendarInterval const&);

}

#include <plix/format/date_range.h>

namespace plix {

namespace {

CalendarFields midnightOf(CalendarFields const& time)
{
    return { .year = time.year, .month = time.month, .day = time.day };
}

CalendarFields endOf(CalendarFields const& time)
{
    return { .year = time.year, .month = time.month, .day = time.day, .hour = 23, .minute = 59, .second = 59 };
}

CalendarFields startOfMonth(CalendarFields const& time)
{
    return { .year = time.year, .month = time.month };
}

CalendarFields startOfQuarter(CalendarFields const& time)
{
    return { .year = time.year, .month = (time.month - 1) / 3 * 3 + 1 };
}

CalendarFields startOfYear(CalendarFields const& time)
{
    return { .year = time.year };
}

// These two are computed from now, so that its fraction of a second stays in; that is meant.
CalendarFields startOfWeek(CalendarFields const& now)
{
    return fieldsByAdding(now, { .days = -dayOfWeek(now), .hours = -now.hour, .minutes = -now.minute, .seconds = -now.second });
}

CalendarFields lastSecondOfToday(CalendarFields const& now)
{
    return fieldsByAdding(now, { .days = 1, .hours = -now.hour, .minutes = -now.minute, .seconds = -(now.second + 1) });
}

CalendarRange rangeFrom(CalendarFields const& start, CalendarInterval length)
{
    length.seconds -= 1;
    return { start, fieldsByAdding(start, length) };
}

}

std::optional<CalendarRange> calendarRangeForMnemonic(int code, CalendarFields const& now)
{
    switch (code) {
    case 0: // today
        return CalendarRange { midnightOf(now), endOf(now) };
    case 1: { // yesterday
        auto const yesterday = fieldsByAdding(now, { .days = -1 });
        return CalendarRange { midnightOf(yesterday), endOf(yesterday) };
    }
    case 2: // last week
        return rangeFrom(midnightOf(fieldsByAdding(now, { .days = -(7 + dayOfWeek(now)) })), { .days = 7 });
    case 3: // last month
        return rangeFrom(startOfMonth(fieldsByAdding(now, { .months = -1 })), { .months = 1 });
    case 4: // last quarter
        return rangeFrom(startOfQuarter(fieldsByAdding(now, { .months = -3 })), { .months = 3 });
    case 5: // last year
        return rangeFrom(startOfYear(fieldsByAdding(now, { .years = -1 })), { .years = 1 });
    case 6: // this week
        return rangeFrom(startOfWeek(now), { .days = 7 });
    case 7: // this month
        return rangeFrom(startOfMonth(now), { .months = 1 });
    case 8: // this quarter
        return rangeFrom(startOfQuarter(now), { .months = 3 });
    case 9: // this year
        return rangeFrom(startOfYear(now), { .years = 1 });
    case 10: // week to date
        return CalendarRange { startOfWeek(now), lastSecondOfToday(now) };
    case 11: // month to date
        return CalendarRange { startOfMonth(now), lastSecondOfToday(now) };
    case 12: // quarter to date
        return CalendarRange { startOfQuarter(now), lastSecondOfToday(now) };
    case 13: // year to date
        return CalendarRange { startOfYear(now), lastSecondOfToday(now) };
    default:
        return {};
    }
}

}

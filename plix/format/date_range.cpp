#include <plix/format/date_range.h>

#include <algorithm>
#include <chrono>

namespace plix {

namespace {

using namespace std::chrono;

sys_days dayOf(CalendarTime const& time)
{
    return year { time.year } / time.month / time.day;
}

CalendarTime midnightOf(CalendarTime const& time)
{
    return { .year = time.year, .month = time.month, .day = time.day };
}

CalendarTime endOf(CalendarTime const& time)
{
    return { .year = time.year, .month = time.month, .day = time.day, .hour = 23, .minute = 59, .second = 59 };
}

CalendarTime startOfMonth(CalendarTime const& time)
{
    return { .year = time.year, .month = time.month };
}

CalendarTime startOfQuarter(CalendarTime const& time)
{
    return { .year = time.year, .month = (time.month - 1) / 3 * 3 + 1 };
}

CalendarTime startOfYear(CalendarTime const& time)
{
    return { .year = time.year };
}

// These two are computed from now, so that its fraction of a second stays in; that is meant.
CalendarTime startOfWeek(CalendarTime const& now)
{
    return sum(now, { .days = -dayOfWeek(now), .hours = -now.hour, .minutes = -now.minute, .seconds = -now.second });
}

CalendarTime lastSecondOfToday(CalendarTime const& now)
{
    return sum(now, { .days = 1, .hours = -now.hour, .minutes = -now.minute, .seconds = -(now.second + 1) });
}

CalendarRange rangeFrom(CalendarTime const& start, CalendarSpan length)
{
    length.seconds -= 1;
    return { start, sum(start, length) };
}

}

CalendarTime sum(CalendarTime const& time, CalendarSpan const& span)
{
    auto const wanted = year { time.year } / time.month + years { span.years } + months { span.months };
    auto const lastDay = static_cast<int>(static_cast<unsigned>((wanted / last).day()));
    sys_seconds const moment = sys_days { wanted / std::min(time.day, lastDay) } + days { span.days }
        + hours { time.hour + span.hours } + minutes { time.minute + span.minutes } + seconds { time.second + span.seconds };
    auto const midnight = floor<days>(moment);
    year_month_day const date = midnight;
    hh_mm_ss const clock { moment - midnight };
    return {
        .year = static_cast<int>(date.year()),
        .month = static_cast<int>(static_cast<unsigned>(date.month())),
        .day = static_cast<int>(static_cast<unsigned>(date.day())),
        .hour = static_cast<int>(clock.hours().count()),
        .minute = static_cast<int>(clock.minutes().count()),
        .second = static_cast<int>(clock.seconds().count()),
        .fraction = time.fraction,
    };
}

int dayOfWeek(CalendarTime const& time)
{
    return static_cast<int>(weekday { dayOf(time) }.c_encoding());
}

std::optional<CalendarRange> calendarRangeForMnemonic(int code, CalendarTime const& now)
{
    switch (code) {
    case 0: // today
        return CalendarRange { midnightOf(now), endOf(now) };
    case 1: { // yesterday
        auto const yesterday = sum(now, { .days = -1 });
        return CalendarRange { midnightOf(yesterday), endOf(yesterday) };
    }
    case 2: // last week
        return rangeFrom(midnightOf(sum(now, { .days = -(7 + dayOfWeek(now)) })), { .days = 7 });
    case 3: // last month
        return rangeFrom(startOfMonth(sum(now, { .months = -1 })), { .months = 1 });
    case 4: // last quarter
        return rangeFrom(startOfQuarter(sum(now, { .months = -3 })), { .months = 3 });
    case 5: // last year
        return rangeFrom(startOfYear(sum(now, { .years = -1 })), { .years = 1 });
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

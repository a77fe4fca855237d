#include <plix/platform/foundation/calendar_fields.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr std::int64_t secondsADay = 86400;
constexpr NSTimeInterval furthestSeconds = 1e15;
/// Days from 1 March of the year 0 to 1 January 2001.
constexpr std::int64_t daysFromMarchZero = 730791;
constexpr std::int64_t daysInEra = 146097; // 400 years

std::int64_t floorDivide(std::int64_t a, std::int64_t b)
{
    return a / b - (a % b < 0);
}

}

bool isLeapYear(std::int64_t year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int daysInMonth(std::int64_t year, int month)
{
    if (month == 2)
        return isLeapYear(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

std::int64_t dayNumber(std::int64_t year, std::int64_t month, std::int64_t day)
{
    // Years are counted from March, so that the leap day comes last.
    auto const months = year * 12 + month - 3;
    auto const marchYear = floorDivide(months, 12);
    auto const marchMonth = months - marchYear * 12;
    auto const era = floorDivide(marchYear, 400);
    auto const yearOfEra = marchYear - era * 400;
    auto const dayOfMarchYear = (153 * marchMonth + 2) / 5 + day - 1;
    return era * daysInEra + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfMarchYear - daysFromMarchZero;
}

int dayOfWeek(CalendarFields const& fields)
{
    // 1 January 2001 was a Monday.
    auto const days = dayNumber(fields.year, fields.month, fields.day) + 1;
    return static_cast<int>(days - floorDivide(days, 7) * 7);
}

int dayOfYear(CalendarFields const& fields)
{
    return static_cast<int>(dayNumber(fields.year, fields.month, fields.day) - dayNumber(fields.year, 1, 1) + 1);
}

NSTimeInterval clockSeconds(CalendarFields const& fields)
{
    auto const days = dayNumber(fields.year, fields.month, fields.day);
    auto const seconds
        = days * secondsADay + std::int64_t { fields.hour } * 3600 + std::int64_t { fields.minute } * 60 + fields.second;
    return static_cast<NSTimeInterval>(seconds) + fields.fraction;
}

CalendarFields fieldsFromClockSeconds(NSTimeInterval interval)
{
    if (std::isnan(interval))
        return {};
    interval = std::clamp(interval, -furthestSeconds, furthestSeconds);
    auto const whole = std::floor(interval);
    auto const seconds = static_cast<std::int64_t>(whole);
    auto const days = floorDivide(seconds, secondsADay);
    auto const time = static_cast<int>(seconds - days * secondsADay);

    auto const marchDays = days + daysFromMarchZero;
    auto const era = floorDivide(marchDays, daysInEra);
    auto const dayOfEra = marchDays - era * daysInEra;
    auto const yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    auto const dayOfMarchYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    auto const marchMonth = (5 * dayOfMarchYear + 2) / 153;

    CalendarFields fields;
    fields.day = static_cast<int>(dayOfMarchYear - (153 * marchMonth + 2) / 5 + 1);
    fields.month = static_cast<int>(marchMonth < 10 ? marchMonth + 3 : marchMonth - 9);
    fields.year = era * 400 + yearOfEra + (fields.month <= 2);
    fields.hour = time / 3600;
    fields.minute = time / 60 % 60;
    fields.second = time % 60;
    fields.fraction = interval - whole;
    return fields;
}

CalendarFields fieldsByAdding(CalendarFields const& fields, CalendarInterval const& interval)
{
    auto const months = (fields.year + interval.years) * 12 + fields.month - 1 + interval.months;
    auto moved = fields;
    moved.year = floorDivide(months, 12);
    moved.month = static_cast<int>(months - moved.year * 12) + 1;
    moved.day = std::min(moved.day, daysInMonth(moved.year, moved.month));
    auto const days = dayNumber(moved.year, moved.month, moved.day) + interval.days;
    auto const seconds = std::int64_t { interval.hours } * 3600 + std::int64_t { interval.minutes } * 60 + interval.seconds
        + std::int64_t { moved.hour } * 3600 + std::int64_t { moved.minute } * 60 + moved.second;
    auto result = fieldsFromClockSeconds(static_cast<NSTimeInterval>(days * secondsADay + seconds));
    result.fraction = fields.fraction;
    return result;
}

}

#include <plix/format/date_format.h>
#include <plix/format/date_range.h>

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <ostream>

namespace plix {

static void PrintTo(CalendarFields const& time, std::ostream* out)
{
    *out << time.year << '-' << time.month << '-' << time.day << ' ' << time.hour << ':' << time.minute << ':' << time.second
         << " + " << time.fraction;
}

namespace {

// A calendar of its own: days counted one by one.
bool isLeap(std::int64_t year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}
int daysIn(std::int64_t year, int month)
{
    static constexpr std::array<int, 12> days { 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };
    return days[static_cast<std::size_t>(month - 1)] + (month == 2 && isLeap(year));
}
void step(CalendarFields& time, int direction)
{
    time.day += direction;
    if (time.day > daysIn(time.year, time.month)) {
        time.day = 1;
        if (++time.month == 13) {
            time.month = 1;
            ++time.year;
        }
    } else if (time.day == 0) {
        if (--time.month == 0) {
            time.month = 12;
            --time.year;
        }
        time.day = daysIn(time.year, time.month);
    }
}
CalendarFields byDays(CalendarFields time, int days)
{
    for (; days > 0; --days)
        step(time, 1);
    for (; days < 0; ++days)
        step(time, -1);
    return time;
}
CalendarFields at(std::int64_t year, int month, int day, int hour = 0, int minute = 0, int second = 0, double fraction = 0)
{
    return { year, month, day, hour, minute, second, fraction };
}
CalendarFields lastSecondBefore(CalendarFields time, double fraction = 0)
{
    step(time, -1);
    return at(time.year, time.month, time.day, 23, 59, 59, fraction);
}
// The first of the month `count` months away.
CalendarFields monthsAway(std::int64_t year, int month, int count)
{
    auto const months = year * 12 + month - 1 + count;
    return at(months / 12, static_cast<int>(months % 12) + 1, 1);
}

CalendarRange rangeByDefinition(int code, CalendarFields const& now, int weekday)
{
    auto const today = at(now.year, now.month, now.day);
    auto sunday = byDays(today, -weekday);
    sunday.fraction = now.fraction;
    int const quarter = (now.month - 1) / 3 * 3 + 1;
    auto const endOfToday = at(now.year, now.month, now.day, 23, 59, 59, now.fraction);
    switch (code) {
    case 0:
        return { today, at(now.year, now.month, now.day, 23, 59, 59) };
    case 1: {
        auto const yesterday = byDays(today, -1);
        return { yesterday, lastSecondBefore(today) };
    }
    case 2: {
        auto const start = byDays(today, -7 - weekday);
        return { start, lastSecondBefore(byDays(start, 7)) };
    }
    case 3:
        return { monthsAway(now.year, now.month, -1), lastSecondBefore(at(now.year, now.month, 1)) };
    case 4:
        return { monthsAway(now.year, quarter, -3), lastSecondBefore(at(now.year, quarter, 1)) };
    case 5:
        return { at(now.year - 1, 1, 1), lastSecondBefore(at(now.year, 1, 1)) };
    case 6:
        return { sunday, lastSecondBefore(byDays(sunday, 7), now.fraction) };
    case 7:
        return { at(now.year, now.month, 1), lastSecondBefore(monthsAway(now.year, now.month, 1)) };
    case 8:
        return { at(now.year, quarter, 1), lastSecondBefore(monthsAway(now.year, quarter, 3)) };
    case 9:
        return { at(now.year, 1, 1), lastSecondBefore(at(now.year + 1, 1, 1)) };
    case 10:
        return { sunday, endOfToday };
    case 11:
        return { at(now.year, now.month, 1), endOfToday };
    case 12:
        return { at(now.year, quarter, 1), endOfToday };
    default:
        return { at(now.year, 1, 1), endOfToday };
    }
}

TEST(CalendarRange, EqualsTheDefinitionForEveryCodeOnEveryDayOfFourYears)
{
    auto day = at(2003, 1, 1); // a Wednesday; 2004 is a leap year
    for (int number = 0; number < 1461 + 366; ++number, step(day, 1)) {
        int const weekday = (number + 3) % 7;
        ASSERT_EQ(dayOfWeek(day), weekday);
        for (auto const& clock : { at(0, 0, 0, 0, 0, 0, 0), at(0, 0, 0, 14, 35, 27, 0.75), at(0, 0, 0, 23, 59, 59, 0.5) }) {
            auto const now = at(day.year, day.month, day.day, clock.hour, clock.minute, clock.second, clock.fraction);
            for (int code = 0; code <= 13; ++code) {
                auto const range = calendarRangeForMnemonic(code, now);
                auto const wanted = rangeByDefinition(code, now, weekday);
                ASSERT_TRUE(range);
                ASSERT_EQ(range->start, wanted.start) << code << " " << testing::PrintToString(now);
                ASSERT_EQ(range->end, wanted.end) << code << " " << testing::PrintToString(now);
            }
        }
    }
}

TEST(CalendarRange, KnowsNoOtherCodes)
{
    for (int const code : { -1, 14, 15, INT32_MIN, INT32_MAX })
        EXPECT_FALSE(calendarRangeForMnemonic(code, at(2004, 2, 29))) << code;
}

TEST(CalendarRange, ADayThatTheMonthLacksIsItsLast)
{
    // Without that rule 31 March less a month were a day in March again.
    EXPECT_EQ(calendarRangeForMnemonic(3, at(2003, 3, 31))->start, at(2003, 2, 1));
    EXPECT_EQ(calendarRangeForMnemonic(4, at(2003, 5, 31))->start, at(2003, 1, 1));
    EXPECT_EQ(calendarRangeForMnemonic(5, at(2004, 2, 29))->start, at(2003, 1, 1));
}

TEST(CalendarRange, WeeksBeginOnSunday)
{
    auto const sunday = at(2007, 4, 1, 9, 30);
    EXPECT_EQ(calendarRangeForMnemonic(6, sunday)->start, at(2007, 4, 1));
    EXPECT_EQ(calendarRangeForMnemonic(2, sunday)->start, at(2007, 3, 25));
}

TEST(ShortestDateFormat, GivesTheStatedFormats)
{
    struct Row {
        char const* format;
        char const* shortest;
    };
    for (auto const& row : {
             Row { "%m/%d/%Y", "%1m/%e/%y" }, Row { "%d.%m.%Y", "%e/%1m/%y" }, Row { "%Y-%m-%d", "%y/%1m/%e" },
             Row { "%A, %B %d, %Y", "%1m/%e/%y" }, Row { "%e %b %y", "%e/%1m/%y" }, Row { "%y %d %B", "%y/%e/%1m" },
             Row { "%m %y %e", "%1m/%y/%e" }, Row { "%d %Y %m", "%e/%y/%1m" }, Row { "%Y", "%y//%e" }, Row { "", "//%y" },
             Row { "%H:%M", "//%y" }, Row { "  ", "//%y" }, Row { "made on %m/%y/%d", "%1m/%e/%y" }, // the words count
         })
        EXPECT_EQ(shortestDateFormat(row.format, 0x1049), row.shortest) << row.format;
}

TEST(ShortestDateFormat, LeavesTheMonthsWidthToOldSystems)
{
    EXPECT_EQ(shortestDateFormat("%m/%d/%Y", 0x102F), "%m/%e/%y");
    EXPECT_EQ(shortestDateFormat("%m/%d/%Y", 0x1030), "%1m/%e/%y");
}

TEST(ShortestDateFormat, FollowsTheOrderOfTheFirstLetters)
{
    // Every order in which three, two, one or none of the fields may come, with and without words between.
    struct Row {
        char const* letters;
        char const* shortest;
    };
    for (auto const& row : {
             Row { "dmy", "%e/%1m/%y" },
             Row { "dym", "%e/%y/%1m" },
             Row { "mdy", "%1m/%e/%y" },
             Row { "myd", "%1m/%y/%e" },
             Row { "ydm", "%y/%e/%1m" },
             Row { "ymd", "%y/%1m/%e" },
             Row { "dm", "%e/%1m/%y" },
             Row { "md", "%1m/%e/%y" },
             Row { "dy", "%e/%y/%1m" },
             Row { "yd", "%y/%e/%1m" },
             Row { "my", "%1m/%y/%e" },
             Row { "ym", "%y/%1m/%e" },
             Row { "d", "%e//%y" },
             Row { "m", "%1m//%y" },
             Row { "y", "%y//%e" },
         })
        EXPECT_EQ(shortestDateFormat(row.letters, 0x1049), row.shortest) << row.letters;
}

}
}

#include <plix/platform/foundation/calendar_fields.h>
#include <plix/platform/foundation/zone_rules.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace plix {
namespace {

TEST(CalendarFields, EveryDayOfEightHundredYearsFollowsTheOneBefore)
{
    CalendarFields expected { 1600, 1, 1 };
    auto number = dayNumber(1600, 1, 1);
    int weekday = 6; // 1 January 1600 was a Saturday
    int ofYear = 1;
    int wrong = 0;
    while (expected.year < 2400) {
        auto const actual = fieldsFromClockSeconds(static_cast<double>(number) * 86400);
        wrong += !(actual == expected) || dayNumber(expected.year, expected.month, expected.day) != number
            || dayOfWeek(actual) != weekday || dayOfYear(actual) != ofYear;
        ++number;
        weekday = (weekday + 1) % 7;
        ++ofYear;
        if (++expected.day > daysInMonth(expected.year, expected.month)) {
            expected.day = 1;
            if (++expected.month > 12) {
                expected.month = 1;
                ++expected.year;
                ofYear = 1;
            }
        }
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(dayNumber(2001, 1, 1), 0);
}

TEST(CalendarFields, LeapYearsAndMonths)
{
    EXPECT_TRUE(isLeapYear(2000));
    EXPECT_FALSE(isLeapYear(1900));
    EXPECT_TRUE(isLeapYear(2004));
    EXPECT_FALSE(isLeapYear(2007));
    EXPECT_TRUE(isLeapYear(0));
    EXPECT_TRUE(isLeapYear(-4));
    int days = 0;
    for (int month = 1; month <= 12; ++month)
        days += daysInMonth(2024, month);
    EXPECT_EQ(days, 366);
    EXPECT_EQ(daysInMonth(2023, 2), 28);
}

TEST(CalendarFields, SecondsAndFieldsAreInverse)
{
    for (double const seconds : { 0.0, -1.0, 86399.0, -86400.5, 1e9, -1e11, 1e13, 86399.999, 12345678.25 }) {
        auto const fields = fieldsFromClockSeconds(seconds);
        EXPECT_DOUBLE_EQ(clockSeconds(fields), seconds);
        EXPECT_GE(fields.fraction, 0);
        EXPECT_LT(fields.fraction, 1);
        EXPECT_TRUE(fields.hour >= 0 && fields.hour < 24 && fields.minute >= 0 && fields.minute < 60 && fields.second >= 0);
    }
    EXPECT_EQ(fieldsFromClockSeconds(-1), (CalendarFields { 2000, 12, 31, 23, 59, 59 }));
    EXPECT_EQ(fieldsFromClockSeconds(0.5).fraction, 0.5);
}

TEST(CalendarFields, SecondsBeyondReasonAreTheNearestReading)
{
    EXPECT_EQ(fieldsFromClockSeconds(std::nan("")), CalendarFields {});
    EXPECT_EQ(fieldsFromClockSeconds(HUGE_VAL), fieldsFromClockSeconds(1e15));
    EXPECT_EQ(fieldsFromClockSeconds(-HUGE_VAL), fieldsFromClockSeconds(-1e15));
    EXPECT_GT(fieldsFromClockSeconds(1e15).year, 31'000'000);
}

TEST(CalendarFields, FieldsOutsideTheirRangeCountOn)
{
    EXPECT_EQ(fieldsFromClockSeconds(clockSeconds({ 2005, 13, 1 })), (CalendarFields { 2006, 1, 1 }));
    EXPECT_EQ(fieldsFromClockSeconds(clockSeconds({ 2005, 0, 1 })), (CalendarFields { 2004, 12, 1 }));
    EXPECT_EQ(fieldsFromClockSeconds(clockSeconds({ 2005, 3, 0 })), (CalendarFields { 2005, 2, 28 }));
    EXPECT_EQ(fieldsFromClockSeconds(clockSeconds({ 2005, 3, 1, 24 })), (CalendarFields { 2005, 3, 2 }));
    EXPECT_EQ(fieldsFromClockSeconds(clockSeconds({ 2005, 3, 1, 0, -1 })), (CalendarFields { 2005, 2, 28, 23, 59 }));
}

TEST(CalendarFields, AddsMonthsThenDaysThenTime)
{
    struct {
        CalendarFields from;
        CalendarInterval interval;
        CalendarFields to;
    } const rows[] = {
        { { 2005, 3, 31 }, { .months = -1 }, { 2005, 2, 28 } },
        { { 2004, 3, 31 }, { .months = -1 }, { 2004, 2, 29 } },
        { { 2005, 5, 31 }, { .months = -3 }, { 2005, 2, 28 } },
        { { 2005, 1, 31 }, { .months = 1 }, { 2005, 2, 28 } },
        { { 2005, 1, 31 }, { .months = 1, .days = 1 }, { 2005, 3, 1 } },
        { { 2004, 2, 29 }, { .years = 1 }, { 2005, 2, 28 } },
        { { 2004, 2, 29 }, { .years = 4 }, { 2008, 2, 29 } },
        { { 2005, 1, 15 }, { .months = -1 }, { 2004, 12, 15 } },
        { { 2005, 1, 15 }, { .months = -25 }, { 2002, 12, 15 } },
        { { 2005, 12, 15 }, { .months = 1 }, { 2006, 1, 15 } },
        { { 2005, 12, 31, 23, 59, 59 }, { .seconds = 1 }, { 2006, 1, 1 } },
        { { 2005, 3, 1 }, { .seconds = -1 }, { 2005, 2, 28, 23, 59, 59 } },
        { { 2005, 1, 1, 12, 30, 15 }, { .days = -1, .hours = -12, .minutes = -30, .seconds = -15 }, { 2004, 12, 31 } },
        { { 2005, 1, 1 }, { .days = 365 }, { 2006, 1, 1 } },
        { { 1, 1, 1 }, { .days = -1 }, { 0, 12, 31 } },
        { { 2005, 1, 1, 0, 0, 0, 0.25 }, { .hours = 25 }, { 2005, 1, 2, 1, 0, 0, 0.25 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(fieldsByAdding(row.from, row.interval), row.to) << row.from.year << "-" << row.from.month << "-" << row.from.day;
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_GT(fieldsByAdding({}, { most, most, most, most, most, most }).year, 2001);
    EXPECT_LT(fieldsByAdding({}, { -most, -most, -most, -most, -most, -most }).year, 2001);
}

std::int64_t utc(int year, int month, int day, int hour, int minute = 0)
{
    return static_cast<std::int64_t>(clockSeconds({ year, month, day, hour, minute })) + 978307200;
}

TEST(ZoneRule, ReadsThePOSIXForm)
{
    auto const rule = parseZoneRule("CET-1CEST,M3.5.0,M10.5.0/3");
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->at(utc(2005, 3, 27, 0, 59)), (ZoneOffset { 3600, false, "CET" }));
    EXPECT_EQ(rule->at(utc(2005, 3, 27, 1)), (ZoneOffset { 7200, true, "CEST" }));
    EXPECT_EQ(rule->at(utc(2005, 10, 30, 0, 59)).secondsFromGMT, 7200);
    EXPECT_EQ(rule->at(utc(2005, 10, 30, 1)).secondsFromGMT, 3600);
    EXPECT_EQ(rule->at(utc(2006, 1, 1, 0)).secondsFromGMT, 3600);
}

TEST(ZoneRule, TheFifthWeekIsTheLastThatThereIs)
{
    // In 2005 the last Thursday of March was its last day; February had no fifth Tuesday.
    auto const rule = parseZoneRule("AAA0BBB,M2.5.2/0,M3.5.4/0");
    ASSERT_TRUE(rule);
    EXPECT_FALSE(rule->at(utc(2005, 2, 21, 23)).isDaylightSaving);
    EXPECT_TRUE(rule->at(utc(2005, 2, 22, 0)).isDaylightSaving);
    EXPECT_TRUE(rule->at(utc(2005, 3, 30, 22)).isDaylightSaving);
    EXPECT_FALSE(rule->at(utc(2005, 3, 31, 0)).isDaylightSaving);
}

TEST(ZoneRule, SummerMayGoOverTheYearsEnd)
{
    auto const rule = parseZoneRule("NZST-12NZDT,M9.5.0,M4.1.0/3");
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->at(utc(2020, 1, 1, 0)).secondsFromGMT, 13 * 3600);
    EXPECT_EQ(rule->at(utc(2020, 12, 31, 23)).secondsFromGMT, 13 * 3600);
    EXPECT_EQ(rule->at(utc(2020, 7, 1, 0)).secondsFromGMT, 12 * 3600);
    EXPECT_EQ(rule->at(utc(2020, 4, 4, 13, 59)).secondsFromGMT, 13 * 3600);
    EXPECT_EQ(rule->at(utc(2020, 4, 4, 14)).secondsFromGMT, 12 * 3600);
}

TEST(ZoneRule, DaysMayBeCountedInTheYear)
{
    auto const julian = parseZoneRule("AAA0BBB,J60/0,J365/0");
    ASSERT_TRUE(julian);
    EXPECT_FALSE(julian->at(utc(2004, 2, 29, 23)).isDaylightSaving);
    EXPECT_TRUE(julian->at(utc(2004, 3, 1, 0)).isDaylightSaving);
    auto const counted = parseZoneRule("AAA0BBB,59/0,364/0");
    ASSERT_TRUE(counted);
    EXPECT_TRUE(counted->at(utc(2004, 2, 29, 0)).isDaylightSaving);
    EXPECT_FALSE(counted->at(utc(2005, 2, 28, 23)).isDaylightSaving);
    EXPECT_TRUE(counted->at(utc(2005, 3, 1, 0)).isDaylightSaving);
}

TEST(ZoneRule, NamesOffsetsAndTimesInEveryForm)
{
    EXPECT_EQ(parseZoneRule("<+0330>-3:30")->standard, (ZoneOffset { 12600, false, "+0330" }));
    EXPECT_EQ(parseZoneRule("UTC0")->standard.secondsFromGMT, 0);
    EXPECT_EQ(parseZoneRule("EST5EDT")->at(utc(2020, 7, 1, 0)).abbreviation, "EDT");
    EXPECT_EQ(parseZoneRule("EST5EDT4,M3.2.0/-1,M11.1.0/25:30")->summerEnds.seconds, 91800);
    EXPECT_EQ(parseZoneRule("EST5EDT4,M3.2.0/-1,M11.1.0/25:30")->summerBegins.seconds, -3600);
    for (auto const* bad : { "", "X5", "EST", "EST5EDT,", "EST5EDT,M3.2.0", "EST5EDT,M13.2.0,M11.1.0", "EST5EDT,M3.6.0,M11.1.0",
             "EST5EDT,M3.2.7,M11.1.0", "EST5EDT,J0,J5", "EST5EDT,J366,J5", "EST5EDT,366,5", "EST25", "EST5x", "<+1>-1", "<+03-3",
             "EST5EDT,M3.2.0,M11.1.0x", "EST5EDT,M3.2.0/200,M11.1.0", "Europe/Vienna", "EST-" })
        EXPECT_FALSE(parseZoneRule(bad)) << bad;
}

ZoneData rules(char const* text)
{
    ZoneData zone;
    zone.after = parseZoneRule(text);
    zone.offsets.push_back(zone.after->standard);
    return zone;
}

TEST(ZoneData, AMomentShowsItsReading)
{
    auto const zone = rules("CET-1CEST,M3.5.0,M10.5.0/3");
    for (auto moment = utc(2005, 1, 1, 0); moment < utc(2006, 1, 1, 0); moment += 1800) {
        auto const clock = moment + zone.at(moment).secondsFromGMT;
        auto const found = momentOfClock(zone, clock);
        EXPECT_EQ(found + zone.at(found).secondsFromGMT, clock);
        EXPECT_LE(found, moment);
    }
}

TEST(ZoneData, AReadingInTheGapGoesOnFromBeforeIt)
{
    auto const zone = rules("CET-1CEST,M3.5.0,M10.5.0/3");
    EXPECT_EQ(momentOfClock(zone, utc(2005, 3, 27, 2, 30)), utc(2005, 3, 27, 1, 30));
}

TEST(ZoneData, AReadingThatComesTwiceIsTheFirst)
{
    auto const zone = rules("CET-1CEST,M3.5.0,M10.5.0/3");
    EXPECT_EQ(momentOfClock(zone, utc(2005, 10, 30, 2, 30)), utc(2005, 10, 30, 0, 30));
}

std::vector<std::uint8_t> zoneFile()
{
    // Two offsets, one transition at 1000, in both the 4-byte and the 8-byte form, and a rule behind.
    std::string const header = std::string("TZif2") + std::string(15, '\0');
    std::string const counts("\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\1\0\0\0\2\0\0\0\10", 24);
    std::string const types("\0\0\16\20\0\0\0\0\34\40\1\4AAA\0BBB\0", 20);
    std::string const old = std::string("\0\0\3\350\1", 5) + types;
    std::string const present = std::string("\0\0\0\0\0\0\3\350\1", 9) + types;
    auto const text = header + counts + old + header + counts + present + "\nCCC-3\n";
    return { text.begin(), text.end() };
}

TEST(ZoneFile, IsReadWithItsRule)
{
    auto const zone = parseZoneFile(zoneFile());
    ASSERT_TRUE(zone);
    EXPECT_EQ(zone->at(999), (ZoneOffset { 3600, false, "AAA" }));
    EXPECT_EQ(zone->offsets.at(1), (ZoneOffset { 7200, true, "BBB" }));
    EXPECT_EQ(zone->at(1000), (ZoneOffset { 10800, false, "CCC" }));
}

TEST(ZoneFile, IsRefusedWhereverItIsCut)
{
    auto const whole = zoneFile();
    auto const withoutRule = whole.size() - 7;
    for (std::size_t length = 0; length < withoutRule; ++length)
        EXPECT_FALSE(parseZoneFile({ whole.data(), length })) << length;
    EXPECT_TRUE(parseZoneFile({ whole.data(), withoutRule }));
}

TEST(ZoneFile, WrongIndexesAreRefused)
{
    auto damaged = zoneFile();
    auto const second = damaged.size() - 7 - 29;
    damaged[second + 8] = 2; // an offset that there is not
    EXPECT_FALSE(parseZoneFile(damaged));
    damaged = zoneFile();
    damaged[second + 9 + 5] = 8; // a name that there is not
    EXPECT_FALSE(parseZoneFile(damaged));
}

}
}

#include "../../support/TestClock.h"
#include "../../support/TestSurroundings.h"

#include <plix/platform/foundation/NSCalendarDate.h>
#include <plix/platform/foundation/NSDateFormatter.h>
#include <plix/platform/foundation/locale_values.h>

#include <gtest/gtest.h>

#include <cmath>
#include <ctime>

namespace plix {
namespace {

class NSCalendarDateTest : public testing::Test {
protected:
    TestClock clock; // Monday, 14 March 2005, 15:09:26 UTC
    TestSurroundings set;
};

TEST_F(NSCalendarDateTest, ReadsTheClockInTheLocalZone)
{
    set.timeZone = "America/New_York";
    auto const date = NSCalendarDate::calendarDate();
    EXPECT_EQ(date.fields(), (CalendarFields { 2005, 3, 14, 10, 9, 26 }));
    EXPECT_EQ(date.dayOfWeek(), 1);
    EXPECT_EQ(date.dayOfYear(), 73);
    EXPECT_EQ(date.dayOfCommonEra(), 732019);
    EXPECT_EQ(date.description(), "2005-03-14 10:09:26 -0500");
    EXPECT_EQ(date.descriptionWithCalendarFormat("%Z"), "EST");
}

TEST_F(NSCalendarDateTest, AddsOnTheClockAcrossDaylightSaving)
{
    set.timeZone = "Europe/Vienna";
    auto const before = NSCalendarDate::dateWithYear(2005, 3, 26, 12, 0, 0);
    auto const after = before.dateByAddingYears(0, 0, 1, 0, 0, 0);
    EXPECT_EQ(after.fields(), (CalendarFields { 2005, 3, 27, 12 }));
    EXPECT_EQ(after.timeIntervalSinceDate(before), 23 * 3600);
    EXPECT_EQ(before.dateByAddingYears(0, 0, 0, 24, 0, 0), after);
    EXPECT_EQ(before.dateByAddingYears(0, 0, 0, 14, 30, 0).fields(), (CalendarFields { 2005, 3, 27, 3, 30 }));
    EXPECT_EQ(NSCalendarDate::dateWithYear(2005, 3, 31, 0, 0, 0).dateByAddingYears(0, -1, 0, 0, 0, 0).fields(),
        (CalendarFields { 2005, 2, 28 }));
}

TEST_F(NSCalendarDateTest, KeepsFractionZoneAndFormat)
{
    clock.advance(0.75);
    auto date = NSCalendarDate(NSDate::date(), NSTimeZone::timeZoneForSecondsFromGMT(-5400));
    date.setCalendarFormat("%H");
    auto const moved = date.dateByAddingYears(1, 0, 0, 0, 0, 0);
    EXPECT_NEAR(moved.fields().fraction, 0.75, 1e-6);
    EXPECT_EQ(moved.timeZone().name(), "GMT-0130");
    EXPECT_EQ(moved.description(), "13");
}

TEST_F(NSCalendarDateTest, IsReadFromText)
{
    set.timeZone = "Europe/Vienna";
    auto const local = NSCalendarDate::dateWithString("2005-07-01 12:00", "%Y-%m-%d %H:%M");
    ASSERT_TRUE(local);
    EXPECT_EQ(local->timeIntervalSinceReferenceDate,
        NSCalendarDate::dateWithYear(2005, 7, 1, 10, 0, 0, NSTimeZone()).timeIntervalSinceReferenceDate);
    EXPECT_EQ(local->calendarFormat(), "%Y-%m-%d %H:%M");
    auto const zoned = NSCalendarDate::dateWithString("2005-07-01 12:00 -0700", "%Y-%m-%d %H:%M %z");
    ASSERT_TRUE(zoned);
    EXPECT_EQ(zoned->timeIntervalSinceDate(*local), 9 * 3600);
    EXPECT_EQ(zoned->timeZone().name(), "GMT-0700");
    EXPECT_EQ(NSCalendarDate::dateWithString("1/7/2005 12 CEST", "%d/%m/%Y %H %Z"), local);
    EXPECT_EQ(NSCalendarDate::dateWithString("1/7/2005 11 CET", "%d/%m/%Y %H %Z"), local);
    EXPECT_EQ(NSCalendarDate::dateWithString("30/10/2005 2 CET", "%d/%m/%Y %H %Z")
                  ->timeIntervalSinceDate(*NSCalendarDate::dateWithString("30/10/2005 2 CEST", "%d/%m/%Y %H %Z")),
        3600);
    EXPECT_FALSE(NSCalendarDate::dateWithString("1/7/2005 12 XYZ", "%d/%m/%Y %H %Z"));
    EXPECT_FALSE(NSCalendarDate::dateWithString("1/7", "%d/%m/%Y"));
}

TEST_F(NSCalendarDateTest, SpeaksTheUsersLanguage)
{
    set.locale = "de_AT";
    auto const date = NSCalendarDate::dateWithYear(2005, 3, 4, 15, 9, 6);
    EXPECT_EQ(date.descriptionWithCalendarFormat("%A, %e. %B"), "Freitag, 4. März");
    EXPECT_EQ(date.descriptionWithCalendarFormat("%X"), "15:09:06");
    EXPECT_EQ(date.descriptionWithCalendarFormat("%B", DateNames::english()), "March");
    EXPECT_EQ(NSCalendarDate::dateWithString("4. märz 2005", "%e. %B %Y")->dayOfYear(), 63);
    EXPECT_EQ(NSCalendarDate::dateWithNaturalLanguageString("4/3")->monthOfYear(), 3);
    EXPECT_EQ(NSCalendarDate::dateWithNaturalLanguageString("tomorrow")->dayOfMonth(), 15);
    EXPECT_FALSE(NSCalendarDate::dateWithNaturalLanguageString("never"));
}

TEST_F(NSCalendarDateTest, LocalesHaveTheirValues)
{
    EXPECT_EQ(localeValues().decimalSeparator, ".");
    EXPECT_EQ(localeValues().dates.shortDateFormat, "%1m/%e/%y");
    EXPECT_EQ(localeValues().dates.firstWeekday, 0);
    set.locale = "de_DE";
    EXPECT_EQ(localeValues().decimalSeparator, ",");
    EXPECT_EQ(localeValues().dates.shortDateFormat, "%d.%m.%y");
    EXPECT_EQ(localeValues().dates.shortMonths[2], "März");
    EXPECT_EQ(localeValues().dates.firstWeekday, 1);
    set.locale = "en_GB";
    EXPECT_EQ(localeValues().dates.shortDateFormat, "%d/%m/%Y");
    EXPECT_EQ(localeValues().currencySymbol, "£");
    for (auto const* unknown : { "no such locale", "", "xx_YY", "en_US@calendar=x;\"" }) {
        set.locale = unknown;
        EXPECT_EQ(localeValues().dates, DateNames::english()) << unknown;
    }
}

TEST_F(NSCalendarDateTest, TheLibrarysOwnEnglishIsAlsoTheTables)
{
    set.locale = "en_US_POSIX"; // looked up, not the built-in one
    auto const& looked = localeValues().dates;
    EXPECT_EQ(looked.months, DateNames::english().months);
    EXPECT_EQ(looked.weekdays, DateNames::english().weekdays);
    EXPECT_EQ(looked.shortMonths, DateNames::english().shortMonths);
}

TEST(NSTimeZone, AgreesWithTheCLibraryForManyZonesAndYears)
{
    int wrong = 0;
    int checked = 0;
    for (auto const* name : { "Europe/Vienna", "America/New_York", "Asia/Kolkata", "Australia/Lord_Howe", "Pacific/Apia",
             "America/St_Johns", "Africa/Casablanca", "Asia/Tehran", "Europe/Dublin", "Pacific/Auckland", "UTC" }) {
        auto const zone = NSTimeZone::timeZoneWithName(name);
        ASSERT_TRUE(zone) << name;
        ::setenv("TZ", name, 1);
        ::tzset();
        for (std::time_t moment = -2'000'000'000; moment < 4'000'000'000; moment += 1'234'567) {
            std::tm expected {};
            ::localtime_r(&moment, &expected);
            auto const date = NSDate::dateWithTimeIntervalSince1970(static_cast<double>(moment));
            wrong += zone->secondsFromGMTForDate(date) != expected.tm_gmtoff || zone->abbreviationForDate(date) != expected.tm_zone
                || zone->isDaylightSavingTimeForDate(date) != (expected.tm_isdst > 0);
            auto const fields = zone->fieldsForDate(date);
            wrong += fields.year != expected.tm_year + 1900 || fields.hour != expected.tm_hour || fields.day != expected.tm_mday;
            ++checked;
        }
    }
    ::unsetenv("TZ");
    ::tzset();
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(checked, 50'000);
}

TEST(NSTimeZone, RefusesNamesThatAreNone)
{
    for (auto const* name : { "", "No/Such", "../passwd", "Europe/../Europe/Vienna", "/etc/passwd", "Europe", "X" })
        EXPECT_FALSE(NSTimeZone::timeZoneWithName(name)) << name;
    EXPECT_EQ(NSTimeZone::timeZoneWithName("EST5EDT,M3.2.0,M11.1.0")->secondsFromGMTForDate({}), -18000);
}

TEST(NSTimeZone, FallsBackOnUTC)
{
    TestSurroundings set;
    set.timeZone = "No/Such";
    EXPECT_EQ(NSTimeZone::localTimeZone(), NSTimeZone());
    set.timeZone = "Asia/Tokyo";
    EXPECT_EQ(NSTimeZone::localTimeZone().name(), "Asia/Tokyo");
}

TEST(NSTimeZone, SurvivesDatesBeyondReason)
{
    auto const zone = *NSTimeZone::timeZoneWithName("Europe/Vienna");
    for (double const seconds : { 1e300, -1e300, std::nan(""), 1e15, -1e15 }) {
        auto const fields = zone.fieldsForDate({ seconds });
        EXPECT_TRUE(fields.month >= 1 && fields.month <= 12) << seconds;
        EXPECT_FALSE(NSCalendarDate(NSDate { seconds }, zone).descriptionWithCalendarFormat("%c %F %j").empty());
    }
    EXPECT_EQ(NSDate::distantFuture().timeIntervalSinceReferenceDate,
        NSCalendarDate::dateWithYear(4001, 1, 1, 0, 0, 0, NSTimeZone()).timeIntervalSinceReferenceDate);
}

TEST_F(NSCalendarDateTest, TheDateFormatterGoesBothWays)
{
    set.timeZone = "Europe/Vienna";
    auto const formatter = make<NSDateFormatter>("%d.%m.%Y %H:%M", false);
    ObjectValue value;
    std::string error;
    EXPECT_TRUE(formatter->getObjectValue(value, "04.03.2005 15:30", error));
    EXPECT_EQ(formatter->stringForObjectValue(value), "04.03.2005 15:30");
    EXPECT_FALSE(formatter->getObjectValue(value, "tomorrow", error));
    EXPECT_NE(error, "");
    EXPECT_EQ(formatter->stringForObjectValue("04.03.2005"), std::nullopt);
    EXPECT_EQ(formatter->stringForObjectValue(nullptr), std::nullopt);
    EXPECT_TRUE(formatter->getObjectValue(value, "  ", error));
    EXPECT_TRUE(value.isNil());
    EXPECT_FALSE(formatter->getObjectValue(value, std::nullopt, error));
}

TEST_F(NSCalendarDateTest, TheDateFormatterTakesNaturalLanguageWhereAllowed)
{
    auto const formatter = make<NSDateFormatter>("%Y-%m-%d", true);
    ObjectValue value;
    std::string error;
    EXPECT_TRUE(formatter->getObjectValue(value, "tomorrow", error));
    EXPECT_EQ(formatter->stringForObjectValue(value), "2005-03-15");
    auto const copied = formatter->copy();
    EXPECT_EQ(copied->dateFormat(), "%Y-%m-%d");
    EXPECT_TRUE(copied->allowsNaturalLanguage());
    EXPECT_EQ(make<NSDateFormatter>()->stringForObjectValue(value), "3/15/05");
}

}
}

#include <plix/format/dates.h>

#include <plix/platform/foundation/machine_identity.h>

#include <tests/support/TestClock.h>
#include <tests/support/TestSurroundings.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

std::string textOf(NSCalendarDate const& date)
{
    return date.descriptionWithCalendarFormat("%Y-%m-%d %H:%M:%S %z");
}

class DateRanges : public testing::Test {
protected:
    void setNow(std::int64_t year, int month, int day, int hour, int minute, int second, double fraction = 0)
    {
        auto const now = NSCalendarDate::dateWithYear(year, month, day, hour, minute, second);
        clock.setNow(now.addTimeInterval(fraction));
    }
    std::pair<std::string, std::string> range(int code)
    {
        NSCalendarDate start;
        NSCalendarDate end;
        auto const answered = DateRangeForMnemonic(code, start, end);
        EXPECT_EQ(answered, end);
        return { textOf(start), textOf(end) };
    }

    TestSurroundings surroundings;
    TestClock clock;
};

TEST_F(DateRanges, AreInTheLocalZone)
{
    surroundings.timeZone = "Europe/Vienna";
    setNow(2005, 3, 16, 14, 35, 27);
    struct Row {
        int code;
        char const* start;
        char const* end;
    };
    for (auto const& row : {
             Row { 0, "2005-03-16 00:00:00 +0100", "2005-03-16 23:59:59 +0100" },
             Row { 1, "2005-03-15 00:00:00 +0100", "2005-03-15 23:59:59 +0100" },
             Row { 2, "2005-03-06 00:00:00 +0100", "2005-03-12 23:59:59 +0100" },
             Row { 3, "2005-02-01 00:00:00 +0100", "2005-02-28 23:59:59 +0100" },
             Row { 4, "2004-10-01 00:00:00 +0200", "2004-12-31 23:59:59 +0100" },
             Row { 5, "2004-01-01 00:00:00 +0100", "2004-12-31 23:59:59 +0100" },
             Row { 6, "2005-03-13 00:00:00 +0100", "2005-03-19 23:59:59 +0100" },
             Row { 7, "2005-03-01 00:00:00 +0100", "2005-03-31 23:59:59 +0200" },
             Row { 8, "2005-01-01 00:00:00 +0100", "2005-03-31 23:59:59 +0200" },
             Row { 9, "2005-01-01 00:00:00 +0100", "2005-12-31 23:59:59 +0100" },
             Row { 10, "2005-03-13 00:00:00 +0100", "2005-03-16 23:59:59 +0100" },
             Row { 11, "2005-03-01 00:00:00 +0100", "2005-03-16 23:59:59 +0100" },
             Row { 12, "2005-01-01 00:00:00 +0100", "2005-03-16 23:59:59 +0100" },
             Row { 13, "2005-01-01 00:00:00 +0100", "2005-03-16 23:59:59 +0100" },
         })
        EXPECT_EQ(range(row.code), (std::pair<std::string, std::string>(row.start, row.end))) << row.code;
}

TEST_F(DateRanges, GoByTheClockWhenItChanges)
{
    surroundings.timeZone = "Europe/Vienna";
    // On the day on which 2 o'clock is 3 o'clock.
    setNow(2005, 3, 27, 14, 0, 0);
    EXPECT_EQ(range(0), (std::pair<std::string, std::string>("2005-03-27 00:00:00 +0100", "2005-03-27 23:59:59 +0200")));
    EXPECT_EQ(range(10), (std::pair<std::string, std::string>("2005-03-27 00:00:00 +0100", "2005-03-27 23:59:59 +0200")));
    setNow(2005, 10, 31, 0, 30, 0);
    EXPECT_EQ(range(6), (std::pair<std::string, std::string>("2005-10-30 00:00:00 +0200", "2005-11-05 23:59:59 +0100")));
}

TEST_F(DateRanges, KeepNowsFractionWhereTheyComeFromNow)
{
    setNow(2005, 3, 16, 14, 35, 27, 0.25);
    for (int code = 0; code <= 13; ++code) {
        NSCalendarDate start;
        NSCalendarDate end;
        DateRangeForMnemonic(code, start, end);
        EXPECT_EQ(start.fields().fraction, code == 6 || code == 10 ? 0.25 : 0) << code;
        EXPECT_EQ(end.fields().fraction, code == 6 || code >= 10 ? 0.25 : 0) << code;
    }
}

TEST_F(DateRanges, OfOtherCodesAreNowAndTouchNothing)
{
    setNow(2005, 3, 16, 14, 35, 27, 0.5);
    auto const before = NSCalendarDate::dateWithYear(1999, 1, 2, 3, 4, 5);
    for (int const code : { -1, 14, 1000, INT32_MIN }) {
        auto start = before;
        auto end = before;
        EXPECT_EQ(
            DateRangeForMnemonic(code, start, end).timeIntervalSinceReferenceDate, clock.now().timeIntervalSinceReferenceDate);
        EXPECT_EQ(start, before);
        EXPECT_EQ(end, before);
    }
}

TEST(ShortestDateFormats, DependOnTheSystemVersion)
{
    EXPECT_EQ(DateFormatStringToShortestDateFormatString("%d.%m.%Y"), "%e/%1m/%y");
    auto const version = machineIdentity().systemVersion();
    machineIdentity().setSystemVersion(0x1028);
    auto const old = DateFormatStringToShortestDateFormatString("%d.%m.%Y");
    machineIdentity().setSystemVersion(version);
    EXPECT_EQ(old, "%e/%m/%y");
}

}
}

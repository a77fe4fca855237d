#include <plix/format/time_interval_text.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

namespace plix {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double greatestDouble = std::numeric_limits<double>::max();

TimeIntervalFormat between(int minimum, int maximum, bool showsMilliseconds = false)
{
    TimeIntervalFormat format;
    format.minimumComponent = minimum;
    format.maximumComponent = maximum;
    format.showsMilliseconds = showsMilliseconds;
    return format;
}

TEST(TimeIntervalComponents, HaveTheirScalarsAndBases)
{
    struct Row {
        int code;
        double scalar;
        double base;
    };
    for (auto const& row : {
             Row { TQTimeIntervalSeconds, 1, 60 },
             Row { TQTimeIntervalMinutes, 60, 60 },
             Row { TQTimeIntervalHours, 3600, 24 },
             Row { TQTimeIntervalDays, 86400, 7 },
             Row { TQTimeIntervalWeeks, 604800, 1 },
             Row { 5, 1, 1 },
             Row { -1, 1, 1 },
             Row { INT32_MAX, 1, 1 },
             Row { INT32_MIN, 1, 1 },
         }) {
        EXPECT_EQ(_TQTimeIntervalComponentScalar(row.code), row.scalar) << row.code;
        EXPECT_EQ(_TQTimeIntervalComponentBase(row.code), row.base) << row.code;
    }
    EXPECT_EQ(TQTimeIntervalSeconds, 0);
    EXPECT_EQ(TQTimeIntervalWeeks, 4);
}

TEST(TextForTimeInterval, GivesTheStatedTexts)
{
    struct Row {
        double interval;
        TimeIntervalFormat format;
        char const* text;
    };
    for (auto const& row : {
             Row { 694000, {}, "1:01:00:46:40" },
             Row { 65, {}, "0:00:00:01:05" },
             Row { 65, between(0, 1), "1:05" },
             Row { 3725, between(0, 1), "62:05" },
             Row { 7.25, between(0, 4, true), "0:00:00:00:07.250" },
             Row { 12.5, between(0, 4, true), "0:00:00:00:12.500" },
             Row { 59.9999, between(0, 1, true), "0:60.000" },
             Row { 9.9999, between(0, 1, true), "0:010.000" },
             Row { -65, {}, "0:00:00:0-1:0-5" },
             Row { -65.5, between(0, 1, true), "-1:0-5.500" },
             Row { 3600, between(0, 0), "60" },
             Row { 3661.5, between(0, 0, true), "3661.500" },
             Row { 150, between(1, 1), "2" },
             Row { 150, between(1, 1, true), "2" },
             Row { 48, between(2, 2), "2" },
             Row { 48, between(2, 0), "2" },
             Row { -50, between(2, 0), "-2" },
             Row { 15, between(3, 3), "2" },
             Row { 604801, between(4, 4), "604801" },
             Row { 7, between(9, 3), "7" },
             Row { 90000, between(1, 2), "25:00" },
             Row { 90000, between(2, 3), "1:01" },
             Row { 691200, between(3, 4), "1:01" },
             Row { 1e10, {}, "7101:03:06:28:15" },
             Row { -1e10, {}, "-7101:0-3:0-6:0-28:0-15" },
             // Beyond the known components: scalar 1, base 1.
             Row { 700000, between(4, 6), "700000:00:00" },
             Row { 65, between(-2, 1), "1:05:00:00" },
             Row { 65, between(-2, 1, true), "1:05:00:00" },
             Row { infinity, {}, "7101:03:06:28:15" },
             Row { notANumber, {}, "-7101:0-3:0-6:0-28:0-15" },
         })
        EXPECT_EQ(textForTimeInterval(row.interval, row.format), row.text) << row.interval;
}

TEST(TextForTimeInterval, ClampsBeforeItFormats)
{
    auto format = between(0, 1);
    format.minimumTimeInterval = 10;
    format.maximumTimeInterval = 100;
    EXPECT_EQ(textForTimeInterval(5, format), "0:10");
    EXPECT_EQ(textForTimeInterval(50, format), "0:50");
    EXPECT_EQ(textForTimeInterval(500, format), "1:40");
    format.minimumTimeInterval = 200; // the maximum has the last word
    EXPECT_EQ(textForTimeInterval(50, format), "1:40");
}

TEST(TextForTimeInterval, QuotientsOutside64BitsAreTheLeastValue)
{
    TimeIntervalFormat format = between(0, 1);
    format.maximumTimeInterval = greatestDouble;
    EXPECT_EQ(textForTimeInterval(1e300, format), "-9223372036854775808:0-8");
    format.maximumTimeInterval = infinity;
    format.showsMilliseconds = true;
    EXPECT_EQ(textForTimeInterval(infinity, format), "-9223372036854775808:nan");
    format.maximumComponent = 0;
    EXPECT_EQ(textForTimeInterval(infinity, format), "inf");
}

TEST(TextForTimeInterval, UsesTheSeparatorAndNoOtherStyle)
{
    TimeIntervalFormat format;
    format.componentSeparator = " \xE2\x80\xA2 ";
    EXPECT_EQ(textForTimeInterval(3725, format), "0 \xE2\x80\xA2 00 \xE2\x80\xA2 01 \xE2\x80\xA2 02 \xE2\x80\xA2 05");
    format.componentStyle = 1;
    EXPECT_EQ(textForTimeInterval(3725, format), "");
}

std::string textByDefinition(double v, int m, int M, bool showsMilliseconds)
{
    auto const printed = [](char const* format, auto value) {
        char text[64];
        std::snprintf(text, sizeof text, format, value);
        return std::string(text);
    };
    auto const S = [](int code) { return _TQTimeIntervalComponentScalar(code); };
    auto const B = [](int code) { return _TQTimeIntervalComponentBase(code); };
    auto const whole = [](double value) { return static_cast<long long>(value); };
    int const n = m > M ? 1 : M - m + 1;
    std::string text;
    if (n <= 1)
        return m == 0 && showsMilliseconds ? printed("%.3f", v) : printed("%lli", whole(v / B(m)));
    if (m == 0 && showsMilliseconds) {
        double const s = std::fmod(v, 60.0);
        text = printed(s < 10 ? "0%.3f" : "%.3f", s);
    } else {
        auto const r = whole(v / S(m)) % whole(B(m));
        text = printed(r < 10 ? "0%lli" : "%lli", r);
    }
    for (int k = n - 2; k >= 1; --k) {
        int const c = M - k;
        auto const r = whole(v / S(c)) % whole(B(c));
        text.insert(0, printed(r < 10 ? "0%lli" : "%lli", r) + ":");
    }
    text.insert(0, printed("%lli", whole(v / S(M))) + ":");
    return text;
}

TEST(TextForTimeInterval, EqualsTheDefinitionForEveryPairOfComponents)
{
    std::mt19937_64 random(1);
    for (int minimum = -2; minimum <= 7; ++minimum) {
        for (int maximum = -2; maximum <= 7; ++maximum) {
            for (bool const showsMilliseconds : { false, true }) {
                auto const format = between(minimum, maximum, showsMilliseconds);
                for (int round = 0; round < 400; ++round) {
                    double const v = static_cast<double>(static_cast<std::int64_t>(random()) >> random() % 60 >> 33) / 8;
                    ASSERT_EQ(textForTimeInterval(v, format), textByDefinition(v, minimum, maximum, showsMilliseconds))
                        << v << " " << minimum << " " << maximum;
                }
            }
        }
    }
}

TEST(TimeIntervalForText, GivesTheStatedValues)
{
    struct Row {
        char const* text;
        TimeIntervalFormat format;
        double interval;
    };
    for (auto const& row : {
             Row { "1:30", between(0, 4), 90 },
             Row { "1:30", between(1, 4), 5400 },
             Row { "1.5:00", between(0, 1), 90 },
             Row { "abc", between(0, 4), 0 },
             Row { "", between(0, 4), 0 },
             Row { ":", between(0, 4), 0 },
             Row { "::1", between(0, 4), 1 },
             Row { "1:", between(0, 4), 60 },
             Row { "1:01:00:46:40", {}, 694000 },
             Row { "5:1:01:00:46:40", {}, 694005 }, // beyond weeks: seconds
             Row { "7", between(-1, 4), 7 },
             Row { "1:7", between(-1, 4), 8 },
             Row { " -1 : +2 ", between(0, 4), -58 },
             Row { "1e2", between(0, 4), 100 },
             Row { "1.25E+2s", between(0, 4), 125 },
             Row { "0x10", between(0, 4), 0 },
             Row { "inf", between(0, 4), 0 },
             Row { "nan", between(0, 4), 0 },
             Row { "- 5", between(0, 4), 0 },
             Row { "1,5", between(0, 4), 1 },
             Row { "2.9", between(0, 4), 2 },
             Row { "-2.9", between(0, 4), -2 },
             Row { "2.9", between(0, 4, true), 2.9 },
             Row { "2147483647.5", between(0, 4), 2147483647 },
             Row { "2147483648", between(0, 4), -2147483648.0 },
             Row { "-2147483649", between(0, 4), -2147483648.0 },
             Row { "2147483648", between(0, 4, true), 2147483648.0 },
             Row { "1e999", between(0, 4), -2147483648.0 },
             Row { "1e999", between(0, 4, true), 4294967295.0 },
             Row { "1e999:-1e999", between(0, 4, true), -4294967295.0 },
         })
        EXPECT_EQ(timeIntervalForText(row.text, row.format), row.interval) << row.text;
}

TEST(TimeIntervalForText, TellsTooLargeNumbersFromTooSmallOnes)
{
    std::string const zeros(400, '0');
    struct Row {
        std::string text;
        double interval;
    };
    for (auto const& row : {
             Row { "1" + zeros, 4294967295.0 },
             Row { "-1" + zeros, -4294967295.0 },
             Row { "1" + zeros + "e-5", 4294967295.0 },
             Row { "0001" + zeros, 4294967295.0 },
             Row { "1" + zeros + "e-400", 1 },
             Row { "0." + zeros + "1", 0 },
             Row { "." + zeros + "1e5", 0 },
             Row { "0." + zeros + "1e401", 1 },
             Row { "1e-99999999999999999999999", 0 },
             Row { "1e99999999999999999999999", 4294967295.0 },
         })
        EXPECT_EQ(timeIntervalForText(row.text, between(0, 4, true)), row.interval) << row.text;
}

TEST(TimeIntervalForText, ClampsWhatItRead)
{
    auto format = between(0, 1);
    format.minimumTimeInterval = 10;
    format.maximumTimeInterval = 100;
    EXPECT_EQ(timeIntervalForText("5", format), 10);
    EXPECT_EQ(timeIntervalForText("1:00", format), 60);
    EXPECT_EQ(timeIntervalForText("9:00", format), 100);
    format.componentStyle = 1;
    EXPECT_EQ(timeIntervalForText("9:00", format), 10);
}

TEST(TimeIntervalForText, WithoutTextIsZeroOrTheMinimum)
{
    EXPECT_EQ(timeIntervalForText({}, {}), 0);
    auto format = between(0, 1);
    format.minimumTimeInterval = 5.5;
    EXPECT_EQ(timeIntervalForText({}, format), 5);
    format.showsMilliseconds = true;
    EXPECT_EQ(timeIntervalForText({}, format), 5.5);
    format.minimumTimeInterval = -20;
    format.maximumTimeInterval = -10;
    EXPECT_EQ(timeIntervalForText({}, format), -20);
    format.maximumTimeInterval = 0;
    EXPECT_EQ(timeIntervalForText({}, format), 0);
    format.minimumTimeInterval = 0;
    EXPECT_EQ(timeIntervalForText({}, format), 0);
}

TEST(TimeIntervalForText, SplitsByAnySeparatorButAnEmptyOne)
{
    TimeIntervalFormat format;
    format.componentSeparator = "--";
    EXPECT_EQ(timeIntervalForText("1--2", format), 62);
    EXPECT_EQ(timeIntervalForText("1---2", format), 62); // found from the end: "1-" is 1
    format.componentSeparator = "";
    EXPECT_EQ(timeIntervalForText("1:2", format), 1);
}

TEST(TimeIntervalForText, ReadsBackWhatWasWritten)
{
    for (int seconds = 0; seconds < 1500000; seconds += 7)
        ASSERT_EQ(timeIntervalForText(textForTimeInterval(seconds, {}), {}), seconds);
}

}
}

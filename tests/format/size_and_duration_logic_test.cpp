#include <plix/format/duration_text.h>
#include <plix/format/file_size_text.h>
#include <plix/format/number_text.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

namespace plix {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

template <typename... Values> std::string printed(char const* format, Values... values)
{
    char text[400];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

std::string sizeByDefinition(std::uint64_t size)
{
    double const value = static_cast<float>(size);
    if (size <= 1023)
        return printed("%i bytes", static_cast<int>(size));
    if (size <= 1048575)
        return printed("%.1fKB", value * 0.0009765625);
    if (size <= 1073741823)
        return printed("%.1fMB", value * 9.5367431640625e-07);
    return printed("%.1fGB", value * 9.313225746154785e-10);
}

TEST(StringForFileSize, GivesTheStatedTexts)
{
    struct Row {
        std::uint64_t size;
        char const* text;
    };
    for (auto const& row : {
             Row { 0, "0 bytes" },
             Row { 1, "1 bytes" },
             Row { 1023, "1023 bytes" },
             Row { 1024, "1.0KB" },
             Row { 1536, "1.5KB" },
             Row { 1048575, "1024.0KB" },
             Row { 1048576, "1.0MB" },
             Row { 1073741823, "1024.0MB" },
             Row { 1073741824, "1.0GB" },
             Row { 5368709120, "5.0GB" },
             Row { 2199023255552, "2048.0GB" },
             Row { UINT64_MAX, "17179869184.0GB" },
         })
        EXPECT_EQ(StringForFileSize(row.size), row.text) << row.size;
}

TEST(StringForFileSize, EqualsTheDefinitionAroundEveryThreshold)
{
    for (std::uint64_t size = 0; size <= 1200000; ++size)
        ASSERT_EQ(StringForFileSize(size), sizeByDefinition(size)) << size;
    constexpr std::uint64_t megabytes = 1 << 20;
    for (auto size = 1023 * megabytes - 70000; size <= 1024 * megabytes + 70000; ++size) {
        if (size % 7 != 0 && size <= 1024 * megabytes - 2000)
            continue;
        ASSERT_EQ(StringForFileSize(size), sizeByDefinition(size)) << size;
    }
    // Where the rounding of a tenth is decided by single precision.
    for (std::uint64_t tenth = 10; tenth <= 10240; ++tenth) {
        for (auto const unit : { megabytes, megabytes << 10 }) {
            auto const boundary = static_cast<std::int64_t>((static_cast<double>(tenth) + 0.5) / 10 * static_cast<double>(unit));
            for (std::int64_t offset = -70; offset <= 70; ++offset) {
                auto const size = static_cast<std::uint64_t>(boundary + offset);
                ASSERT_EQ(StringForFileSize(size), sizeByDefinition(size)) << size;
            }
        }
    }
}

TEST(StringForFileSize, EqualsTheDefinitionForAnySize)
{
    std::mt19937_64 random(1);
    for (int round = 0; round < 200000; ++round) {
        auto const size = random() >> random() % 64;
        ASSERT_EQ(StringForFileSize(size), sizeByDefinition(size)) << size;
    }
}

// The words stand for themselves.
std::string longText(double interval)
{
    return longTextForTimeInterval(interval, [](std::string_view key) { return std::string(key); });
}

TEST(LongTextForTimeInterval, GivesTheStatedTexts)
{
    struct Row {
        double interval;
        char const* text;
    };
    for (auto const& row : {
             Row { 59, "59 seconds" },
             Row { 61, "1 minute, 1 second" },
             Row { 3600, "1 hour" },
             Row { 3725, "1 hour, 2 minutes, 5 seconds" },
             Row { 90061, "1 day, 1 hour, 1 minute" },
             Row { 172800, "2 days" },
             Row { 0.5, "--:--:--:--" },
             Row { 0, "--:--:--:--" },
             Row { -1, "--:--:--:--" },
             Row { -90061, "--:--:--:--" },
             Row { 1.999, "1 second" },
             Row { 2, "2 seconds" },
             Row { 60, "1 minute" },
             Row { 120, "2 minutes" },
             Row { 7200, "2 hours" },
             Row { 3601, "1 hour, 1 second" },
             Row { 7202, "2 hours, 2 seconds" },
             Row { 86400, "1 day" },
             Row { 86401, "1 day" },
             Row { 86460, "1 day, 1 minute" },
             Row { 93600, "1 day, 2 hours" },
             Row { 2147483647, "24855 days, 3 hours, 14 minutes" },
             Row { 2147483648, "--:--:--:--" },
             Row { 1e300, "--:--:--:--" },
             Row { infinity, "--:--:--:--" },
             Row { notANumber, "--:--:--:--" },
         })
        EXPECT_EQ(longText(row.interval), row.text) << row.interval;
}

TEST(LongTextForTimeInterval, AsksForOneWordAPart)
{
    std::string asked;
    auto const text = longTextForTimeInterval(93784.0 - 86400.0, [&](std::string_view key) {
        asked += std::string(key) + ' ';
        return "<" + std::string(key) + ">";
    });
    EXPECT_EQ(text, "2 <hours>, 3 <minutes>, 4 <seconds>");
    EXPECT_EQ(asked, "hours minutes seconds ");
}

// From fmod() and formats, as stated; the conversion of what is out of range is given.
std::string clockByDefinition(double interval)
{
    auto const truncated
        = [](double value) { return value > -2147483649.0 && value < 2147483648.0 ? static_cast<int>(value) : INT32_MIN; };
    int const total = truncated(interval);
    int const hours = total / 3600;
    int const minutes = (total / 60) % 60;
    double const seconds = std::fmod(interval, 60.0);
    return printed(hours > 9 ? "%i" : "0%i", hours) + ":" + printed(minutes > 9 ? "%i" : "0%i", minutes) + ":"
        + printed(seconds >= 10.0 || std::isnan(seconds) ? "%i" : "0%i", truncated(seconds));
}

TEST(ClockTextForTimeInterval, GivesTheStatedTexts)
{
    struct Row {
        double interval;
        char const* text;
    };
    for (auto const& row : {
             Row { 0, "00:00:00" },
             Row { 59.9, "00:00:59" },
             Row { 3725.5, "01:02:05" },
             Row { 36000, "10:00:00" },
             Row { 360000, "100:00:00" },
             Row { 2147483647, "596523:14:07" },
             Row { -5, "00:00:0-5" },
             Row { -65, "00:0-1:0-5" },
             Row { -36000, "0-10:00:00" },
             Row { 2147483648, "0-596523:0-14:08" },
             Row { -2147483648.0, "0-596523:0-14:0-8" },
             Row { 1e10, "0-596523:0-14:40" },
             Row { infinity, "0-596523:0-14:-2147483648" },
             Row { -infinity, "0-596523:0-14:-2147483648" },
             Row { notANumber, "0-596523:0-14:-2147483648" },
         }) {
        EXPECT_EQ(clockTextForTimeInterval(row.interval), row.text) << row.interval;
        EXPECT_EQ(clockByDefinition(row.interval), row.text) << row.interval;
    }
}

TEST(ClockTextForTimeInterval, EqualsTheDefinition)
{
    for (int seconds = -200000; seconds <= 400000; ++seconds)
        ASSERT_EQ(clockTextForTimeInterval(seconds), clockByDefinition(seconds)) << seconds;
    std::mt19937_64 random(2);
    for (int round = 0; round < 200000; ++round) {
        auto const interval
            = std::ldexp(static_cast<double>(static_cast<std::int64_t>(random())), static_cast<int>(random() % 60) - 62);
        ASSERT_EQ(clockTextForTimeInterval(interval), clockByDefinition(interval)) << interval;
    }
}

TEST(DurationText, PutsTheSeparatorInThePlaceOfPoints)
{
    EXPECT_EQ(textWithDecimalSeparator("05", ","), "05");
    EXPECT_EQ(textWithDecimalSeparator("5.25", ","), "5,25");
    EXPECT_EQ(textWithDecimalSeparator(".5.", "\xD9\xAB"),
        "\xD9\xAB"
        "5\xD9\xAB");
    EXPECT_EQ(textWithDecimalSeparator("", ","), "");
}

TEST(NumberText, TruncatesTowardZeroAndAnswersTheLeastValueOutOfRange)
{
    EXPECT_EQ(truncatedTo32Bits(-1.9), -1);
    EXPECT_EQ(truncatedTo32Bits(2147483647.9), INT32_MAX);
    EXPECT_EQ(truncatedTo32Bits(2147483648.0), INT32_MIN);
    EXPECT_EQ(truncatedTo32Bits(-2147483648.9), INT32_MIN);
    EXPECT_EQ(truncatedTo32Bits(notANumber), INT32_MIN);
    EXPECT_EQ(truncatedTo64Bits(9007199254740993.0), 9007199254740992);
    EXPECT_EQ(truncatedTo64Bits(-9223372036854775808.0), INT64_MIN);
    EXPECT_EQ(truncatedTo64Bits(9223372036854775808.0), INT64_MIN);
    EXPECT_EQ(truncatedTo64Bits(infinity), INT64_MIN);
}

TEST(NumberText, WritesAsPrintfDoes)
{
    std::mt19937_64 random(3);
    for (int round = 0; round < 50000; ++round) {
        auto const value
            = std::ldexp(static_cast<double>(static_cast<std::int64_t>(random())), static_cast<int>(random() % 1000) - 560);
        for (int const decimals : { 0, 1, 3, 5 }) {
            std::string text;
            appendFixed(text, value, decimals);
            ASSERT_EQ(text, printed("%.*f", decimals, value));
        }
    }
    std::string text;
    appendFixed(text, -notANumber, 3);
    appendFixed(text, -std::numeric_limits<double>::max(), 3);
    EXPECT_EQ(text, "nan" + printed("%.3f", -std::numeric_limits<double>::max()));
}

}
}

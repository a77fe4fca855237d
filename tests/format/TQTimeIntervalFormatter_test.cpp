#include <plix/format/TQTimeIntervalFormatter.h>

#include <plix/format/classes.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

double parsed(TQTimeIntervalFormatter const& formatter, std::optional<std::string_view> text)
{
    ObjectValue value = "left over";
    std::string error = "untouched";
    bool const isParsed = formatter.getObjectValue(value, text, error);
    EXPECT_EQ(isParsed, text.has_value());
    EXPECT_EQ(error, "untouched");
    EXPECT_TRUE(value.isDouble());
    return value.doubleValue();
}

TEST(TQTimeIntervalFormatter, HasTheStatedDefaults)
{
    auto const formatter = make<TQTimeIntervalFormatter>();
    EXPECT_EQ(formatter->minimumComponent(), TQTimeIntervalSeconds);
    EXPECT_EQ(formatter->maximumComponent(), TQTimeIntervalWeeks);
    EXPECT_FALSE(formatter->showsMilliseconds());
    EXPECT_EQ(formatter->maximumTimeInterval(), 4294967295.0);
    EXPECT_EQ(formatter->minimumTimeInterval(), -4294967295.0);
    EXPECT_EQ(formatter->componentSeparator(), ":");
    EXPECT_EQ(formatter->componentStyle(), 0);
    EXPECT_EQ(formatter->_componentCount(), 5);
}

TEST(TQTimeIntervalFormatter, TakesAllOfItAtOnce)
{
    auto const formatter = make<TQTimeIntervalFormatter>(1, 2, 60.0, 7200.0, "-", 0);
    EXPECT_EQ(formatter->stringForObjectValue(10), "0-01");
    EXPECT_EQ(formatter->stringForObjectValue(5400), "1-30");
    EXPECT_EQ(formatter->stringForObjectValue(1e9), "2-00");
    EXPECT_EQ(parsed(*formatter, "1-30"), 5400);
    EXPECT_EQ((make<TQTimeIntervalFormatter>(0, 1, 0.0, 10.0, std::nullopt, 3)->componentSeparator()), ":");
    EXPECT_EQ((make<TQTimeIntervalFormatter>(0, 1, 0.0, 10.0, std::nullopt, 3)->componentStyle()), 3);
}

TEST(TQTimeIntervalFormatter, FormatsNumbersOnly)
{
    auto const formatter = make<TQTimeIntervalFormatter>(0, 1);
    EXPECT_EQ(formatter->stringForObjectValue(3725), "62:05");
    EXPECT_EQ(formatter->stringForObjectValue(3725.9), "62:05");
    EXPECT_EQ(formatter->stringForObjectValue(true), "0:01");
    EXPECT_EQ(formatter->stringForObjectValue(nullptr), "0");
    EXPECT_EQ(formatter->stringForObjectValue("3725"), "0");
    EXPECT_EQ(formatter->stringForObjectValue(ObjectValue::Array { 1 }), "0");
}

TEST(TQTimeIntervalFormatter, StoresWhatItIsGivenWithoutChecks)
{
    auto const formatter = make<TQTimeIntervalFormatter>();
    formatter->setMinimumComponent(2);
    formatter->setMaximumComponent(0);
    EXPECT_EQ(formatter->_componentCount(), 1);
    EXPECT_EQ(formatter->stringForObjectValue(48), "2");
    formatter->setMinimumComponent(INT32_MIN);
    formatter->setMaximumComponent(INT32_MAX);
    EXPECT_EQ(formatter->minimumComponent(), INT32_MIN);
    EXPECT_EQ(formatter->maximumComponent(), INT32_MAX);
    EXPECT_EQ(formatter->_componentCount(), 4294967296);
    formatter->setMinimumTimeInterval(9);
    formatter->setMaximumTimeInterval(8);
    EXPECT_EQ(formatter->minimumTimeInterval(), 9);
    EXPECT_EQ(formatter->maximumTimeInterval(), 8);
}

TEST(TQTimeIntervalFormatter, ShowsMillisecondsWhenToldTo)
{
    auto const formatter = make<TQTimeIntervalFormatter>();
    formatter->setShowsMilliseconds(true);
    EXPECT_EQ(formatter->stringForObjectValue(7.25), "0:00:00:00:07.250");
    EXPECT_EQ(parsed(*formatter, "7.25"), 7.25);
    formatter->setShowsMilliseconds(false);
    EXPECT_EQ(parsed(*formatter, "7.25"), 7);
}

TEST(TQTimeIntervalFormatter, ANilSeparatorIsAColon)
{
    auto const formatter = make<TQTimeIntervalFormatter>(0, 1);
    formatter->setComponentSeparator("/");
    EXPECT_EQ(formatter->stringForObjectValue(65), "1/05");
    formatter->setComponentSeparator(std::nullopt);
    EXPECT_EQ(formatter->componentSeparator(), ":");
}

TEST(TQTimeIntervalFormatter, AnotherStyleWritesNothingAndReadsZero)
{
    auto const formatter = make<TQTimeIntervalFormatter>();
    formatter->setComponentStyle(1);
    EXPECT_EQ(formatter->stringForObjectValue(65), "");
    EXPECT_EQ(formatter->stringForObjectValue(nullptr), "0");
    EXPECT_EQ(parsed(*formatter, "1:05"), 0);
}

TEST(TQTimeIntervalFormatter, ReadsAnyTextAndNil)
{
    auto const formatter = make<TQTimeIntervalFormatter>();
    EXPECT_EQ(parsed(*formatter, "1:30"), 90);
    EXPECT_EQ(parsed(*formatter, "abc"), 0);
    EXPECT_EQ(parsed(*formatter, std::nullopt), 0);
    formatter->setMinimumComponent(1);
    EXPECT_EQ(parsed(*formatter, "1:30"), 5400);
    formatter->setMinimumTimeInterval(5);
    EXPECT_EQ(parsed(*formatter, std::nullopt), 5);
}

TEST(TQTimeIntervalFormatter, ValuesAPieceByItsComponent)
{
    auto const formatter = make<TQTimeIntervalFormatter>();
    EXPECT_EQ(formatter->_valueForComponentString("1.5", TQTimeIntervalHours), 5400);
    EXPECT_EQ(formatter->_valueForComponentString("2", 1L << 33), 2);
    EXPECT_EQ(formatter->_valueForComponentString("", TQTimeIntervalHours), 0);
}

TEST(TQTimeIntervalFormatter, IsKnownByItsName)
{
    registerFormatClasses();
    auto const* described = NSClassFromString("TQTimeIntervalFormatter");
    ASSERT_TRUE(described);
    auto const formatter = as<TQTimeIntervalFormatter>(described->makeObject());
    ASSERT_TRUE(formatter);
    EXPECT_EQ(formatter->stringForObjectValue(65), "0:00:00:01:05");
}

TEST(TQTimeIntervalFormatter, ACopyIsItsOwn)
{
    auto const formatter = make<TQTimeIntervalFormatter>(0, 1);
    formatter->setComponentSeparator("/");
    auto const copy = formatter->copy();
    formatter->setComponentSeparator(":");
    EXPECT_EQ(copy->stringForObjectValue(65), "1/05");
}

}
}

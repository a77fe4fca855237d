#include <plix/platform/base/NSData.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/base/NSRange.h>
#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/clock.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

class StoppedClock final : public Clock {
public:
    NSDate now() const override { return NSDate::dateWithTimeIntervalSince1970(1000); }
    NSTimeInterval uptime() const override { return 5; }
};

TEST(NSDate, CountsFromTheInstalledClock)
{
    StoppedClock stopped;
    installClock(&stopped);
    auto const now = NSDate::date();
    auto const later = NSDate::dateWithTimeIntervalSinceNow(2.5);
    double const remaining = later.timeIntervalSinceNow();
    installClock(nullptr);
    EXPECT_EQ(now.timeIntervalSince1970(), 1000);
    EXPECT_EQ(remaining, 2.5);
    EXPECT_LT(now, later);
    EXPECT_GT(NSDate::date().timeIntervalSince1970(), 1.7e9);
}

TEST(Clock, TheMachinesUptimeNeverGoesBack)
{
    double last = clock().uptime();
    for (int i = 0; i < 1000; ++i) {
        double const next = clock().uptime();
        ASSERT_GE(next, last);
        last = next;
    }
}

TEST(NSLog, WritesToTheInstalledSink)
{
    std::string seen;
    auto const before = installLogSink([&](std::string_view line) { seen = line; });
    NSLog("a line");
    installLogSink(before);
    EXPECT_EQ(seen, "a line");
}

TEST(NSLog, WritesOneLineToStandardErrorWithoutASink)
{
    testing::internal::CaptureStderr();
    NSLog("100% of it");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "100% of it\n");
}

TEST(NSRange, IntersectionsAndUnions)
{
    EXPECT_EQ(NSIntersectionRange({ 0, 5 }, { 3, 5 }), (NSRange { 3, 2 }));
    EXPECT_EQ(NSIntersectionRange({ 0, 3 }, { 3, 5 }), (NSRange {}));
    EXPECT_EQ(NSUnionRange({ 1, 2 }, { 6, 1 }), (NSRange { 1, 6 }));
    EXPECT_TRUE(NSLocationInRange(4, { 2, 3 }));
    EXPECT_FALSE(NSLocationInRange(5, { 2, 3 }));
}

TEST(NSData, IsEqualByItsBytesAndCopies)
{
    auto const data = make<NSData>(std::vector<std::uint8_t> { 1, 2, 3 });
    EXPECT_TRUE(data->isEqual(make<NSData>(std::vector<std::uint8_t> { 1, 2, 3 }).get()));
    EXPECT_FALSE(data->isEqual(make<NSData>(std::vector<std::uint8_t> { 1, 2 }).get()));
    EXPECT_FALSE(data->isEqual(nullptr));
    EXPECT_TRUE(data->copy()->isEqual(data.get()));
    EXPECT_EQ(data->hash(), data->copy()->hash());
    EXPECT_EQ(make<NSData>()->length(), 0U);
}

TEST(ObjectValue, DescribesEveryKind)
{
    EXPECT_EQ(ObjectValue().description(), "");
    EXPECT_EQ(ObjectValue(true).description(), "1");
    EXPECT_EQ(ObjectValue(-42).description(), "-42");
    EXPECT_EQ(ObjectValue("text").description(), "text");
    EXPECT_EQ(ObjectValue(ObjectValue::Array { 1, "b" }).description(), "(1, b)");
    EXPECT_EQ(ObjectValue(ObjectValue::Dictionary { { "k", 1.5 } }).description(), "{k = 1.5}");
}

TEST(ObjectValue, NumbersOutOfRangeTakeTheNearestValue)
{
    EXPECT_EQ(ObjectValue("-99999999999999999999").integerValue(), INT64_MIN);
    EXPECT_EQ(ObjectValue("99999999999999999999").integerValue(), INT64_MAX);
    EXPECT_EQ(ObjectValue(-1e300).integerValue(), INT64_MIN);
    EXPECT_EQ(ObjectValue(0.0 / 0.0).integerValue(), 0);
    EXPECT_EQ(ObjectValue(4294967296L).intValue(), 2147483647);
}

TEST(ObjectValue, CopiesAreIndependent)
{
    ObjectValue const original(ObjectValue::Array { 1, 2 });
    auto copied = *original.array();
    copied.push_back(3);
    EXPECT_EQ(original.array()->size(), 2U);
}

}
}

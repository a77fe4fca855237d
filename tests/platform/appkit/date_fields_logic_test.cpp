#include <plix/platform/appkit/date_fields.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

std::string written(std::vector<DateField> const& fields, CalendarFields const& date)
{
    std::string text;
    for (auto const& field : fields)
        text += textOfDateField(field, date, {});
    return text;
}

TEST(DateFields, FollowTheFormats)
{
    CalendarFields const date { 2027, 3, 4, 15, 7, 9 };
    struct Case {
        char const* dateFormat;
        char const* timeFormat;
        DateFieldChoice choice;
        char const* expected;
    };
    constexpr DateFieldChoice all {};
    Case const cases[] {
        { "%m/%d/%Y", "%H:%M:%S", all, "03/04/2027 15:07:09" },
        { "%1m/%e/%y", "%I:%M:%S %p", all, "3/4/2027 3:07:09 PM" },
        { "%d.%m.%Y", "%H:%M:%S", { true, true, true, false }, "04.03.2027 15:07" },
        { "%d.%m.%Y", "%I:%M:%S %p", { true, true, true, false }, "04.03.2027 3:07 PM" },
        { "%d.%m.%Y", "%H:%M", { true, false, false, false }, "03.2027" },
        { "%Y-%m-%d", "%H:%M", { true, true, false, false }, "2027-03-04" },
        { "%Y-%m-%d", "%H:%M:%S", { false, false, true, true }, "15:07:09" },
        { "%Y-%m-%d", "%H:%M:%S", { false, false, false, false }, "" },
        { "100%% %d", "%", { true, true, true, true }, "04" },
        { "", "", all, "" },
        { "%", "%q", all, "" },
    };
    for (auto const& test : cases)
        EXPECT_EQ(written(dateFields(test.dateFormat, test.timeFormat, test.choice), date), test.expected) << test.dateFormat;
}

TEST(DateFields, StepWithinThemselves)
{
    struct Case {
        CalendarFields from;
        DateFieldKind kind;
        int step;
        CalendarFields expected;
    };
    Case const cases[] {
        { { 2027, 12, 31, 23, 59, 59 }, DateFieldKind::month, 1, { 2027, 1, 31, 23, 59, 59 } },
        { { 2027, 1, 31 }, DateFieldKind::month, 1, { 2027, 2, 28 } },
        { { 2028, 1, 31 }, DateFieldKind::month, 1, { 2028, 2, 29 } },
        { { 2028, 2, 29 }, DateFieldKind::year, 1, { 2029, 2, 28 } },
        { { 2027, 2, 28 }, DateFieldKind::day, 1, { 2027, 2, 1 } },
        { { 2027, 2, 1 }, DateFieldKind::day, -1, { 2027, 2, 28 } },
        { { 2027, 2, 1, 23 }, DateFieldKind::hour, 1, { 2027, 2, 1, 0 } },
        { { 2027, 2, 1, 11 }, DateFieldKind::hour12, 1, { 2027, 2, 1, 12 } },
        { { 2027, 2, 1, 23 }, DateFieldKind::hour12, 1, { 2027, 2, 1, 0 } },
        { { 2027, 2, 1, 9, 0 }, DateFieldKind::minute, -1, { 2027, 2, 1, 9, 59 } },
        { { 2027, 2, 1, 9, 0, 59 }, DateFieldKind::second, 1, { 2027, 2, 1, 9, 0, 0 } },
        { { 2027, 2, 1, 9 }, DateFieldKind::half, 1, { 2027, 2, 1, 21 } },
        { { 2027, 2, 1, 21 }, DateFieldKind::half, 1, { 2027, 2, 1, 9 } },
        { { 9999, 2, 1 }, DateFieldKind::year, 1, { 9999, 2, 1 } },
        { { 1, 2, 1 }, DateFieldKind::year, -1, { 1, 2, 1 } },
        { { -400, 2, 1 }, DateFieldKind::year, 1, { 1, 2, 1 } },
    };
    for (auto const& test : cases)
        EXPECT_EQ(dateByStepping(test.from, test.kind, test.step), test.expected)
            << test.from.year << ' ' << static_cast<int>(test.kind);
}

struct Typed {
    TypedDate result;
    DateFieldKind kind {};
};

Typed afterTyping(CalendarFields const& date, std::initializer_list<std::pair<DateFieldKind, char const*>> entries)
{
    Typed typed { { date, {}, false, false } };
    for (auto const& [kind, digits] : entries) {
        typed.kind = kind;
        typed.result.typing.digits = {};
        for (char const* digit = digits; *digit; ++digit)
            typed.result = dateByTyping(typed.result.date, kind, typed.result.typing, *digit - '0');
    }
    return typed;
}

TEST(DateFields, DigitsAddUpUntilNoMoreFits)
{
    struct Case {
        DateFieldKind kind;
        char const* digits;
        CalendarFields expected;
        bool isDone;
        bool isLeftOver;
    };
    CalendarFields const date { 2027, 6, 15, 10, 20, 30 };
    Case const cases[] {
        { DateFieldKind::month, "1", { 2027, 1, 15, 10, 20, 30 }, false, false },
        { DateFieldKind::month, "12", { 2027, 12, 15, 10, 20, 30 }, true, false },
        { DateFieldKind::month, "13", { 2027, 1, 15, 10, 20, 30 }, true, true },
        { DateFieldKind::month, "7", { 2027, 7, 15, 10, 20, 30 }, true, false },
        { DateFieldKind::month, "0", date, false, false },
        { DateFieldKind::month, "02", { 2027, 2, 15, 10, 20, 30 }, true, false },
        { DateFieldKind::month, "00", { 2027, 1, 15, 10, 20, 30 }, true, false },
        { DateFieldKind::day, "3", { 2027, 6, 3, 10, 20, 30 }, false, false },
        { DateFieldKind::day, "31", { 2027, 6, 30, 10, 20, 30 }, true, false },
        { DateFieldKind::day, "32", { 2027, 6, 3, 10, 20, 30 }, true, true },
        { DateFieldKind::day, "00", { 2027, 6, 1, 10, 20, 30 }, true, false },
        { DateFieldKind::year, "198", date, false, false },
        { DateFieldKind::year, "1984", { 1984, 6, 15, 10, 20, 30 }, true, false },
        { DateFieldKind::year, "0000", { 1, 6, 15, 10, 20, 30 }, true, false },
        { DateFieldKind::hour, "23", { 2027, 6, 15, 23, 20, 30 }, true, false },
        { DateFieldKind::hour, "24", { 2027, 6, 15, 2, 20, 30 }, true, true },
        { DateFieldKind::hour12, "12", { 2027, 6, 15, 0, 20, 30 }, true, false },
        { DateFieldKind::minute, "59", { 2027, 6, 15, 10, 59, 30 }, true, false },
        { DateFieldKind::minute, "6", { 2027, 6, 15, 10, 6, 30 }, true, false },
        { DateFieldKind::half, "1", date, false, false },
    };
    for (auto const& test : cases) {
        auto const typed = afterTyping(date, { { test.kind, test.digits } }).result;
        EXPECT_EQ(typed.date, test.expected) << test.digits << ' ' << static_cast<int>(test.kind);
        EXPECT_EQ(typed.isDone, test.isDone) << test.digits << ' ' << static_cast<int>(test.kind);
        EXPECT_EQ(typed.isLeftOver, test.isLeftOver) << test.digits << ' ' << static_cast<int>(test.kind);
    }
}

TEST(DateFields, ATypedDayWaitsForItsMonthAndYear)
{
    using enum DateFieldKind;
    CalendarFields const february { 2027, 2, 10 };
    EXPECT_EQ(afterTyping(february, { { day, "31" } }).result.date, (CalendarFields { 2027, 2, 28 }));
    EXPECT_EQ(afterTyping(february, { { day, "31" }, { month, "12" } }).result.date, (CalendarFields { 2027, 12, 31 }));
    EXPECT_EQ(afterTyping(february, { { day, "31" }, { month, "11" } }).result.date, (CalendarFields { 2027, 11, 30 }));
    CalendarFields const june { 2027, 6, 10 };
    EXPECT_EQ(
        afterTyping(june, { { day, "29" }, { month, "02" }, { year, "2028" } }).result.date, (CalendarFields { 2028, 2, 29 }));
    EXPECT_EQ(afterTyping(june, { { month, "2" }, { day, "29" }, { year, "2028" } }).result.date, (CalendarFields { 2028, 2, 29 }));
    EXPECT_EQ(afterTyping(june, { { day, "31" }, { day, "5" }, { month, "7" } }).result.date, (CalendarFields { 2027, 7, 5 }));
    // What was not typed does not wait.
    EXPECT_EQ(afterTyping({ 2027, 5, 31 }, { { month, "02" }, { month, "07" } }).result.date, (CalendarFields { 2027, 7, 28 }));
}

TEST(DateFields, AYearEndsWithTheDigitsThatItHas)
{
    using enum DateFieldKind;
    CalendarFields const date { 2027, 2, 28 };
    auto const ended = [&](char const* digits) {
        auto const typed = afterTyping(date, { { day, "29" }, { year, digits } }).result;
        return dateByEndingYear(typed.date, typed.typing);
    };
    EXPECT_EQ(ended(""), date);
    EXPECT_EQ(ended("8"), (CalendarFields { 2008, 2, 29 }));
    EXPECT_EQ(ended("28"), (CalendarFields { 2028, 2, 29 }));
    EXPECT_EQ(ended("00"), (CalendarFields { 2000, 2, 29 }));
    EXPECT_EQ(ended("202"), (CalendarFields { 202, 2, 28 }));
    EXPECT_EQ(ended("000"), (CalendarFields { 1, 2, 28 }));
}

TEST(DateFields, DeletingTakesTheLastDigitOrAll)
{
    using enum DateFieldKind;
    auto typing = afterTyping({ 2027, 6, 10 }, { { year, "203" } }).result.typing;
    typing = typingByDeleting(typing, year);
    EXPECT_EQ(typing.digits.value, 20);
    EXPECT_EQ(typing.digits.count, 2);
    typing = typingByDeleting(typingByDeleting(typing, year), year);
    EXPECT_TRUE(typing.isEmptied(year));
    EXPECT_FALSE(typing.isEmptied(month));
    EXPECT_EQ(typing.digits.count, 0);
    EXPECT_FALSE(dateByTyping({ 2027, 6, 10 }, year, typing, 2).typing.isEmptied(year));
    auto const day31 = afterTyping({ 2027, 2, 10 }, { { day, "31" } }).result.typing;
    EXPECT_TRUE(typingByDeleting({ {}, 31, 0 }, day).isEmptied(day));
    EXPECT_EQ(typingByDeleting({ {}, day31.day, 0 }, day).day, 0);
    EXPECT_TRUE(DateTyping {}.isUntouched());
    EXPECT_FALSE(typingByDeleting({}, month).isUntouched());
}

}
}

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

TEST(DateFields, DigitsAddUpUntilNoMoreFits)
{
    struct Case {
        DateFieldKind kind;
        char const* digits;
        CalendarFields expected;
        bool isDone;
    };
    CalendarFields const date { 2027, 6, 15, 10, 20, 30 };
    Case const cases[] {
        { DateFieldKind::month, "1", { 2027, 1, 15, 10, 20, 30 }, false },
        { DateFieldKind::month, "12", { 2027, 12, 15, 10, 20, 30 }, true },
        { DateFieldKind::month, "13", { 2027, 3, 15, 10, 20, 30 }, true },
        { DateFieldKind::month, "7", { 2027, 7, 15, 10, 20, 30 }, true },
        { DateFieldKind::month, "02", { 2027, 2, 15, 10, 20, 30 }, true },
        { DateFieldKind::month, "00", { 2027, 1, 15, 10, 20, 30 }, true },
        { DateFieldKind::day, "3", { 2027, 6, 3, 10, 20, 30 }, false },
        { DateFieldKind::day, "31", { 2027, 6, 1, 10, 20, 30 }, false },
        { DateFieldKind::year, "1984", { 1984, 6, 15, 10, 20, 30 }, true },
        { DateFieldKind::hour, "23", { 2027, 6, 15, 23, 20, 30 }, true },
        { DateFieldKind::hour12, "12", { 2027, 6, 15, 0, 20, 30 }, true },
        { DateFieldKind::minute, "59", { 2027, 6, 15, 10, 59, 30 }, true },
        { DateFieldKind::minute, "6", { 2027, 6, 15, 10, 6, 30 }, true },
        { DateFieldKind::half, "1", date, false },
    };
    for (auto const& test : cases) {
        TypedDate typed { date, {}, false };
        for (char const* digit = test.digits; *digit; ++digit)
            typed = dateByTyping(typed.date, test.kind, typed.digits, *digit - '0');
        EXPECT_EQ(typed.date, test.expected) << test.digits << ' ' << static_cast<int>(test.kind);
        EXPECT_EQ(typed.isDone, test.isDone) << test.digits << ' ' << static_cast<int>(test.kind);
    }
}

}
}

#include <plix/platform/foundation/date_pattern.h>
#include <plix/platform/foundation/date_text.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

CalendarFields const moment { 2005, 3, 4, 15, 9, 6, 0.0425 };

std::string format(std::string_view text, CalendarFields const& fields = moment)
{
    return formatDate(fields, { -28800, "PST" }, text, DateNames::english());
}

DateNames german()
{
    auto names = DateNames::english();
    names.months[2] = "März";
    names.shortMonths[2] = "Mär";
    names.weekdays[5] = "Freitag";
    names.dateFormat = "%e. %B %Y";
    names.timeFormat = "%H:%M";
    names.shortDateFormat = "%d.%m.%y";
    return names;
}

TEST(DateText, WritesEveryDirective)
{
    struct {
        char const* format;
        char const* text;
    } const rows[] = {
        { "%a", "Fri" },
        { "%A", "Friday" },
        { "%b", "Mar" },
        { "%B", "March" },
        { "%c", "3:09:06 PM Friday, March 4, 2005" },
        { "%d", "04" },
        { "%e", "4" },
        { "%F", "042" },
        { "%H", "15" },
        { "%I", "03" },
        { "%j", "063" },
        { "%m", "03" },
        { "%M", "09" },
        { "%p", "PM" },
        { "%S", "06" },
        { "%w", "5" },
        { "%x", "Friday, March 4, 2005" },
        { "%X", "3:09:06 PM" },
        { "%y", "05" },
        { "%Y", "2005" },
        { "%Z", "PST" },
        { "%z", "-0800" },
        { "%%", "%" },
        { "%1m/%e/%y", "3/4/05" },
        { "%1d %1H %1I %1M %1S %1y %1j", "4 15 3 9 6 5 63" },
        { "%3m %2e %0m %5Y", "003 04 3 02005" },
        { "", "" },
        { "plain é", "plain é" },
        { "%", "%" },
        { "a%", "a%" },
        { "%1", "%1" },
        { "%q", "%q" },
        { "%1q", "%1q" },
        { "%12m", "%12m" },
        { "%%d", "%d" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(format(row.format), row.text) << row.format;
}

TEST(DateText, WritesTheHoursOfTwelve)
{
    char const* const hours[] = { "12 AM", "01 AM", "11 AM", "12 PM", "01 PM", "11 PM" };
    int const of24[] = { 0, 1, 11, 12, 13, 23 };
    for (std::size_t i = 0; i < std::size(of24); ++i)
        EXPECT_EQ(format("%I %p", { 2005, 1, 1, of24[i] }), hours[i]);
}

TEST(DateText, WritesYearsBeforeTheEra)
{
    EXPECT_EQ(format("%Y", { -44, 3, 15 }), "-0044");
    EXPECT_EQ(format("%y", { -44, 3, 15 }), "56");
    EXPECT_EQ(format("%Y", { 12345, 3, 15 }), "12345");
    EXPECT_EQ(formatDate({}, { 19800, "IST" }, "%z", DateNames::english()), "+0530");
}

TEST(DateText, UsesTheNamesOfTheLanguage)
{
    EXPECT_EQ(formatDate(moment, {}, "%A %x|%X|%c", german()), "Freitag 4. März 2005|15:09|15:09 4. März 2005");
    auto names = german();
    names.dateFormat = "%x %c"; // a format that names itself
    EXPECT_EQ(formatDate(moment, {}, "%x", names), "%x %c");
}

TEST(DateText, ReadsByFormats)
{
    struct {
        char const* text;
        char const* format;
        std::optional<CalendarFields> fields;
    } const rows[] = {
        { "2005-03-04 15:09:06", "%Y-%m-%d %H:%M:%S", CalendarFields { 2005, 3, 4, 15, 9, 6 } },
        { "20050304", "%Y%m%d", CalendarFields { 2005, 3, 4 } },
        { "3/4/05", "%m/%d/%y", CalendarFields { 2005, 3, 4 } },
        { "3/4/05", "%1m/%e/%y", CalendarFields { 2005, 3, 4 } },
        { "3/4/2027", "%1m/%e/%y", CalendarFields { 2027, 3, 4 } },
        { "3/4/68", "%m/%d/%y", CalendarFields { 2068, 3, 4 } },
        { "3/4/69", "%m/%d/%y", CalendarFields { 1969, 3, 4 } },
        { "march 4, 2005", "%B %d, %Y", CalendarFields { 2005, 3, 4 } },
        { "MAR 4 2005", "%B %d %Y", CalendarFields { 2005, 3, 4 } },
        { "March 4 2005", "%b %d %Y", CalendarFields { 2005, 3, 4 } },
        { "Fri 4 May", "%a %d %b", CalendarFields { 2010, 5, 4 } },
        { "12:05 AM", "%I:%M %p", CalendarFields { 2010, 1, 1, 0, 5 } },
        { "12:05 pm", "%I:%M %p", CalendarFields { 2010, 1, 1, 12, 5 } },
        { "1:05 pm", "%I:%M %p", CalendarFields { 2010, 1, 1, 13, 5 } },
        { "1.250", "%S.%F", CalendarFields { 2010, 1, 1, 0, 0, 1, 0.25 } },
        { "2004 366", "%Y %j", CalendarFields { 2004, 12, 31 } },
        { "  4   3", "%d %m", CalendarFields { 2010, 3, 4 } },
        { "43", "%1d%m", std::nullopt },
        { "4\t3 ", "%d %m", CalendarFields { 2010, 3, 4 } },
        { "100%", "%Y%%", CalendarFields { 100, 1, 1 } },
        { "-44", "%Y", CalendarFields { -44, 1, 1 } },
        { "3:09:06 PM Friday, March 4, 2005", "%c", CalendarFields { 2005, 3, 4, 15, 9, 6 } },
        { "%q5", "%q%d", CalendarFields { 2010, 1, 5 } },
        { "", "", CalendarFields { 2010, 1, 1 } },
        { "", "%d", std::nullopt },
        { "2005 366", "%Y %j", std::nullopt },
        { "31/4", "%d/%m", std::nullopt },
        { "29/2/2005", "%d/%m/%Y", std::nullopt },
        { "29/2/2004", "%d/%m/%Y", CalendarFields { 2004, 2, 29 } },
        { "13/1", "%m/%d", std::nullopt },
        { "24:00", "%H:%M", std::nullopt },
        { "0:00 AM", "%I:%M %p", std::nullopt },
        { "10:60", "%H:%M", std::nullopt },
        { "4/3 rest", "%d/%m", std::nullopt },
        { "4-3", "%d/%m", std::nullopt },
        { "Marvember 4", "%B %d", std::nullopt },
        { "99999999999999999999", "%Y", std::nullopt },
        { "9999999", "%Y", CalendarFields { 9999999, 1, 1 } },
        { "99999999", "%Y", std::nullopt },
    };
    CalendarFields const today { 2010, 6, 15, 10, 11, 12 };
    for (auto const& row : rows) {
        auto const parsed = parseDate(row.text, row.format, DateNames::english(), today);
        EXPECT_EQ(parsed ? std::optional(parsed->fields) : std::nullopt, row.fields) << row.text << " by " << row.format;
    }
}

TEST(DateText, ReadsZones)
{
    struct {
        char const* text;
        char const* format;
        std::optional<int> seconds;
        char const* name;
    } const rows[] = {
        { "+0530", "%z", 19800, "" },
        { "-08:00", "%z", -28800, "" },
        { "UTC", "%Z", 0, "" },
        { "Z", "%Z", 0, "" },
        { "GMT+0100", "%Z", 3600, "" },
        { "+0100", "%Z", 3600, "" },
        { "PST", "%Z", std::nullopt, "PST" },
    };
    for (auto const& row : rows) {
        auto const parsed = parseDate(row.text, row.format, DateNames::english(), {});
        ASSERT_TRUE(parsed) << row.text;
        EXPECT_EQ(parsed->secondsFromGMT, row.seconds) << row.text;
        EXPECT_EQ(parsed->zoneAbbreviation, row.name) << row.text;
    }
    for (auto const* bad : { "0530", "+5", "+053", "+1960", "+1900", "+ 100" })
        EXPECT_FALSE(parseDate(bad, "%z", DateNames::english(), {})) << bad;
}

TEST(DateText, ReadsWhatItWrites)
{
    for (auto const* const pattern : { "%Y-%m-%d %H:%M:%S %z", "%c", "%A, %e %B %Y %I:%M:%S %p", "%d%m%Y%H%M%S", "%j %Y %X" }) {
        for (int day = 0; day < 366 * 4; day += 3) {
            auto const fields = fieldsByAdding({ 2003, 1, 1, 0, 0, 0 }, { .days = day, .hours = day % 24, .minutes = day % 60 });
            auto const text = format(pattern, fields);
            auto const parsed = parseDate(text, pattern, DateNames::english(), {});
            ASSERT_TRUE(parsed) << text;
            EXPECT_EQ(parsed->fields, fields) << text;
        }
    }
}

TEST(NaturalDates, AreReadAgainstToday)
{
    // Wednesday, 14 March 2007, 10:11:12
    CalendarFields const now { 2007, 3, 14, 10, 11, 12, 0.5 };
    auto const noon = [](int year, int month, int day) { return CalendarFields { year, month, day, 12 }; };
    struct {
        char const* text;
        std::optional<CalendarFields> fields;
    } const rows[] = {
        { "today", noon(2007, 3, 14) },
        { " Tomorrow ", noon(2007, 3, 15) },
        { "YESTERDAY", noon(2007, 3, 13) },
        { "now", CalendarFields { 2007, 3, 14, 10, 11, 12 } },
        { "tomorrow at 5 pm", CalendarFields { 2007, 3, 15, 17 } },
        { "17:30 today", CalendarFields { 2007, 3, 14, 17, 30 } },
        { "noon", noon(2007, 3, 14) },
        { "midnight tomorrow", CalendarFields { 2007, 3, 15 } },
        { "12 am", CalendarFields { 2007, 3, 14 } },
        { "12:01:02 p.m.", CalendarFields { 2007, 3, 14, 12, 1, 2 } },
        { "Wednesday", noon(2007, 3, 14) },
        { "friday", noon(2007, 3, 16) },
        { "tue", noon(2007, 3, 20) },
        { "next Wednesday", noon(2007, 3, 21) },
        { "next friday", noon(2007, 3, 16) },
        { "last Wednesday", noon(2007, 3, 7) },
        { "last Sunday", noon(2007, 3, 11) },
        { "next week", noon(2007, 3, 21) },
        { "last month", noon(2007, 2, 14) },
        { "next year", noon(2008, 3, 14) },
        { "in 3 days", noon(2007, 3, 17) },
        { "2 weeks ago", noon(2007, 2, 28) },
        { "3/14", noon(2007, 3, 14) },
        { "3/4/27", noon(2027, 3, 4) },
        { "3/4/1999", noon(1999, 3, 4) },
        { "14.3.2027", noon(2027, 3, 14) },
        { "14.3.", noon(2007, 3, 14) },
        { "2027-03-14", noon(2027, 3, 14) },
        { "2027-03-14 08:05", CalendarFields { 2027, 3, 14, 8, 5 } },
        { "14 March 2027", noon(2027, 3, 14) },
        { "14 March", noon(2007, 3, 14) },
        { "March 14, 2027", noon(2027, 3, 14) },
        { "March 14th at noon", noon(2007, 3, 14) },
        { "1st of May", noon(2007, 5, 1) },
        { "Dec. 24", noon(2007, 12, 24) },
        { "March 2027", noon(2027, 3, 1) },
        { "Friday, 16 March 2007", noon(2007, 3, 16) },
        { "16 March 2007, Friday", noon(2007, 3, 16) },
        { "", std::nullopt },
        { "at", std::nullopt },
        { "gibberish", std::nullopt },
        { "tomorrow yesterday", std::nullopt },
        { "5 pm 6 pm", std::nullopt },
        { "31 April", std::nullopt },
        { "13/1", std::nullopt },
        { "25:00", std::nullopt },
        { "13 pm", std::nullopt },
        { "3/", std::nullopt },
        { "in 3", std::nullopt },
        { "3 days", std::nullopt },
        { "todays", std::nullopt },
        { "next", std::nullopt },
        { "14", std::nullopt },
        { "3/14/27x", std::nullopt },
    };
    for (auto const& row : rows)
        EXPECT_EQ(parseNaturalDate(row.text, DateNames::english(), now), row.fields) << row.text;
}

TEST(NaturalDates, FollowTheLanguage)
{
    CalendarFields const now { 2007, 3, 14 };
    EXPECT_EQ(parseNaturalDate("4/3", german(), now), (CalendarFields { 2007, 3, 4, 12 }));
    EXPECT_EQ(parseNaturalDate("4. märz 2007", german(), now), (CalendarFields { 2007, 3, 4, 12 }));
    EXPECT_EQ(parseNaturalDate("next Freitag", german(), now), (CalendarFields { 2007, 3, 16, 12 }));
    EXPECT_EQ(parseNaturalDate("next friday", german(), now), (CalendarFields { 2007, 3, 16, 12 }));
}

TEST(DatePattern, BecomesAFormat)
{
    struct {
        char const* pattern;
        char const* format;
    } const rows[] = {
        { "M/d/yy", "%1m/%e/%y" },
        { "dd.MM.yyyy", "%d.%m.%Y" },
        { "EEEE, d. MMMM y", "%A, %e. %B %Y" },
        { "h:mm:ss\u202Fa", "%1I:%M:%S %p" },
        { "HH:mm z", "%H:%M %Z" },
        { "d 'de' MMM", "%e de %b" },
        { "h 'o''clock'", "%1I o'clock" },
        { "y''M", "%Y'%1m" },
        { "G y", " %Y" },
        { "100% yy", "100%% %y" },
        { "'open", "open" },
        { "y年M月d日", "%Y年%1m月%e日" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(dateFormatFromPattern(row.pattern), row.format) << row.pattern;
}

}
}

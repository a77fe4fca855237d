#include <plugins/DatePicker/calendar_month.h>

#include <gtest/gtest.h>

namespace plix {

void PrintTo(CalendarDay const& day, std::ostream* out)
{
    *out << day.year << '-' << day.month << '-' << day.day;
}

namespace {

TEST(CalendarMonth, BeginsWithTheWeekOfTheFirst)
{
    struct Row {
        std::int64_t year;
        int month;
        int firstWeekday;
        CalendarDay first;
        CalendarDay last;
    };
    for (auto const& row : {
             Row { 2027, 3, 0, { 2027, 2, 28 }, { 2027, 4, 10 } }, // 1 March 2027 is a Monday
             Row { 2027, 3, 1, { 2027, 3, 1 }, { 2027, 4, 11 } },
             Row { 2027, 3, 6, { 2027, 2, 27 }, { 2027, 4, 9 } },
             Row { 2026, 2, 0, { 2026, 2, 1 }, { 2026, 3, 14 } },
             Row { 2026, 2, 1, { 2026, 1, 26 }, { 2026, 3, 8 } },
             Row { 2026, 12, 0, { 2026, 11, 29 }, { 2027, 1, 9 } },
         }) {
        auto const days = daysOfMonthPage(row.year, row.month, row.firstWeekday);
        EXPECT_EQ(days.front(), row.first) << row.month << ' ' << row.firstWeekday;
        EXPECT_EQ(days.back(), row.last) << row.month << ' ' << row.firstWeekday;
    }
}

TEST(CalendarMonth, HasEveryDayOfEachMonthOnce)
{
    for (int month = 1; month <= 12; ++month) {
        for (int firstWeekday = 0; firstWeekday < 7; ++firstWeekday) {
            int count = 0;
            for (auto const& day : daysOfMonthPage(2028, month, firstWeekday))
                count += day.year == 2028 && day.month == month ? 1 : 0;
            EXPECT_EQ(count, daysInMonth(2028, month)) << month;
        }
    }
}

TEST(CalendarMonth, MovesByDaysWeeksMonthsAndYears)
{
    using enum CalendarMove;
    struct Row {
        CalendarDay from;
        CalendarMove move;
        CalendarDay expected;
    };
    for (auto const& row : {
             Row { { 2027, 3, 1 }, previousDay, { 2027, 2, 28 } },
             Row { { 2027, 12, 31 }, nextDay, { 2028, 1, 1 } },
             Row { { 2027, 3, 3 }, previousWeek, { 2027, 2, 24 } },
             Row { { 2027, 12, 28 }, nextWeek, { 2028, 1, 4 } },
             Row { { 2027, 3, 31 }, previousMonth, { 2027, 2, 28 } },
             Row { { 2027, 1, 31 }, nextMonth, { 2027, 2, 28 } },
             Row { { 2027, 1, 5 }, previousMonth, { 2026, 12, 5 } },
             Row { { 2027, 12, 5 }, nextMonth, { 2028, 1, 5 } },
             Row { { 2028, 2, 29 }, nextYear, { 2029, 2, 28 } },
             Row { { 2028, 2, 29 }, previousYear, { 2027, 2, 28 } },
             Row { { 2028, 2, 10 }, firstOfMonth, { 2028, 2, 1 } },
             Row { { 2028, 2, 10 }, lastOfMonth, { 2028, 2, 29 } },
             Row { { 1, 1, 3 }, previousWeek, { 1, 1, 1 } },
             Row { { 1, 1, 3 }, previousMonth, { 1, 1, 1 } },
             Row { { 1, 6, 3 }, previousYear, { 1, 1, 1 } },
             Row { { 9999, 12, 30 }, nextWeek, { 9999, 12, 31 } },
             Row { { 9999, 12, 30 }, nextMonth, { 9999, 12, 31 } },
             Row { { 9999, 6, 30 }, nextYear, { 9999, 12, 31 } },
         })
        EXPECT_EQ(dayAfterMove(row.from, row.move), row.expected) << row.from.year << ' ' << static_cast<int>(row.move);
}

TEST(CalendarMonth, LimitsKeepDaysInside)
{
    CalendarLimits const limits { CalendarDay { 2027, 3, 10 }, CalendarDay { 2027, 3, 20 } };
    EXPECT_FALSE(limits.contains({ 2027, 3, 9 }));
    EXPECT_TRUE(limits.contains({ 2027, 3, 10 }));
    EXPECT_TRUE(limits.contains({ 2027, 3, 20 }));
    EXPECT_FALSE(limits.contains({ 2027, 3, 21 }));
    EXPECT_EQ(limits.nearest({ 2026, 1, 1 }), (CalendarDay { 2027, 3, 10 }));
    EXPECT_EQ(limits.nearest({ 2028, 1, 1 }), (CalendarDay { 2027, 3, 20 }));
    EXPECT_TRUE(CalendarLimits {}.contains({ 1, 1, 1 }));
}

TEST(CalendarMonth, TitlesHaveTheYearWhereTheLanguageHasIt)
{
    struct Row {
        char const* dateFormat;
        char const* expected;
    };
    for (auto const& row : {
             Row { "%A, %B %e, %Y", "%B %Y" },
             Row { "%A, %e. %B %Y", "%B %Y" },
             Row { "%Y年%1m月%e日%A", "%Y年%1m月" },
             Row { "%Y년 %1m월 %e일 %A", "%Y년 %1m월" },
             Row { "%Y. %B %e., %A", "%Y. %B" },
             Row { "%Y m. %B %e d., %A", "%Y m. %B" },
             Row { "%Y-%m-%d", "%Y-%m" },
             Row { "", "%B %Y" },
         })
        EXPECT_EQ(monthTitleFormat(row.dateFormat), row.expected) << row.dateFormat;
}

TEST(CalendarLayout, CellsLieInRowsOfSevenInsideThePage)
{
    auto const layout = CalendarLayout::ofPage();
    auto const size = CalendarLayout::size();
    Rect const page { 0, 0, size.width, size.height };
    for (int i = 0; i < daysOfPage; ++i) {
        auto const& cell = layout.days[static_cast<std::size_t>(i)];
        EXPECT_EQ(NSUnionRect(page, cell), page) << i;
        EXPECT_EQ(cell.x, layout.weekdays[static_cast<std::size_t>(i % 7)].x) << i;
        EXPECT_EQ(layout.dayAt({ cell.midX(), cell.midY() }), i);
    }
    EXPECT_EQ(layout.dayAt({ layout.title.midX(), layout.title.midY() }), std::nullopt);
    EXPECT_EQ(layout.dayAt({ -1, 50 }), std::nullopt);
}

TEST(CalendarFrame, HangsBelowTheFieldOrAboveIt)
{
    Rect const screen { 0, 0, 1000, 800 };
    Size const size { 200, 150 };
    EXPECT_EQ(calendarFrame({ 100, 400, 100, 22 }, size, screen), (Rect { 100, 250, 200, 150 }));
    EXPECT_EQ(calendarFrame({ 100, 100, 100, 22 }, size, screen), (Rect { 100, 122, 200, 150 }));
    EXPECT_EQ(calendarFrame({ 900, 400, 100, 22 }, size, screen), (Rect { 800, 250, 200, 150 }));
    EXPECT_EQ(calendarFrame({ -20, 400, 100, 22 }, size, screen), (Rect { 0, 250, 200, 150 }));
    EXPECT_EQ(calendarFrame({ 100, 60, 100, 22 }, size, { 0, 0, 1000, 200 }), (Rect { 100, 0, 200, 150 }));
}

}
}

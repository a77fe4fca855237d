#include <plugins/DatePicker/calendar_month.h>

#include <algorithm>

namespace plix {

namespace {

constexpr std::int64_t lastYear = 9999;
constexpr int daysOfWeek = 7;

constexpr float margin = 8;
constexpr float headHeight = 24;
constexpr float arrowWidth = 26;
constexpr float weekdayHeight = 18;
constexpr Size dayCell { 30, 22 };

CalendarDay dayOfNumber(std::int64_t number)
{
    return CalendarDay::of(fieldsFromClockSeconds(static_cast<double>(number) * 86400));
}

CalendarDay dayInMonth(std::int64_t year, std::int64_t month, int day)
{
    std::int64_t const months = year * 12 + month - 1;
    std::int64_t const inYear = months / 12;
    if (months < 12)
        return { 1, 1, 1 };
    if (inYear > lastYear)
        return { lastYear, 12, 31 };
    int const inMonth = static_cast<int>(months % 12) + 1;
    return { inYear, inMonth, std::min(day, daysInMonth(inYear, inMonth)) };
}

}

std::array<CalendarDay, daysOfPage> daysOfMonthPage(std::int64_t year, int month, int firstWeekday)
{
    auto const first = dayNumber(year, month, 1);
    int const lead = (dayOfWeek({ year, month, 1 }) - firstWeekday + daysOfWeek) % daysOfWeek;
    std::array<CalendarDay, daysOfPage> days;
    for (int i = 0; i < daysOfPage; ++i)
        days[static_cast<std::size_t>(i)] = dayOfNumber(first - lead + i);
    return days;
}

CalendarDay dayAfterMove(CalendarDay from, CalendarMove move)
{
    auto const byDays = [&](int days) {
        CalendarDay const first { 1, 1, 1 };
        CalendarDay const last { lastYear, 12, 31 };
        return std::clamp(dayOfNumber(dayNumber(from.year, from.month, from.day) + days), first, last);
    };
    switch (move) {
    case CalendarMove::previousDay:
        return byDays(-1);
    case CalendarMove::nextDay:
        return byDays(1);
    case CalendarMove::previousWeek:
        return byDays(-daysOfWeek);
    case CalendarMove::nextWeek:
        return byDays(daysOfWeek);
    case CalendarMove::previousMonth:
        return dayInMonth(from.year, from.month - 1, from.day);
    case CalendarMove::nextMonth:
        return dayInMonth(from.year, from.month + 1, from.day);
    case CalendarMove::previousYear:
        return dayInMonth(from.year - 1, from.month, from.day);
    case CalendarMove::nextYear:
        return dayInMonth(from.year + 1, from.month, from.day);
    case CalendarMove::firstOfMonth:
        return { from.year, from.month, 1 };
    case CalendarMove::lastOfMonth:
        return { from.year, from.month, daysInMonth(from.year, from.month) };
    }
    return from;
}

bool CalendarLimits::contains(CalendarDay day) const
{
    return (!first || day >= *first) && (!last || day <= *last);
}

CalendarDay CalendarLimits::nearest(CalendarDay day) const
{
    if (last && day > *last)
        day = *last;
    return first && day < *first ? *first : day;
}

std::string monthTitleFormat(std::string_view dateFormat)
{
    auto const year = dateFormat.find("%Y");
    auto month = std::string_view::npos;
    for (auto const* directive : { "%b", "%B", "%m", "%1m" })
        month = std::min(month, dateFormat.find(directive));
    if (year == std::string_view::npos || month == std::string_view::npos || month < year)
        return "%B %Y";
    // The year in front: with all that is written around it and the month.
    auto const end = std::min(dateFormat.find('%', month + 1), dateFormat.size());
    auto format = dateFormat.substr(year, end - year);
    while (
        format.ends_with(' ') || format.ends_with('-') || format.ends_with('/') || format.ends_with(',') || format.ends_with('.'))
        format.remove_suffix(1);
    return std::string(format);
}

CalendarLayout CalendarLayout::ofPage()
{
    CalendarLayout layout;
    float const width = dayCell.width * daysOfWeek;
    layout.previous = { margin, margin, arrowWidth, headHeight };
    layout.next = { margin + width - arrowWidth, margin, arrowWidth, headHeight };
    layout.title = { margin + arrowWidth, margin, width - 2 * arrowWidth, headHeight };
    for (std::size_t i = 0; i < layout.weekdays.size(); ++i) {
        layout.weekdays[i] = { margin + static_cast<float>(i) * dayCell.width, margin + headHeight, dayCell.width, weekdayHeight };
    }
    for (std::size_t i = 0; i < layout.days.size(); ++i) {
        layout.days[i] = { margin + static_cast<float>(i % daysOfWeek) * dayCell.width,
            margin + headHeight + weekdayHeight + static_cast<float>(i / daysOfWeek) * dayCell.height, dayCell.width,
            dayCell.height };
    }
    return layout;
}

Size CalendarLayout::size()
{
    constexpr float weeks = daysOfPage / daysOfWeek;
    return { 2 * margin + dayCell.width * daysOfWeek, 2 * margin + headHeight + weekdayHeight + weeks * dayCell.height };
}

std::optional<int> CalendarLayout::dayAt(Point point) const
{
    for (std::size_t i = 0; i < days.size(); ++i) {
        if (NSPointInRect(point, days[i]))
            return static_cast<int>(i);
    }
    return std::nullopt;
}

Rect calendarFrame(Rect field, Size size, Rect screen)
{
    Rect frame { field.x, field.y - size.height, size.width, size.height };
    if (frame.y < screen.y && field.maxY() + size.height <= screen.maxY())
        frame.y = field.maxY();
    frame.x = std::max(screen.x, std::min(frame.x, screen.maxX() - size.width));
    frame.y = std::max(screen.y, std::min(frame.y, screen.maxY() - size.height));
    return frame;
}

}

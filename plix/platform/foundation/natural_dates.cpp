#include <plix/platform/foundation/date_text.h>
#include <plix/platform/foundation/text_cursor.h>

namespace plix {

namespace {

enum class Unit { Day, Week, Month, Year };

struct TimeOfDay {
    int hour;
    int minute;
    int second;
};

bool putsDayFirst(DateNames const& names)
{
    auto const day = names.shortDateFormat.find_first_of("de");
    auto const month = names.shortDateFormat.find_first_of("mbB");
    return day < month;
}

/// Reads the words of a date in any order that makes sense. What it has read of day and time is kept; a second of either is
/// refused.
class NaturalReader {
public:
    NaturalReader(std::string_view text, DateNames const& names, CalendarFields const& now)
        : m_cursor(text)
        , m_names(names)
        , m_now(now)
    {
    }

    std::optional<CalendarFields> read()
    {
        for (skipFiller(); !m_cursor.isAtEnd(); skipFiller()) {
            if (!time() && !relativeDay() && !weekday() && !dayOfMonth())
                return {};
        }
        if (!m_day && !m_time)
            return {};
        auto fields = m_day.value_or(m_now);
        auto const time = m_time.value_or(TimeOfDay { 12, 0, 0 });
        fields.hour = time.hour;
        fields.minute = time.minute;
        fields.second = time.second;
        fields.fraction = 0;
        return fields;
    }

private:
    void skipFiller()
    {
        for (;;) {
            m_cursor.skipBlanks();
            if (!m_cursor.take(',') && !m_cursor.takeWord("at") && !m_cursor.takeWord("on"))
                return;
        }
    }

    /// Takes what `reader` reads, or leaves the cursor where it is.
    template <typename Function> bool attempt(Function reader)
    {
        auto const before = m_cursor;
        if (reader())
            return true;
        m_cursor = before;
        return false;
    }

    bool setDay(CalendarFields const& day)
    {
        if (m_day || day.month < 1 || day.month > 12 || day.day < 1 || day.day > daysInMonth(day.year, day.month))
            return false;
        m_day = day;
        return true;
    }
    bool setTime(TimeOfDay time)
    {
        if (m_time || time.hour > 23 || time.minute > 59 || time.second > 59)
            return false;
        m_time = time;
        return true;
    }
    bool move(Unit unit, int count)
    {
        switch (unit) {
        case Unit::Day:
            return setDay(fieldsByAdding(m_now, { .days = count }));
        case Unit::Week:
            return setDay(fieldsByAdding(m_now, { .days = 7 * count }));
        case Unit::Month:
            return setDay(fieldsByAdding(m_now, { .months = count }));
        case Unit::Year:
            return setDay(fieldsByAdding(m_now, { .years = count }));
        }
        return false;
    }

    std::optional<Unit> unit()
    {
        static constexpr std::string_view words[] = { "day", "week", "month", "year" };
        static constexpr std::string_view plurals[] = { "days", "weeks", "months", "years" };
        for (std::size_t i = 0; i < std::size(words); ++i) {
            if (m_cursor.takeWord(words[i]) || m_cursor.takeWord(plurals[i]))
                return static_cast<Unit>(i);
        }
        return {};
    }

    bool time()
    {
        return attempt([&] {
            if (m_cursor.takeWord("noon"))
                return setTime({ 12, 0, 0 });
            if (m_cursor.takeWord("midnight"))
                return setTime({ 0, 0, 0 });
            return clockTime();
        });
    }

    bool clockTime()
    {
        auto const hour = m_cursor.takeNumber(2);
        if (!hour || TextCursor::isDigit(m_cursor.peek()))
            return false;
        TimeOfDay time { hour->value, 0, 0 };
        bool const hasMinutes = m_cursor.take(':');
        for (auto* part : { &time.minute, &time.second }) {
            if (!hasMinutes || (part == &time.second && !m_cursor.take(':')))
                break;
            auto const number = m_cursor.takeNumber(2);
            if (!number || number->digits != 2)
                return false;
            *part = number->value;
        }
        m_cursor.skipBlanks();
        bool const isMorning = m_cursor.takeWord("am") || m_cursor.takeWord("a.m.") || m_cursor.takeWord(m_names.amPm[0]);
        bool const isEvening
            = !isMorning && (m_cursor.takeWord("pm") || m_cursor.takeWord("p.m.") || m_cursor.takeWord(m_names.amPm[1]));
        if (isMorning || isEvening) {
            if (time.hour < 1 || time.hour > 12)
                return false;
            time.hour = time.hour % 12 + (isEvening ? 12 : 0);
        }
        return (hasMinutes || isMorning || isEvening) && setTime(time);
    }

    bool relativeDay()
    {
        return attempt([&] {
            if (m_cursor.takeWord("now"))
                return setDay(m_now) && setTime({ m_now.hour, m_now.minute, m_now.second });
            if (m_cursor.takeWord("today"))
                return setDay(m_now);
            if (m_cursor.takeWord("tomorrow"))
                return move(Unit::Day, 1);
            if (m_cursor.takeWord("yesterday"))
                return move(Unit::Day, -1);
            return countedUnits();
        });
    }

    /// "next week", "last month", "in 3 days", "2 years ago"
    bool countedUnits()
    {
        bool const isNext = m_cursor.takeWord("next");
        if (isNext || m_cursor.takeWord("last")) {
            m_cursor.skipBlanks();
            auto const counted = unit();
            return counted && move(*counted, isNext ? 1 : -1);
        }
        bool const isAhead = m_cursor.takeWord("in");
        m_cursor.skipBlanks();
        auto const count = m_cursor.takeNumber(4);
        m_cursor.skipBlanks();
        auto const counted = count ? unit() : std::nullopt;
        m_cursor.skipBlanks();
        return counted && (isAhead || m_cursor.takeWord("ago")) && move(*counted, isAhead ? count->value : -count->value);
    }

    bool weekday()
    {
        return attempt([&] {
            bool const isNext = m_cursor.takeWord("next");
            bool const isLast = !isNext && m_cursor.takeWord("last");
            m_cursor.skipBlanks();
            auto const day = wholeName(
                { m_names.weekdays, m_names.shortWeekdays, DateNames::english().weekdays, DateNames::english().shortWeekdays });
            if (!day)
                return false;
            // A weekday beside a date only says again what the date says.
            if (m_day && !isNext && !isLast)
                return true;
            auto const ahead = (*day - dayOfWeek(m_now) + 7) % 7;
            if (isLast)
                return move(Unit::Day, ahead == 0 ? -7 : ahead - 7);
            m_isBareWeekday = !isNext;
            return move(Unit::Day, isNext && ahead == 0 ? 7 : ahead);
        });
    }

    std::optional<int> wholeName(TextCursor::Names lists)
    {
        auto const before = m_cursor;
        auto const found = m_cursor.takeName(lists);
        m_cursor.take('.');
        if (found && !TextCursor::isLetter(m_cursor.peek()))
            return found;
        m_cursor = before;
        return {};
    }

    std::optional<int> monthName()
    {
        return wholeName({ m_names.months, m_names.shortMonths, DateNames::english().months, DateNames::english().shortMonths });
    }

    bool dayOfMonth()
    {
        // "Friday, 14 March": the date is the more exact.
        if (m_isBareWeekday) {
            m_day.reset();
            m_isBareWeekday = false;
        }
        return attempt([&] { return numericDate(); }) || attempt([&] { return writtenDate(); });
    }

    /// 3/14, 3/14/27, 14.3.2027, 2027-03-14
    bool numericDate()
    {
        auto const first = m_cursor.takeNumber(4);
        auto const separator = m_cursor.peek();
        if (!first || (separator != '/' && separator != '.' && separator != '-'))
            return false;
        m_cursor.advance(1);
        auto const second = m_cursor.takeNumber(2);
        if (!second)
            return false;
        std::optional<TextCursor::Number> third;
        if (m_cursor.take(separator)) {
            third = m_cursor.takeNumber(4);
            if (!third && separator != '.')
                return false;
        }
        if (TextCursor::isWordCharacter(m_cursor.peek()))
            return false;
        if (first->digits > 2)
            return third && setDay({ first->value, second->value, third->value });
        bool const isDayFirst = separator == '.' || putsDayFirst(m_names);
        auto const& month = isDayFirst ? second : first;
        auto const& day = isDayFirst ? first : second;
        return setDay({ third ? fullYear(*third) : m_now.year, month->value, day->value });
    }

    /// 14 March, March 14th, 14. March 2027, March 2027
    bool writtenDate()
    {
        std::optional<TextCursor::Number> day;
        auto month = monthName();
        if (!month) {
            day = ordinal();
            m_cursor.skipBlanks();
            m_cursor.takeWord("of");
            m_cursor.skipBlanks();
            month = day ? monthName() : std::nullopt;
        } else {
            m_cursor.skipBlanks();
            attempt([&] { return (day = ordinal()).has_value(); });
        }
        if (!month)
            return false;
        auto const year = yearBehind();
        return setDay({ year ? fullYear(*year) : m_now.year, *month + 1, day ? day->value : 1 });
    }

    std::optional<TextCursor::Number> ordinal()
    {
        auto const number = m_cursor.takeNumber(2);
        if (!number || TextCursor::isDigit(m_cursor.peek()) || m_cursor.peek() == ':')
            return {};
        for (auto const* ending : { "st", "nd", "rd", "th" }) {
            if (m_cursor.takeWord(ending))
                return number;
        }
        m_cursor.take('.');
        return number;
    }

    std::optional<TextCursor::Number> yearBehind()
    {
        std::optional<TextCursor::Number> year;
        attempt([&] {
            m_cursor.skipBlanks();
            m_cursor.take(',');
            m_cursor.skipBlanks();
            year = m_cursor.takeNumber(4);
            bool const isYear
                = year && year->digits == 4 && !TextCursor::isWordCharacter(m_cursor.peek()) && m_cursor.peek() != ':';
            if (!isYear)
                year.reset();
            return isYear;
        });
        return year;
    }

    static int fullYear(TextCursor::Number number)
    {
        return number.digits > 2 ? number.value : number.value + (number.value < 69 ? 2000 : 1900);
    }

    TextCursor m_cursor;
    DateNames const& m_names;
    CalendarFields const& m_now;
    std::optional<CalendarFields> m_day;
    std::optional<TimeOfDay> m_time;
    bool m_isBareWeekday { false };
};

}

std::optional<CalendarFields> parseNaturalDate(std::string_view text, DateNames const& names, CalendarFields const& now)
{
    return NaturalReader(text, names, now).read();
}

}

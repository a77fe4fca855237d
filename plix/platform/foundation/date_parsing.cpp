#include <plix/platform/foundation/date_text.h>
#include <plix/platform/foundation/text_cursor.h>

namespace plix {

namespace {

/// A calendar of seconds goes to about the year 30 million.
constexpr int mostYearDigits = 7;

/// What has been read so far.
struct Parts {
    std::optional<int> year, month, day, dayOfYear, hour24, hour12, minute, second, milliseconds, weekday;
    std::optional<bool> isAfternoon;
    std::optional<int> secondsFromGMT;
    std::string zoneAbbreviation;
};

bool isNumericDirective(std::string_view format)
{
    if (format.size() < 2 || format[0] != '%')
        return false;
    auto const letter = TextCursor::isDigit(format[1]) && format.size() > 2 ? format[2] : format[1];
    return std::string_view("deFHIjmMSwyY").find(letter) != std::string_view::npos;
}

class Reader {
public:
    Reader(std::string_view text, DateNames const& names)
        : m_cursor(text)
        , m_names(names)
    {
    }

    bool read(std::string_view format, int depth)
    {
        while (!format.empty()) {
            if (TextCursor::isBlank(format[0])) {
                m_cursor.skipBlanks();
                format.remove_prefix(1);
                continue;
            }
            if (format[0] != '%' || format.size() < 2) {
                if (!m_cursor.take(format[0]))
                    return false;
                format.remove_prefix(1);
                continue;
            }
            std::size_t const length = TextCursor::isDigit(format[1]) && format.size() > 2 ? 3 : 2;
            auto const letter = format[length - 1];
            auto const written = format.substr(0, length);
            format.remove_prefix(length);
            if (!directive(letter, written, isNumericDirective(format), depth))
                return false;
        }
        return true;
    }
    bool isAtEnd()
    {
        m_cursor.skipBlanks();
        return m_cursor.isAtEnd();
    }
    Parts const& parts() const { return m_parts; }

private:
    bool directive(char letter, std::string_view written, bool isFollowedByNumber, int depth)
    {
        switch (letter) {
        case 'a':
        case 'A':
            m_parts.weekday = m_cursor.takeName({ m_names.weekdays, m_names.shortWeekdays });
            return m_parts.weekday.has_value();
        case 'b':
        case 'B':
            if (auto const month = m_cursor.takeName({ m_names.months, m_names.shortMonths })) {
                m_parts.month = *month + 1;
                return true;
            }
            return false;
        case 'p':
            if (auto const half = m_cursor.takeName({ m_names.amPm, DateNames::english().amPm })) {
                m_parts.isAfternoon = *half == 1;
                return true;
            }
            return false;
        case 'c':
        case 'x':
        case 'X':
            return depth == 0 && (letter == 'x' || read(m_names.timeFormat, 1)) && (letter != 'c' || read(" ", 1))
                && (letter == 'X' || read(m_names.dateFormat, 1));
        case 'Z':
            return zoneName();
        case 'z':
            return zoneOffset();
        case '%':
            return m_cursor.take('%');
        case 'y':
        case 'Y':
            return year(letter, isFollowedByNumber);
        default:
            return number(letter, written);
        }
    }

    bool number(char letter, std::string_view written)
    {
        struct Field {
            char letter;
            int digits;
            int lowest;
            int highest;
            std::optional<int> Parts::*part;
        };
        static constexpr Field fields[] = { { 'd', 2, 1, 31, &Parts::day }, { 'e', 2, 1, 31, &Parts::day },
            { 'F', 3, 0, 999, &Parts::milliseconds }, { 'H', 2, 0, 23, &Parts::hour24 }, { 'I', 2, 1, 12, &Parts::hour12 },
            { 'j', 3, 1, 366, &Parts::dayOfYear }, { 'm', 2, 1, 12, &Parts::month }, { 'M', 2, 0, 59, &Parts::minute },
            { 'S', 2, 0, 59, &Parts::second }, { 'w', 1, 0, 6, &Parts::weekday } };
        for (auto const& field : fields) {
            if (field.letter != letter)
                continue;
            m_cursor.skipBlanks();
            auto const value = m_cursor.takeNumber(field.digits);
            if (!value || value->value < field.lowest || value->value > field.highest)
                return false;
            m_parts.*field.part = value->value;
            return true;
        }
        for (char const c : written) {
            if (!m_cursor.take(c))
                return false;
        }
        return true;
    }

    bool year(char letter, bool isFollowedByNumber)
    {
        m_cursor.skipBlanks();
        bool const isNegative = letter == 'Y' && m_cursor.take('-');
        auto const usualDigits = letter == 'y' ? 2 : 4;
        auto const value = m_cursor.takeNumber(isFollowedByNumber ? usualDigits : mostYearDigits);
        if (!value)
            return false;
        m_parts.year = isNegative ? -value->value : value->value;
        if (letter == 'y' && value->digits <= 2)
            m_parts.year = value->value + (value->value < 69 ? 2000 : 1900);
        return true;
    }

    bool zoneName()
    {
        m_cursor.skipBlanks();
        auto const text = m_cursor.rest();
        std::size_t length = 0;
        while (length < text.size() && TextCursor::isLetter(text[length]))
            ++length;
        auto const name = text.substr(0, length);
        if (name.empty())
            return (m_cursor.peek() == '+' || m_cursor.peek() == '-') && zoneOffset();
        m_cursor.advance(length);
        if (name != "UTC" && name != "GMT" && name != "Z") {
            m_parts.zoneAbbreviation = name;
            return true;
        }
        m_parts.secondsFromGMT = 0;
        return (m_cursor.peek() != '+' && m_cursor.peek() != '-') || zoneOffset();
    }

    bool zoneOffset()
    {
        m_cursor.skipBlanks();
        bool const isNegative = m_cursor.take('-');
        if (!isNegative && !m_cursor.take('+'))
            return false;
        auto const hours = m_cursor.takeNumber(2);
        m_cursor.take(':');
        auto const minutes = m_cursor.takeNumber(2);
        if (!hours || hours->digits != 2 || !minutes || minutes->digits != 2 || hours->value > 18 || minutes->value > 59)
            return false;
        auto const seconds = (hours->value * 60 + minutes->value) * 60;
        m_parts.secondsFromGMT = isNegative ? -seconds : seconds;
        return true;
    }

    TextCursor m_cursor;
    DateNames const& m_names;
    Parts m_parts;
};

std::optional<ParsedDate> assembled(Parts const& parts, CalendarFields const& today)
{
    ParsedDate parsed;
    auto& fields = parsed.fields;
    fields.year = parts.year ? *parts.year : today.year;
    fields.month = parts.month.value_or(1);
    fields.day = parts.day.value_or(1);
    if (fields.day > daysInMonth(fields.year, fields.month))
        return {};
    if (parts.dayOfYear && !parts.month && !parts.day) {
        if (*parts.dayOfYear > (isLeapYear(fields.year) ? 366 : 365))
            return {};
        fields = fieldsByAdding(fields, { .days = *parts.dayOfYear - 1 });
    }
    fields.hour = parts.hour24.value_or(0);
    if (parts.hour12)
        fields.hour = *parts.hour12 % 12 + (parts.isAfternoon.value_or(false) ? 12 : 0);
    fields.minute = parts.minute.value_or(0);
    fields.second = parts.second.value_or(0);
    fields.fraction = parts.milliseconds.value_or(0) / 1000.0;
    parsed.secondsFromGMT = parts.secondsFromGMT;
    parsed.zoneAbbreviation = parts.zoneAbbreviation;
    return parsed;
}

}

std::optional<ParsedDate> parseDate(
    std::string_view text, std::string_view format, DateNames const& names, CalendarFields const& today)
{
    Reader reader(text, names);
    if (!reader.read(format, 0) || !reader.isAtEnd())
        return {};
    return assembled(reader.parts(), today);
}

}

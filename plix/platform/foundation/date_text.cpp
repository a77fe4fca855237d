#include <plix/platform/foundation/date_text.h>

#include <cmath>
#include <cstdlib>

namespace plix {

namespace {

void appendNumber(std::string& text, std::int64_t value, int leastDigits)
{
    auto const digits = std::to_string(std::abs(value));
    if (value < 0)
        text += '-';
    text.append(static_cast<std::size_t>(std::max(0, leastDigits - static_cast<int>(digits.size()))), '0');
    text += digits;
}

void appendOffset(std::string& text, int seconds)
{
    auto const minutes = std::abs(seconds) / 60;
    text += seconds < 0 ? '-' : '+';
    appendNumber(text, minutes / 60 * 100 + minutes % 60, 4);
}

template <typename Names> std::string const& nameAt(Names const& names, int index)
{
    static std::string const s_none;
    return index >= 0 && static_cast<std::size_t>(index) < names.size() ? names[static_cast<std::size_t>(index)] : s_none;
}

struct Writer {
    CalendarFields const& fields;
    DateZone const& zone;
    DateNames const& names;
    std::string text {};

    void write(std::string_view format, int depth)
    {
        while (!format.empty()) {
            auto const percent = std::min(format.find('%'), format.size());
            text += format.substr(0, percent);
            format.remove_prefix(percent);
            if (format.size() < 2) {
                text += format;
                return;
            }
            std::size_t length = 2;
            int width = -1;
            if (format[1] >= '0' && format[1] <= '9' && format.size() > 2) {
                width = format[1] - '0';
                length = 3;
            }
            if (!directive(format[length - 1], width, depth))
                text += format.substr(0, length);
            format.remove_prefix(length);
        }
    }

    bool directive(char letter, int width, int depth) { return name(letter, depth) || number(letter, width); }

    bool name(char letter, int depth)
    {
        switch (letter) {
        case 'a':
            text += nameAt(names.shortWeekdays, dayOfWeek(fields));
            return true;
        case 'A':
            text += nameAt(names.weekdays, dayOfWeek(fields));
            return true;
        case 'b':
            text += nameAt(names.shortMonths, fields.month - 1);
            return true;
        case 'B':
            text += nameAt(names.months, fields.month - 1);
            return true;
        case 'p':
            text += names.amPm[fields.hour >= 12];
            return true;
        case 'c':
        case 'x':
        case 'X':
            return expand(letter, depth);
        case 'Z':
            text += zone.abbreviation;
            return true;
        case 'z':
            appendOffset(text, zone.secondsFromGMT);
            return true;
        case '%':
            text += '%';
            return true;
        default:
            return false;
        }
    }

    /// A language's own format that names itself goes no deeper.
    bool expand(char letter, int depth)
    {
        if (depth > 0)
            return false;
        if (letter != 'x')
            write(names.timeFormat, depth + 1);
        if (letter == 'c')
            text += ' ';
        if (letter != 'X')
            write(names.dateFormat, depth + 1);
        return true;
    }

    bool number(char letter, int width)
    {
        auto const append = [&](std::int64_t value, int usual) {
            appendNumber(text, value, width >= 0 ? width : usual);
            return true;
        };
        switch (letter) {
        case 'd':
            return append(fields.day, 2);
        case 'e':
            return append(fields.day, 1);
        case 'F':
            return append(static_cast<int>(fields.fraction * 1000), 3);
        case 'H':
            return append(fields.hour, 2);
        case 'I':
            return append((fields.hour + 11) % 12 + 1, 2);
        case 'j':
            return append(dayOfYear(fields), 3);
        case 'm':
            return append(fields.month, 2);
        case 'M':
            return append(fields.minute, 2);
        case 'S':
            return append(fields.second, 2);
        case 'w':
            return append(dayOfWeek(fields), 1);
        case 'y':
            return append((fields.year % 100 + 100) % 100, 2);
        case 'Y':
            return append(fields.year, 4);
        default:
            return false;
        }
    }
};

}

DateNames const& DateNames::english()
{
    static auto const& s_english = *new DateNames {
        { "January", "February", "March", "April", "May", "June", "July", "August", "September", "October", "November",
            "December" },
        { "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec" },
        { "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday" },
        { "Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat" },
        { "AM", "PM" },
        "%A, %B %e, %Y",
        "%1I:%M:%S %p",
        "%1m/%e/%y",
    };
    return s_english;
}

std::string formatDate(CalendarFields const& fields, DateZone const& zone, std::string_view format, DateNames const& names)
{
    Writer writer { fields, zone, names };
    writer.write(format, 0);
    return std::move(writer.text);
}

}

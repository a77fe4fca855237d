#include <plix/platform/appkit/date_fields.h>

#include <algorithm>

namespace plix {

namespace {

constexpr int lastYear = 9999;

struct Range {
    int lowest;
    int highest;
    int digits;
};

Range rangeOf(DateFieldKind kind, CalendarFields const& date)
{
    switch (kind) {
    case DateFieldKind::year:
        return { 1, lastYear, 4 };
    case DateFieldKind::month:
        return { 1, 12, 2 };
    case DateFieldKind::day:
        return { 1, daysInMonth(date.year, date.month), 2 };
    case DateFieldKind::hour:
        return { 0, 23, 2 };
    case DateFieldKind::hour12:
        return { 1, 12, 2 };
    case DateFieldKind::minute:
    case DateFieldKind::second:
        return { 0, 59, 2 };
    case DateFieldKind::half:
        return { 0, 1, 0 };
    case DateFieldKind::literal:
        break;
    }
    return { 0, 0, 0 };
}

// Any month may follow a day.
Range rangeOfTyping(DateFieldKind kind)
{
    return rangeOf(kind, { 2000, 1, 1 });
}

CalendarFields withValue(CalendarFields date, DateFieldKind kind, int value)
{
    auto const range = rangeOf(kind, date);
    value = std::clamp(value, range.lowest, range.highest);
    switch (kind) {
    case DateFieldKind::year:
        date.year = value;
        break;
    case DateFieldKind::month:
        date.month = value;
        break;
    case DateFieldKind::day:
        date.day = value;
        break;
    case DateFieldKind::hour:
        date.hour = value;
        break;
    case DateFieldKind::hour12:
        date.hour = value % 12 + (date.hour >= 12 ? 12 : 0);
        break;
    case DateFieldKind::minute:
        date.minute = value;
        break;
    case DateFieldKind::second:
        date.second = value;
        break;
    case DateFieldKind::half:
        date.hour = date.hour % 12 + (value == 1 ? 12 : 0);
        break;
    case DateFieldKind::literal:
        break;
    }
    date.day = std::min(date.day, daysInMonth(date.year, date.month));
    return date;
}

bool isShown(DateFieldKind kind, DateFieldChoice const& choice)
{
    switch (kind) {
    case DateFieldKind::year:
    case DateFieldKind::month:
        return choice.showsYearAndMonth;
    case DateFieldKind::day:
        return choice.showsDay;
    case DateFieldKind::second:
        return choice.showsSecond;
    default:
        return choice.showsHourAndMinute;
    }
}

std::optional<DateField> fieldForDirective(char directive)
{
    switch (directive) {
    case 'Y':
    case 'y':
        return DateField { DateFieldKind::year, {}, 4 };
    case 'm':
        return DateField { DateFieldKind::month, {}, 2 };
    case 'b':
    case 'B':
        return DateField { DateFieldKind::month, {}, 1 };
    case 'd':
        return DateField { DateFieldKind::day, {}, 2 };
    case 'e':
        return DateField { DateFieldKind::day, {}, 1 };
    case 'H':
        return DateField { DateFieldKind::hour, {}, 2 };
    case 'I':
        return DateField { DateFieldKind::hour12, {}, 1 };
    case 'M':
        return DateField { DateFieldKind::minute, {}, 2 };
    case 'S':
        return DateField { DateFieldKind::second, {}, 2 };
    case 'p':
        return DateField { DateFieldKind::half, {}, 0 };
    default:
        return std::nullopt;
    }
}

std::vector<DateField> allFields(std::string_view format)
{
    std::vector<DateField> fields;
    auto const addText = [&](char character) {
        if (fields.empty() || fields.back().kind != DateFieldKind::literal)
            fields.push_back({});
        fields.back().text += character;
    };
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%' || i + 1 == format.size()) {
            addText(format[i]);
            continue;
        }
        // "%1d" and the like: no leading zeros.
        bool const isShort = format[i + 1] == '1' && i + 2 < format.size();
        i += isShort ? 2 : 1;
        if (auto field = fieldForDirective(format[i])) {
            if (isShort)
                field->width = 1;
            fields.push_back(*field);
        } else if (format[i] == '%') {
            addText('%');
        }
    }
    return fields;
}

// What stands between two shown fields is what stood before the later one.
void addShown(std::vector<DateField>& shown, std::vector<DateField> const& fields, DateFieldChoice const& choice)
{
    DateField between;
    bool hasBetween = false;
    bool hasField = false;
    for (auto const& field : fields) {
        if (field.kind == DateFieldKind::literal) {
            between = field;
            hasBetween = true;
            continue;
        }
        if (isShown(field.kind, choice)) {
            if (hasBetween && hasField)
                shown.push_back(between);
            shown.push_back(field);
            hasField = true;
        }
        hasBetween = false;
    }
}

}

std::vector<DateField> dateFields(std::string_view dateFormat, std::string_view timeFormat, DateFieldChoice const& choice)
{
    std::vector<DateField> shown;
    addShown(shown, allFields(dateFormat), choice);
    std::vector<DateField> time;
    addShown(time, allFields(timeFormat), choice);
    if (!shown.empty() && !time.empty())
        shown.push_back({ DateFieldKind::literal, " ", 0 });
    shown.insert(shown.end(), time.begin(), time.end());
    return shown;
}

int valueOfDateField(DateFieldKind kind, CalendarFields const& date)
{
    switch (kind) {
    case DateFieldKind::year:
        return static_cast<int>(std::clamp<std::int64_t>(date.year, 0, lastYear));
    case DateFieldKind::month:
        return date.month;
    case DateFieldKind::day:
        return date.day;
    case DateFieldKind::hour:
        return date.hour;
    case DateFieldKind::hour12:
        return date.hour % 12 == 0 ? 12 : date.hour % 12;
    case DateFieldKind::minute:
        return date.minute;
    case DateFieldKind::second:
        return date.second;
    case DateFieldKind::half:
        return date.hour >= 12 ? 1 : 0;
    case DateFieldKind::literal:
        break;
    }
    return 0;
}

std::string textOfDateField(DateField const& field, CalendarFields const& date, DateHalves const& halves)
{
    if (field.kind == DateFieldKind::literal)
        return field.text;
    int const value = valueOfDateField(field.kind, date);
    if (field.kind == DateFieldKind::half)
        return value == 1 ? halves.afternoon : halves.morning;
    auto text = std::to_string(value);
    if (text.size() < static_cast<std::size_t>(field.width))
        text.insert(0, static_cast<std::size_t>(field.width) - text.size(), '0');
    return text;
}

CalendarFields dateByStepping(CalendarFields date, DateFieldKind kind, int step)
{
    auto const range = rangeOf(kind, date);
    int const count = range.highest - range.lowest + 1;
    // The hand of a clock with halves goes on from 11 to 12, into the other half.
    if (kind == DateFieldKind::hour12) {
        date.hour = ((date.hour + step) % 24 + 24) % 24;
        return date;
    }
    int const place = valueOfDateField(kind, date) - range.lowest + step;
    if (kind == DateFieldKind::year)
        return withValue(date, kind, range.lowest + place);
    return withValue(date, kind, range.lowest + (place % count + count) % count);
}

void DateTyping::setEmptied(DateFieldKind kind, bool isEmptied)
{
    unsigned const bit = 1U << static_cast<unsigned>(kind);
    emptied = isEmptied ? emptied | bit : emptied & ~bit;
}

TypedDate dateByTyping(CalendarFields const& date, DateFieldKind kind, DateTyping const& before, int digit)
{
    auto const range = rangeOfTyping(kind);
    if (range.digits == 0 || digit < 0 || digit > 9)
        return { date, before, false, false };
    TypedDigits const digits { before.digits.value * 10 + digit, before.digits.count + 1 };
    if (digits.value > range.highest)
        return { date, before, true, true };
    TypedDate typed { date, before, digits.count == range.digits || digits.value * 10 > range.highest, false };
    typed.typing.digits = digits;
    typed.typing.setEmptied(kind, false);
    bool const counts = kind == DateFieldKind::year ? typed.isDone : typed.isDone || digits.value >= range.lowest;
    if (!counts)
        return typed;
    if (kind == DateFieldKind::day)
        typed.typing.day = std::max(digits.value, range.lowest);
    if (typed.typing.day != 0)
        typed.date.day = typed.typing.day;
    typed.date = withValue(typed.date, kind, digits.value);
    return typed;
}

CalendarFields dateByEndingYear(CalendarFields date, DateTyping const& typing)
{
    if (typing.digits.count == 0)
        return date;
    if (typing.day != 0)
        date.day = typing.day;
    bool const isOfCentury = typing.digits.count <= 2;
    return withValue(date, DateFieldKind::year,
        isOfCentury ? static_cast<int>(date.year / 100 * 100) + typing.digits.value : typing.digits.value);
}

DateTyping typingByDeleting(DateTyping typing, DateFieldKind kind)
{
    if (typing.digits.count > 1) {
        typing.digits = { typing.digits.value / 10, typing.digits.count - 1 };
        return typing;
    }
    typing.digits = {};
    typing.setEmptied(kind, true);
    if (kind == DateFieldKind::day)
        typing.day = 0;
    return typing;
}

}

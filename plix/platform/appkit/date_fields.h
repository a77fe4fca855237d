#pragma once

#include <plix/platform/foundation/calendar_fields.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

enum class DateFieldKind { literal, year, month, day, hour, hour12, minute, second, half };

/// Which parts of a date a picker shows.
struct DateFieldChoice {
    bool showsYearAndMonth { true };
    bool showsDay { true };
    bool showsHourAndMinute { true };
    bool showsSecond { true };
};

/// A part of the text: something to be changed, or what stands between two of them.
struct DateField {
    DateFieldKind kind { DateFieldKind::literal };
    std::string text; ///< of a literal
    int width { 0 }; ///< at least that many digits
    friend bool operator==(DateField const&, DateField const&) = default;
};

/// The parts of a short date and a time in the order in which the formats (see formatDate()) have them, without those that are not
/// shown; literals beside what is left out go with it.
std::vector<DateField> dateFields(std::string_view dateFormat, std::string_view timeFormat, DateFieldChoice const&);

struct DateHalves {
    std::string morning { "AM" };
    std::string afternoon { "PM" };
};
std::string textOfDateField(DateField const&, CalendarFields const&, DateHalves const&);

/// One more or less in one field: it goes around at its ends and leaves the others as they are, but for a day that the month lacks,
/// which becomes the month's last. Years stay within 1 to 9999.
CalendarFields dateByStepping(CalendarFields, DateFieldKind, int step);

/// Digits typed into one field. A field that no further digit fits into is done.
struct TypedDigits {
    int value { 0 };
    int count { 0 };
};
struct TypedDate {
    CalendarFields date;
    TypedDigits digits;
    bool isDone { false };
};
/// After one more digit; a value that the field can't have is taken as the nearest that it can, at the end of typing.
TypedDate dateByTyping(CalendarFields const&, DateFieldKind, TypedDigits, int digit);

/// The field's value, as a person reads it: hours of halves 1 to 12.
int valueOfDateField(DateFieldKind, CalendarFields const&);

}

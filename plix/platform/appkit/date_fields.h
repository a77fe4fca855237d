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
PLIX_EXPORT std::vector<DateField> dateFields(std::string_view dateFormat, std::string_view timeFormat, DateFieldChoice const&);

struct DateHalves {
    std::string morning { "AM" };
    std::string afternoon { "PM" };
};
PLIX_EXPORT std::string textOfDateField(DateField const&, CalendarFields const&, DateHalves const&);

/// One more or less in one field: it goes around at its ends and leaves the others as they are, but for a day that the month lacks,
/// which becomes the month's last. Years stay within 1 to 9999.
PLIX_EXPORT CalendarFields dateByStepping(CalendarFields, DateFieldKind, int step);

/// Digits typed into one field.
struct TypedDigits {
    int value { 0 };
    int count { 0 };
};

/// What a person has typed into the fields of a date, until it is taken over for good.
struct PLIX_EXPORT DateTyping {
    /// Of the field with the caret.
    TypedDigits digits;
    /// The day that was typed, 0 for none. While month and year change it counts again: in a month that lacks it, its last stands
    /// for it.
    int day { 0 };
    /// Those of which every digit was deleted: a bit for each kind.
    unsigned emptied { 0 };

    bool isEmptied(DateFieldKind kind) const { return (emptied >> static_cast<unsigned>(kind) & 1U) != 0; }
    void setEmptied(DateFieldKind kind, bool isEmptied);
    bool isUntouched() const { return digits.count == 0 && day == 0 && emptied == 0; }
};

struct TypedDate {
    CalendarFields date;
    DateTyping typing;
    /// No further digit fits into the field.
    bool isDone { false };
    /// The digit does not fit behind those before it and was not taken: it is the first of the next field, or of this one
    /// anew where none follows.
    bool isLeftOver { false };
};
/// After one more digit. A value that the field can't have is taken as the nearest that it can; a 0 counts with what follows it. A
/// year changes the date when all its digits are there.
PLIX_EXPORT TypedDate dateByTyping(CalendarFields const&, DateFieldKind, DateTyping const&, int digit);
/// With what was typed of a year so far: two digits are one of the century that the date is in.
PLIX_EXPORT CalendarFields dateByEndingYear(CalendarFields, DateTyping const&);
/// Without the digit typed last, or where none was typed, without all of them: then the field is emptied.
PLIX_EXPORT DateTyping typingByDeleting(DateTyping, DateFieldKind);

/// The field's value, as a person reads it: hours of halves 1 to 12.
PLIX_EXPORT int valueOfDateField(DateFieldKind, CalendarFields const&);

}

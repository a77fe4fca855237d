#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/foundation/calendar_fields.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace plix {

/// The words and orders of dates in a language.
struct PLIX_EXPORT DateNames {
    /// January first.
    std::array<std::string, 12> months;
    std::array<std::string, 12> shortMonths;
    /// Sunday first.
    std::array<std::string, 7> weekdays;
    std::array<std::string, 7> shortWeekdays;
    std::array<std::string, 2> amPm;
    /// Formats for %x and %X, and for short dates as in 3/14/27.
    std::string dateFormat;
    std::string timeFormat;
    std::string shortDateFormat;
    /// With which a week begins in calendars: 0 for Sunday to 6 for Saturday.
    int firstWeekday { 0 };

    static DateNames const& english();
    friend bool operator==(DateNames const&, DateNames const&) = default;
};

/// What is said of the zone beside the reading.
struct DateZone {
    int secondsFromGMT { 0 };
    std::string_view abbreviation { "UTC" };
};

/// Writes a reading by a format. Directives: %a %A (weekday, short and long), %b %B (month), %c (%X %x), %d (day), %e (day without
/// a leading zero), %F (milliseconds), %H %I (hour of 24 and of 12), %j (day of the year), %m (month), %M (minute), %p (AM or PM),
/// %S (second), %w (weekday, 0 for Sunday), %x %X (date and time of the language), %y (year of the century), %Y (year),
/// %Z (the zone's abbreviation), %z (its offset as +hhmm), %%. A digit after the % is the least number of a number's digits: %1m.
/// What is no directive is written as it stands.
PLIX_EXPORT std::string formatDate(CalendarFields const&, DateZone const&, std::string_view format, DateNames const&);

struct ParsedDate {
    CalendarFields fields;
    /// Where the text says one: the offset from GMT, or the abbreviation that %Z met and that is none of UTC's names.
    std::optional<int> secondsFromGMT;
    std::string zoneAbbreviation;
};

/// Reads a text by the same formats. Blanks match any number of blanks; letters of names match in either case, long or short; years
/// of two digits are those from 1969 to 2068. What the text does not say is of `today`'s year, January, the 1st, 0 o'clock. nullopt
/// where the text does not fit, names no day that there is, or goes on behind the format.
PLIX_EXPORT std::optional<ParsedDate> parseDate(
    std::string_view text, std::string_view format, DateNames const&, CalendarFields const& today);

/// Reads a date as people write them: today, tomorrow, yesterday, now, Friday, next Friday, last week, in 3 days, 2 weeks ago,
/// 3/14, 14 March 2027, March 14th, 2027-03-14, each with or without a time (noon, midnight, 5 pm, 17:30); or the time alone. Day
/// and month stand in the order of the language's short format. Without a time it is noon.
PLIX_EXPORT std::optional<CalendarFields> parseNaturalDate(std::string_view text, DateNames const&, CalendarFields const& now);

}

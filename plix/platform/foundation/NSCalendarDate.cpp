#include <plix/platform/foundation/NSCalendarDate.h>

#include <plix/platform/foundation/date_text.h>
#include <plix/platform/foundation/locale_values.h>

namespace plix {

NSCalendarDate::NSCalendarDate(NSDate date, NSTimeZone zone)
    : NSDate(date)
    , m_zone(std::move(zone))
{
}

NSCalendarDate NSCalendarDate::calendarDate()
{
    return NSCalendarDate(NSDate::date());
}

NSCalendarDate NSCalendarDate::dateWithYear(
    std::int64_t year, int month, int day, int hour, int minute, int second, NSTimeZone const& zone)
{
    return dateWithFields({ year, month, day, hour, minute, second, 0 }, zone);
}

NSCalendarDate NSCalendarDate::dateWithFields(CalendarFields const& fields, NSTimeZone const& zone)
{
    return NSCalendarDate(zone.dateForFields(fields), zone);
}

std::optional<NSCalendarDate> NSCalendarDate::dateWithString(std::string_view text, std::string_view format)
{
    auto zone = NSTimeZone::localTimeZone();
    auto const parsed = parseDate(text, format, *currentDateNames(), zone.fieldsForDate(NSDate::date()));
    if (!parsed)
        return {};
    auto seconds = parsed->secondsFromGMT;
    if (!parsed->zoneAbbreviation.empty()) {
        seconds = zone.secondsFromGMTForAbbreviation(parsed->zoneAbbreviation);
        if (!seconds)
            return {};
        // The local zone's own name says nothing new but in the hour that comes twice.
        if (zone.secondsFromGMTForDate(zone.dateForFields(parsed->fields)) == *seconds)
            seconds.reset();
    }
    if (seconds)
        zone = NSTimeZone::timeZoneForSecondsFromGMT(*seconds);
    auto date = dateWithFields(parsed->fields, zone);
    date.setCalendarFormat(std::string(format));
    return date;
}

std::optional<NSCalendarDate> NSCalendarDate::dateWithNaturalLanguageString(std::string_view text)
{
    auto const zone = NSTimeZone::localTimeZone();
    auto const fields = parseNaturalDate(text, *currentDateNames(), zone.fieldsForDate(NSDate::date()));
    return fields ? std::optional(dateWithFields(*fields, zone)) : std::nullopt;
}

std::int64_t NSCalendarDate::dayOfCommonEra() const
{
    auto const today = fields();
    return dayNumber(today.year, today.month, today.day) - dayNumber(1, 1, 1) + 1;
}

NSCalendarDate NSCalendarDate::dateByAddingYears(int years, int months, int days, int hours, int minutes, int seconds) const
{
    auto moved = dateWithFields(fieldsByAdding(fields(), { years, months, days, hours, minutes, seconds }), m_zone);
    moved.m_calendarFormat = m_calendarFormat;
    return moved;
}

std::string NSCalendarDate::descriptionWithCalendarFormat(std::string_view format) const
{
    return descriptionWithCalendarFormat(format, *currentDateNames());
}

std::string NSCalendarDate::descriptionWithCalendarFormat(std::string_view format, DateNames const& names) const
{
    DateZone const zone { m_zone.secondsFromGMTForDate(*this), m_zone.abbreviationForDate(*this) };
    return formatDate(fields(), zone, format, names);
}

}

#pragma once

#include <plix/platform/base/NSDate.h>
#include <plix/platform/foundation/NSTimeZone.h>
#include <plix/platform/foundation/calendar_fields.h>

#include <optional>
#include <string>
#include <string_view>

namespace plix {

struct DateNames;

/// A moment with the zone it is read in and a format to write it in. Equal and ordered by the moment alone.
class PLIX_EXPORT NSCalendarDate : public NSDate {
public:
    /// The reference date in UTC.
    NSCalendarDate() = default;
    /// In the local zone unless another one is given.
    explicit NSCalendarDate(NSDate date, NSTimeZone zone = NSTimeZone::localTimeZone());

    /// Now.
    static NSCalendarDate calendarDate();
    /// Parts outside their range count on: month 13 is the next year's January.
    static NSCalendarDate dateWithYear(std::int64_t year, int month, int day, int hour, int minute, int second,
        NSTimeZone const& zone = NSTimeZone::localTimeZone());
    static NSCalendarDate dateWithFields(CalendarFields const&, NSTimeZone const& zone = NSTimeZone::localTimeZone());
    /// Read by a format in the user's language (see parseDate()); in the local zone unless the text says another. nullopt where the
    /// text does not fit.
    static std::optional<NSCalendarDate> dateWithString(std::string_view text, std::string_view format);
    /// Read as people write dates, against the present day (see parseNaturalDate()).
    static std::optional<NSCalendarDate> dateWithNaturalLanguageString(std::string_view text);

    // In its time zone.
    CalendarFields fields() const { return m_zone.fieldsForDate(*this); }
    std::int64_t yearOfCommonEra() const { return fields().year; }
    int monthOfYear() const { return fields().month; }
    int dayOfMonth() const { return fields().day; }
    /// 0 for Sunday to 6 for Saturday.
    int dayOfWeek() const { return plix::dayOfWeek(fields()); }
    /// 1 for 1 January.
    int dayOfYear() const { return plix::dayOfYear(fields()); }
    /// 1 for 1 January of the year 1.
    std::int64_t dayOfCommonEra() const;
    int hourOfDay() const { return fields().hour; }
    int minuteOfHour() const { return fields().minute; }
    int secondOfMinute() const { return fields().second; }

    /// Adds on the clock: an hour over a change of the clock moves its hands by one hour.
    NSCalendarDate dateByAddingYears(int years, int months, int days, int hours, int minutes, int seconds) const;

    // The zone that it is shown in; the moment stays the same.
    NSTimeZone const& timeZone() const { return m_zone; }
    void setTimeZone(NSTimeZone zone) { m_zone = std::move(zone); }
    /// "%Y-%m-%d %H:%M:%S %z" unless set.
    std::string const& calendarFormat() const { return m_calendarFormat; }
    void setCalendarFormat(std::string format) { m_calendarFormat = std::move(format); }

    /// By its own format, with the user's names.
    std::string description() const { return descriptionWithCalendarFormat(m_calendarFormat); }
    /// By a format (see formatDate()), with the user's names.
    std::string descriptionWithCalendarFormat(std::string_view format) const;
    std::string descriptionWithCalendarFormat(std::string_view format, DateNames const& names) const;

private:
    NSTimeZone m_zone;
    std::string m_calendarFormat { "%Y-%m-%d %H:%M:%S %z" };
};

}

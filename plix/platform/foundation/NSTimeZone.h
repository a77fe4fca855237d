#pragma once

#include <plix/platform/base/NSDate.h>

#include <memory>
#include <optional>
#include <string>

namespace plix {

struct CalendarFields;
struct ZoneData;

/// A time zone with its history, from the system's zone data. A value; copies share what they hold.
class PLIX_EXPORT NSTimeZone {
public:
    /// UTC.
    NSTimeZone();
    /// A zone of the zone data ("Europe/Vienna"), or a rule as POSIX writes it ("EST5EDT,M3.2.0,M11.1.0"). Read once and kept.
    /// nullopt where there is none of that name.
    static std::optional<NSTimeZone> timeZoneWithName(std::string const& name);
    static NSTimeZone timeZoneForSecondsFromGMT(int seconds);
    /// The surroundings' zone; UTC where theirs cannot be read.
    static NSTimeZone localTimeZone();

    // What it is called, and what holds at a date.
    std::string const& name() const;
    int secondsFromGMTForDate(NSDate) const;
    std::string const& abbreviationForDate(NSDate) const;
    bool isDaylightSavingTimeForDate(NSDate) const;
    /// Whether the zone ever goes by this abbreviation; the offset it has then.
    std::optional<int> secondsFromGMTForAbbreviation(std::string_view abbreviation) const;

    /// What clock and calendar show there.
    CalendarFields fieldsForDate(NSDate) const;
    /// The moment at which the zone's clock shows the fields; of two the first, in a gap as if the clock went on from before it.
    NSDate dateForFields(CalendarFields const&) const;

    friend bool operator==(NSTimeZone const& a, NSTimeZone const& b) { return a.name() == b.name(); }

private:
    struct Zone;
    explicit NSTimeZone(std::shared_ptr<Zone const>);

    std::shared_ptr<Zone const> m_zone;
};

}

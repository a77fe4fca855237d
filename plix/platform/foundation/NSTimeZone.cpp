#include <plix/platform/foundation/NSTimeZone.h>

#include <plix/platform/foundation/calendar_fields.h>
#include <plix/platform/foundation/file_bytes.h>
#include <plix/platform/foundation/path_operations.h>
#include <plix/platform/foundation/surroundings.h>
#include <plix/platform/foundation/zone_rules.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace plix {

struct NSTimeZone::Zone {
    std::string name;
    ZoneData data;
};

namespace {

constexpr auto zoneFolder = "/usr/share/zoneinfo";
constexpr std::size_t largestZoneFile = 1 << 20;
constexpr double furthestSeconds = 1e15;

std::int64_t wholeSeconds(NSTimeInterval seconds)
{
    if (std::isnan(seconds))
        return 0;
    return static_cast<std::int64_t>(std::floor(std::clamp(seconds, -furthestSeconds, furthestSeconds)));
}

ZoneData fixedZone(ZoneOffset offset)
{
    ZoneData zone;
    zone.offsets.push_back(std::move(offset));
    return zone;
}

std::optional<ZoneData> readZone(std::string const& name)
{
    if (name == "UTC" || name == "GMT")
        return fixedZone({ 0, false, name });
    auto const components = pathComponents(name);
    bool const isPlainName = std::ranges::none_of(components, [](auto const& part) { return part == ".." || part == "."; });
    if (isPlainName && !name.empty() && name.find('\0') == std::string::npos) {
        auto const bytes
            = readFileBytes(isAbsolutePath(name) ? name : stringByAppendingPathComponent(zoneFolder, name), largestZoneFile);
        if (bytes)
            return parseZoneFile(*bytes);
    }
    auto const rule = parseZoneRule(name);
    if (!rule)
        return {};
    auto zone = fixedZone(rule->standard);
    zone.after = rule;
    return zone;
}

}

NSTimeZone::NSTimeZone(std::shared_ptr<Zone const> zone)
    : m_zone(std::move(zone))
{
}

NSTimeZone::NSTimeZone()
{
    static auto const& s_utc = *new std::shared_ptr<Zone const>(new Zone { "UTC", fixedZone({}) });
    m_zone = s_utc;
}

std::optional<NSTimeZone> NSTimeZone::timeZoneWithName(std::string const& name)
{
    static auto& s_known = *new std::map<std::string, std::shared_ptr<Zone const>>;
    auto const known = s_known.find(name);
    if (known != s_known.end())
        return NSTimeZone(known->second);
    auto data = readZone(name);
    if (!data)
        return {};
    auto const zone = std::make_shared<Zone const>(Zone { name, std::move(*data) });
    s_known.emplace(name, zone);
    return NSTimeZone(zone);
}

NSTimeZone NSTimeZone::timeZoneForSecondsFromGMT(int seconds)
{
    auto const minutes = std::abs(std::int64_t { seconds }) / 60;
    auto name = std::to_string(10000 + minutes / 60 * 100 + minutes % 60);
    name.replace(0, 1, seconds < 0 ? "GMT-" : "GMT+");
    if (seconds == 0)
        name = "GMT";
    return NSTimeZone(std::make_shared<Zone const>(Zone { name, fixedZone({ seconds, false, name }) }));
}

NSTimeZone NSTimeZone::localTimeZone()
{
    return timeZoneWithName(surroundings().timeZoneName()).value_or(NSTimeZone());
}

std::string const& NSTimeZone::name() const
{
    return m_zone->name;
}

int NSTimeZone::secondsFromGMTForDate(NSDate date) const
{
    return m_zone->data.at(wholeSeconds(date.timeIntervalSince1970())).secondsFromGMT;
}

std::string const& NSTimeZone::abbreviationForDate(NSDate date) const
{
    return m_zone->data.at(wholeSeconds(date.timeIntervalSince1970())).abbreviation;
}

bool NSTimeZone::isDaylightSavingTimeForDate(NSDate date) const
{
    return m_zone->data.at(wholeSeconds(date.timeIntervalSince1970())).isDaylightSaving;
}

std::optional<int> NSTimeZone::secondsFromGMTForAbbreviation(std::string_view abbreviation) const
{
    auto const& data = m_zone->data;
    if (data.after) {
        if (data.after->standard.abbreviation == abbreviation)
            return data.after->standard.secondsFromGMT;
        if (data.after->summer && data.after->summer->abbreviation == abbreviation)
            return data.after->summer->secondsFromGMT;
    }
    // The latest use of an abbreviation is what people mean by it.
    auto const found = std::find_if(
        data.offsets.rbegin(), data.offsets.rend(), [&](auto const& offset) { return offset.abbreviation == abbreviation; });
    return found == data.offsets.rend() ? std::nullopt : std::optional(found->secondsFromGMT);
}

CalendarFields NSTimeZone::fieldsForDate(NSDate date) const
{
    return fieldsFromClockSeconds(date.timeIntervalSinceReferenceDate + secondsFromGMTForDate(date));
}

NSDate NSTimeZone::dateForFields(CalendarFields const& fields) const
{
    auto whole = fields;
    whole.fraction = 0;
    auto const clock = wholeSeconds(clockSeconds(whole) + NSTimeIntervalSince1970);
    auto const moment = momentOfClock(m_zone->data, clock);
    return NSDate::dateWithTimeIntervalSinceReferenceDate(
        static_cast<NSTimeInterval>(moment) - NSTimeIntervalSince1970 + fields.fraction);
}

}

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// How a zone's clock stands against UTC.
struct ZoneOffset {
    /// East of Greenwich is positive.
    int secondsFromGMT { 0 };
    bool isDaylightSaving { false };
    std::string abbreviation { "UTC" };

    friend bool operator==(ZoneOffset const&, ZoneOffset const&) = default;
};

/// When summer time begins or ends, as POSIX writes it in TZ.
struct ZoneRuleDay {
    enum class Kind { MonthWeekDay, JulianWithoutLeapDay, DayOfYear };
    Kind kind { Kind::MonthWeekDay };
    int month { 0 };
    int week { 0 };
    int day { 0 };
    /// Of the local clock, after midnight; may lie outside the day.
    int seconds { 7200 };
};

/// A rule that goes on for ever: standard time and, where it has days, summer time.
struct ZoneRule {
    ZoneOffset standard;
    std::optional<ZoneOffset> summer;
    ZoneRuleDay summerBegins;
    ZoneRuleDay summerEnds;

    ZoneOffset const& at(std::int64_t secondsSince1970) const;
};

/// A rule in POSIX's form: "CET-1CEST,M3.5.0,M10.5.0/3". nullopt where it is none.
std::optional<ZoneRule> parseZoneRule(std::string_view text);

/// The history of a zone: its transitions and what comes after the last.
struct ZoneData {
    std::vector<ZoneOffset> offsets;
    /// When each begins, in ascending order, with the index of its offset.
    std::vector<std::int64_t> transitions;
    std::vector<std::uint8_t> offsetOfTransition;
    std::size_t firstOffset { 0 };
    std::optional<ZoneRule> after;

    ZoneOffset const& at(std::int64_t secondsSince1970) const;
};

/// A compiled zone file (RFC 8536), any version. nullopt where it is damaged.
std::optional<ZoneData> parseZoneFile(std::span<std::uint8_t const> bytes);

/// The moment, in seconds since 1970, at which the zone's clock shows a reading, given in seconds as if it were UTC's. A reading
/// that comes twice is the first of the two; one that is left out counts on from before the gap.
std::int64_t momentOfClock(ZoneData const&, std::int64_t clockSecondsSince1970);

}

#include <plix/platform/foundation/zone_rules.h>

#include <plix/platform/foundation/calendar_fields.h>

#include <algorithm>
#include <charconv>

namespace plix {

namespace {

constexpr std::int64_t secondsADay = 86400;
/// Days from 1 January 1970 to 1 January 2001.
constexpr std::int64_t daysFrom1970 = 11323;
constexpr std::int64_t furthestMoment = 1'000'000'000'000'000;

/// Reads a rule's text from the front; every reader answers false where the text is none of its kind.
class RuleReader {
public:
    explicit RuleReader(std::string_view text)
        : m_text(text)
    {
    }

    bool isAtEnd() const { return m_text.empty(); }
    bool isAt(char c) const { return m_text.starts_with(c); }
    bool take(char c)
    {
        bool const isThere = m_text.starts_with(c);
        m_text.remove_prefix(isThere);
        return isThere;
    }
    bool number(int& value, int lowest, int highest)
    {
        auto const result = std::from_chars(m_text.data(), m_text.data() + m_text.size(), value);
        if (result.ec != std::errc {} || m_text.starts_with('-') || value < lowest || value > highest)
            return false;
        m_text.remove_prefix(static_cast<std::size_t>(result.ptr - m_text.data()));
        return true;
    }
    bool abbreviation(std::string& name)
    {
        bool const isQuoted = take('<');
        auto const belongs = [&](char c) {
            return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')
                || (isQuoted && ((c >= '0' && c <= '9') || c == '+' || c == '-'));
        };
        auto const end = std::find_if_not(m_text.begin(), m_text.end(), belongs);
        name.assign(m_text.begin(), end);
        m_text.remove_prefix(name.size());
        return name.size() >= 3 && name.size() <= 31 && (!isQuoted || take('>'));
    }
    /// [+-]hh[:mm[:ss]]
    bool time(int& seconds, int mostHours)
    {
        bool const isNegative = take('-');
        if (!isNegative)
            take('+');
        int hours = 0, minutes = 0, rest = 0;
        if (!number(hours, 0, mostHours) || (take(':') && (!number(minutes, 0, 59) || (take(':') && !number(rest, 0, 59)))))
            return false;
        seconds = hours * 3600 + minutes * 60 + rest;
        seconds = isNegative ? -seconds : seconds;
        return true;
    }
    bool day(ZoneRuleDay& day)
    {
        using Kind = ZoneRuleDay::Kind;
        if (take('M')) {
            day.kind = Kind::MonthWeekDay;
            if (!number(day.month, 1, 12) || !take('.') || !number(day.week, 1, 5) || !take('.') || !number(day.day, 0, 6))
                return false;
        } else if (take('J')) {
            day.kind = Kind::JulianWithoutLeapDay;
            if (!number(day.day, 1, 365))
                return false;
        } else {
            day.kind = Kind::DayOfYear;
            if (!number(day.day, 0, 365))
                return false;
        }
        return !take('/') || time(day.seconds, 167);
    }

private:
    std::string_view m_text;
};

/// The day of the rule in a year, in days since 1970.
std::int64_t dayInYear(ZoneRuleDay const& rule, std::int64_t year)
{
    switch (rule.kind) {
    case ZoneRuleDay::Kind::JulianWithoutLeapDay: {
        bool const isBehindLeapDay = isLeapYear(year) && rule.day >= 60;
        return dayNumber(year, 1, rule.day) + isBehindLeapDay + daysFrom1970;
    }
    case ZoneRuleDay::Kind::DayOfYear:
        return dayNumber(year, 1, 1) + rule.day + daysFrom1970;
    case ZoneRuleDay::Kind::MonthWeekDay:
        break;
    }
    CalendarFields const first { year, rule.month, 1 };
    auto const firstSuch = (rule.day - dayOfWeek(first) + 7) % 7 + 1;
    auto day = firstSuch + (rule.week - 1) * 7;
    if (day > daysInMonth(year, rule.month))
        day -= 7;
    return dayNumber(year, rule.month, day) + daysFrom1970;
}

class BigEndianReader {
public:
    explicit BigEndianReader(std::span<std::uint8_t const> bytes)
        : m_bytes(bytes)
    {
    }

    bool has(std::size_t count) const { return m_bytes.size() >= count; }
    std::span<std::uint8_t const> take(std::size_t count)
    {
        auto const taken = m_bytes.first(count);
        m_bytes = m_bytes.subspan(count);
        return taken;
    }
    std::uint8_t byte() { return take(1)[0]; }
    std::int64_t integer(std::size_t size)
    {
        std::uint64_t value = 0;
        auto const bytes = take(size);
        for (auto const byte : bytes)
            value = (value << 8) | byte;
        return size == 4 ? static_cast<std::int32_t>(value) : static_cast<std::int64_t>(value);
    }
    std::span<std::uint8_t const> rest() const { return m_bytes; }

private:
    std::span<std::uint8_t const> m_bytes;
};

struct ZoneFileHeader {
    std::uint8_t version;
    std::uint32_t utcFlags, standardFlags, leaps, transitions, types, characters;

    std::size_t bodySize(std::size_t timeSize) const
    {
        return std::size_t { transitions } * (timeSize + 1) + std::size_t { types } * 6 + characters
            + std::size_t { leaps } * (timeSize + 4) + standardFlags + utcFlags;
    }
};

std::optional<ZoneFileHeader> readHeader(BigEndianReader& reader)
{
    constexpr std::size_t headerSize = 44;
    if (!reader.has(headerSize))
        return {};
    auto const magic = reader.take(4);
    if (magic[0] != 'T' || magic[1] != 'Z' || magic[2] != 'i' || magic[3] != 'f')
        return {};
    ZoneFileHeader header {};
    header.version = reader.byte();
    reader.take(15);
    for (auto* count :
        { &header.utcFlags, &header.standardFlags, &header.leaps, &header.transitions, &header.types, &header.characters })
        *count = static_cast<std::uint32_t>(reader.integer(4));
    return header;
}

bool readOffsets(BigEndianReader& reader, ZoneFileHeader const& header, ZoneData& zone)
{
    auto const types = reader.take(std::size_t { header.types } * 6);
    auto const names = reader.take(header.characters);
    for (BigEndianReader type(types); type.has(6);) {
        auto const seconds = type.integer(4);
        bool const isDaylightSaving = type.byte() != 0;
        auto const nameAt = type.byte();
        if (seconds < -90000 || seconds > 93600 || nameAt >= names.size())
            return false;
        auto const name = names.subspan(nameAt);
        auto const end = std::find(name.begin(), name.end(), 0);
        zone.offsets.push_back({ static_cast<int>(seconds), isDaylightSaving, std::string(name.begin(), end) });
    }
    return !zone.offsets.empty();
}

bool readBody(BigEndianReader& reader, ZoneFileHeader const& header, std::size_t timeSize, ZoneData& zone)
{
    if (!reader.has(header.bodySize(timeSize)))
        return false;
    for (std::uint32_t i = 0; i < header.transitions; ++i)
        zone.transitions.push_back(reader.integer(timeSize));
    for (std::uint32_t i = 0; i < header.transitions; ++i)
        zone.offsetOfTransition.push_back(reader.byte());
    if (!readOffsets(reader, header, zone))
        return false;
    reader.take(std::size_t { header.leaps } * (timeSize + 4) + header.standardFlags + header.utcFlags);
    bool const namesOffsets = std::ranges::all_of(zone.offsetOfTransition, [&](auto index) { return index < zone.offsets.size(); });
    return namesOffsets && std::ranges::is_sorted(zone.transitions);
}

}

std::optional<ZoneRule> parseZoneRule(std::string_view text)
{
    RuleReader reader(text);
    ZoneRule rule;
    int west = 0;
    if (!reader.abbreviation(rule.standard.abbreviation) || !reader.time(west, 24))
        return {};
    rule.standard.secondsFromGMT = -west;
    if (reader.isAtEnd())
        return rule;
    ZoneOffset summer { rule.standard.secondsFromGMT + 3600, true, {} };
    if (!reader.abbreviation(summer.abbreviation))
        return {};
    if (!reader.isAtEnd() && !reader.isAt(',')) {
        if (!reader.time(west, 24))
            return {};
        summer.secondsFromGMT = -west;
    }
    // Without days of its own, summer time is that of the United States, as the C library has it.
    RuleReader usual(",M3.2.0,M11.1.0");
    auto& days = reader.isAtEnd() ? usual : reader;
    if (!days.take(',') || !days.day(rule.summerBegins) || !days.take(',') || !days.day(rule.summerEnds) || !days.isAtEnd())
        return {};
    rule.summer = std::move(summer);
    return rule;
}

ZoneOffset const& ZoneRule::at(std::int64_t secondsSince1970) const
{
    if (!summer)
        return standard;
    auto const moment = std::clamp(secondsSince1970, -furthestMoment, furthestMoment);
    auto const clock = moment - daysFrom1970 * secondsADay + standard.secondsFromGMT;
    auto const year = fieldsFromClockSeconds(static_cast<double>(clock)).year;
    auto const begins = dayInYear(summerBegins, year) * secondsADay + summerBegins.seconds - standard.secondsFromGMT;
    auto const ends = dayInYear(summerEnds, year) * secondsADay + summerEnds.seconds - summer->secondsFromGMT;
    bool const isSummer = begins < ends ? moment >= begins && moment < ends : moment >= begins || moment < ends;
    return isSummer ? *summer : standard;
}

ZoneOffset const& ZoneData::at(std::int64_t secondsSince1970) const
{
    auto const next = std::ranges::upper_bound(transitions, secondsSince1970);
    if (next == transitions.end() && after)
        return after->at(secondsSince1970);
    if (next == transitions.begin())
        return offsets[firstOffset];
    return offsets[offsetOfTransition[static_cast<std::size_t>(next - transitions.begin() - 1)]];
}

std::optional<ZoneData> parseZoneFile(std::span<std::uint8_t const> bytes)
{
    BigEndianReader reader(bytes);
    auto header = readHeader(reader);
    if (!header)
        return {};
    std::size_t timeSize = 4;
    if (header->version >= '2') {
        if (!reader.has(header->bodySize(timeSize)))
            return {};
        reader.take(header->bodySize(timeSize));
        header = readHeader(reader);
        timeSize = 8;
    }
    ZoneData zone;
    if (!header || !readBody(reader, *header, timeSize, zone))
        return {};
    if (timeSize == 8) {
        auto const rest = reader.rest();
        std::string_view footer(reinterpret_cast<char const*>(rest.data()), rest.size());
        if (footer.starts_with('\n') && footer.find('\n', 1) != std::string_view::npos)
            zone.after = parseZoneRule(footer.substr(1, footer.find('\n', 1) - 1));
    }
    return zone;
}

std::int64_t momentOfClock(ZoneData const& zone, std::int64_t clockSeconds)
{
    auto const clock = std::clamp(clockSeconds, -furthestMoment, furthestMoment);
    // A day to either side lies behind any change of the clock that could matter.
    auto const before = zone.at(clock - 2 * secondsADay).secondsFromGMT;
    auto const after = zone.at(clock + 2 * secondsADay).secondsFromGMT;
    for (auto const offset : { before, after, zone.at(clock - before).secondsFromGMT }) {
        if (zone.at(clock - offset).secondsFromGMT == offset)
            return clock - offset;
    }
    return clock - before;
}

}

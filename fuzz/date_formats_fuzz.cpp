#include "fuzz.h"

#include <plix/platform/foundation/date_pattern.h>
#include <plix/platform/foundation/date_text.h>
#include <plix/platform/foundation/zone_rules.h>

using namespace plix;

static void checkFields(CalendarFields const& fields)
{
    FUZZ_CHECK(fields.month >= 1 && fields.month <= 12);
    FUZZ_CHECK(fields.day >= 1 && fields.day <= daysInMonth(fields.year, fields.month));
    FUZZ_CHECK(fields.hour >= 0 && fields.hour < 24 && fields.minute >= 0 && fields.minute < 60);
    FUZZ_CHECK(fields.second >= 0 && fields.second < 60 && fields.fraction >= 0 && fields.fraction < 1);
    // Far from now a fraction may round up to the next second.
    auto whole = fields;
    whole.fraction = 0;
    auto const again = fieldsFromClockSeconds(clockSeconds(whole));
    FUZZ_CHECK(again.year == fields.year && again.month == fields.month && again.day == fields.day && again.hour == fields.hour);
}

// A format and a text, with a zero byte between.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    std::string_view const input(reinterpret_cast<char const*>(data), size);
    auto const format = input.substr(0, input.find('\0'));
    auto const text = input.substr(std::min(format.size() + 1, input.size()));
    auto const& names = DateNames::english();
    CalendarFields const today { 2005, 3, 14, 15, 9, 26, 0.5 };

    if (auto const parsed = parseDate(text, format, names, today))
        checkFields(parsed->fields);
    if (auto const natural = parseNaturalDate(text, names, today))
        checkFields(*natural);

    auto const written = formatDate(today, { 3600, "CET" }, format, names);
    FUZZ_CHECK(written.size() <= format.size() * 32 + 16);
    if (auto const read = parseDate(written, format, names, today))
        checkFields(read->fields);
    FUZZ_CHECK(dateFormatFromPattern(format).size() <= format.size() * 3);

    if (auto const rule = parseZoneRule(text)) {
        for (auto moment = std::int64_t { -100'000'000'000 }; moment < 100'000'000'000; moment += 7'777'777'777)
            FUZZ_CHECK(std::abs(rule->at(moment).secondsFromGMT) <= 25 * 3600);
    }
    return 0;
}

#include "fuzz.h"

#include <plix/platform/foundation/zone_rules.h>

#include <limits>

using namespace plix;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    auto const zone = parseZoneFile({ data, size });
    if (!zone)
        return 0;
    using Limits = std::numeric_limits<std::int64_t>;
    for (auto const moment :
        { Limits::min(), std::int64_t { -1 }, std::int64_t { 0 }, std::int64_t { 1'200'000'000 }, Limits::max() }) {
        FUZZ_CHECK(std::abs(zone->at(moment).secondsFromGMT) <= 100'000);
        momentOfClock(*zone, moment);
    }
    for (auto const moment : zone->transitions)
        zone->at(moment);
    return 0;
}

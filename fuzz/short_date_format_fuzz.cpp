#include "fuzz.h"

#include <plix/format/date_format.h>

#include <algorithm>

using namespace plix;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    std::string_view const format(reinterpret_cast<char const*>(data), size);
    auto const shortest = shortestDateFormat(format, 0x1049);
    FUZZ_CHECK(std::count(shortest.begin(), shortest.end(), '/') == 2);
    FUZZ_CHECK(shortest.find("%y") != std::string::npos);
    FUZZ_CHECK(shortest.size() <= std::string_view("%1m/%e/%y").size());
    // A short format with all three fields is its own shortest.
    if (shortest.size() == std::string_view("%1m/%e/%y").size())
        FUZZ_CHECK(shortestDateFormat(shortest, 0x1049) == shortest);
    // Old systems differ in the month's width alone.
    auto old = shortestDateFormat(format, 0x1028);
    if (auto const month = old.find("%m"); month != std::string::npos)
        old.insert(month + 1, "1");
    FUZZ_CHECK(old == shortest);
    return 0;
}

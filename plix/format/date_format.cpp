#include <plix/format/date_format.h>

#include <algorithm>
#include <array>

namespace plix {

namespace {

constexpr std::uint32_t firstVersionWithFieldWidths = 0x1030;

std::size_t positionOfAny(std::string_view format, std::string_view letters)
{
    return std::min(format.find_first_of(letters), format.size());
}

}

std::string shortestDateFormat(std::string_view format, std::uint32_t systemVersion)
{
    auto const day = positionOfAny(format, "de");
    auto const month = positionOfAny(format, "bBm");
    auto const year = positionOfAny(format, "yY");
    auto const slotOfMonth = day <= month ? (month < year ? 1U : 2U) : (month < year ? 0U : 1U);
    auto const slotOfDay = day >= month ? (day < year ? 1U : 2U) : (day < year ? 0U : 1U);
    auto const slotOfYear = month <= year ? (day > year ? 1U : 2U) : (day > year ? 0U : 1U);

    // The order is meant: of fields that the format lacks, a later one takes the place of an earlier.
    std::array<std::string_view, 3> slots;
    slots[slotOfMonth] = systemVersion < firstVersionWithFieldWidths ? "%m" : "%1m";
    slots[slotOfDay] = "%e";
    slots[slotOfYear] = "%y";
    std::string shortest(slots[0]);
    shortest.append("/").append(slots[1]).append("/").append(slots[2]);
    return shortest;
}

}

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace plix {

/// Day, month and year as short numbers, in the order in which the format first names any of d e, b B m, y Y; a slash between each
/// two. The month has no leading zero from system version 0x1030 on.
std::string shortestDateFormat(std::string_view format, std::uint32_t systemVersion);

}

#pragma once

#include <plix/platform/foundation/NSCalendarDate.h>

#include <string>
#include <string_view>

namespace plix {

/// The range of dates around now that a code stands for, in the local zone: 0 today, 1 yesterday, 2 to 5 the last week, month,
/// quarter and year, 6 to 9 this one, 10 to 13 this one up to today. Weeks begin on Sunday. Answers the end; for any other code
/// now, and `start` and `end` stay as they are.
PLIX_EXPORT NSCalendarDate DateRangeForMnemonic(int code, NSCalendarDate& start, NSCalendarDate& end);

/// Day, month and year as short numbers in the order of a format, "%1m/%e/%y" for "%A, %B %d, %Y"; see shortestDateFormat().
PLIX_EXPORT std::string DateFormatStringToShortestDateFormatString(std::string_view format);

}

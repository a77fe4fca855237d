#pragma once

#include <plix/format/file_size_text.h>

#include <string>

namespace plix {

/// "1 day, 1 hour, 1 minute" in words of the main bundle, looked up under the English words. Parts that are zero are left out, and
/// seconds beside days; what is below a second or negative gives "--:--:--:--".
PLIX_EXPORT std::string PLIXLongStringForTimeInterval(double seconds);

/// "01:02:05": hours without limit, minutes, whole seconds. Negative parts are not looked after: -5 gives "00:00:0-5". What is
/// outside 32 bits, or no number, counts as -2147483648 seconds.
PLIX_EXPORT std::string TimeIntervalDescription(double seconds);

}

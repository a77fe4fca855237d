#pragma once

#include <plix/platform/foundation/calendar_fields.h>

#include <optional>

namespace plix {

struct CalendarRange {
    CalendarFields start;
    CalendarFields end;
};

/// What DateRangeForMnemonic answers for a code, all on one clock; nothing for a code that it does not know.
std::optional<CalendarRange> calendarRangeForMnemonic(int code, CalendarFields const& now);

}

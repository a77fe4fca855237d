#pragma once

#include "folder_entry.h"

#include <plix/platform/foundation/NSCalendarDate.h>

#include <optional>
#include <string>

namespace browser {

/// Lets through what was modified on the days from one date to another, both whole; folders stay, to go on through.
struct DateFilter {
    plix::NSCalendarDate first;
    plix::NSCalendarDate last;

    bool letsThrough(FolderEntry const&) const;
    /// "Modified 3/1/27 – 3/14/27".
    std::string text() const;
};

/// The same days, the earlier one first.
DateFilter filterBetween(plix::NSCalendarDate one, plix::NSCalendarDate other);

/// Asks in a date range panel, which shows the present filter's dates, or this month's up to today. The present filter where the
/// panel was taken away without an answer.
std::optional<DateFilter> askForDates(std::optional<DateFilter> const& present);

}

#include "DateFilter.h"

#include <plix/format/dates.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/windows/TQDateRangePanel.h>

#include <utility>

namespace browser {

using namespace plix;

namespace {

constexpr int monthToDate = 11;

NSCalendarDate startOfDay(NSCalendarDate const& date)
{
    return NSCalendarDate::dateWithYear(date.yearOfCommonEra(), date.monthOfYear(), date.dayOfMonth(), 0, 0, 0, date.timeZone());
}

}

bool DateFilter::letsThrough(FolderEntry const& entry) const
{
    if (entry.kind == EntryKind::folder)
        return true;
    auto const end = startOfDay(last).dateByAddingYears(0, 0, 1, 0, 0, 0);
    return entry.modified >= startOfDay(first).timeIntervalSince1970() && entry.modified < end.timeIntervalSince1970();
}

std::string DateFilter::text() const
{
    auto const format = NSUserDefaults::standardUserDefaults().stringForKey(NSShortDateFormatString).value_or("%Y-%m-%d");
    return "Modified " + first.descriptionWithCalendarFormat(format) + " – " + last.descriptionWithCalendarFormat(format);
}

DateFilter filterBetween(NSCalendarDate one, NSCalendarDate other)
{
    if (other < one)
        std::swap(one, other);
    return { std::move(one), std::move(other) };
}

std::optional<DateFilter> askForDates(std::optional<DateFilter> const& present)
{
    DateFilter shown;
    if (present)
        shown = *present;
    else
        DateRangeForMnemonic(monthToDate, shown.first, shown.last);
    auto const panel = make<TQDateRangePanel>(Point {}, shown.first, shown.last);
    bool const isAnswered = panel->run() && !panel->isVisible();
    panel->orderOut(nullptr);
    // OK takes the panel away; who ends its run otherwise leaves it there.
    return isAnswered ? std::optional(filterBetween(panel->fromDate(), panel->toDate())) : present;
}

}

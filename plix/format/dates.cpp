#include <plix/format/dates.h>

#include <plix/format/date_format.h>
#include <plix/format/date_range.h>
#include <plix/platform/foundation/machine_identity.h>

namespace plix {

NSCalendarDate DateRangeForMnemonic(int code, NSCalendarDate& start, NSCalendarDate& end)
{
    auto now = NSCalendarDate::calendarDate();
    auto const range = calendarRangeForMnemonic(code, now.fields());
    if (!range)
        return now;
    start = NSCalendarDate::dateWithFields(range->start);
    end = NSCalendarDate::dateWithFields(range->end);
    return end;
}

std::string DateFormatStringToShortestDateFormatString(std::string_view format)
{
    return shortestDateFormat(format, machineIdentity().systemVersion());
}

}

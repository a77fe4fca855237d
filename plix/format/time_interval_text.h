#pragma once

#include <plix/platform/base/export.h>

#include <optional>
#include <string>
#include <string_view>

namespace plix {

/// The parts of an interval that a TQTimeIntervalFormatter shows.
enum TQTimeIntervalComponent : int {
    TQTimeIntervalSeconds = 0,
    TQTimeIntervalMinutes = 1,
    TQTimeIntervalHours = 2,
    TQTimeIntervalDays = 3,
    TQTimeIntervalWeeks = 4,
};

/// How many seconds one unit of a component has; 1 for any other code.
PLIX_EXPORT double _TQTimeIntervalComponentScalar(int component);
/// How many units make one of the next component; 1 for weeks and any other code.
PLIX_EXPORT double _TQTimeIntervalComponentBase(int component);

/// How intervals are written and read; see TQTimeIntervalFormatter.
struct PLIX_EXPORT TimeIntervalFormat {
    int minimumComponent { TQTimeIntervalSeconds };
    int maximumComponent { TQTimeIntervalWeeks };
    bool showsMilliseconds { false };
    double maximumTimeInterval { 4294967295.0 };
    double minimumTimeInterval { -4294967295.0 };
    std::string componentSeparator { ":" };
    int componentStyle { 0 };

    /// From the lowest to the highest; one where they are the wrong way round.
    long componentCount() const;
};

PLIX_EXPORT std::string textForTimeInterval(double seconds, TimeIntervalFormat const&);
/// The seconds that the text says, or those of no text at all. Never fails: what is no number counts as 0.
PLIX_EXPORT double timeIntervalForText(std::optional<std::string_view> text, TimeIntervalFormat const&);
PLIX_EXPORT double valueForComponentText(std::string_view text, long component);

}

#pragma once

#include <plix/platform/base/export.h>

#include <compare>

namespace plix {

/// Seconds.
using NSTimeInterval = double;

/// Seconds from 1 January 1970 to 1 January 2001, both 00:00 UTC.
inline constexpr NSTimeInterval NSTimeIntervalSince1970 = 978307200.0;

/// A moment, in seconds since 1 January 2001 00:00 UTC.
struct PLIX_EXPORT NSDate {
    NSTimeInterval timeIntervalSinceReferenceDate { 0 };

    /// Now, by the installed clock.
    static NSDate date();
    static NSDate dateWithTimeIntervalSinceNow(NSTimeInterval seconds);
    static constexpr NSDate dateWithTimeIntervalSince1970(NSTimeInterval seconds) { return { seconds - NSTimeIntervalSince1970 }; }
    static constexpr NSDate dateWithTimeIntervalSinceReferenceDate(NSTimeInterval seconds) { return { seconds }; }
    static constexpr NSDate distantFuture() { return { 63113904000.0 }; }
    static constexpr NSDate distantPast() { return { -63113904000.0 }; }

    // Seconds from one date to another, and a date that much later.
    constexpr NSTimeInterval timeIntervalSince1970() const { return timeIntervalSinceReferenceDate + NSTimeIntervalSince1970; }
    constexpr NSTimeInterval timeIntervalSinceDate(NSDate other) const
    {
        return timeIntervalSinceReferenceDate - other.timeIntervalSinceReferenceDate;
    }
    // By the installed clock.
    NSTimeInterval timeIntervalSinceNow() const;
    /// That many seconds later.
    constexpr NSDate addTimeInterval(NSTimeInterval seconds) const { return { timeIntervalSinceReferenceDate + seconds }; }

    friend constexpr auto operator<=>(NSDate, NSDate) = default;
};

}

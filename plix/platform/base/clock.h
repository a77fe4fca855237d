#pragma once

#include <plix/platform/base/NSDate.h>

#include <memory>

namespace plix {

/// What time it is. The host installs one; tests install one that they move.
class PLIX_EXPORT Clock {
public:
    virtual ~Clock() = default;
    /// The wall clock, which may be set back.
    virtual NSDate now() const = 0;
    /// Seconds that only grow, from an arbitrary start. Timers and event times count by it.
    virtual NSTimeInterval uptime() const = 0;
};

/// The installed clock; the machine's own until one is installed.
PLIX_EXPORT Clock& clock();
/// Installs a clock, which must live until another one is installed; null brings the machine's own back.
PLIX_EXPORT void installClock(Clock*);

}

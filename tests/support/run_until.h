#pragma once

#include <plix/platform/foundation/NSRunLoop.h>
#include <tests/support/ChildProcess.h>

#include <functional>

namespace plix {

/// Turns the run loop until the condition holds, and looks again and again, also at what the loop knows nothing of. False when that
/// did not come in so many seconds; a bound, not a pause.
inline bool runUntil(std::function<bool()> const& condition, double patience = 20)
{
    // Without a timer of its own: tests ask whether there is any.
    constexpr NSTimeInterval moment = 0.01;
    return waitUntil(
        [&] {
            NSRunLoop::currentRunLoop().runUntilDate(NSDate::dateWithTimeIntervalSinceNow(moment));
            return condition();
        },
        Seconds(patience));
}

}

#pragma once

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/base/NSDate.h>
#include <plix/platform/base/Ref.h>

namespace plix {

/// Whether a wait for the mouse ended without an event before its time: the application is ending, and a loop that goes on waiting
/// for the button's release would never end.
inline bool isCutShort(Ref<NSEvent> const& event, NSDate until)
{
    constexpr NSTimeInterval earlyWake = 0.005;
    return !event && until.timeIntervalSinceNow() > earlyWake;
}

}

#include <plix/platform/appkit/tracking_wait.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/base/NSDate.h>

namespace plix {

bool isCutShort(Ref<NSEvent> const& event, NSDate until)
{
    constexpr NSTimeInterval earlyWake = 0.005;
    return !event && until.timeIntervalSinceNow() > earlyWake;
}

bool isAbandoned(NSEvent const& release)
{
    auto* const window = release.window();
    return window ? window->internals().hasLeftScreen() : release.windowNumber() != 0;
}

}

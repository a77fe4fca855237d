#include <plix/platform/appkit/window_animation.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSUserDefaults.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr NSTimeInterval usualUnit = 0.2;
constexpr NSTimeInterval longestUnit = 10;
constexpr NSTimeInterval frameTime = 1.0 / 60;
/// Well above what dates can tell apart.
constexpr NSTimeInterval shortestWait = 0.0005;
constexpr std::string_view animationMode = "NSWindowResizeMode";

float eased(double fraction)
{
    return static_cast<float>(fraction * fraction * (3 - 2 * fraction));
}

void waitUntil(NSTimeInterval uptime)
{
    auto& loop = NSRunLoop::currentRunLoop();
    while (clock().uptime() < uptime)
        loop.runOnce(animationMode, NSDate::dateWithTimeIntervalSinceNow(std::max(uptime - clock().uptime(), shortestWait)));
}

}

NSTimeInterval windowAnimationUnit()
{
    auto const& defaults = NSUserDefaults::standardUserDefaults();
    constexpr auto key = "NSWindowResizeTime";
    if (defaults.objectForKey(key).isNil())
        return usualUnit;
    double const unit = defaults.doubleForKey(key);
    return std::isfinite(unit) ? std::clamp(unit, 0.0, longestUnit) : usualUnit;
}

void runWindowAnimation(NSTimeInterval duration, FunctionRef<bool(float progress)> step)
{
    auto const start = clock().uptime();
    for (int frame = 1; start + frame * frameTime < start + duration; ++frame) {
        waitUntil(start + frame * frameTime);
        if (!step(eased(std::min((clock().uptime() - start) / duration, 1.0))))
            return;
    }
    if (duration > 0)
        waitUntil(start + duration);
}

}

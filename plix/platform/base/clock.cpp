#include <plix/platform/base/clock.h>

#include <chrono>

namespace plix {

namespace {

class MachineClock final : public Clock {
public:
    NSDate now() const override
    {
        auto const sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
        return NSDate::dateWithTimeIntervalSince1970(std::chrono::duration<double>(sinceEpoch).count());
    }
    NSTimeInterval uptime() const override
    {
        return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
    }
};

Clock* s_installed = nullptr;

}

Clock& clock()
{
    static MachineClock s_machineClock;
    return s_installed ? *s_installed : s_machineClock;
}

void installClock(Clock* installed)
{
    s_installed = installed;
}

NSDate NSDate::date()
{
    return clock().now();
}

NSDate NSDate::dateWithTimeIntervalSinceNow(NSTimeInterval seconds)
{
    return date().addTimeInterval(seconds);
}

NSTimeInterval NSDate::timeIntervalSinceNow() const
{
    return timeIntervalSinceDate(date());
}

}

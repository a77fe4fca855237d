#include <plix/platform/foundation/NSTimer.h>

#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSRunLoop.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr NSTimeInterval shortestInterval = 0.0001;

NSTimeInterval uptimeAt(NSDate date)
{
    return clock().uptime() + date.timeIntervalSinceDate(clock().now());
}

class FlagWhile {
public:
    explicit FlagWhile(bool& flag)
        : m_flag(flag)
        , m_before(std::exchange(flag, true))
    {
    }
    ~FlagWhile() { m_flag = m_before; }
    FlagWhile(FlagWhile const&) = delete;
    FlagWhile& operator=(FlagWhile const&) = delete;

private:
    bool& m_flag;
    bool m_before;
};

}

PLIX_DESCRIBE(NSTimer)
{
}

bool NSTimer::init(NSDate fireDate, NSTimeInterval interval, Callback callback, ObjectValue userInfo, bool repeats)
{
    m_callback = std::move(callback);
    m_userInfo = std::move(userInfo);
    m_interval = interval > 0 ? interval : shortestInterval;
    m_repeats = repeats;
    m_fireDate = fireDate;
    m_fireUptime = uptimeAt(fireDate);
    m_isValid = true;
    return true;
}

Ref<NSTimer> NSTimer::timerWithTimeInterval(NSTimeInterval interval, Callback callback, bool repeats, ObjectValue userInfo)
{
    auto const delay = interval > 0 ? interval : shortestInterval;
    return make<NSTimer>(NSDate::dateWithTimeIntervalSinceNow(delay), interval, std::move(callback), std::move(userInfo), repeats);
}

Ref<NSTimer> NSTimer::scheduledTimerWithTimeInterval(NSTimeInterval interval, Callback callback, bool repeats, ObjectValue userInfo)
{
    auto timer = timerWithTimeInterval(interval, std::move(callback), repeats, std::move(userInfo));
    schedule(*timer);
    return timer;
}

void NSTimer::schedule(NSTimer& timer)
{
    NSRunLoop::currentRunLoop().addTimer(timer, NSDefaultRunLoopMode);
}

void NSTimer::setFireDate(NSDate date)
{
    if (!m_isValid)
        return;
    m_fireDate = date;
    m_fireUptime = uptimeAt(date);
    ++m_version;
    if (!m_modes.empty())
        NSRunLoop::currentRunLoop().timerMoved(*this);
}

void NSTimer::moveToNextBeat()
{
    auto const missed = std::max(std::floor((clock().uptime() - m_fireUptime) / m_interval), 0.0);
    auto const step = (missed + 1) * m_interval;
    m_fireDate = m_fireDate.addTimeInterval(step);
    m_fireUptime += step;
    ++m_version;
}

void NSTimer::invalidate()
{
    if (!m_isValid)
        return;
    m_isValid = false;
    ++m_version;
    if (!m_modes.empty())
        NSRunLoop::currentRunLoop().timerInvalidated(*this);
    // Inside the callback, what it captured has to last until it returns.
    if (!m_isFiring)
        auto const callback = std::exchange(m_callback, nullptr);
}

void NSTimer::call()
{
    FlagWhile const firing(m_isFiring);
    if (m_callback)
        m_callback(*this);
}

void NSTimer::callAndGoOn(Rhythm rhythm)
{
    Ref<NSTimer> const protector(this);
    struct GoOn {
        NSTimer& timer;
        Rhythm rhythm;
        std::uint32_t version;
        ~GoOn()
        {
            if (timer.m_isValid && !timer.m_repeats)
                timer.invalidate();
            if (!timer.m_isValid) {
                auto const callback = std::exchange(timer.m_callback, nullptr);
                return;
            }
            if (rhythm == Rhythm::Advanced && timer.m_version == version)
                timer.moveToNextBeat();
            if (!timer.m_modes.empty())
                NSRunLoop::currentRunLoop().timerMoved(timer);
        }
    } const goOn { *this, rhythm, m_version };
    call();
}

void NSTimer::fire()
{
    if (m_isValid && !m_isFiring)
        callAndGoOn(Rhythm::Kept);
}

void NSTimer::fireFromRunLoop(Badge<NSRunLoop>)
{
    callAndGoOn(Rhythm::Advanced);
}

}

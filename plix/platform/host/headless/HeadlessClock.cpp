#include <plix/platform/host/headless/HeadlessClock.h>

#include <algorithm>
#include <chrono>

namespace plix {

namespace {

constexpr NSTimeInterval stoppedUptime = 1000;
constexpr NSTimeInterval stoppedNow = 171201600; // 5 June 2006, 12:00 UTC

NSTimeInterval machineUptime()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

NSDate machineNow()
{
    auto const sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return NSDate::dateWithTimeIntervalSince1970(std::chrono::duration<double>(sinceEpoch).count());
}

}

HeadlessClock::HeadlessClock() = default;

void HeadlessClock::stop()
{
    m_isStopped = true;
    m_uptime = stoppedUptime;
    m_dateAtUptimeZero = { stoppedNow - stoppedUptime };
}

void HeadlessClock::advance(NSTimeInterval seconds)
{
    m_uptime += std::max(seconds, 0.0);
}

void HeadlessClock::advanceToUptime(NSTimeInterval uptime)
{
    m_uptime = std::max(m_uptime, uptime);
}

void HeadlessClock::setNow(NSDate date)
{
    m_dateAtUptimeZero = date.addTimeInterval(-m_uptime);
}

NSDate HeadlessClock::now() const
{
    return m_isStopped ? m_dateAtUptimeZero.addTimeInterval(m_uptime) : machineNow();
}

NSTimeInterval HeadlessClock::uptime() const
{
    return m_isStopped ? m_uptime : machineUptime();
}

}

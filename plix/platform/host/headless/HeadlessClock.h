#pragma once

#include <plix/platform/base/clock.h>

namespace plix {

/// The machine's clock until it is stopped; then one that only moves when it is told to.
class PLIX_EXPORT HeadlessClock final : public Clock {
public:
    HeadlessClock();

    /// Stands still at noon (UTC) of 5 June 2006, with an uptime of 1000 seconds.
    void stop();
    /// Moves a stopped clock forward.
    void advance(NSTimeInterval seconds);
    /// Moves a stopped clock forward to that uptime; never back.
    void advanceToUptime(NSTimeInterval uptime);
    /// Sets the wall clock of a stopped clock and leaves the uptime alone.
    void setNow(NSDate);

    // Clock:
    NSDate now() const override;
    NSTimeInterval uptime() const override;

private:
    bool m_isStopped { false };
    NSDate m_dateAtUptimeZero;
    NSTimeInterval m_uptime { 0 };
};

}

#pragma once

#include <plix/platform/base/clock.h>

namespace plix {

/// A clock that the test moves; installed as long as it lives. Starts at 14 March 2005 15:09:26 UTC.
class TestClock final : public Clock {
public:
    TestClock() { installClock(this); }
    ~TestClock() override { installClock(nullptr); }
    TestClock(TestClock const&) = delete;
    TestClock& operator=(TestClock const&) = delete;

    // Clock:
    NSDate now() const override { return m_now; }
    NSTimeInterval uptime() const override { return m_uptime; }

    /// Lets time pass.
    void advance(NSTimeInterval seconds)
    {
        m_now = m_now.addTimeInterval(seconds);
        m_uptime += seconds;
    }
    /// Sets the wall clock, as a person may; the uptime goes on.
    void setNow(NSDate now) { m_now = now; }

private:
    NSDate m_now { NSDate::dateWithTimeIntervalSince1970(1110812966) };
    NSTimeInterval m_uptime { 1000 };
};

}

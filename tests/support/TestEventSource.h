#pragma once

#include "TestClock.h"

#include <plix/platform/foundation/event_source.h>

#include <vector>

#include <poll.h>

namespace plix {

/// The run loop's sleep in tests: looks at the descriptors and, where none is ready, moves the clock to the deadline. Installed
/// as long as it lives. A wait that would last for ever gives up, which a test sees in `endlessWaits`.
class TestEventSource final : public EventSource {
public:
    explicit TestEventSource(TestClock& clock)
        : m_clock(clock)
    {
        installEventSource(this);
    }
    ~TestEventSource() override { installEventSource(nullptr); }
    TestEventSource(TestEventSource const&) = delete;
    TestEventSource& operator=(TestEventSource const&) = delete;

    // EventSource:
    void wait(std::span<pollfd> descriptors, std::optional<NSTimeInterval> deadline) override
    {
        ++waits;
        deadlines.push_back(deadline);
        if (::poll(descriptors.data(), descriptors.size(), 0) > 0 || pendingEvents > 0)
            return;
        if (!deadline)
            ++endlessWaits;
        else if (*deadline > m_clock.uptime())
            m_clock.advance(*deadline - m_clock.uptime());
    }
    bool deliverPending() override
    {
        bool const any = pendingEvents > 0 || endlessWaits > 0;
        pendingEvents = 0;
        return any;
    }
    void wake() override { }

    int waits { 0 };
    int endlessWaits { 0 };
    int pendingEvents { 0 };
    std::vector<std::optional<NSTimeInterval>> deadlines;

private:
    TestClock& m_clock;
};

}

#pragma once

#include <plix/platform/foundation/event_source.h>
#include <plix/platform/host/headless/HeadlessClock.h>

#include <deque>
#include <functional>
#include <map>
#include <stdexcept>

namespace plix {

/// Raised by a wait with a movable clock that nothing could ever end: a test that would hang.
class PLIX_EXPORT HeadlessDeadlock : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// Hands out what the script enters, one thing at a time, so that the application has reacted to one before the next comes.
class PLIX_EXPORT HeadlessEvents final : public EventSource {
public:
    enum class Waiting { Sleeps, MovesClock };
    using Delivery = std::function<void()>;

    HeadlessEvents(HeadlessClock&, Waiting);
    ~HeadlessEvents() override;
    HeadlessEvents(HeadlessEvents const&) = delete;
    HeadlessEvents& operator=(HeadlessEvents const&) = delete;

    /// Delivered in order.
    void post(Delivery);
    /// Delivered in order; what the call itself enters comes before what follows it.
    void postSteps(Delivery);
    /// Delivered when the clock has come that many seconds further.
    void postAfter(NSTimeInterval delay, Delivery);
    /// Called, each once and in order, when the application would wait with nothing left to deliver at once.
    void whenIdle(Delivery);
    bool hasPending() const { return !m_deliveries.empty(); }
    bool hasIdleCalls() const { return !m_idleCalls.empty(); }
    /// Forgets what was entered and not delivered yet.
    void discardPending();
    /// How many times the application began to wait.
    long waitCount() const { return m_waitCount; }

    // EventSource:
    void wait(std::span<pollfd> descriptors, std::optional<NSTimeInterval> deadline) override;
    bool deliverPending() override;
    void wake() override;

private:
    bool pollDescriptors(std::span<pollfd>, std::optional<NSTimeInterval> seconds);
    void takeDue();
    void waitMovingClock(std::span<pollfd> descriptors, std::optional<NSTimeInterval> deadline);

    HeadlessClock& m_clock;
    Waiting m_waiting;
    int m_wakeDescriptor { -1 };
    long m_waitCount { 0 };
    std::deque<Delivery> m_deliveries;
    /// While steps are entered: where in the deliveries the next one goes.
    std::optional<std::size_t> m_stepPlace;
    std::deque<Delivery> m_idleCalls;
    std::multimap<NSTimeInterval, Delivery> m_later;
};

}

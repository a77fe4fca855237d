#include <plix/platform/host/headless/HeadlessEvents.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace plix {

namespace {

/// Another thread may still have something to say; longer than this is a hang.
constexpr NSTimeInterval deadlockPatience = 10;

timespec timespecFromSeconds(NSTimeInterval seconds)
{
    seconds = std::clamp(seconds, 0.0, 1e9);
    auto const whole = std::floor(seconds);
    return { static_cast<time_t>(whole), std::min(static_cast<long>(std::ceil((seconds - whole) * 1e9)), 999999999L) };
}

}

HeadlessEvents::HeadlessEvents(HeadlessClock& clock, Waiting waiting)
    : m_clock(clock)
    , m_waiting(waiting)
    , m_wakeDescriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
}

HeadlessEvents::~HeadlessEvents()
{
    ::close(m_wakeDescriptor);
}

void HeadlessEvents::post(Delivery delivery)
{
    if (m_stepPlace)
        m_deliveries.insert(m_deliveries.begin() + static_cast<std::ptrdiff_t>((*m_stepPlace)++), std::move(delivery));
    else
        m_deliveries.push_back(std::move(delivery));
    wake();
}

void HeadlessEvents::postSteps(Delivery steps)
{
    post([this, steps = std::move(steps)] {
        auto const outer = std::exchange(m_stepPlace, 0);
        steps();
        m_stepPlace = outer ? std::optional(*outer + *m_stepPlace) : std::nullopt;
    });
}

void HeadlessEvents::postAfter(NSTimeInterval delay, Delivery delivery)
{
    m_later.emplace(m_clock.uptime() + delay, std::move(delivery));
    wake();
}

void HeadlessEvents::whenIdle(Delivery call)
{
    m_idleCalls.push_back(std::move(call));
    wake();
}

void HeadlessEvents::discardPending()
{
    m_deliveries.clear();
    if (m_stepPlace)
        m_stepPlace = 0;
    m_idleCalls.clear();
    m_later.clear();
}

void HeadlessEvents::takeDue()
{
    while (!m_later.empty() && m_later.begin()->first <= m_clock.uptime()) {
        m_deliveries.push_back(std::move(m_later.begin()->second));
        m_later.erase(m_later.begin());
    }
}

bool HeadlessEvents::pollDescriptors(std::span<pollfd> descriptors, std::optional<NSTimeInterval> seconds)
{
    std::vector<pollfd> polled { { m_wakeDescriptor, POLLIN, 0 } };
    polled.insert(polled.end(), descriptors.begin(), descriptors.end());
    auto const timeout = timespecFromSeconds(seconds.value_or(0));
    bool const anyReady = ::ppoll(polled.data(), polled.size(), seconds ? &timeout : nullptr, nullptr) > 0;
    for (std::size_t i = 0; i < descriptors.size(); ++i)
        descriptors[i].revents = polled[i + 1].revents;
    if (polled[0].revents) {
        eventfd_t count = 0;
        ::eventfd_read(m_wakeDescriptor, &count);
    }
    return anyReady;
}

void HeadlessEvents::wait(std::span<pollfd> descriptors, std::optional<NSTimeInterval> deadline)
{
    takeDue();
    if (m_deliveries.empty() && !m_idleCalls.empty() && !(deadline && *deadline <= m_clock.uptime())) {
        m_deliveries.push_back(std::move(m_idleCalls.front()));
        m_idleCalls.pop_front();
    }
    if (!m_deliveries.empty()) {
        pollDescriptors(descriptors, 0);
        return;
    }
    ++m_waitCount;
    if (!m_later.empty())
        deadline = std::min(deadline.value_or(m_later.begin()->first), m_later.begin()->first);
    if (m_waiting == Waiting::MovesClock)
        waitMovingClock(descriptors, deadline);
    else
        pollDescriptors(descriptors, deadline ? std::optional(*deadline - m_clock.uptime()) : std::nullopt);
    takeDue();
}

void HeadlessEvents::waitMovingClock(std::span<pollfd> descriptors, std::optional<NSTimeInterval> deadline)
{
    if (pollDescriptors(descriptors, deadline ? 0 : deadlockPatience))
        return;
    if (!deadline)
        throw HeadlessDeadlock("the application waits, and nothing is left that could wake it");
    m_clock.advanceToUptime(*deadline);
}

bool HeadlessEvents::deliverPending()
{
    if (m_deliveries.empty())
        return false;
    auto const delivery = std::move(m_deliveries.front());
    m_deliveries.pop_front();
    if (m_stepPlace && *m_stepPlace > 0)
        --*m_stepPlace;
    delivery();
    return true;
}

void HeadlessEvents::wake()
{
    ::eventfd_write(m_wakeDescriptor, 1);
}

}

#include <plix/platform/host/desktop/DesktopEventSource.h>

#include <plix/platform/base/clock.h>
#include <plix/platform/host/desktop/DesktopDisplay.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace plix {

namespace {

timespec durationOf(NSTimeInterval seconds)
{
    constexpr double nanosecondsPerSecond = 1e9;
    constexpr NSTimeInterval longest = 1e8;
    auto const bounded = std::clamp(seconds, 0.0, longest);
    auto const whole = std::floor(bounded);
    return { static_cast<time_t>(whole), static_cast<long>((bounded - whole) * nanosecondsPerSecond) };
}

}

DesktopEventSource::DesktopEventSource(DesktopDisplay& display, XSession& session)
    : m_display(display)
    , m_session(session)
    , m_wakeUp(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
}

DesktopEventSource::~DesktopEventSource()
{
    if (m_wakeUp >= 0)
        close(m_wakeUp);
}

void DesktopEventSource::wait(std::span<pollfd> descriptors, std::optional<NSTimeInterval> deadline)
{
    auto until = deadline;
    if (auto const look = m_display.nextLook())
        until = until ? std::min(*until, *look) : *look;
    // Events may have been read from the connection already, by a request that waited for its answer; then nothing more arrives
    // there.
    if (m_display.hasPending() || m_session.hasPending())
        until = clock().uptime();
    sleep(descriptors, until);
}

void DesktopEventSource::sleep(std::span<pollfd> descriptors, std::optional<NSTimeInterval> deadline)
{
    std::vector<pollfd> all(descriptors.begin(), descriptors.end());
    all.push_back({ m_wakeUp, POLLIN, 0 });
    if (!m_display.isLost()) {
        all.push_back({ m_display.descriptor(), POLLIN, 0 });
        all.push_back({ m_session.descriptor(), POLLIN, 0 });
    }
    auto const duration = deadline ? durationOf(*deadline - clock().uptime()) : timespec {};
    auto const ready = ppoll(all.data(), all.size(), deadline ? &duration : nullptr, nullptr);
    for (std::size_t index = 0; index < descriptors.size(); ++index)
        descriptors[index].revents = ready > 0 ? all[index].revents : short { 0 };
    if (ready > 0 && all[descriptors.size()].revents != 0) {
        std::uint64_t count = 0;
        static_cast<void>(!read(m_wakeUp, &count, sizeof count));
    }
}

bool DesktopEventSource::deliverPending()
{
    auto const hadSessionEvents = m_session.dispatchPending();
    return m_display.deliverPending() || hadSessionEvents;
}

void DesktopEventSource::wake()
{
    std::uint64_t const one = 1;
    static_cast<void>(!write(m_wakeUp, &one, sizeof one));
}

}

#include <plix/platform/host/embedding/EmbeddingEvents.h>

#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSRunLoop.h>

#include <algorithm>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

namespace plix {

EmbeddingEvents::EmbeddingEvents(ToolkitLoop& loop)
    : m_loop(loop)
    , m_wakeDescriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    m_watched.push_back({ m_wakeDescriptor, POLLIN, 0 });
}

EmbeddingEvents::~EmbeddingEvents()
{
    ::close(m_wakeDescriptor);
}

bool EmbeddingEvents::toolkitWillSleep()
{
    return !isPassing() && !std::exchange(m_isSettled, false);
}

std::optional<NSTimeInterval> EmbeddingEvents::deadline() const
{
    if (isPassing())
        return m_pass->deadline;
    auto const next = NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode);
    return next ? std::optional(clock().uptime() + next->timeIntervalSinceDate(clock().now())) : std::nullopt;
}

bool EmbeddingEvents::pollNow(std::span<pollfd> descriptors)
{
    m_watched.assign(1, { m_wakeDescriptor, POLLIN, 0 });
    m_watched.insert(m_watched.end(), descriptors.begin(), descriptors.end());
    bool const anyReady = ::poll(m_watched.data(), m_watched.size(), 0) > 0;
    for (std::size_t i = 0; i < descriptors.size(); ++i)
        descriptors[i].revents = std::exchange(m_watched[i + 1].revents, short { 0 });
    if (std::exchange(m_watched.front().revents, short { 0 })) {
        eventfd_t count = 0;
        ::eventfd_read(m_wakeDescriptor, &count);
    }
    return anyReady;
}

void EmbeddingEvents::wait(std::span<pollfd> descriptors, std::optional<NSTimeInterval> deadline)
{
    if (pollNow(descriptors) || (deadline && *deadline <= clock().uptime()))
        return;
    struct Passing {
        std::optional<Pass>& pass;
        std::optional<Pass> before;
        ~Passing() { pass = before; }
    } const passing { m_pass, std::exchange(m_pass, Pass { m_loop.depth(), deadline }) };
    m_loop.pass();
    m_hasPassed = !deadline || clock().uptime() < *deadline;
    pollNow(descriptors);
}

bool EmbeddingEvents::deliverPending()
{
    // What the toolkit has handled may be what somebody waits for: one of its buttons stops a modal loop.
    bool const hasPassed = std::exchange(m_hasPassed, false);
    return (m_delivery && m_delivery()) || hasPassed;
}

void EmbeddingEvents::wake()
{
    ::eventfd_write(m_wakeDescriptor, 1);
}

}

#include <plix/platform/foundation/main_thread_queue.h>

#include <cerrno>
#include <cstdint>
#include <deque>
#include <mutex>

#include <sys/eventfd.h>
#include <unistd.h>

namespace plix {

struct MainThreadQueue::Calls {
    std::mutex mutex;
    std::deque<std::function<void()>> waiting;
};

MainThreadQueue& MainThreadQueue::shared()
{
    // Never destroyed: a thread may still call while the process ends.
    static auto& s_shared = *new MainThreadQueue;
    return s_shared;
}

MainThreadQueue::MainThreadQueue()
    : m_calls(*new Calls)
    , m_descriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
}

void MainThreadQueue::add(std::function<void()> call)
{
    {
        std::lock_guard const lock(m_calls.mutex);
        m_calls.waiting.push_back(std::move(call));
    }
    wake();
}

void MainThreadQueue::wake()
{
    std::uint64_t const one = 1;
    while (::write(m_descriptor, &one, sizeof one) < 0 && errno == EINTR) { }
}

void MainThreadQueue::clearWake()
{
    std::uint64_t count = 0;
    while (::read(m_descriptor, &count, sizeof count) < 0 && errno == EINTR) { }
}

bool MainThreadQueue::isEmpty()
{
    std::lock_guard const lock(m_calls.mutex);
    return m_calls.waiting.empty();
}

bool MainThreadQueue::drain()
{
    std::unique_lock lock(m_calls.mutex);
    auto const count = m_calls.waiting.size();
    for (std::size_t i = 0; i < count && !m_calls.waiting.empty(); ++i) {
        auto call = std::move(m_calls.waiting.front());
        m_calls.waiting.pop_front();
        lock.unlock();
        call();
        call = nullptr; // what it captured goes outside the lock
        lock.lock();
    }
    return count > 0;
}

}

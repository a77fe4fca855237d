#include <plix/platform/host/desktop/DispatcherWorker.h>

#include <plix/platform/host/desktop/quiet_thread.h>

#include <chrono>
#include <cstdlib>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

namespace plix {

namespace {

constexpr double farewellPatience = 0.3;

/// Ended by the program's end, since the host, which owns them, lives longer.
std::vector<DispatcherWorker*>& livingWorkers()
{
    static auto& s_workers = []() -> std::vector<DispatcherWorker*>& {
        auto& workers = *new std::vector<DispatcherWorker*>;
        std::atexit([] {
            for (auto* const worker : livingWorkers())
                worker->end();
        });
        return workers;
    }();
    return s_workers;
}

double now()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}

DispatcherWorker::DispatcherWorker(DispatcherOptions options, DispatcherService::News news)
    : m_wakeDescriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    livingWorkers().push_back(this);
    if (m_wakeDescriptor >= 0)
        m_thread = quietThread([this, options = std::move(options), news = std::move(news)] { run(options, news); });
}

DispatcherWorker::~DispatcherWorker()
{
    end();
    std::erase(livingWorkers(), this);
    if (m_wakeDescriptor >= 0)
        ::close(m_wakeDescriptor);
}

void DispatcherWorker::end()
{
    if (m_isEnding.exchange(true))
        return;
    wake();
    if (m_thread.joinable())
        m_thread.join();
}

void DispatcherWorker::wake()
{
    ::eventfd_write(m_wakeDescriptor, 1);
}

bool DispatcherWorker::perform(Call call)
{
    if (!m_thread.joinable())
        return false;
    {
        std::lock_guard const lock(m_mutex);
        m_calls.push_back(std::move(call));
    }
    wake();
    return true;
}

std::deque<DispatcherWorker::Call> DispatcherWorker::takeCalls()
{
    eventfd_t count = 0;
    ::eventfd_read(m_wakeDescriptor, &count);
    std::lock_guard const lock(m_mutex);
    return std::exchange(m_calls, {});
}

void DispatcherWorker::run(DispatcherOptions const& options, DispatcherService::News const& news)
{
    DispatcherService service(options, news);
    while (!m_isEnding) {
        for (auto const& call : takeCalls())
            call(service);
        service.turn(now());
        service.wait(m_wakeDescriptor, now(), std::nullopt);
    }
    service.stopAll();
    auto const end = now() + farewellPatience;
    do {
        service.turn(now());
        if (!service.isIdle())
            service.wait(m_wakeDescriptor, now(), end);
    } while (!service.isIdle() && now() < end);
}

}

#include <plix/platform/host/desktop/DispatcherWorker.h>

#include <chrono>
#include <csignal>
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
    // Signals are the application's own matter.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    livingWorkers().push_back(this);
    m_thread = std::thread([this, options = std::move(options), news = std::move(news)] { run(options, news); });
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

DispatcherWorker::~DispatcherWorker()
{
    end();
    std::erase(livingWorkers(), this);
    ::close(m_wakeDescriptor);
}

void DispatcherWorker::end()
{
    if (m_isEnding.exchange(true))
        return;
    wake();
    m_thread.join();
}

void DispatcherWorker::wake()
{
    ::eventfd_write(m_wakeDescriptor, 1);
}

void DispatcherWorker::perform(Call call)
{
    {
        std::lock_guard const lock(m_mutex);
        m_calls.push_back(std::move(call));
    }
    wake();
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

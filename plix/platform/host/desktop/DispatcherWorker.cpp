#include <plix/platform/host/desktop/DispatcherWorker.h>

#include <plix/platform/host/desktop/quiet_thread.h>

#include <chrono>
#include <cstdlib>
#include <new>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

namespace plix {

namespace {

constexpr double farewellPatience = 0.3;
/// After what the machine had no memory for.
constexpr std::chrono::milliseconds moment { 20 };

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

/// Where there is none a moment passes.
template <typename Function> bool hasMemoryFor(Function const& function)
{
    try {
        function();
        return true;
    } catch (std::bad_alloc const&) {
        std::this_thread::sleep_for(moment);
        return false;
    }
}

double now()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}

DispatcherWorker::DispatcherWorker(DispatcherOptions options, DispatcherService::News news)
    : m_service(std::make_unique<DispatcherService>(std::move(options), std::move(news)))
{
    livingWorkers().push_back(this);
    m_wakeDescriptor = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (m_wakeDescriptor < 0)
        return;
    m_thread = quietThread([this] {
        auto const service = std::move(m_service);
        run(*service);
    });
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
    std::list<Call> one;
    one.push_back(std::move(call));
    {
        std::lock_guard const lock(m_mutex);
        m_calls.splice(m_calls.end(), one);
    }
    wake();
    return true;
}

void DispatcherWorker::performCalls(DispatcherService& service, std::list<Call>& rest)
{
    eventfd_t count = 0;
    ::eventfd_read(m_wakeDescriptor, &count);
    {
        std::lock_guard const lock(m_mutex);
        rest.splice(rest.end(), m_calls);
    }
    for (; !rest.empty(); rest.pop_front())
        rest.front()(service);
}

void DispatcherWorker::run(DispatcherService& service)
{
    // What could not be done yet.
    std::list<Call> calls;
    while (!m_isEnding) {
        if (!hasMemoryFor([&] { performCalls(service, calls); }))
            continue;
        if (hasMemoryFor([&] { service.turn(now()); }))
            hasMemoryFor([&] { service.wait(m_wakeDescriptor, now(), std::nullopt); });
        else
            service.giveUp();
    }
    sayFarewell(service);
}

void DispatcherWorker::sayFarewell(DispatcherService& service)
{
    service.stopAll();
    auto const end = now() + farewellPatience;
    do {
        hasMemoryFor([&] {
            service.turn(now());
            if (!service.isIdle())
                service.wait(m_wakeDescriptor, now(), end);
        });
    } while (!service.isIdle() && now() < end);
}

}

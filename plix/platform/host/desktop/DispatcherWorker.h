#pragma once

#include <plix/platform/host/desktop/DispatcherService.h>

#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <thread>

namespace plix {

/// The thread that talks to the speech service. What is asked of it is done in order; it sleeps while there is nothing to do.
class DispatcherWorker {
public:
    using Call = std::function<void(DispatcherService&)>;

    /// The news are called on the worker's thread. What it has no memory for ends what is being spoken; calls are made again.
    DispatcherWorker(DispatcherOptions, DispatcherService::News);
    /// Silences what is being spoken; comes back in a moment, whether the service answers or not. The end of the program does the
    /// same.
    ~DispatcherWorker();
    DispatcherWorker(DispatcherWorker const&) = delete;
    DispatcherWorker& operator=(DispatcherWorker const&) = delete;

    /// False where there is no thread to do it: the system is out of threads or descriptors.
    bool perform(Call);
    void end();

private:
    void run(DispatcherService&);
    void performCalls(DispatcherService&, std::list<Call>& rest);
    void sayFarewell(DispatcherService&);
    void wake();

    std::unique_ptr<DispatcherService> m_service;
    std::mutex m_mutex;
    std::list<Call> m_calls;
    int m_wakeDescriptor { -1 };
    std::atomic<bool> m_isEnding { false };
    std::thread m_thread;
};

}

#pragma once

#include "JobReport.h"

#include <functional>
#include <memory>
#include <thread>

namespace browser {

/// Work on a thread of its own, begun at once.
class FileJob {
public:
    using Work = std::function<void(JobReport&)>;

    /// Calls `finished` on the main thread when the work has ended, also where it was canceled; not when the job is gone by then.
    FileJob(Work, std::function<void()> finished);
    /// Cancels, and waits for the work to notice.
    ~FileJob();
    FileJob(FileJob const&) = delete;
    FileJob& operator=(FileJob const&) = delete;

    void cancel() { m_report.cancel(); }
    JobReport const& report() const { return m_report; }

private:
    JobReport m_report;
    Work m_work; // and what it holds goes on the main thread
    std::shared_ptr<std::function<void()>> m_finished;
    std::thread m_thread;
};

}

#pragma once

#include "FileJob.h"

#include <plix/platform/base/Class.h>

#include <functional>
#include <memory>

namespace browser {

/// Runs a job and keeps itself alive until it has ended; cancels it when the application ends.
class JobController : public plix::NSObject {
    PLIX_CLASS(JobController, plix::NSObject);

public:
    using Finished = std::function<void(JobReport const&)>;

    /// Begins at once.
    bool init(FileJob::Work, Finished);

    bool isRunning() const { return m_job != nullptr; }
    void cancel();

private:
    void end();
    void abandon();

    std::unique_ptr<FileJob> m_job;
    Finished m_finished;
    plix::Ref<JobController> m_whileRunning;
};

}

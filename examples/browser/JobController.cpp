#include "JobController.h"

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/foundation/NSNotificationCenter.h>

#include <utility>

namespace browser {

using namespace plix;

PLIX_DESCRIBE(JobController)
{
}

bool JobController::init(FileJob::Work work, Finished finished)
{
    m_finished = std::move(finished);
    m_whileRunning = Ref<JobController>(this);
    NSNotificationCenter::defaultCenter().addObserver(*this, &JobController::abandon, NSApplicationWillTerminateNotification);
    m_job = std::make_unique<FileJob>(std::move(work), [weakly = Weak<JobController>(*this)] {
        if (auto const controller = weakly.ref())
            controller->end();
    });
    return true;
}

void JobController::cancel()
{
    if (m_job)
        m_job->cancel();
}

// The application ends: nobody is left to be told.
void JobController::abandon()
{
    m_job = nullptr;
    m_whileRunning = nullptr;
}

void JobController::end()
{
    auto const protector = std::move(m_whileRunning);
    auto const job = std::move(m_job);
    m_finished(job->report());
}

}

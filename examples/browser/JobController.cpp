#include "JobController.h"
#include "folder_entry.h"

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/windows/PLIXProgressWindow.h>

#include <utility>

namespace browser {

using namespace plix;

namespace {

/// In seconds.
constexpr double lookInterval = 0.1;
constexpr double momentBeforeWindow = 0.5;

}

PLIX_DESCRIBE(JobController)
{
}

JobController::JobController() = default;
JobController::~JobController() = default;

bool JobController::init(std::string title, FileJob::Work work, Finished finished)
{
    m_title = std::move(title);
    m_finished = std::move(finished);
    m_begun = plix::clock().uptime();
    m_timer = NSTimer::scheduledTimerWithTimeInterval(lookInterval, *this, &JobController::look, {}, true);
    NSNotificationCenter::defaultCenter().addObserver(*this, &JobController::abandon, NSApplicationWillTerminateNotification);
    m_job = std::make_unique<FileJob>(std::move(work), [weakly = Weak<JobController>(*this)] {
        if (auto const controller = weakly.ref())
            controller->end();
    });
    return true;
}

void JobController::look()
{
    if (!m_window && plix::clock().uptime() - m_begun >= momentBeforeWindow)
        showWindow();
    if (m_window)
        showProgress();
}

void JobController::showWindow()
{
    if (m_window || !m_job)
        return;
    m_window = PLIXProgressWindow::progressWindow();
    if (!m_window)
        return;
    m_window->setDelegate(Ref<JobController>(this));
    m_window->titleField()->setStringValue(m_title);
    m_window->progressIndicator()->setMaxValue(1);
    m_window->center();
    showProgress();
    m_window->makeKeyAndOrderFront(nullptr);
}

void JobController::showProgress()
{
    auto const progress = m_job->report().progress();
    auto& indicator = *m_window->progressIndicator();
    bool const isCounting = progress.phase == JobPhase::counting;
    if (indicator.isIndeterminate() != isCounting) {
        indicator.setIndeterminate(isCounting);
        isCounting ? indicator.startAnimation(nullptr) : indicator.stopAnimation(nullptr);
    }
    indicator.setDoubleValue(progress.fraction());
    m_window->stepField()->setStringValue(m_job->report().isCanceled() ? "Canceling …" : progress.text());
}

void JobController::cancel()
{
    if (m_job)
        m_job->cancel();
}

// The window and its delegate hold each other until then.
void JobController::closeWindow()
{
    m_timer->invalidate();
    if (!m_window)
        return;
    m_window->setDelegate(nullptr);
    m_window->close();
    m_window = nullptr;
}

// The application ends: nobody is left to be told.
void JobController::abandon()
{
    m_job = nullptr;
    closeWindow();
}

void JobController::progressWindowCanceled(PLIXProgressWindow& window)
{
    cancel();
    window.cancelButton()->setEnabled(false);
    showProgress();
}

void JobController::end()
{
    Ref<JobController> const protector(this);
    auto const job = std::move(m_job);
    closeWindow();
    m_finished(job->report());
}

}

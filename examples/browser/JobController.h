#pragma once

#include "FileJob.h"

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Class.h>

#include <functional>
#include <memory>
#include <string>

namespace plix {

class NSTimer;
class PLIXProgressWindow;

}

namespace browser {

/// Runs a job and shows a progress window when it takes longer than a moment, in which it can be canceled. Keeps itself alive until
/// the job has ended; cancels it when the application ends.
class JobController : public plix::NSObject {
    PLIX_CLASS(JobController, plix::NSObject);

public:
    using Finished = std::function<void(JobReport const&)>;

    JobController();
    ~JobController() override;
    /// Begins at once.
    bool init(std::string title, FileJob::Work, Finished);

    bool isRunning() const { return m_job != nullptr; }
    /// Null while it is not shown.
    plix::PLIXProgressWindow* window() const { return m_window.get(); }
    /// Without waiting for the moment.
    void showWindow();
    void cancel();

    // As the window's delegate.
    void progressWindowCanceled(plix::PLIXProgressWindow&);

private:
    void look();
    void showProgress();
    void closeWindow();
    void end();
    void abandon();

    std::string m_title;
    std::unique_ptr<FileJob> m_job;
    Finished m_finished;
    double m_begun { 0 };
    plix::Ref<plix::NSTimer> m_timer;
    plix::Ref<plix::PLIXProgressWindow> m_window;
};

}

#include "FileJob.h"

#include <plix/platform/foundation/NSRunLoop.h>

#include <utility>

namespace browser {

FileJob::FileJob(Work work, std::function<void()> finished)
    : m_work(std::move(work))
    , m_finished(std::make_shared<std::function<void()>>(std::move(finished)))
    , m_thread([this, finishedWeakly = std::weak_ptr(m_finished)] {
        m_work(m_report);
        plix::NSRunLoop::performOnMainThread([finishedWeakly] {
            if (auto const call = finishedWeakly.lock())
                (*call)();
        });
    })
{
}

FileJob::~FileJob()
{
    cancel();
    m_thread.join();
}

}

#include <plix/platform/host/desktop/SpeakingMark.h>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plix {

namespace {

/// Waits where another has the file alone, which it has for a moment only.
void share(int descriptor)
{
    while (::flock(descriptor, LOCK_SH) != 0 && errno == EINTR) { }
}

}

SpeakingMark::SpeakingMark(std::string path)
    : m_path(std::move(path))
{
}

SpeakingMark::~SpeakingMark()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

bool SpeakingMark::open()
{
    if (m_descriptor < 0 && !m_path.empty())
        m_descriptor = ::open(m_path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR);
    return m_descriptor >= 0;
}

void SpeakingMark::setHeld(bool held)
{
    std::lock_guard const lock(m_mutex);
    if (m_isHeld == held || !open())
        return;
    m_isHeld = held;
    if (held)
        share(m_descriptor);
    else
        ::flock(m_descriptor, LOCK_UN);
}

bool SpeakingMark::isHeldByOthers()
{
    std::lock_guard const lock(m_mutex);
    if (!open())
        return false;
    // Only one that nobody else holds can be had alone.
    bool const isAlone = ::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0;
    // What was held is lost also where that failed.
    if (m_isHeld)
        share(m_descriptor);
    else
        ::flock(m_descriptor, LOCK_UN);
    return !isAlone;
}

}

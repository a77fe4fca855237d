#include <plix/platform/host/desktop/SpeakingMark.h>

#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plix {

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
    ::flock(m_descriptor, (held ? LOCK_SH : LOCK_UN) | LOCK_NB);
}

bool SpeakingMark::isHeldByOthers()
{
    std::lock_guard const lock(m_mutex);
    if (!open())
        return false;
    // Only one that nobody else holds can be had alone.
    bool const isAlone = ::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0;
    ::flock(m_descriptor, (m_isHeld ? LOCK_SH : LOCK_UN) | LOCK_NB);
    return !isAlone;
}

}

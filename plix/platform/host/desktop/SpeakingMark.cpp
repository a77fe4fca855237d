#include <plix/platform/host/desktop/SpeakingMark.h>

#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plix {

namespace {

/// Of the whole file, and of this one opening of it.
flock lockOf(short kind)
{
    flock lock {};
    lock.l_type = kind;
    lock.l_whence = SEEK_SET;
    return lock;
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
    std::lock_guard const guard(m_mutex);
    if (m_isHeld == held || !open())
        return;
    auto lock = lockOf(held ? F_RDLCK : F_UNLCK);
    m_isHeld = ::fcntl(m_descriptor, F_OFD_SETLK, &lock) == 0 && held;
}

bool SpeakingMark::isHeldByOthers()
{
    std::lock_guard const guard(m_mutex);
    if (!open())
        return false;
    // Who holds it shares it; to have it alone is only asked for, never done, so that who looks disturbs nobody.
    auto lock = lockOf(F_WRLCK);
    return ::fcntl(m_descriptor, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

}

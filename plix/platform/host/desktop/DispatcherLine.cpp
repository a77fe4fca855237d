#include <plix/platform/host/desktop/DispatcherLine.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace plix {

namespace {

constexpr int mostPiecesAtOnce = 4;

}

DispatcherLine::~DispatcherLine()
{
    close();
}

void DispatcherLine::close()
{
    m_session.reset();
    m_output.clear();
    if (m_descriptor >= 0)
        ::close(m_descriptor);
    m_descriptor = -1;
}

DispatcherLine::Attempt DispatcherLine::connect(
    std::string const& socketPath, SsipSession::Introduction const& introduction, double now)
{
    close();
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    if (socketPath.empty() || socketPath.size() >= sizeof address.sun_path)
        return Attempt::NotThere;
    std::copy(socketPath.begin(), socketPath.end(), address.sun_path);
    m_descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (m_descriptor < 0)
        return Attempt::Busy;
    if (::connect(m_descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        bool const isBusy = errno == EAGAIN || errno == EINTR;
        close();
        return isBusy ? Attempt::Busy : Attempt::NotThere;
    }
    m_session = std::make_unique<SsipSession>(introduction, now);
    return Attempt::Connected;
}

pollfd DispatcherLine::interest() const
{
    bool const wantsOut = !m_output.empty() || (m_session && m_session->hasOutput());
    return { m_descriptor, static_cast<short>(POLLIN | (wantsOut ? POLLOUT : 0)), 0 };
}

bool DispatcherLine::transfer(short revents, double now)
{
    if (m_descriptor < 0)
        return true;
    if ((revents & (POLLIN | POLLHUP | POLLERR)) && !read(now))
        return false;
    return write();
}

bool DispatcherLine::read(double now)
{
    char bytes[1 << 14];
    for (int pieces = 0; pieces < mostPiecesAtOnce && m_session->trouble() == SsipSession::Trouble::None; ++pieces) {
        auto const size = ::recv(m_descriptor, bytes, sizeof bytes, 0);
        if (size > 0)
            m_session->receive({ bytes, static_cast<std::size_t>(size) }, now);
        else if (size == 0 || (errno != EAGAIN && errno != EINTR))
            return false;
        else if (errno == EAGAIN)
            return true;
    }
    return true;
}

bool DispatcherLine::write()
{
    m_output += m_session->takeOutput();
    while (!m_output.empty()) {
        auto const size = ::send(m_descriptor, m_output.data(), m_output.size(), MSG_NOSIGNAL);
        if (size < 0 && errno != EAGAIN && errno != EINTR)
            return false;
        if (size < 0 && errno == EAGAIN)
            return true;
        m_output.erase(0, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    }
    return true;
}

pid_t DispatcherLine::servicePid() const
{
    ucred peer {};
    socklen_t size = sizeof peer;
    bool const isKnown = m_descriptor >= 0 && ::getsockopt(m_descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0;
    return isKnown && peer.uid == ::getuid() ? peer.pid : 0;
}

}

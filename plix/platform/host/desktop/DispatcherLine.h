#pragma once

#include <plix/platform/host/desktop/SsipSession.h>

#include <memory>
#include <string>

#include <sys/types.h>

struct pollfd;

namespace plix {

/// A connection to the speech service: a socket that never blocks, and the session on it.
class DispatcherLine {
public:
    enum class Attempt {
        Connected,
        NotThere, ///< nobody listens
        Busy, ///< try again a little later
    };

    DispatcherLine() = default;
    ~DispatcherLine();
    DispatcherLine(DispatcherLine const&) = delete;
    DispatcherLine& operator=(DispatcherLine const&) = delete;

    Attempt connect(std::string const& socketPath, SsipSession::Introduction const&, double now);
    void close();
    bool isOnline() const { return m_session != nullptr; }
    /// While it is online.
    SsipSession& session() { return *m_session; }
    SsipSession const& session() const { return *m_session; }

    bool hasOutput() const { return !m_output.empty(); }
    pollfd interest() const;
    /// Reads and writes some of what there is; a peer that never pauses holds nobody up. False where the other side is gone.
    bool transfer(short revents, double now);
    /// The process that listens; 0 where that is not known, or it belongs to another user.
    pid_t servicePid() const;

private:
    bool read(double now);
    bool write();

    int m_descriptor { -1 };
    std::unique_ptr<SsipSession> m_session;
    std::string m_output;
};

}

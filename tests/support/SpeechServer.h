#pragma once

#include <tests/support/ChildProcess.h>
#include <tests/support/PulseServer.h>
#include <tests/support/TestFolder.h>

#include <memory>
#include <string>
#include <vector>

namespace plix {

/// Speech Dispatcher with its espeak-ng module, of the test's own, on a socket in a folder of its own. Speaks on a sound server.
class SpeechServer {
public:
    /// Whether it, its module and a sound server are there.
    static bool isInstalled();

    /// Runs when this is made.
    explicit SpeechServer(PulseServer const&);
    ~SpeechServer();

    // Each comes back when it is done.
    void start();
    /// At once, as if it had crashed, with its modules.
    void kill();
    /// It keeps its connections and answers nothing, until it goes on.
    void freeze();
    void goOn();
    bool isRunning() { return m_server && m_server->isRunning(); }

    std::string socketPath() const { return m_folder / "speechd.sock"; }
    /// Of the session that a service started by its client runs in; another than this one's socket.
    std::vector<std::string> environment() const;
    std::string folder() const { return m_folder.path(); }

private:
    PulseServer const& m_sound;
    TestFolder m_folder;
    std::unique_ptr<ChildProcess> m_server;
};

}

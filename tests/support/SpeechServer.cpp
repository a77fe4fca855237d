#include <tests/support/SpeechServer.h>

#include <csignal>
#include <cstring>
#include <filesystem>
#include <stdexcept>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace plix {

namespace {

constexpr char const* module = "/usr/lib/speech-dispatcher-modules/sd_espeak-ng";

bool listens(std::string const& path)
{
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    int const descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    bool const isConnected = connect(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    close(descriptor);
    return isConnected;
}

}

bool SpeechServer::isInstalled()
{
    return PulseServer::isInstalled() && access("/usr/bin/speech-dispatcher", X_OK) == 0 && access(module, X_OK) == 0;
}

SpeechServer::SpeechServer(PulseServer const& sound)
    : m_sound(sound)
{
    start();
}

SpeechServer::~SpeechServer()
{
    kill();
}

std::vector<std::string> SpeechServer::environment() const
{
    auto lines = m_sound.environment();
    for (auto& line : lines) {
        if (line.starts_with("XDG_RUNTIME_DIR="))
            line = "XDG_RUNTIME_DIR=" + m_folder.path();
    }
    lines.emplace_back("SPEECHD_ADDRESS");
    return lines;
}

void SpeechServer::start()
{
    auto const configuration = m_folder / "conf";
    m_folder.write("conf/speechd.conf",
        "LogLevel 0\nLogDir \"" + m_folder.path()
            + "\"\nDefaultModule espeak-ng\nAudioOutputMethod \"pulse\"\n"
              "AddModule \"espeak-ng\" \"sd_espeak-ng\" \"espeak-ng.conf\"\nDefaultLanguage \"en\"\n");
    m_folder.write("conf/modules/espeak-ng.conf", "Debug 0\n");
    std::error_code ignored;
    std::filesystem::remove(socketPath(), ignored);
    // Without a time after which it ends for want of clients. In a group of its own, since its modules outlive it for a while.
    auto const command = "exec setsid speech-dispatcher --run-single --timeout 0 --log-level 0 --communication-method unix_socket"
                         " --socket-path "
        + socketPath() + " --pid-file " + m_folder / "pid" + " --log-dir " + m_folder.path() + " --config-dir " + configuration
        + " >/dev/null 2>&1";
    m_server = std::make_unique<ChildProcess>(std::vector<std::string> { "sh", "-c", command }, environment());
    if (!waitUntil([this] { return listens(socketPath()); }))
        throw std::runtime_error("the speech service did not start");
}

void SpeechServer::kill()
{
    if (!m_server)
        return;
    // A group that is still starting has no members yet.
    ::kill(-m_server->identifier(), SIGKILL);
    m_server->sendSignal(SIGKILL);
    m_server->waitForEnd();
}

void SpeechServer::freeze()
{
    ::kill(-m_server->identifier(), SIGSTOP);
}

void SpeechServer::goOn()
{
    ::kill(-m_server->identifier(), SIGCONT);
}

}

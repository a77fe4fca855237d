#include <tests/support/ChildProcess.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace plix {

namespace {

constexpr int s_signalBase = 128;

void becomeProgram(std::vector<std::string> const& command, std::vector<std::string> const& environment, pid_t parent)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(127);
    for (auto const& line : environment) {
        auto const equals = line.find('=');
        if (equals == line.npos)
            unsetenv(line.c_str());
        else
            setenv(line.substr(0, equals).c_str(), line.substr(equals + 1).c_str(), 1);
    }
    std::vector<char*> arguments;
    for (auto const& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

}

bool waitUntil(std::function<bool()> const& condition, Seconds patience)
{
    auto const end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

ChildProcess::ChildProcess(std::vector<std::string> const& command, std::vector<std::string> const& environment, int inherited)
{
    int toChild[2];
    int fromChild[2];
    if (pipe2(toChild, O_CLOEXEC) != 0 || pipe2(fromChild, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    std::signal(SIGPIPE, SIG_IGN);
    auto const parent = getpid();
    m_identifier = fork();
    if (m_identifier == 0) {
        dup2(toChild[0], STDIN_FILENO);
        dup2(fromChild[1], STDOUT_FILENO);
        if (inherited >= 0)
            fcntl(inherited, F_SETFD, 0);
        std::signal(SIGPIPE, SIG_DFL);
        becomeProgram(command, environment, parent);
    }
    close(toChild[0]);
    close(fromChild[1]);
    m_input = toChild[1];
    m_output = fromChild[0];
}

ChildProcess::~ChildProcess()
{
    end();
    closeInput();
    close(m_output);
}

void ChildProcess::closeInput()
{
    if (m_input >= 0)
        close(m_input);
    m_input = -1;
}

void ChildProcess::write(std::string_view text)
{
    while (!text.empty()) {
        auto const size = ::write(m_input, text.data(), text.size());
        if (size < 0 && errno != EINTR)
            return;
        text.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    }
}

std::string ChildProcess::readAll(Seconds patience)
{
    std::string text;
    auto const end = std::chrono::steady_clock::now() + patience;
    while (true) {
        auto const left = std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now()).count();
        pollfd waiting { m_output, POLLIN, 0 };
        if (left <= 0 || poll(&waiting, 1, static_cast<int>(left)) <= 0)
            return text;
        char bytes[1 << 16];
        auto const size = read(m_output, bytes, sizeof bytes);
        if (size <= 0)
            return text;
        text.append(bytes, static_cast<std::size_t>(size));
    }
}

bool ChildProcess::isRunning()
{
    int status = 0;
    if (!m_status && waitpid(m_identifier, &status, WNOHANG) == m_identifier)
        m_status = WIFEXITED(status) ? WEXITSTATUS(status) : s_signalBase + WTERMSIG(status);
    return !m_status;
}

std::optional<int> ChildProcess::waitForEnd(Seconds patience)
{
    waitUntil([this] { return !isRunning(); }, patience);
    return m_status;
}

void ChildProcess::sendSignal(int number) const
{
    if (!m_status)
        kill(m_identifier, number);
}

void ChildProcess::end()
{
    constexpr Seconds politeness { 1 };
    if (!isRunning())
        return;
    sendSignal(SIGCONT);
    sendSignal(SIGTERM);
    if (waitForEnd(politeness))
        return;
    sendSignal(SIGKILL);
    waitForEnd();
}

std::string outputOf(std::vector<std::string> const& command, std::vector<std::string> const& environment, std::string_view input)
{
    ChildProcess process(command, environment);
    process.write(input);
    process.closeInput();
    auto output = process.readAll();
    process.waitForEnd();
    return output;
}

}

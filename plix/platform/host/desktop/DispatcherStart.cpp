#include <plix/platform/host/desktop/DispatcherStart.h>

#include <csignal>
#include <utility>

#include <cerrno>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace plix {

namespace {

constexpr double startPatience = 10;
constexpr double listenPatience = 3;
constexpr double secondsBetweenStarts = 5;
constexpr double secondsBetweenLooks = 0.02;

/// The program that starts it, or -1. Nothing of this process's signals and open files is left to it.
pid_t spawnStarter(std::string const& socketPath)
{
    std::string words[] = { "speech-dispatcher", "--spawn", "--communication-method", "unix_socket", "--socket-path", socketPath };
    char* arguments[std::size(words) + 1] {};
    for (std::size_t index = 0; index < std::size(words); ++index)
        arguments[index] = words[index].data();
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    sigset_t all;
    sigfillset(&all);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

    pid_t starter = -1;
    if (::posix_spawnp(&starter, arguments[0], &files, &attributes, arguments, environ) != 0)
        starter = -1;
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return starter;
}

}

DispatcherStart::~DispatcherStart()
{
    if (m_starter <= 0)
        return;
    ::kill(m_starter, SIGKILL);
    ::waitpid(m_starter, nullptr, 0);
}

void DispatcherStart::enter(State state, double until)
{
    m_state = state;
    m_until = until;
}

void DispatcherStart::begin(std::string const& socketPath, double now)
{
    goOn(now);
    if (m_state != State::Idle)
        return;
    m_starter = socketPath.empty() ? -1 : spawnStarter(socketPath);
    m_nextLook = now + secondsBetweenLooks;
    if (m_starter > 0)
        enter(State::Starting, now + startPatience);
    else
        enter(State::Failed, now + secondsBetweenStarts);
}

void DispatcherStart::waitForStarter(double now)
{
    int status = 0;
    auto const ended = ::waitpid(m_starter, &status, WNOHANG);
    if (ended == 0 && now < m_until)
        return;
    if (ended == 0) {
        ::kill(m_starter, SIGKILL);
        ::waitpid(m_starter, nullptr, 0);
    }
    // A program that takes its children's ends itself leaves none to see here.
    bool const isGood = ended > 0 ? WIFEXITED(status) && WEXITSTATUS(status) == 0 : ended < 0;
    m_starter = -1;
    enter(isGood ? State::Started : State::Failed, now + (isGood ? listenPatience : secondsBetweenStarts));
    if (auto const reached = std::exchange(m_reached, std::nullopt)) {
        m_startedService = isGood ? *reached : 0;
        m_state = State::Idle;
    }
}

void DispatcherStart::noteReached(pid_t service)
{
    if (m_state == State::Starting) {
        m_reached = service;
        return;
    }
    if (m_state == State::Started)
        m_startedService = service;
    m_state = State::Idle;
}

void DispatcherStart::goOn(double now)
{
    m_nextLook = now + secondsBetweenLooks;
    if (m_state == State::Starting)
        waitForStarter(now);
    if (m_state == State::Started && now >= m_until)
        enter(State::Failed, now + secondsBetweenStarts);
    if (m_state == State::Failed && now >= m_until)
        m_state = State::Idle;
}

std::optional<double> DispatcherStart::deadline() const
{
    return m_state == State::Starting ? std::optional(m_nextLook) : std::nullopt;
}

}

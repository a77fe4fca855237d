#include <tests/desktop/support/VirtualDisplay.h>

#include <csignal>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace plix::desktop {

namespace {

/// The number that the server chose, which it writes as soon as it takes connections.
std::string readNumber(int descriptor)
{
    constexpr int patienceInMilliseconds = 20000;
    std::string number;
    while (number.empty() || number.back() != '\n') {
        pollfd waiting { descriptor, POLLIN, 0 };
        char byte = 0;
        if (poll(&waiting, 1, patienceInMilliseconds) <= 0 || read(descriptor, &byte, 1) != 1)
            throw std::runtime_error("the virtual display did not start");
        number += byte;
    }
    number.pop_back();
    return number;
}

}

VirtualDisplay::VirtualDisplay(DisplayOptions const& options)
{
    int number[2];
    if (pipe2(number, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    auto const screen = std::to_string(options.width) + 'x' + std::to_string(options.height) + 'x' + std::to_string(options.depth);
    auto const command = "exec Xvfb -displayfd " + std::to_string(number[1]) + " -screen 0 " + screen
        + " -nolisten tcp -dpi 96 -noreset 2>/dev/null";
    m_server
        = std::make_unique<ChildProcess>(std::vector<std::string> { "sh", "-c", command }, std::vector<std::string> {}, number[1]);
    close(number[1]);
    m_name = ":" + readNumber(number[0]);
    close(number[0]);
    if (options.windowManager == DisplayOptions::WindowManager::isMissing)
        return;
    m_windowManager = std::make_unique<ChildProcess>(
        std::vector<std::string> { "sh", "-c", "exec openbox --sm-disable 2>/dev/null" }, environment());
    auto const isUp = [this] { return tool({ "xprop", "-root", "_NET_SUPPORTING_WM_CHECK" }).find("0x") != std::string::npos; };
    if (!waitUntil(isUp))
        throw std::runtime_error("the window manager did not start");
}

std::vector<std::string> VirtualDisplay::environment() const
{
    return { "DISPLAY=" + m_name, "DBUS_SESSION_BUS_ADDRESS=disabled:", "LC_ALL=C.UTF-8", "PLIX_HOST=desktop", "PLIX_SCALE",
        "XMODIFIERS", "SDL_IM_MODULE", "IBUS_ADDRESS", "WAYLAND_DISPLAY" };
}

std::string VirtualDisplay::tool(std::vector<std::string> const& command, std::string_view input) const
{
    // Tools complain about windows that come and go while they look, and are simply asked again.
    std::vector<std::string> quiet { "sh", "-c", "exec \"$@\" 2>/dev/null", "tool" };
    quiet.insert(quiet.end(), command.begin(), command.end());
    return outputOf(quiet, environment(), input);
}

void VirtualDisplay::crash()
{
    m_server->sendSignal(SIGKILL);
    m_server->waitForEnd();
}

}

#include "bench.h"

#include <plix/platform/foundation/event_source.h>
#include <plix/platform/host/Display.h>
#include <plix/platform/host/Host.h>
#include <plix/platform/host/desktop/DesktopHost.h>

#include <tests/desktop/support/Screenshot.h>
#include <tests/desktop/support/VirtualDisplay.h>
#include <tests/support/TestFolder.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <set>
#include <stdexcept>
#include <string>

namespace plix::bench {

namespace {

using desktop::VirtualDisplay;

VirtualDisplay& sharedDisplay()
{
    static VirtualDisplay s_display;
    return s_display;
}

/// A folder of 100 small files.
struct Folder {
    Folder()
    {
        for (int number = 0; number < 100; ++number)
            files.write("file " + std::to_string(number), std::string(static_cast<std::size_t>(number) * 7, 'x'));
    }
    TestFolder files;
};

struct Start {
    double milliseconds { 0 };
    double residentMebibytes { 0 };
};

double residentMebibytes(pid_t process)
{
    constexpr double kibibytesPerMebibyte = 1024;
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:"))
            return std::stod(line.substr(line.find(':') + 1)) / kibibytesPerMebibyte;
    }
    throw std::runtime_error("the process is gone");
}

/// Whether the middle of the screen shows rows of a list: two colours, both near white. A frame without content has one.
bool showsList(desktop::ScreenWatch const& watch)
{
    constexpr std::uint32_t nearWhite = 0xE0;
    auto const column = watch.column(640, 480, 60);
    std::set const colours(column.begin(), column.end());
    return colours.size() >= 2 && std::ranges::all_of(colours, [](std::uint32_t colour) {
        return (colour & 0xFF) >= nearWhite && colour >> 16 >= nearWhite;
    });
}

/// From before exec until a list can be seen, by somebody who watches the screen, so that it does not matter what a program itself
/// takes for its first frame.
Start start(std::vector<std::string> const& command)
{
    auto& display = sharedDisplay();
    desktop::ScreenWatch const watch(display.name());
    if (!waitUntil([&watch] { return watch.column(640, 512, 1).front() == 0; }))
        throw std::runtime_error("the screen does not become bare");
    auto environment = display.environment();
    environment.insert(environment.end(), { "QT_QPA_PLATFORM=xcb", "QT_ACCESSIBILITY=0" });
    auto const before = std::chrono::steady_clock::now();
    ChildProcess program(command, environment);
    while (!showsList(watch)) {
        if (!program.isRunning() || std::chrono::steady_clock::now() - before > s_patience)
            throw std::runtime_error(command.front() + " shows nothing");
    }
    Start result;
    result.milliseconds = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - before).count();
    result.residentMebibytes = residentMebibytes(program.identifier());
    program.sendSignal(SIGKILL);
    program.waitForEnd();
    return result;
}

long switches(pid_t process)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("voluntary_ctxt_switches:"))
            return std::stol(line.substr(line.find(':') + 1));
    }
    throw std::runtime_error("the process is gone");
}

/// A window of a desktop host in this process, of 1000 by 800 pixels.
class PresentedWindow final : public HostWindowClient {
public:
    PresentedWindow()
    {
        auto const& display = sharedDisplay();
        setenv("DISPLAY", display.name().c_str(), 1);
        setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
        setenv("PLIX_SCALE", "1", 1);
        std::string whyNot;
        m_host = makeDesktopHost(whyNot);
        if (!m_host)
            throw std::runtime_error(whyNot);
        HostWindowAttributes attributes;
        attributes.contentRect = { 100, 100, 1000, 800 };
        m_window = m_host->display().makeWindow(attributes, *this);
        m_window->show();
        auto const buffer = m_window->lockPixels();
        std::fill_n(reinterpret_cast<std::uint32_t*>(buffer.pixels), 1000 * 800, s_colour);
        PixelRect const all { 0, 0, 1000, 800 };
        m_window->present({ &all, 1 });
        desktop::ScreenWatch const watch(display.name());
        auto const isShown = [this, &watch] {
            m_host->events().deliverPending();
            return watch.column(600, 500, 1).front() == s_colour;
        };
        if (!waitUntil(isShown))
            throw std::runtime_error("the window does not come up");
    }
    ~PresentedWindow() override { m_window.reset(); }

    /// The next frame is not begun before the server has the last one.
    void present(PixelRect rect)
    {
        keep(m_window->lockPixels().pixels);
        m_window->present({ &rect, 1 });
    }

    // HostWindowClient:
    void hostWindowEvent(HostEvent const&) override { }
    void hostWindowContentRectChanged(Rect) override { }
    void hostWindowFocusChanged(bool) override { }
    void hostWindowCloseRequested() override { }
    void hostWindowNeedsRepaint(Rect) override { }
    void hostWindowScaleChanged(float) override { }
    void hostWindowMiniaturizedChanged(bool) override { }
    void hostWindowLiveResizeChanged(bool) override { }

private:
    static constexpr std::uint32_t s_colour = 0x3366CC;

    std::unique_ptr<Host> m_host;
    std::unique_ptr<HostWindow> m_window;
};

void compareStarts(Figure& figure, double Start::*value)
{
    Folder const folder;
    auto const ours = [&folder, value] { return start({ PLIX_BENCH_LIST_WINDOW, folder.files.path() }).*value; };
#ifdef PLIX_BENCH_QT_WINDOW
    auto const theirs = [&folder, value] { return start({ PLIX_BENCH_QT_WINDOW, folder.files.path() }).*value; };
    figure.sampleAgainst("qt", ours, theirs);
#else
    figure.sample(ours);
#endif
}

}

PLIX_FIGURE("start.first_frame_desktop")
{
    figure.setUnit("ms");
    figure.wantRatio(1);
    compareStarts(figure, &Start::milliseconds);
}

PLIX_FIGURE("start.rss_desktop")
{
    figure.setUnit("MiB");
    figure.setRuns(11);
    figure.wantRatio(1 / 0.8);
    compareStarts(figure, &Start::residentMebibytes);
}

// The browser shows much more than the list: a tree, four columns, a pop-up button.
PLIX_FIGURE("start.browser_desktop")
{
    Folder const folder;
    figure.setUnit("ms");
    figure.sample([&folder] { return start({ PLIX_BENCH_BROWSER, folder.files.path() }).milliseconds; });
}

PLIX_FIGURE("start.browser_rss_desktop")
{
    Folder const folder;
    figure.setUnit("MiB");
    figure.setRuns(11);
    figure.sample([&folder] { return start({ PLIX_BENCH_BROWSER, folder.files.path() }).residentMebibytes; });
}

PLIX_FIGURE("loop.idle_wakeups")
{
    constexpr Seconds quiet { 5 };
    Folder const folder;
    ChildProcess browser({ PLIX_BENCH_BROWSER, folder.files.path() }, sharedDisplay().environment());
    desktop::ScreenWatch const watch(sharedDisplay().name());
    auto last = switches(browser.identifier());
    // It has come to rest when it did nothing for a second after it showed its window.
    auto const isAtRest = [&] {
        auto const before = last;
        return showsList(watch) && !waitUntil([&] { return (last = switches(browser.identifier())) != before; }, Seconds(1));
    };
    if (!waitUntil(isAtRest, 3 * s_patience))
        throw std::runtime_error("the browser does not come to rest");
    waitUntil([] { return false; }, quiet);
    figure.setUnit("in 5 s");
    figure.count(static_cast<double>(switches(browser.identifier()) - last));
}

PLIX_FIGURE("present.full")
{
    PresentedWindow window;
    figure.setUnit("us");
    figure.time({ [&window] { window.present({ 0, 0, 1000, 800 }); } });
}

PLIX_FIGURE("present.row")
{
    PresentedWindow window;
    figure.setUnit("us");
    figure.time({ [&window] { window.present({ 0, 400, 1000, 20 }); } });
}

}

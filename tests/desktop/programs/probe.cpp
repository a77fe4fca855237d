// A program over the bare doors of the host: does what it is told by lines on standard input and reports what it is told in turn,
// one line each, on standard output. Names of windows are words.

#include <tests/desktop/programs/support/program.h>

#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/event_source.h>
#include <plix/platform/host/Clipboard.h>
#include <plix/platform/host/Display.h>
#include <plix/platform/host/Host.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>

#include <poll.h>
#include <unistd.h>

namespace {

using namespace plix;

bool s_isRunning = true;

std::string escaped(std::string_view text)
{
    std::ostringstream out;
    for (unsigned char const byte : text) {
        if (byte < ' ' || byte == 0x7F || byte == '\\')
            out << "\\x" << std::hex << (byte < 16 ? "0" : "") << static_cast<int>(byte);
        else
            out << byte;
    }
    return out.str();
}

char const* nameOf(HostEvent::Type type)
{
    switch (type) {
    case HostEvent::Type::mouseDown:
        return "down";
    case HostEvent::Type::mouseUp:
        return "up";
    case HostEvent::Type::mouseMoved:
        return "moved";
    case HostEvent::Type::mouseEntered:
        return "entered";
    case HostEvent::Type::mouseExited:
        return "exited";
    case HostEvent::Type::scrollWheel:
        return "wheel";
    case HostEvent::Type::keyDown:
        return "key";
    case HostEvent::Type::keyUp:
        return "keyup";
    case HostEvent::Type::modifiersChanged:
        return "modifiers";
    case HostEvent::Type::preedit:
        break;
    }
    return "preedit";
}

/// Paints itself in one colour and reports everything.
class ProbeWindow final : public HostWindowClient {
public:
    ProbeWindow(std::string name, HostWindowAttributes const& attributes)
        : m_name(std::move(name))
        , m_window(host().display().makeWindow(attributes, *this))
    {
        m_window->setTitle(m_name);
    }

    HostWindow& window() { return *m_window; }
    std::string const& name() const { return m_name; }
    void setColour(std::uint32_t colour)
    {
        m_colour = colour;
        draw();
    }
    bool movesByBackground { false };
    bool isQuiet { false };

    void draw()
    {
        auto const buffer = m_window->lockPixels();
        for (int y = 0; y < buffer.height; ++y) {
            auto* const row = reinterpret_cast<std::uint32_t*>(buffer.pixels + y * buffer.stride);
            std::fill(row, row + buffer.width, m_colour);
        }
        PixelRect const all { 0, 0, buffer.width, buffer.height };
        m_window->present({ &all, 1 });
    }

    // HostWindowClient:
    void hostWindowEvent(HostEvent const& event) override
    {
        if (event.type == HostEvent::Type::mouseDown && movesByBackground)
            report("move " + m_name + (m_window->beginInteractiveMove() ? " begun" : " refused"));
        if (isQuiet)
            return;
        std::ostringstream out;
        out << nameOf(event.type) << ' ' << m_name << " at=" << event.locationOnScreen.x << ',' << event.locationOnScreen.y
            << " mods=" << (event.modifiers >> 16) << " held=" << event.pressedButtons;
        if (event.type == HostEvent::Type::mouseDown || event.type == HostEvent::Type::mouseUp)
            out << " button=" << event.button << " clicks=" << event.clickCount;
        if (event.type == HostEvent::Type::scrollWheel)
            out << " scroll=" << event.scrollX << ',' << event.scrollY;
        if (event.type == HostEvent::Type::keyDown || event.type == HostEvent::Type::keyUp)
            out << " code=" << event.keyCode << " repeat=" << event.isRepeat << " text=[" << escaped(event.characters)
                << "] plain=[" << escaped(event.charactersIgnoringModifiers) << ']';
        report(out.str());
    }
    void hostWindowContentRectChanged(Rect rect) override
    {
        report("rect " + m_name + ' ' + textOf(rect));
        draw();
    }
    void hostWindowFocusChanged(bool hasFocus) override { report("focus " + m_name + (hasFocus ? " gained" : " lost")); }
    void hostWindowCloseRequested() override { report("close " + m_name); }
    void hostWindowNeedsRepaint(Rect rect) override
    {
        report("repaint " + m_name + ' ' + textOf(rect));
        draw();
    }
    void hostWindowScaleChanged(float scale) override { report("scale " + m_name + ' ' + std::to_string(scale)); }
    void hostWindowMiniaturizedChanged(bool isMiniaturized) override
    {
        report("miniaturized " + m_name + (isMiniaturized ? " yes" : " no"));
    }
    void hostWindowLiveResizeChanged(bool isResizing) override
    {
        report("resizing " + m_name + (isResizing ? " begins" : " ends"));
    }

private:
    std::string m_name;
    std::uint32_t m_colour { 0xFFFFFF };
    std::unique_ptr<HostWindow> m_window;
};

struct ScreenWatcher final : DisplayClient {
    void displayScreensChanged() override { report("screens changed"); }
    void displayWantsQuit() override
    {
        report("quit wanted");
        s_isRunning = std::getenv("PROBE_STAYS") != nullptr;
    }
};

std::map<std::string, std::unique_ptr<ProbeWindow>> s_windows;

ProbeWindow* windowNamed(std::string const& name)
{
    auto const found = s_windows.find(name);
    return found == s_windows.end() ? nullptr : found->second.get();
}

void makeWindow(std::istream& words)
{
    std::string name;
    std::string kind;
    std::string parent;
    HostWindowAttributes attributes;
    auto& rect = attributes.contentRect;
    words >> name >> kind >> rect.x >> rect.y >> rect.width >> rect.height >> parent;
    if (kind == "popup")
        attributes.kind = HostWindowKind::popup;
    if (kind == "panel")
        attributes.kind = HostWindowKind::panel;
    attributes.isTitled = kind != "plain";
    attributes.isResizable = kind != "fixed";
    if (auto* const above = windowNamed(parent))
        attributes.parent = &above->window();
    s_windows[name] = std::make_unique<ProbeWindow>(name, attributes);
}

long contextSwitches()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("voluntary_ctxt_switches:"))
            return std::stol(line.substr(line.find(':') + 1));
    }
    return -1;
}

Command onWindow(std::function<void(ProbeWindow&, std::istream&)> action)
{
    return [action](std::istream& words) {
        std::string name;
        words >> name;
        if (auto* const window = windowNamed(name))
            action(*window, words);
        else
            report("unknown window " + name);
    };
}

Command onHostWindow(void (HostWindow::*action)())
{
    return onWindow([action](ProbeWindow& window, std::istream&) { (window.window().*action)(); });
}

Rect readRect(std::istream& words)
{
    Rect rect;
    words >> rect.x >> rect.y >> rect.width >> rect.height;
    return rect;
}

void reportPaste()
{
    auto const text = host().clipboard().text();
    constexpr std::size_t shown = 200;
    report(text ? "paste " + std::to_string(text->size()) + " [" + escaped(text->substr(0, shown)) + ']' : "paste nothing");
}

void reportScreens(std::istream&)
{
    for (auto const& screen : host().display().screens())
        report("screen " + textOf(screen.frame) + " visible " + textOf(screen.visibleFrame) + " scale "
            + std::to_string(screen.backingScale));
}

void setCursor(std::istream& words)
{
    int shape = 0;
    words >> shape;
    host().display().setCursor(static_cast<CursorShape>(shape));
}

Commands const& commands()
{
    static Commands const s_commands {
        { "window", makeWindow },
        { "show", onHostWindow(&HostWindow::show) },
        { "hide", onHostWindow(&HostWindow::hide) },
        { "raise", onHostWindow(&HostWindow::raise) },
        { "lower", onHostWindow(&HostWindow::lower) },
        { "focus", onHostWindow(&HostWindow::focus) },
        { "miniaturize", onHostWindow(&HostWindow::miniaturize) },
        { "deminiaturize", onHostWindow(&HostWindow::deminiaturize) },
        { "zoom", onHostWindow(&HostWindow::zoom) },
        { "attention", onHostWindow(&HostWindow::requestAttention) },
        { "cancel", onHostWindow(&HostWindow::cancelAttention) },
        { "destroy", onWindow([](ProbeWindow& window, std::istream&) { s_windows.erase(std::string(window.name())); }) },
        { "place", onWindow([](ProbeWindow& window, std::istream& words) { window.window().setContentRect(readRect(words)); }) },
        { "quiet", onWindow([](ProbeWindow& window, std::istream&) { window.isQuiet = true; }) },
        { "movable", onWindow([](ProbeWindow& window, std::istream&) { window.movesByBackground = true; }) },
        { "colour", onWindow([](ProbeWindow& window, std::istream& words) {
             std::uint32_t colour = 0;
             words >> std::hex >> colour;
             window.setColour(colour);
         }) },
        { "limits", onWindow([](ProbeWindow& window, std::istream& words) {
             auto const limits = readRect(words);
             window.window().setSizeLimits({ limits.x, limits.y }, { limits.width, limits.height });
         }) },
        { "where", onWindow([](ProbeWindow& window, std::istream&) {
             auto const extents = window.window().frameExtents();
             report("where " + window.name() + ' ' + textOf(window.window().contentRect()) + " extents "
                 + textOf({ extents.left, extents.right, extents.top, extents.bottom }) + " visible "
                 + std::to_string(window.window().isVisible()) + " zoomed " + std::to_string(window.window().isZoomed()));
         }) },
        { "screens", reportScreens },
        { "cursor", setCursor },
        { "edit", [](std::istream& words) { host().display().startTextInput(readRect(words)); } },
        { "copy", [](std::istream& words) { host().clipboard().setText(rest(words)); } },
        { "copymany",
            [](std::istream& words) {
                std::size_t size = 0;
                words >> size;
                host().clipboard().setText(std::string(size, 'x'));
            } },
        { "paste", [](std::istream&) { reportPaste(); } },
        { "hastext", [](std::istream&) { report(host().clipboard().hasText() ? "hastext yes" : "hastext no"); } },
        { "changes", [](std::istream&) { report("changes " + std::to_string(host().clipboard().changeCount())); } },
        { "wakes", [](std::istream&) { report("wakes " + std::to_string(contextSwitches())); } },
        { "sync", [](std::istream& words) { report("sync " + rest(words)); } },
        { "quit", [](std::istream&) { s_isRunning = false; } },
    };
    return s_commands;
}

}

int main()
{
    ScreenWatcher watcher;
    host().display().setClient(&watcher);
    report("ready " + std::string(host().name()));
    LineReader reader;
    auto const obeyed = [](std::string const& line) { obey(line, commands()); };
    while (s_isRunning) {
        while (host().events().deliverPending()) { }
        if (!s_isRunning)
            break;
        pollfd input { STDIN_FILENO, POLLIN, 0 };
        host().events().wait({ &input, 1 }, {});
        if (input.revents != 0)
            s_isRunning = reader.read(obeyed) && s_isRunning;
    }
    s_windows.clear();
    installHost(nullptr);
    report("ended");
}

#include <plix/platform/host/desktop/DesktopDisplay.h>

#include <plix/platform/base/clock.h>
#include <plix/platform/host/desktop/CursorShelf.h>
#include <plix/platform/host/desktop/DesktopWindow.h>
#include <plix/platform/host/desktop/InputTranslator.h>
#include <plix/platform/host/key_translation.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <utility>

#include <poll.h>

namespace plix {

namespace {

/// An input method that is spoken to over D-Bus does not wake us; while a text is edited we look as often as a person notices.
constexpr NSTimeInterval s_inputMethodLook = 0.05;
constexpr NSTimeInterval s_extentsPatience = 0.05;
constexpr double s_doubleClickInterval = 0.5;

/// What SDL does of its own accord and must not do here; each of these was met.
void setHints()
{
    SDL_SetHint(SDL_HINT_VIDEODRIVER, "x11");
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    SDL_SetHint(SDL_HINT_MOUSE_AUTO_CAPTURE, "0");
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0");
    SDL_SetHint(SDL_HINT_IME_SUPPORT_EXTENDED_TEXT, "1");
}

/// Whether keys go to an input method by a way of its own before we see them, by the rules by which SDL chooses one.
bool hasForeignInputMethod()
{
    for (auto const* const name : { "SDL_IM_MODULE", "XMODIFIERS" }) {
        auto const* const value = std::getenv(name);
        std::string_view const text = value ? value : "";
        if (text.find("ibus") != text.npos || text.find("fcitx") != text.npos)
            return true;
    }
    return std::getenv("IBUS_ADDRESS") != nullptr;
}

}

std::unique_ptr<DesktopDisplay> DesktopDisplay::open(XSession& session, std::string& whyNot)
{
    std::unique_ptr<DesktopDisplay> display(new DesktopDisplay(session));
    if (!display->start(whyNot))
        return nullptr;
    return display;
}

DesktopDisplay::DesktopDisplay(XSession& session)
    : m_session(session)
    , m_translator(std::make_unique<InputTranslator>(*this))
    , m_cursors(std::make_unique<CursorShelf>())
    , m_scale(session.space().scale)
{
}

bool DesktopDisplay::start(std::string& whyNot)
{
    if (!WindowSurface::suits(m_session.connection())) {
        whyNot = "the display does not have 24-bit colour";
        return false;
    }
    setHints();
    SDL_SetMainReady();
    m_isStarted = SDL_Init(SDL_INIT_VIDEO) == 0;
    // SDL installs handlers of its own that end the program.
    m_session.tolerateErrors();
    if (!m_isStarted) {
        whyNot = SDL_GetError();
        return false;
    }
    m_helper.reset(SDL_CreateWindow("", 0, 0, 1, 1, SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE | SDL_WINDOW_SKIP_TASKBAR));
    m_connection = nativeWindow(m_helper.get()).connection;
    if (!m_connection) {
        whyNot = SDL_GetError();
        return false;
    }
    m_session.watch(m_connection);
    m_session.onScreensChanged = [this] { m_queue.push({ Delivery::Kind::screensChanged }); };
    SDL_EventState(SDL_SYSWMEVENT, SDL_ENABLE);
    for (auto const type : { SDL_MOUSEMOTION, SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP, SDL_KEYMAPCHANGED, SDL_CLIPBOARDUPDATE })
        SDL_EventState(type, SDL_IGNORE);
    m_inputMethodSpeaksElsewhere = hasForeignInputMethod();
    stopTextInput();
    return true;
}

DesktopDisplay::~DesktopDisplay()
{
    m_session.onScreensChanged = nullptr;
    for (auto* const window : std::vector(m_windows))
        window->abandon();
    if (isLost()) {
        m_cursors->abandon();
        static_cast<void>(m_helper.release());
        return;
    }
    m_cursors.reset();
    m_helper.reset();
    if (m_isStarted)
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

std::unique_ptr<HostWindow> DesktopDisplay::makeWindow(HostWindowAttributes const& attributes, HostWindowClient& client)
{
    return std::make_unique<DesktopWindow>(*this, attributes, client);
}

void DesktopDisplay::add(DesktopWindow& window)
{
    m_windows.push_back(&window);
}

void DesktopDisplay::remove(DesktopWindow& window)
{
    std::erase(m_windows, &window);
    m_translator->forget(window);
}

DesktopWindow* DesktopDisplay::windowWithNumber(std::uint32_t number) const
{
    auto const found = std::ranges::find(m_windows, number, &DesktopWindow::number);
    return number == 0 || found == m_windows.end() ? nullptr : *found;
}

DesktopWindow* DesktopDisplay::windowWithNative(::Window native) const
{
    auto const found = std::ranges::find(m_windows, native, &DesktopWindow::native);
    return native == x11::none || found == m_windows.end() ? nullptr : *found;
}

DesktopWindow* DesktopDisplay::popupAtPixel(int x, int y) const
{
    DesktopWindow* inFront = nullptr;
    for (auto* const window : m_windows) {
        auto const [left, top, width, height] = window->pixels();
        auto const holds = x >= left && y >= top && x < left + width && y < top + height;
        if (window->isPopup() && window->isVisible() && holds && (!inFront || window->order() > inFront->order()))
            inFront = window;
    }
    return inFront;
}

void DesktopDisplay::setCursor(CursorShape shape)
{
    if (!isLost())
        m_cursors->set(shape);
}

void DesktopDisplay::setCursor(CursorPixels const& pixels)
{
    if (!isLost())
        m_cursors->set(pixels);
}

Point DesktopDisplay::mouseLocation() const
{
    auto const pointer = m_session.pointer();
    return m_session.space().pointAtPixel(pointer.x, pointer.y);
}

std::uint32_t DesktopDisplay::pressedButtons() const
{
    return buttonsFromState(m_session.pointer().mask);
}

std::uint32_t DesktopDisplay::modifiers() const
{
    return modifiersFromState(m_session.pointer().mask);
}

void DesktopDisplay::startTextInput(Rect caretOnScreen)
{
    if (isLost())
        return;
    auto const caret = m_session.space().pixelsFromRect(caretOnScreen);
    auto const* const window = m_translator->focused();
    auto const origin = window ? window->pixels() : PixelRect {};
    SDL_Rect const rect { caret.x - origin.x, caret.y - origin.y, std::max(caret.width, 1), std::max(caret.height, 1) };
    if (!m_isTextInputActive)
        SDL_StartTextInput();
    SDL_SetTextInputRect(&rect);
    m_isTextInputActive = true;
}

void DesktopDisplay::stopTextInput()
{
    if (isLost())
        return;
    m_isTextInputActive = false;
    SDL_StopTextInput();
    // Dead keys and compose sequences count in lists and menus too; only a foreign input method keeps out.
    SDL_EventState(SDL_TEXTINPUT, m_inputMethodSpeaksElsewhere ? SDL_IGNORE : SDL_ENABLE);
}

void DesktopDisplay::beep()
{
    constexpr int usualVolume = 0;
    if (isLost())
        return;
    XBell(m_connection, usualVolume);
    XFlush(m_connection);
}

double DesktopDisplay::doubleClickInterval() const
{
    return s_doubleClickInterval;
}

int DesktopDisplay::descriptor() const
{
    return ConnectionNumber(m_connection);
}

bool DesktopDisplay::hasPending() const
{
    if (isLost())
        return !m_hasToldOfLoss;
    return !m_queue.isEmpty() || XPending(m_connection) > 0 || isLost();
}

std::optional<NSTimeInterval> DesktopDisplay::nextLook() const
{
    std::optional<NSTimeInterval> next;
    if (isLost())
        return next;
    auto const consider
        = [&next](std::optional<NSTimeInterval> time) { next = next && time ? std::min(*next, *time) : (next ? next : time); };
    for (auto const* const window : m_windows)
        consider(window->settleTime());
    if (m_isTextInputActive && m_inputMethodSpeaksElsewhere)
        consider(clock().uptime() + s_inputMethodLook);
    return next;
}

std::optional<SDL_Event> DesktopDisplay::nextEvent()
{
    SDL_Event event {};
    int hasOne = 0;
    auto const isAlive = !isLost() && m_session.survives([&event, &hasOne] { hasOne = SDL_PollEvent(&event); });
    return isAlive && hasOne != 0 ? std::optional(event) : std::nullopt;
}

void DesktopDisplay::readEvents()
{
    while (auto const event = nextEvent())
        m_translator->handle(*event);
    if (isLost())
        return;
    m_translator->finish();
    for (auto* const window : m_windows)
        window->settle();
}

bool DesktopDisplay::deliverPending()
{
    if (!isLost())
        readEvents();
    auto hadAny = false;
    while (auto const delivery = m_queue.pop()) {
        deliver(*delivery);
        hadAny = true;
    }
    if (isLost() && !m_hasToldOfLoss) {
        m_hasToldOfLoss = true;
        hadAny = true;
        if (m_client)
            m_client->displayWantsQuit();
    }
    return hadAny;
}

void DesktopDisplay::deliver(Delivery const& delivery)
{
    if (delivery.kind == Delivery::Kind::quitWanted && m_client)
        m_client->displayWantsQuit();
    if (delivery.kind == Delivery::Kind::screensChanged) {
        auto const scaleBefore = std::exchange(m_scale, m_session.space().scale);
        if (m_client)
            m_client->displayScreensChanged();
        for (auto* const window : std::vector(m_windows)) {
            if (std::ranges::find(m_windows, window) != m_windows.end())
                window->noteScreensChanged(scaleBefore);
        }
    }
    if (auto* const window = windowWithNumber(delivery.window))
        tellClient(window->client(), delivery, *window, window->isMiniaturized());
}

bool DesktopDisplay::hasFocus(DesktopWindow const& window) const
{
    return m_translator->focused() == &window;
}

bool DesktopDisplay::hasPressedButtons() const
{
    return m_translator->pressedButtons() != 0;
}

void DesktopDisplay::releaseButtons(DesktopWindow& window)
{
    m_translator->releaseButtons(window);
}

unsigned long DesktopDisplay::lastInputTime() const
{
    return m_translator->lastTime();
}

HostWindow::FrameExtents DesktopDisplay::frameExtents(HostWindowAttributes const& attributes) const
{
    if (!attributes.isTitled || attributes.kind == HostWindowKind::popup)
        return {};
    if (!m_usualExtents)
        m_usualExtents = askForExtents();
    return attributes.isResizable ? *m_usualExtents : m_fixedExtents.value_or(*m_usualExtents);
}

void DesktopDisplay::rememberExtents(HostWindow::FrameExtents const& extents, bool isResizable)
{
    (isResizable ? m_usualExtents : m_fixedExtents) = extents;
}

HostWindow::FrameExtents DesktopDisplay::askForExtents() const
{
    if (!m_session.hasWindowManager())
        return {};
    auto const window = nativeWindow(m_helper.get()).window;
    auto const property = XInternAtom(m_connection, "_NET_FRAME_EXTENTS", x11::falseValue);
    sendToWindowManager(m_connection, window, XInternAtom(m_connection, "_NET_REQUEST_FRAME_EXTENTS", x11::falseValue), {});
    auto const deadline = clock().uptime() + s_extentsPatience;
    auto sides = longProperty(m_connection, window, property);
    while (sides.size() < 4 && clock().uptime() < deadline && !isLost()) {
        pollfd waiting { descriptor(), POLLIN, 0 };
        poll(&waiting, 1, 1);
        sides = longProperty(m_connection, window, property);
    }
    if (sides.size() < 4)
        return {};
    auto const side = [&sides, this](std::size_t index) { return static_cast<float>(sides[index]) / m_session.space().scale; };
    return { side(0), side(1), side(2), side(3) };
}

}

#include <plix/platform/host/headless/HeadlessDisplay.h>

#include <plix/platform/host/headless/HeadlessWindow.h>

#include <algorithm>
#include <utility>

namespace plix {

namespace {

constexpr float titleBarHeight = 22;

float commonArea(Rect a, Rect b)
{
    auto const common = NSIntersectionRect(a, b);
    return common.width * common.height;
}

}

HeadlessDisplay::HeadlessDisplay()
    : m_screens { defaultScreen() }
{
}

HostScreen HeadlessDisplay::defaultScreen(float scale)
{
    // A panel of 28 points at the top, as many desktops have one.
    return { { 0, 0, 1440, 900 }, { 0, 0, 1440, 872 }, scale };
}

void HeadlessDisplay::setScreens(std::vector<HostScreen> screens)
{
    if (screens.empty() || screens == m_screens)
        return;
    m_screens = std::move(screens);
    for (auto* window : std::vector(m_windows)) {
        if (owns(window))
            window->screensChanged();
    }
    if (m_client)
        m_client->displayScreensChanged();
}

HostScreen const& HeadlessDisplay::screenAt(Rect rect) const
{
    return *std::ranges::max_element(m_screens, {}, [&](auto const& screen) { return commonArea(screen.frame, rect); });
}

bool HeadlessDisplay::owns(HeadlessWindow const* window) const
{
    return std::ranges::find(m_windows, window) != m_windows.end();
}

HeadlessWindow* HeadlessDisplay::windowAt(Point point) const
{
    auto const found = std::ranges::find_if(
        m_windows, [&](auto const* window) { return window->isVisible() && NSPointInRect(point, window->frame()); });
    return found == m_windows.end() ? nullptr : *found;
}

void HeadlessDisplay::focus(HeadlessWindow* window)
{
    if (window == m_focused || (window && (window->kind() == HostWindowKind::popup || !window->isVisible())))
        return;
    auto* const before = std::exchange(m_focused, window);
    if (before)
        before->client().hostWindowFocusChanged(false);
    if (window && m_focused == window) {
        window->cancelAttention();
        window->client().hostWindowFocusChanged(true);
    }
}

void HeadlessDisplay::raise(HeadlessWindow& window)
{
    std::erase(m_windows, &window);
    auto const isAbove = [&](auto const* other) { return other->kind() == HostWindowKind::popup; };
    auto const place = window.kind() == HostWindowKind::popup ? m_windows.begin() : std::ranges::find_if_not(m_windows, isAbove);
    m_windows.insert(place, &window);
    // What belongs to the window stays above it.
    for (auto* other : std::vector(m_windows)) {
        if (other->parent() == &window && other->isVisible() && other->kind() != HostWindowKind::popup)
            raise(*other);
    }
}

void HeadlessDisplay::lower(HeadlessWindow& window)
{
    std::erase(m_windows, &window);
    m_windows.push_back(&window);
}

void HeadlessDisplay::windowMade(HeadlessWindow& window)
{
    m_windows.push_back(&window);
}

void HeadlessDisplay::windowGone(HeadlessWindow& window)
{
    std::erase(m_windows, &window);
    if (m_focused == &window)
        m_focused = nullptr;
}

void HeadlessDisplay::windowHidden(HeadlessWindow& window)
{
    if (m_focused != &window)
        return;
    auto const next = std::ranges::find_if(m_windows,
        [&](auto const* other) { return other != &window && other->isVisible() && other->kind() != HostWindowKind::popup; });
    focus(next == m_windows.end() ? nullptr : *next);
}

std::unique_ptr<HostWindow> HeadlessDisplay::makeWindow(HostWindowAttributes const& attributes, HostWindowClient& client)
{
    return std::make_unique<HeadlessWindow>(*this, attributes, client);
}

HostWindow::FrameExtents HeadlessDisplay::frameExtents(HostWindowAttributes const& attributes) const
{
    bool const hasTitleBar = attributes.isTitled && attributes.kind != HostWindowKind::popup;
    return { 0, 0, hasTitleBar ? titleBarHeight : 0, 0 };
}

void HeadlessDisplay::setCursor(CursorShape shape)
{
    m_cursorShape = shape;
    m_cursorPixels.reset();
}

void HeadlessDisplay::setCursor(CursorPixels const& pixels)
{
    m_cursorPixels = pixels;
}

}

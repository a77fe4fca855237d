#include <plix/platform/host/headless/HeadlessScript.h>

#include <plix/platform/base/clock.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/host/control_character.h>
#include <plix/platform/host/headless/HeadlessDisplay.h>
#include <plix/platform/host/headless/HeadlessEvents.h>
#include <plix/platform/host/headless/HeadlessWindow.h>

#include <algorithm>
#include <utility>

namespace plix {

namespace {

constexpr char32_t firstFunctionKey = 0xF700;
constexpr char32_t lastFunctionKey = 0xF8FF;
constexpr std::uint16_t keyCodeOfText = 1;

Point between(Point from, Point to, float fraction)
{
    return { from.x + (to.x - from.x) * fraction, from.y + (to.y - from.y) * fraction };
}

}

HeadlessScript::HeadlessScript(HeadlessDisplay& display, HeadlessEvents& events)
    : m_display(display)
    , m_events(events)
{
}

HostEvent HeadlessScript::mouseEvent(HostEvent::Type type, Point point, std::uint32_t modifiers) const
{
    HostEvent event;
    event.type = type;
    event.locationOnScreen = point;
    event.timestamp = clock().uptime();
    event.modifiers = modifiers;
    event.pressedButtons = m_display.pressedButtons();
    return event;
}

void HeadlessScript::deliver(HeadlessWindow& window, HostEvent event) const
{
    event.timestamp = clock().uptime();
    window.client().hostWindowEvent(event);
}

void HeadlessScript::moveTo(Point point, std::uint32_t modifiers)
{
    bool const moved = point != m_display.mouseLocation();
    m_display.setMouseLocation(point);
    if (!m_display.owns(m_windowUnderMouse))
        m_windowUnderMouse = nullptr;
    // A window that is no longer seen lets go of the mouse.
    if (!m_display.owns(m_windowWithMouse) || !m_windowWithMouse->isVisible())
        m_windowWithMouse = nullptr;
    auto* const under = m_windowWithMouse ? m_windowWithMouse : m_display.windowAt(point);
    if (auto* const before = std::exchange(m_windowUnderMouse, under); before != under) {
        if (before)
            deliver(*before, mouseEvent(HostEvent::Type::mouseExited, point, modifiers));
        if (under && m_display.owns(under))
            deliver(*under, mouseEvent(HostEvent::Type::mouseEntered, point, modifiers));
    }
    if (moved && under && m_display.owns(under))
        deliver(*under, mouseEvent(HostEvent::Type::mouseMoved, point, modifiers));
}

void HeadlessScript::pressNow(Point point, ScriptedClick click)
{
    moveTo(point, click.modifiers);
    m_display.setPressedButtons(m_display.pressedButtons() | 1U << click.button);
    auto* const hit = m_windowWithMouse ? m_windowWithMouse : m_display.windowAt(point);
    m_windowWithMouse = hit;
    if (!hit) {
        m_display.focus(nullptr);
        return;
    }
    if (hit->kind() != HostWindowKind::popup) {
        m_display.raise(*hit);
        m_display.focus(hit);
    }
    if (!m_display.owns(hit))
        return;
    auto event = mouseEvent(HostEvent::Type::mouseDown, point, click.modifiers);
    event.button = click.button;
    event.clickCount = click.count;
    deliver(*hit, event);
}

void HeadlessScript::releaseNow(Point point, ScriptedClick click)
{
    moveTo(point, click.modifiers);
    m_display.setPressedButtons(m_display.pressedButtons() & ~(1U << click.button));
    auto* const hit = m_windowWithMouse ? m_windowWithMouse : m_display.windowAt(point);
    if (m_display.pressedButtons() == 0)
        m_windowWithMouse = nullptr;
    if (!hit)
        return;
    auto event = mouseEvent(HostEvent::Type::mouseUp, point, click.modifiers);
    event.button = click.button;
    event.clickCount = click.count;
    deliver(*hit, event);
}

void HeadlessScript::moveMouse(Point point, std::uint32_t modifiers)
{
    m_events.post([this, point, modifiers] { moveTo(point, modifiers); });
}

void HeadlessScript::press(Point point, ScriptedClick click)
{
    m_events.post([this, point, click] { pressNow(point, click); });
}

void HeadlessScript::dragTo(Point point, std::uint32_t modifiers)
{
    moveMouse(point, modifiers);
}

void HeadlessScript::release(Point point, ScriptedClick click)
{
    m_events.post([this, point, click] { releaseNow(point, click); });
}

void HeadlessScript::click(Point point, ScriptedClick click)
{
    for (int count = 1; count <= click.count; ++count) {
        press(point, { count, click.modifiers, click.button });
        release(point, { count, click.modifiers, click.button });
    }
}

void HeadlessScript::drag(Point from, Point to, ScriptedClick click, int steps)
{
    press(from, click);
    for (int step = 1; step <= steps; ++step)
        dragTo(between(from, to, static_cast<float>(step) / static_cast<float>(steps)), click.modifiers);
    release(to, click);
}

void HeadlessScript::scroll(Point point, float deltaX, float deltaY, std::uint32_t modifiers)
{
    m_events.post([=, this] {
        moveTo(point, modifiers);
        auto* const hit = m_display.windowAt(point);
        if (!hit)
            return;
        auto event = mouseEvent(HostEvent::Type::scrollWheel, point, modifiers);
        event.scrollX = deltaX;
        event.scrollY = deltaY;
        deliver(*hit, event);
    });
}

void HeadlessScript::sendKey(
    HostEvent::Type type, std::string_view characters, std::uint32_t modifiers, std::string_view ignoringModifiers, bool isRepeat)
{
    auto event = mouseEvent(type, {}, modifiers);
    event.characters = characters;
    event.charactersIgnoringModifiers = ignoringModifiers.empty() ? characters : ignoringModifiers;
    event.keyCode = keyCodeOfText;
    event.isRepeat = isRepeat;
    m_events.post([this, event]() mutable {
        auto* const focused = m_display.focusedWindow();
        if (!focused)
            return;
        event.locationOnScreen = m_display.mouseLocation();
        event.pressedButtons = m_display.pressedButtons();
        deliver(*focused, event);
    });
}

void HeadlessScript::keyDown(
    std::string_view characters, std::uint32_t modifiers, std::string_view ignoringModifiers, bool isRepeat)
{
    sendKey(HostEvent::Type::keyDown, characters, modifiers, ignoringModifiers, isRepeat);
}

void HeadlessScript::keyUp(std::string_view characters, std::uint32_t modifiers, std::string_view ignoringModifiers)
{
    sendKey(HostEvent::Type::keyUp, characters, modifiers, ignoringModifiers, false);
}

void HeadlessScript::key(std::string_view characters, std::uint32_t modifiers, std::string_view ignoringModifiers)
{
    keyDown(characters, modifiers, ignoringModifiers, false);
    keyUp(characters, modifiers, ignoringModifiers);
}

void HeadlessScript::key(char32_t character, std::uint32_t modifiers)
{
    std::string text;
    appendUTF8(text, character);
    if (character >= firstFunctionKey && character <= lastFunctionKey)
        modifiers |= HostModifierFunction;
    auto const control = (modifiers & HostModifierControl) != 0 ? controlCharacter(character) : std::nullopt;
    key(control ? std::string(1, *control) : text, modifiers, text);
}

void HeadlessScript::type(std::string_view text)
{
    for (std::size_t byte = 0; byte < text.size();) {
        auto const start = byte;
        decodeUTF8(text, byte);
        key(text.substr(start, byte - start));
    }
}

void HeadlessScript::setModifiers(std::uint32_t modifiers)
{
    m_events.post([this, modifiers] {
        m_display.setModifiers(modifiers);
        if (auto* const focused = m_display.focusedWindow())
            deliver(*focused, mouseEvent(HostEvent::Type::modifiersChanged, m_display.mouseLocation(), modifiers));
    });
}

void HeadlessScript::preedit(std::string_view text, long caret)
{
    m_events.post([this, characters = std::string(text), caret] {
        auto* const focused = m_display.focusedWindow();
        if (!focused)
            return;
        auto event = mouseEvent(HostEvent::Type::preedit, m_display.mouseLocation(), 0);
        event.characters = characters;
        event.preeditCaret = caret;
        deliver(*focused, event);
    });
}

void HeadlessScript::closeWindow(WindowFinder finder)
{
    m_events.post([finder = std::move(finder)] {
        if (auto* const window = finder())
            window->client().hostWindowCloseRequested();
    });
}

void HeadlessScript::focusWindow(WindowFinder finder)
{
    m_events.post([this, finder = std::move(finder)] {
        auto* const window = finder();
        if (!window)
            return;
        m_display.raise(*window);
        m_display.focus(window);
    });
}

void HeadlessScript::focusNothing()
{
    m_events.post([this] { m_display.focus(nullptr); });
}

void HeadlessScript::resizeWindow(WindowFinder finder, std::vector<Rect> contentRects)
{
    m_events.post([finder] {
        if (auto* const window = finder())
            window->client().hostWindowLiveResizeChanged(true);
    });
    for (auto const rect : contentRects) {
        m_events.post([finder, rect] {
            if (auto* const window = finder())
                window->resizeByPerson(rect);
        });
    }
    m_events.post([finder = std::move(finder)] {
        if (auto* const window = finder())
            window->client().hostWindowLiveResizeChanged(false);
    });
}

void HeadlessScript::miniaturizeWindow(WindowFinder finder, bool isMiniaturized)
{
    m_events.post([finder = std::move(finder), isMiniaturized] {
        if (auto* const window = finder())
            window->setMiniaturized(isMiniaturized);
    });
}

void HeadlessScript::quit()
{
    m_events.post([this] {
        if (auto* const client = m_display.client())
            client->displayWantsQuit();
    });
}

void HeadlessScript::then(std::function<void()> call)
{
    m_events.postSteps(std::move(call));
}

}

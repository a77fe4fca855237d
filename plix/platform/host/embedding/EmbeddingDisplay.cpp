#include <plix/platform/host/embedding/EmbeddingDisplay.h>

#include <plix/platform/base/clock.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/host/embedding/EmbeddingEvents.h>
#include <plix/platform/host/embedding/toolkit_keys.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

namespace plix {

namespace {

constexpr std::uint32_t s_doubleClickMilliseconds = 500;
constexpr int s_doubleClickDistance = 5;

bool isPopup(EmbeddedWindow const& window)
{
    return window.kind() == HostWindowKind::popup;
}

std::uint32_t bitOf(int button)
{
    constexpr int lastButton = 31;
    return button >= 0 && button <= lastButton ? 1U << button : 0;
}

}

EmbeddingDisplay::EmbeddingDisplay(EmbeddingEvents& events)
    : m_events(events)
    , m_clicks(s_doubleClickMilliseconds, s_doubleClickDistance)
{
    m_events.setDelivery([this] { return deliverPending(); });
}

EmbeddingDisplay::~EmbeddingDisplay()
{
    m_events.setDelivery(nullptr);
}

// Windows.

std::uint32_t EmbeddingDisplay::add(EmbeddedWindow& window)
{
    m_windows.push_back(&window);
    return ++m_lastNumber;
}

void EmbeddingDisplay::remove(EmbeddedWindow& window)
{
    std::erase(m_windows, &window);
    if (m_focused == window.number())
        m_focused = 0;
    if (m_hovered == window.number())
        m_hovered = 0;
    for (auto* const other : m_windows) {
        if (other->attributes().parent == &window)
            other->setParent(nullptr);
    }
}

EmbeddedWindow* EmbeddingDisplay::windowWithNumber(std::uint32_t number) const
{
    auto const found = std::ranges::find(m_windows, number, &EmbeddedWindow::number);
    return found == m_windows.end() ? nullptr : *found;
}

EmbeddedWindow* EmbeddingDisplay::windowFor(HostWindow const* window) const
{
    auto const found = std::ranges::find_if(m_windows, [window](auto const* own) { return own == window; });
    return found == m_windows.end() ? nullptr : *found;
}

std::unique_ptr<HostWindow> EmbeddingDisplay::makeWindow(HostWindowAttributes const& attributes, HostWindowClient& client)
{
    auto window = m_given ? std::exchange(m_given, nullptr) : makeToolkitWindow(attributes);
    window->setClient(client);
    return window;
}

// Deliveries.

void EmbeddingDisplay::push(Delivery delivery)
{
    m_queue.push(std::move(delivery));
    m_events.wake();
}

void EmbeddingDisplay::push(EmbeddedWindow const& window, HostEvent event)
{
    push({ Delivery::Kind::input, window.number(), std::move(event) });
}

bool EmbeddingDisplay::deliverPending()
{
    bool hadAny = false;
    while (auto const delivery = m_queue.pop()) {
        deliver(*delivery);
        hadAny = true;
    }
    return hadAny;
}

void EmbeddingDisplay::deliver(Delivery const& delivery)
{
    if (delivery.kind == Delivery::Kind::screensChanged && m_client)
        m_client->displayScreensChanged();
    auto* const window = windowWithNumber(delivery.window);
    if (window && window->client())
        tellClient(*window->client(), delivery, *window, window->isMiniaturized());
}

HostEvent EmbeddingDisplay::event(HostEvent::Type type) const
{
    HostEvent event;
    event.type = type;
    event.locationOnScreen = m_location;
    event.timestamp = clock().uptime();
    event.modifiers = m_modifiers;
    event.pressedButtons = m_pressed;
    return event;
}

void EmbeddingDisplay::note(Point onScreen, std::uint32_t modifiers)
{
    m_location = onScreen;
    m_modifiers = modifiers;
}

// The pointer.

EmbeddedWindow* EmbeddingDisplay::popupAt(Point onScreen) const
{
    EmbeddedWindow* inFront = nullptr;
    for (auto* const window : m_windows) {
        bool const holds = isPopup(*window) && window->isVisible() && NSPointInRect(onScreen, window->contentRect());
        if (holds && (!inFront || window->order() > inFront->order()))
            inFront = window;
    }
    return inFront;
}

EmbeddedWindow* EmbeddingDisplay::target(EmbeddedWindow* named) const
{
    auto* const popup = popupAt(m_location);
    if (m_pressed == 0)
        return popup ? popup : named;
    auto* const pressed = windowWithNumber(m_pressWindow);
    // A menu that opened under a press gets what follows it.
    bool const isMenu = popup && ((pressed && isPopup(*pressed)) || popup->order() > m_pressOrder);
    return isMenu || !pressed ? popup : pressed;
}

void EmbeddingDisplay::setHovered(EmbeddedWindow const* window)
{
    auto const number = window ? window->number() : 0;
    if (number == m_hovered)
        return;
    if (auto const* const before = windowWithNumber(m_hovered))
        push(*before, event(HostEvent::Type::mouseExited));
    m_hovered = number;
    if (window)
        push(*window, event(HostEvent::Type::mouseEntered));
}

void EmbeddingDisplay::pointerMoved(EmbeddedWindow* named, Point onScreen, std::uint32_t modifiers)
{
    note(onScreen, modifiers);
    auto const* const window = target(named);
    setHovered(window && NSPointInRect(onScreen, window->contentRect()) ? window : nullptr);
    if (window)
        push(*window, event(HostEvent::Type::mouseMoved));
}

void EmbeddingDisplay::pointerLeft(Point onScreen, std::uint32_t modifiers)
{
    note(onScreen, modifiers);
    // A menu that came under a pointer at rest lights what is there.
    if (auto* const popup = popupAt(onScreen))
        pointerMoved(popup, onScreen, modifiers);
    else
        setHovered(nullptr);
}

void EmbeddingDisplay::buttonPressed(EmbeddedWindow* named, Point onScreen, int button, std::uint32_t modifiers)
{
    note(onScreen, modifiers);
    auto const* const window = target(named);
    if (m_pressed == 0) {
        m_pressWindow = window ? window->number() : 0;
        m_pressOrder = m_lastOrder;
    }
    m_pressed |= bitOf(button);
    auto pressed = event(HostEvent::Type::mouseDown);
    pressed.button = button;
    auto const milliseconds = static_cast<std::uint32_t>(std::llround(std::fmod(pressed.timestamp, 4e6) * 1000));
    pressed.clickCount = m_clicks.press({ window ? window->number() : 0, button, milliseconds,
        static_cast<int>(std::lround(onScreen.x)), static_cast<int>(std::lround(onScreen.y)) });
    if (window)
        push(*window, std::move(pressed));
}

void EmbeddingDisplay::buttonReleased(EmbeddedWindow* named, Point onScreen, int button, std::uint32_t modifiers)
{
    note(onScreen, modifiers);
    if ((m_pressed & bitOf(button)) == 0)
        return;
    auto const* const window = target(named);
    m_pressed &= ~bitOf(button);
    auto released = event(HostEvent::Type::mouseUp);
    released.button = button;
    released.clickCount = m_clicks.count();
    if (window)
        push(*window, std::move(released));
}

void EmbeddingDisplay::buttonsHeld(std::uint32_t buttons)
{
    for (auto lost = m_pressed & ~buttons; lost != 0; lost &= lost - 1)
        buttonReleased(windowWithNumber(m_pressWindow), m_location, std::countr_zero(lost), m_modifiers);
}

void EmbeddingDisplay::wheelTurned(EmbeddedWindow* named, Point onScreen, Size lines, std::uint32_t modifiers)
{
    note(onScreen, modifiers);
    auto const* const popup = popupAt(onScreen);
    auto const* const window = popup ? popup : named;
    auto scrolled = event(HostEvent::Type::scrollWheel);
    scrolled.scrollX = lines.width;
    scrolled.scrollY = lines.height;
    if (window)
        push(*window, std::move(scrolled));
}

bool EmbeddingDisplay::takesPressElsewhere(Point onScreen, int button, std::uint32_t modifiers)
{
    auto const isOpen = [](auto const* window) { return isPopup(*window) && window->isVisible(); };
    auto const menu = std::ranges::find_if(m_windows, isOpen);
    if (menu == m_windows.end() || NSRunLoop::currentRunLoop().currentMode() != NSEventTrackingRunLoopMode)
        return false;
    buttonPressed(*menu, onScreen, button, modifiers);
    buttonReleased(*menu, onScreen, button, modifiers);
    return true;
}

// The keyboard.

void EmbeddingDisplay::key(EmbeddedWindow& window, ToolkitKey const& key, HostEvent::Type type)
{
    m_modifiers = key.modifiers;
    auto made = event(type);
    applyKey(key, made);
    if (made.type == HostEvent::Type::modifiersChanged)
        m_modifiers = made.modifiers;
    if (made.type != HostEvent::Type::modifiersChanged || !key.isRepeat)
        push(window, std::move(made));
}

void EmbeddingDisplay::keyPressed(EmbeddedWindow& window, ToolkitKey const& pressed)
{
    key(window, pressed, HostEvent::Type::keyDown);
}

void EmbeddingDisplay::keyReleased(EmbeddedWindow& window, ToolkitKey const& released)
{
    key(window, released, HostEvent::Type::keyUp);
}

void EmbeddingDisplay::textEntered(EmbeddedWindow& window, std::string_view text)
{
    auto entered = event(HostEvent::Type::keyDown);
    entered.modifiers = 0;
    entered.characters = validUTF8(text);
    entered.charactersIgnoringModifiers = entered.characters;
    if (!entered.characters.empty())
        push(window, std::move(entered));
}

void EmbeddingDisplay::preeditChanged(EmbeddedWindow& window, std::string_view text, long caret)
{
    auto preedit = event(HostEvent::Type::preedit);
    preedit.characters = validUTF8(text);
    preedit.preeditCaret = std::clamp(caret, 0L, utf16Length(preedit.characters));
    push(window, std::move(preedit));
}

// What the toolkit does.

void EmbeddingDisplay::focusChanged(EmbeddedWindow& window, bool hasFocus)
{
    if (hasFocus == (m_focused == window.number()))
        return;
    if (auto const before = std::exchange(m_focused, hasFocus ? window.number() : 0); hasFocus && before != 0)
        push({ Delivery::Kind::focusLost, before });
    push({ hasFocus ? Delivery::Kind::focusGained : Delivery::Kind::focusLost, window.number() });
}

void EmbeddingDisplay::closeRequested(EmbeddedWindow& window)
{
    push({ Delivery::Kind::closeRequested, window.number() });
}

void EmbeddingDisplay::screensChanged()
{
    push({ Delivery::Kind::screensChanged });
}

}

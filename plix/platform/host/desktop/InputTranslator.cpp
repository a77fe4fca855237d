#include <plix/platform/host/desktop/InputTranslator.h>

#include <plix/platform/base/clock.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/host/desktop/DesktopDisplay.h>
#include <plix/platform/host/desktop/DesktopWindow.h>
#include <plix/platform/host/desktop/KeyboardLayout.h>
#include <plix/platform/host/key_translation.h>

#include <SDL_syswm.h>

#include <bit>

namespace plix {

namespace {

constexpr std::uint32_t s_doubleClickMilliseconds = 500;
constexpr int s_doubleClickDistance = 5;
// What a notch of a wheel is worth on most desktops.
constexpr float s_linesPerNotch = 3;
/// SDL's codes of keys that enter a character are that character; all others have this bit.
constexpr std::uint32_t s_noCharacter = 1U << 30;

std::uint32_t modifiersFromKey(std::uint16_t state)
{
    std::uint32_t result = 0;
    result |= (state & KMOD_SHIFT) != 0 ? HostModifierShift : 0U;
    result |= (state & KMOD_CTRL) != 0 ? HostModifierControl : 0U;
    result |= (state & KMOD_ALT) != 0 ? HostModifierAlternate : 0U;
    result |= (state & KMOD_GUI) != 0 ? HostModifierCommand : 0U;
    result |= (state & KMOD_CAPS) != 0 ? HostModifierCapsLock : 0U;
    return result;
}

KeyStroke strokeOf(SDL_KeyboardEvent const& key, x11::Connection* connection)
{
    KeyStroke stroke;
    stroke.usage = static_cast<std::uint16_t>(key.keysym.scancode);
    auto const code = static_cast<std::uint32_t>(key.keysym.sym);
    stroke.plain = (code & s_noCharacter) == 0 ? static_cast<char32_t>(code) : 0;
    stroke.shifted = shiftedCharacter(connection, stroke.plain);
    stroke.modifiers = modifiersFromKey(key.keysym.mod);
    stroke.isNumLockOn = (key.keysym.mod & KMOD_NUM) != 0;
    return stroke;
}

bool entersText(SDL_KeyboardEvent const& key)
{
    KeyStroke stroke;
    stroke.usage = static_cast<std::uint16_t>(key.keysym.scancode);
    stroke.isNumLockOn = true;
    auto const meaning = keyText(stroke, {}, EnteredText::isComplete);
    return meaning.characters.empty() || meaning.modifiers == HostModifierNumericPad;
}

}

InputTranslator::InputTranslator(DesktopDisplay& display)
    : m_display(display)
    , m_clicks(s_doubleClickMilliseconds, s_doubleClickDistance)
{
}

void InputTranslator::handle(SDL_Event const& event)
{
    if (event.type == SDL_SYSWMEVENT) {
        if (event.syswm.msg->subsystem == SDL_SYSWM_X11)
            handleNative(event.syswm.msg->msg.x11.event);
        return;
    }
    if (event.type == SDL_TEXTINPUT) {
        handleText(event.text.windowID, event.text.text);
        return;
    }
    flushKey({});
    switch (event.type) {
    case SDL_WINDOWEVENT:
        handleWindow(event.window);
        break;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        handleKey(event.key);
        break;
    case SDL_TEXTEDITING:
        handlePreedit(event.edit.windowID, event.edit.text, event.edit.start);
        break;
    case SDL_TEXTEDITING_EXT:
        handlePreedit(event.editExt.windowID, event.editExt.text, event.editExt.start);
        SDL_free(event.editExt.text);
        break;
    case SDL_MOUSEWHEEL:
        handleWheel(event.wheel);
        break;
    case SDL_QUIT:
        m_display.queue().push({ Delivery::Kind::quitWanted });
        break;
    default:
        break;
    }
}

void InputTranslator::finish()
{
    flushKey({});
}

void InputTranslator::handleNative(XEvent const& event)
{
    auto* const window = m_display.windowWithNative(event.xany.window);
    switch (event.type) {
    case ButtonPress:
    case ButtonRelease:
        handleButton(event.xbutton);
        break;
    case MotionNotify:
        handleMotion(event.xmotion);
        break;
    case EnterNotify:
    case LeaveNotify:
        handleCrossing(event.xcrossing);
        break;
    case x11::keyPress:
    case x11::keyRelease:
        m_lastTime = event.xkey.time;
        break;
    case ConfigureNotify:
    case ReparentNotify:
        if (window)
            window->noteConfigured();
        break;
    case MapNotify:
    case UnmapNotify:
        if (window)
            window->noteMapped(event.type == MapNotify);
        break;
    case Expose:
        if (window)
            window->noteExposed({ event.xexpose.x, event.xexpose.y, event.xexpose.width, event.xexpose.height });
        break;
    case PropertyNotify:
        if (window)
            window->noteProperty(event.xproperty.atom);
        break;
    default:
        break;
    }
}

void InputTranslator::handleWindow(SDL_WindowEvent const& event)
{
    switch (event.event) {
    case SDL_WINDOWEVENT_FOCUS_GAINED:
        if (m_display.windowWithNumber(event.windowID)) {
            m_focused = event.windowID;
            m_display.queue().push({ Delivery::Kind::focusGained, event.windowID });
        }
        break;
    case SDL_WINDOWEVENT_FOCUS_LOST:
        if (m_focused == event.windowID)
            m_focused = 0;
        m_display.queue().push({ Delivery::Kind::focusLost, event.windowID });
        break;
    case SDL_WINDOWEVENT_CLOSE:
        m_display.queue().push({ Delivery::Kind::closeRequested, event.windowID });
        break;
    default:
        break;
    }
}

HostEvent InputTranslator::event(HostEvent::Type type) const
{
    HostEvent event;
    event.type = type;
    event.locationOnScreen = m_display.session().space().pointAtPixel(m_x, m_y);
    event.timestamp = clock().uptime();
    event.modifiers = modifiers();
    event.pressedButtons = m_pressed;
    return event;
}

std::uint32_t InputTranslator::modifiers() const
{
    return modifiersFromKey(static_cast<std::uint16_t>(SDL_GetModState()));
}

DesktopWindow* InputTranslator::focused() const
{
    return m_display.windowWithNumber(m_focused);
}

void InputTranslator::push(std::uint32_t window, HostEvent event)
{
    m_display.queue().push({ Delivery::Kind::input, window, std::move(event) });
}

void InputTranslator::handleKey(SDL_KeyboardEvent const& key)
{
    auto const usage = static_cast<std::uint16_t>(key.keysym.scancode);
    if (modifierOfUsage(usage) != 0) {
        auto changed = event(HostEvent::Type::modifiersChanged);
        changed.modifiers = modifiersFromKey(key.keysym.mod);
        changed.keyCode = usage;
        if (key.repeat == 0)
            push(key.windowID, std::move(changed));
        return;
    }
    if (key.type == SDL_KEYDOWN) {
        m_waitingKey = WaitingKey { key.windowID, key };
        if (!entersText(key))
            flushKey({});
        return;
    }
    auto const text = keyText(strokeOf(key, m_display.connection()), {}, EnteredText::isMissing);
    auto released = event(HostEvent::Type::keyUp);
    released.modifiers = text.modifiers;
    released.keyCode = usage;
    released.characters = text.characters;
    released.charactersIgnoringModifiers = text.charactersIgnoringModifiers;
    push(key.windowID, std::move(released));
}

void InputTranslator::flushKey(std::string_view entered)
{
    if (!m_waitingKey)
        return;
    auto const [window, key] = *m_waitingKey;
    m_waitingKey.reset();
    auto const isTextOn = SDL_GetEventState(SDL_TEXTINPUT) == SDL_ENABLE;
    auto const text
        = keyText(strokeOf(key, m_display.connection()), entered, isTextOn ? EnteredText::isComplete : EnteredText::isMissing);
    auto pressed = event(HostEvent::Type::keyDown);
    pressed.modifiers = text.modifiers;
    pressed.keyCode = static_cast<std::uint16_t>(key.keysym.scancode);
    pressed.characters = text.characters;
    pressed.charactersIgnoringModifiers = text.charactersIgnoringModifiers;
    pressed.isRepeat = key.repeat != 0;
    push(window, std::move(pressed));
}

void InputTranslator::handleText(std::uint32_t window, char const* text)
{
    if (m_hasPreedit)
        handlePreedit(window, "", 0);
    if (m_waitingKey) {
        flushKey(text);
        return;
    }
    auto entered = event(HostEvent::Type::keyDown);
    entered.characters = validUTF8(text);
    entered.charactersIgnoringModifiers = entered.characters;
    push(window, std::move(entered));
}

void InputTranslator::handlePreedit(std::uint32_t window, char const* text, int caret)
{
    auto preedit = event(HostEvent::Type::preedit);
    preedit.characters = validUTF8(text);
    std::size_t byte = 0;
    for (int character = 0; character < caret && byte < preedit.characters.size(); ++character)
        decodeUTF8(preedit.characters, byte);
    preedit.preeditCaret = unitAtByteOffset(preedit.characters, static_cast<long>(byte));
    m_hasPreedit = !preedit.characters.empty();
    push(window, std::move(preedit));
}

void InputTranslator::handleWheel(SDL_MouseWheelEvent const& wheel)
{
    auto scrolled = event(HostEvent::Type::scrollWheel);
    auto const lines = wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -s_linesPerNotch : s_linesPerNotch;
    scrolled.scrollX = 0 - lines * wheel.preciseX;
    scrolled.scrollY = lines * wheel.preciseY;
    auto const* const popup = m_display.popupAtPixel(m_x, m_y);
    push(popup ? popup->number() : wheel.windowID, std::move(scrolled));
}

DesktopWindow* InputTranslator::pointerTarget(::Window native)
{
    auto* const popup = m_display.popupAtPixel(m_x, m_y);
    if (m_pressed == 0)
        return popup ? popup : m_display.windowWithNative(native);
    auto* const pressed = m_display.windowWithNumber(m_pressWindow);
    // A menu that opened under a press gets what follows; a picture that is dragged along with the pointer does not.
    auto const isMenu = popup && ((pressed && pressed->isPopup()) || popup->order() > m_pressOrder);
    if (isMenu || !pressed)
        return popup;
    return pressed;
}

void InputTranslator::handleButton(XButtonEvent const& button)
{
    m_lastTime = button.time;
    m_x = button.x_root;
    m_y = button.y_root;
    auto const number = buttonFromNumber(button.button);
    if (number < 0 || number > 31)
        return;
    auto const bit = 1U << number;
    auto const isPress = button.type == ButtonPress;
    if (!isPress && (m_pressed & bit) == 0)
        return;
    auto* const target = pointerTarget(button.window);
    if (isPress && m_pressed == 0) {
        m_pressWindow = target ? target->number() : 0;
        m_pressOrder = m_display.lastOrder();
    }
    m_pressed = isPress ? m_pressed | bit : m_pressed & ~bit;
    auto clicked = event(isPress ? HostEvent::Type::mouseDown : HostEvent::Type::mouseUp);
    clicked.modifiers = modifiersFromState(button.state);
    clicked.button = number;
    auto const time = static_cast<std::uint32_t>(button.time);
    if (isPress)
        clicked.clickCount = m_clicks.press({ target ? target->number() : 0, number, time, m_x, m_y });
    else
        clicked.clickCount = m_clicks.count();
    if (target)
        push(target->number(), std::move(clicked));
}

void InputTranslator::noteLostReleases(unsigned mask)
{
    // Only the first three buttons are told of in the mask.
    auto const lost = m_pressed & 7U & ~buttonsFromState(mask);
    for (auto left = lost; left != 0; left &= left - 1) {
        auto const number = std::countr_zero(left);
        m_pressed &= ~(1U << number);
        auto released = event(HostEvent::Type::mouseUp);
        released.button = number;
        released.clickCount = m_clicks.count();
        push(m_pressWindow, std::move(released));
    }
}

void InputTranslator::releaseButtons(DesktopWindow& window)
{
    m_pressWindow = window.number();
    noteLostReleases(0);
    m_pressed = 0;
}

void InputTranslator::handleMotion(XMotionEvent const& motion)
{
    m_lastTime = motion.time;
    m_x = motion.x_root;
    m_y = motion.y_root;
    noteLostReleases(motion.state);
    auto* const target = pointerTarget(motion.window);
    if (!target)
        return;
    auto const [x, y, width, height] = target->pixels();
    auto const isInside = m_x >= x && m_y >= y && m_x < x + width && m_y < y + height;
    setHovered(isInside ? target->number() : 0);
    auto moved = event(HostEvent::Type::mouseMoved);
    moved.modifiers = modifiersFromState(motion.state);
    push(target->number(), std::move(moved));
}

void InputTranslator::handleCrossing(XCrossingEvent const& crossing)
{
    m_lastTime = crossing.time;
    if (crossing.mode == NotifyGrab)
        return;
    m_x = crossing.x_root;
    m_y = crossing.y_root;
    noteLostReleases(crossing.state);
    if (crossing.type == EnterNotify) {
        auto const* const window = pointerTarget(crossing.window);
        setHovered(window ? window->number() : 0);
    } else if (auto const* const window = m_display.windowWithNative(crossing.window); window && window->number() == m_hovered) {
        setHovered(0);
    }
}

void InputTranslator::setHovered(std::uint32_t window)
{
    if (window == m_hovered)
        return;
    if (m_hovered != 0)
        push(m_hovered, event(HostEvent::Type::mouseExited));
    m_hovered = window;
    if (m_hovered != 0)
        push(m_hovered, event(HostEvent::Type::mouseEntered));
}

void InputTranslator::forget(DesktopWindow const& window)
{
    if (m_hovered == window.number())
        m_hovered = 0;
    if (m_focused == window.number())
        m_focused = 0;
}

}

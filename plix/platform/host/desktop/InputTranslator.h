#pragma once

#include <plix/platform/host/ClickCounter.h>
#include <plix/platform/host/HostEvent.h>
#include <plix/platform/host/desktop/sdl_handles.h>

#include <optional>

namespace plix {

class DesktopDisplay;
class DesktopWindow;

/// Makes host events of what the window system sends. Pointer events are taken from the raw ones, which say where on the screen
/// they happened whichever window they came by; keys and text from SDL's, which speaks to input methods.
class InputTranslator {
public:
    explicit InputTranslator(DesktopDisplay&);

    void handle(SDL_Event const&);
    /// To be called after the last event that was there: a key that no text came for is complete then.
    void finish();

    std::uint32_t pressedButtons() const { return m_pressed; }
    std::uint32_t modifiers() const;
    DesktopWindow* focused() const;
    unsigned long lastTime() const { return m_lastTime; }
    void releaseButtons(DesktopWindow&);
    void forget(DesktopWindow const&);

private:
    void handleNative(XEvent const&);
    void handleWindow(SDL_WindowEvent const&);
    void handleKey(SDL_KeyboardEvent const&);
    void handleText(std::uint32_t window, char const* text);
    void handlePreedit(std::uint32_t window, char const* text, int caret);
    void handleWheel(SDL_MouseWheelEvent const&);
    void handleButton(XButtonEvent const&);
    void handleMotion(XMotionEvent const&);
    void handleCrossing(XCrossingEvent const&);
    void noteLostReleases(unsigned mask);
    void setHovered(std::uint32_t window);
    DesktopWindow* pointerTarget(::Window);
    HostEvent event(HostEvent::Type) const;
    void push(std::uint32_t window, HostEvent);
    void flushKey(std::string_view entered);

    struct WaitingKey {
        std::uint32_t window { 0 };
        SDL_KeyboardEvent key {};
    };

    DesktopDisplay& m_display;
    ClickCounter m_clicks;
    std::optional<WaitingKey> m_waitingKey;
    std::uint32_t m_pressed { 0 };
    std::uint32_t m_pressWindow { 0 };
    unsigned long m_pressOrder { 0 };
    std::uint32_t m_hovered { 0 };
    std::uint32_t m_focused { 0 };
    bool m_hasPreedit { false };
    int m_x { 0 };
    int m_y { 0 };
    unsigned long m_lastTime { 0 };
};

}

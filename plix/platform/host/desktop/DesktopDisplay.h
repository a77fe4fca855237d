#pragma once

#include <plix/platform/host/DeliveryQueue.h>
#include <plix/platform/host/Display.h>
#include <plix/platform/host/desktop/XSession.h>
#include <plix/platform/host/desktop/sdl_handles.h>

#include <memory>
#include <optional>
#include <vector>

namespace plix {

class CursorShelf;
class DesktopWindow;
class InputTranslator;

/// The display: our windows, the screens, the pointer and what arrives from them.
class DesktopDisplay final : public Display {
public:
    /// Null where SDL can't use the display; `whyNot` then says it in a few words.
    static std::unique_ptr<DesktopDisplay> open(XSession&, std::string& whyNot);
    ~DesktopDisplay() override;
    DesktopDisplay(DesktopDisplay const&) = delete;
    DesktopDisplay& operator=(DesktopDisplay const&) = delete;

    // Display:
    void setClient(DisplayClient* client) override { m_client = client; }
    std::vector<HostScreen> screens() const override { return m_session.screens(); }
    std::unique_ptr<HostWindow> makeWindow(HostWindowAttributes const&, HostWindowClient&) override;
    HostWindow::FrameExtents frameExtents(HostWindowAttributes const&) const override;
    void setCursor(CursorShape) override;
    void setCursor(CursorPixels const&) override;
    Point mouseLocation() const override;
    std::uint32_t pressedButtons() const override;
    std::uint32_t modifiers() const override;
    void startTextInput(Rect caretOnScreen) override;
    void stopTextInput() override;
    void beep() override;
    double doubleClickInterval() const override;

    // What the event source asks:
    int descriptor() const;
    bool hasPending() const;
    /// Reads what has arrived and tells the clients; true where there was anything.
    bool deliverPending();
    /// When to look again though nothing arrives: windows that settle, an input method that speaks another way.
    std::optional<NSTimeInterval> nextLook() const;
    bool isLost() const { return m_session.isLost(); }

    // What windows and the translator ask:
    XSession& session() { return m_session; }
    XSession const& session() const { return m_session; }
    DeliveryQueue& queue() { return m_queue; }
    void add(DesktopWindow&);
    void remove(DesktopWindow&);
    DesktopWindow* windowWithNumber(std::uint32_t) const;
    DesktopWindow* windowWithNative(::Window) const;
    /// The popup in front that shows at a place of the screen, or null.
    DesktopWindow* popupAtPixel(int x, int y) const;
    x11::Connection* connection() const { return m_connection; }
    unsigned long lastOrder() const { return m_lastOrder; }
    unsigned long nextOrder() { return ++m_lastOrder; }
    bool hasFocus(DesktopWindow const&) const;
    bool hasPressedButtons() const;
    /// The window manager takes the pointer over: buttons count as released.
    void releaseButtons(DesktopWindow&);
    /// The server's time of the last input, for requests that are judged by it.
    unsigned long lastInputTime() const;
    void rememberExtents(HostWindow::FrameExtents const&, bool isResizable);

private:
    explicit DesktopDisplay(XSession&);
    bool start(std::string& whyNot);
    void readEvents();
    std::optional<SDL_Event> nextEvent();
    void deliver(Delivery const&);
    HostWindow::FrameExtents askForExtents() const;

    XSession& m_session;
    DisplayClient* m_client { nullptr };
    DeliveryQueue m_queue;
    /// Keeps SDL's connection reachable while no other window is there.
    Handle<SDL_Window> m_helper;
    x11::Connection* m_connection { nullptr };
    std::vector<DesktopWindow*> m_windows;
    std::unique_ptr<InputTranslator> m_translator;
    std::unique_ptr<CursorShelf> m_cursors;
    /// The frame that titled windows get here; asked for once, before the first of them is seen.
    mutable std::optional<HostWindow::FrameExtents> m_usualExtents;
    /// The one of windows that can't be resized, once it has been seen.
    std::optional<HostWindow::FrameExtents> m_fixedExtents;
    float m_scale { 1 };
    unsigned long m_lastOrder { 0 };
    bool m_isStarted { false };
    bool m_isTextInputActive { false };
    bool m_inputMethodSpeaksElsewhere { false };
    bool m_hasToldOfLoss { false };
};

}

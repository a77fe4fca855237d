#pragma once

#include <plix/platform/host/Display.h>

#include <optional>
#include <string>

namespace plix {

class HeadlessWindow;

/// Screens that can be set, windows in memory, and the habits of a window manager: a click focuses and raises what it hits, popups
/// stay above all, the focus goes back to the topmost window when the focused one is hidden.
class PLIX_EXPORT HeadlessDisplay final : public Display {
public:
    HeadlessDisplay();

    static HostScreen defaultScreen(float scale = 1);
    void setScreens(std::vector<HostScreen>);
    HostScreen const& screenAt(Rect) const;
    float scaleAt(Rect rect) const { return screenAt(rect).backingScale; }

    /// Front to back, hidden ones too.
    std::vector<HeadlessWindow*> const& windows() const { return m_windows; }
    /// Whether that window is still there.
    bool owns(HeadlessWindow const*) const;
    /// The visible window whose frame is at that point of the screen, or null.
    HeadlessWindow* windowAt(Point onScreen) const;
    HeadlessWindow* focusedWindow() const { return m_focused; }
    /// Null takes the focus from the application altogether.
    void focus(HeadlessWindow*);
    void raise(HeadlessWindow&);
    void lower(HeadlessWindow&);
    DisplayClient* client() const { return m_client; }

    // What was asked for, for whoever wants to know.
    CursorShape cursorShape() const { return m_cursorShape; }
    std::optional<CursorPixels> const& cursorPixels() const { return m_cursorPixels; }
    std::optional<Rect> const& textInputCaret() const { return m_textInputCaret; }
    long beepCount() const { return m_beepCount; }

    // What the script moves.
    void setMouseLocation(Point onScreen) { m_mouseLocation = onScreen; }
    void setPressedButtons(std::uint32_t buttons) { m_pressedButtons = buttons; }
    void setModifiers(std::uint32_t modifiers) { m_modifiers = modifiers; }

    // What windows tell.
    void windowMade(HeadlessWindow&);
    void windowGone(HeadlessWindow&);
    void windowHidden(HeadlessWindow&);

    // Display:
    void setClient(DisplayClient* client) override { m_client = client; }
    std::vector<HostScreen> screens() const override { return m_screens; }
    std::unique_ptr<HostWindow> makeWindow(HostWindowAttributes const&, HostWindowClient&) override;
    HostWindow::FrameExtents frameExtents(HostWindowAttributes const&) const override;
    void setCursor(CursorShape) override;
    void setCursor(CursorPixels const&) override;
    Point mouseLocation() const override { return m_mouseLocation; }
    std::uint32_t pressedButtons() const override { return m_pressedButtons; }
    std::uint32_t modifiers() const override { return m_modifiers; }
    void startTextInput(Rect caretOnScreen) override { m_textInputCaret = caretOnScreen; }
    void stopTextInput() override { m_textInputCaret.reset(); }
    void beep() override { ++m_beepCount; }
    double doubleClickInterval() const override { return 0.5; }

private:
    std::vector<HostScreen> m_screens;
    std::vector<HeadlessWindow*> m_windows;
    HeadlessWindow* m_focused { nullptr };
    DisplayClient* m_client { nullptr };
    CursorShape m_cursorShape { CursorShape::arrow };
    std::optional<CursorPixels> m_cursorPixels;
    std::optional<Rect> m_textInputCaret;
    Point m_mouseLocation;
    std::uint32_t m_pressedButtons { 0 };
    std::uint32_t m_modifiers { 0 };
    long m_beepCount { 0 };
};

}

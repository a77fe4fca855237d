#pragma once

#include <plix/platform/graphics/geometry.h>
#include <plix/platform/host/HostWindow.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace plix {

/// A screen as the machine has it.
struct HostScreen {
    /// Points, y upwards; the first screen's lower left corner is the origin.
    Rect frame;
    /// Without panels and docks.
    Rect visibleFrame;
    float backingScale { 1 };
    friend bool operator==(HostScreen const&, HostScreen const&) = default;
};

/// The cursors that a machine's theme has.
enum class CursorShape {
    arrow,
    iBeam,
    crosshair,
    pointingHand,
    openHand,
    closedHand,
    resizeLeftRight,
    resizeUpDown,
    resizeDiagonalDown, ///< from upper left to lower right
    resizeDiagonalUp,
    notAllowed,
    wait,
    hidden,
};

/// A cursor of the application's own: premultiplied ARGB32 pixels, rows from the top; the hot spot in pixels from the top left.
struct CursorPixels {
    int width { 0 };
    int height { 0 };
    std::vector<std::uint32_t> pixels;
    int hotSpotX { 0 };
    int hotSpotY { 0 };
};

/// Told what concerns the whole display.
class PLIX_EXPORT DisplayClient {
public:
    virtual ~DisplayClient() = default;
    /// Screens came, went or changed.
    virtual void displayScreensChanged() = 0;
    /// The window system ends the session, or the display went away: the application is to quit in order.
    virtual void displayWantsQuit() = 0;
};

/// Windows, screens, pointer and text input of the machine.
class PLIX_EXPORT Display {
public:
    virtual ~Display() = default;

    /// Who is told; null for nobody.
    virtual void setClient(DisplayClient*) = 0;
    /// At least one; the first is the main screen.
    virtual std::vector<HostScreen> screens() const = 0;
    /// The client must outlive the window.
    virtual std::unique_ptr<HostWindow> makeWindow(HostWindowAttributes const&, HostWindowClient&) = 0;
    /// How far the frame of such a window is going to reach beyond its content, as far as that is known before it is there.
    virtual HostWindow::FrameExtents frameExtents(HostWindowAttributes const&) const = 0;

    // The cursor over the application's windows.
    virtual void setCursor(CursorShape) = 0;
    virtual void setCursor(CursorPixels const&) = 0;
    /// Screen coordinates, points, y upwards.
    virtual Point mouseLocation() const = 0;
    virtual std::uint32_t pressedButtons() const = 0;
    virtual std::uint32_t modifiers() const = 0;

    /// On while a text is edited, so that input methods take part; the caret's rectangle on screen places their windows.
    virtual void startTextInput(Rect caretOnScreen) = 0;
    virtual void stopTextInput() = 0;

    /// A short sound that says no.
    virtual void beep() { }

    /// How far apart in seconds two clicks of a double click may be.
    virtual double doubleClickInterval() const = 0;
};

}

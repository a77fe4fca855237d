#pragma once

#include <plix/platform/graphics/geometry.h>
#include <plix/platform/graphics/pixel_buffer.h>
#include <plix/platform/host/HostEvent.h>

#include <cstdint>
#include <span>
#include <string_view>

namespace plix {

/// What a window is for; the machine decorates and stacks it by that.
enum class HostWindowKind {
    document, ///< has a frame of the window system's
    panel, ///< likewise, a small companion that is not listed among the application's windows
    popup, ///< no frame, above all others, placed exactly, never takes the keyboard
};

class HostWindow;

/// What a window that the application asks for shall be like.
struct HostWindowAttributes {
    HostWindowKind kind { HostWindowKind::document };
    /// Screen coordinates, points, y upwards; the content without the frame.
    Rect contentRect;
    bool isTitled { true };
    bool isClosable { true };
    bool isMiniaturizable { true };
    bool isResizable { true };
    /// The window it stays above, or null.
    HostWindow* parent { nullptr };
};

/// Told what happens to a window. All calls come from EventSource::deliverPending(), or from within the operation that caused them
/// where that says so.
class PLIX_EXPORT HostWindowClient {
public:
    virtual ~HostWindowClient() = default;
    // Told by the window.
    virtual void hostWindowEvent(HostEvent const&) = 0;
    /// The window system, the person or the application moved or resized the window; the rectangle is the content's, on screen.
    virtual void hostWindowContentRectChanged(Rect contentRect) = 0;
    /// The keyboard came to the window or left it. A change between two windows is told window by window: first who lost it, then,
    /// as a rule before deliverPending() returns, who has it now.
    virtual void hostWindowFocusChanged(bool hasFocus) = 0;
    virtual void hostWindowCloseRequested() = 0;
    /// A part of the window lost its pixels; points, in the content's coordinates with y upwards.
    virtual void hostWindowNeedsRepaint(Rect) = 0;
    virtual void hostWindowScaleChanged(float scale) = 0;
    virtual void hostWindowMiniaturizedChanged(bool isMiniaturized) = 0;
    /// A resize by the person begins and ends.
    virtual void hostWindowLiveResizeChanged(bool isResizing) = 0;
};

/// One window of the machine's. Destroying it closes it; that may happen within a call to its client. Made by
/// Display::makeWindow().
class PLIX_EXPORT HostWindow {
public:
    virtual ~HostWindow() = default;

    /// From now on told what happens to the window, in place of the client before. Must outlive the window.
    virtual void setClient(HostWindowClient&) = 0;

    virtual Rect contentRect() const = 0;
    /// Tells the client before it returns when anything changed.
    virtual void setContentRect(Rect) = 0;
    /// How far the frame of the window system reaches beyond the content, on each side.
    struct FrameExtents {
        float left { 0 };
        float right { 0 };
        float top { 0 };
        float bottom { 0 };
        friend constexpr bool operator==(FrameExtents, FrameExtents) = default;
    };
    /// Expected ones until the window has been shown; when they turn out to be others, the client is told that the content's
    /// rectangle changed, though that may be the same.
    virtual FrameExtents frameExtents() const = 0;
    virtual float backingScale() const = 0;

    // What the window's frame shows and allows.
    virtual void setTitle(std::string_view) = 0;
    /// Content sizes, points; a maximum of 0 means none.
    virtual void setSizeLimits(Size minimum, Size maximum) = 0;
    virtual void setResizable(bool) = 0;
    virtual void setParent(HostWindow*) = 0;
    virtual void setAlpha(float) = 0;

    // Showing, hiding and stacking.
    virtual bool isVisible() const = 0;
    virtual void show() = 0;
    virtual void hide() = 0;
    virtual void raise() = 0;
    virtual void lower() = 0;
    /// Asks for the keyboard. Answered through the client when it comes, which may be at once.
    virtual void focus() = 0;
    virtual void miniaturize() = 0;
    virtual void deminiaturize() = 0;
    virtual void zoom() = 0;
    virtual bool isZoomed() const = 0;
    /// Makes the window system move the window with the pointer until the button is released; false where the caller has to do it.
    virtual bool beginInteractiveMove() = 0;

    /// The buffer to draw the next frame into; valid until present().
    virtual PixelBuffer lockPixels() = 0;
    /// Shows what was drawn in these rectangles.
    virtual void present(std::span<PixelRect const>) = 0;

    /// Shows that the window wants attention until it gets the focus or this is cancelled.
    virtual void requestAttention() = 0;
    virtual void cancelAttention() = 0;
};

}

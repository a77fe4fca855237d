#pragma once

#include <plix/platform/host/HostWindow.h>
#include <plix/platform/host/desktop/WindowSurface.h>
#include <plix/platform/host/desktop/sdl_handles.h>

#include <optional>

namespace plix {

class DesktopDisplay;

/// One window of the window system's. SDL makes it and brings it its keys; its place, its pixels and what the window manager is to
/// know about it are set here, since SDL waits for the window manager where we must not.
class DesktopWindow final : public HostWindow {
public:
    DesktopWindow(DesktopDisplay&, HostWindowAttributes const&, HostWindowClient&);
    ~DesktopWindow() override;
    DesktopWindow(DesktopWindow const&) = delete;
    DesktopWindow& operator=(DesktopWindow const&) = delete;

    // HostWindow:
    void setClient(HostWindowClient& client) override { m_client = &client; }
    Rect contentRect() const override;
    void setContentRect(Rect) override;
    FrameExtents frameExtents() const override;
    float backingScale() const override;
    void setTitle(std::string_view) override;
    void setSizeLimits(Size minimum, Size maximum) override;
    void setResizable(bool) override;
    void setParent(HostWindow*) override;
    void setAlpha(float) override;
    bool isVisible() const override { return m_isVisible && !m_isMiniaturized; }
    void show() override;
    void hide() override;
    void raise() override;
    void lower() override;
    void focus() override;
    void miniaturize() override;
    void deminiaturize() override;
    void zoom() override;
    bool isZoomed() const override { return m_isZoomed; }
    bool beginInteractiveMove() override;
    PixelBuffer lockPixels() override;
    void present(std::span<PixelRect const>) override;
    void requestAttention() override;
    void cancelAttention() override;

    // What DesktopDisplay asks and tells:
    std::uint32_t number() const { return m_number; }
    ::Window native() const { return m_native; }
    HostWindowClient& client() { return *m_client; }
    bool isPopup() const { return m_kind == HostWindowKind::popup; }
    bool isMiniaturized() const { return m_isMiniaturized; }
    /// The content in the window system's coordinates.
    PixelRect pixels() const { return m_pixels; }
    /// Grows with each window that is shown or raised.
    unsigned long order() const { return m_order; }

    void noteConfigured() { m_isGeometryStale = true; }
    void noteMapped(bool isMapped);
    void noteExposed(PixelRect);
    void noteProperty(::Atom);
    /// Finds out what the window system has made of the window since, and queues what the client is to know.
    void settle();
    /// When settle() is to be called though nothing arrives.
    std::optional<NSTimeInterval> settleTime() const;
    /// The pixels stay the window's; what they are in points is another rectangle.
    void noteScreensChanged(float scaleBefore);
    /// The display goes before the window, or the server went away: the window does nothing any more.
    void abandon();

private:
    bool isUsable() const;
    void makeNativeWindow(std::uint32_t flags);
    void dress(HostWindowAttributes const&);
    void takePointerEvents();
    void writeHints();
    void readState();
    void readExtents();
    void adopt(PixelRect);
    void place(PixelRect);
    PixelRect nativePixels() const;
    void trackLiveResize();
    PixelRect pixelsFor(Rect) const;

    DesktopDisplay* m_display { nullptr };
    HostWindowClient* m_client;
    HostWindowKind m_kind { HostWindowKind::document };
    bool m_isTitled { false };
    Handle<SDL_Window> m_window;
    x11::Connection* m_connection { nullptr };
    ::Window m_native { 0 };
    std::uint32_t m_number { 0 };
    std::optional<WindowSurface> m_surface;

    PixelRect m_pixels;
    FrameExtents m_extents;
    Size m_minimum;
    Size m_maximum;
    bool m_isResizable { true };
    bool m_isVisible { false };
    bool m_isMiniaturized { false };
    bool m_isZoomed { false };
    bool m_isLiveResizing { false };
    bool m_wantsAttention { false };
    unsigned long m_order { 0 };

    // What the window system said last, and the place that we asked for and that it has not confirmed yet.
    bool m_isMapped { false };
    bool m_isGeometryStale { false };
    bool m_isStateStale { false };
    bool m_areExtentsStale { false };
    std::optional<NSTimeInterval> m_waitsForPlaceUntil;
};

}

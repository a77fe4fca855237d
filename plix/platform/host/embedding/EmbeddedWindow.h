#pragma once

#include <plix/platform/host/HostWindow.h>
#include <plix/platform/host/WindowPixels.h>

#include <cstdint>

namespace plix {

class EmbeddingDisplay;

/// A window whose pixels are in memory and which another toolkit shows: as a widget, or as a window of its own. An adapter
/// derives from it, shows the pixels, and tells where they are. What only a window of its own has (title, limits, stacking) does
/// nothing here.
class PLIX_EXPORT EmbeddedWindow : public HostWindow {
public:
    ~EmbeddedWindow() override;
    EmbeddedWindow(EmbeddedWindow const&) = delete;
    EmbeddedWindow& operator=(EmbeddedWindow const&) = delete;

    // What the application asked for; the parent is null where that is none of this display's.
    HostWindowKind kind() const { return m_attributes.kind; }
    HostWindowAttributes const& attributes() const { return m_attributes; }
    EmbeddedWindow* parent() const;
    /// Different for each window that ever was.
    std::uint32_t number() const { return m_number; }
    /// Greater for what was shown later.
    long order() const { return m_order; }
    bool isMiniaturized() const { return m_isMiniaturized; }
    HostWindowClient* client() const { return m_client; }
    /// What present() has shown last: rows from the top, no alpha. Empty before.
    PixelBuffer shownPixels();

    // What the adapter tells.
    /// The toolkit has the window there, in screen coordinates, with so many device pixels a point. The client is told before this
    /// answers, so that what is drawn next fits.
    void placed(Rect contentRect, float scale);
    void setMiniaturized(bool);
    /// What surrounds the content turned out to be that.
    void framed(FrameExtents);

    // HostWindow:
    void setClient(HostWindowClient& client) override { m_client = &client; }
    Rect contentRect() const override { return m_contentRect; }
    void setContentRect(Rect) override;
    FrameExtents frameExtents() const override { return m_extents; }
    float backingScale() const override { return m_scale; }
    void setTitle(std::string_view) override { }
    void setSizeLimits(Size, Size) override { }
    void setResizable(bool isResizable) override { m_attributes.isResizable = isResizable; }
    void setParent(HostWindow* parent) override { m_attributes.parent = parent; }
    void setAlpha(float) override { }
    bool isVisible() const override { return m_isVisible && !m_isMiniaturized; }
    void show() override;
    void hide() override;
    void raise() override;
    void lower() override { }
    void miniaturize() override { }
    void deminiaturize() override { }
    void zoom() override { }
    bool isZoomed() const override { return false; }
    bool beginInteractiveMove() override { return false; }
    PixelBuffer lockPixels() override;
    void present(std::span<PixelRect const>) override;
    void requestAttention() override { }
    void cancelAttention() override { }

protected:
    EmbeddedWindow(EmbeddingDisplay&, HostWindowAttributes const&, float scale);

    EmbeddingDisplay& display() const { return m_display; }
    /// The toolkit is to paint these again; from the window's upper left corner.
    virtual void pixelsChanged(std::span<PixelRect const>) = 0;
    /// The application wants the window there. Whoever can place it does, and says placed(); here the window stays where it is.
    virtual void wantsPlace(Rect contentRect);
    /// After show() and hide(); not for a window that is already as it was asked to be.
    virtual void visibilityChanged() { }

private:
    EmbeddingDisplay& m_display;
    HostWindowAttributes m_attributes;
    HostWindowClient* m_client { nullptr };
    Rect m_contentRect;
    FrameExtents m_extents;
    float m_scale { 1 };
    std::uint32_t m_number { 0 };
    long m_order { 0 };
    bool m_isVisible { false };
    bool m_isMiniaturized { false };
    WindowPixels m_pixels;
};

}

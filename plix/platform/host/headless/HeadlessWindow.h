#pragma once

#include <plix/platform/host/HostWindow.h>
#include <plix/platform/host/WindowPixels.h>

#include <cstdint>
#include <string>
#include <vector>

namespace plix {

class HeadlessDisplay;

/// A window that is an image in memory.
class PLIX_EXPORT HeadlessWindow final : public HostWindow {
public:
    HeadlessWindow(HeadlessDisplay&, HostWindowAttributes const&, HostWindowClient&);
    ~HeadlessWindow() override;

    HostWindowClient& client() { return *m_client; }
    HostWindowKind kind() const { return m_attributes.kind; }
    HostWindow* parent() const { return m_attributes.parent; }
    std::string const& title() const { return m_title; }
    bool isMiniaturized() const { return m_isMiniaturized; }
    bool wantsAttention() const { return m_wantsAttention; }
    float alpha() const { return m_alpha; }
    bool hasFocus() const;
    Rect frame() const;
    Size minimumSize() const { return m_minimumSize; }
    Size maximumSize() const { return m_maximumSize; }
    /// What is shown: rows from the top, no alpha.
    std::vector<std::uint32_t> const& pixels() const { return m_pixels.values(); }
    int pixelWidth() const { return m_pixels.width(); }
    int pixelHeight() const { return m_pixels.height(); }
    /// The rectangles of the last frame, and how many frames were shown.
    std::vector<PixelRect> const& lastPresented() const { return m_lastPresented; }
    long presentCount() const { return m_presentCount; }

    /// What a person or the window system does to the window; call from deliveries.
    void resizeByPerson(Rect contentRect);
    void setMiniaturized(bool);
    void losePixels();
    void screensChanged();

    // HostWindow:
    void setClient(HostWindowClient& client) override { m_client = &client; }
    Rect contentRect() const override { return m_contentRect; }
    void setContentRect(Rect) override;
    FrameExtents frameExtents() const override;
    float backingScale() const override { return m_scale; }
    void setTitle(std::string_view title) override { m_title = title; }
    void setSizeLimits(Size minimum, Size maximum) override;
    void setResizable(bool resizable) override { m_attributes.isResizable = resizable; }
    void setParent(HostWindow* parent) override { m_attributes.parent = parent; }
    void setAlpha(float alpha) override { m_alpha = alpha; }
    bool isVisible() const override { return m_isVisible && !m_isMiniaturized; }
    void show() override;
    void hide() override;
    void raise() override;
    void lower() override;
    void focus() override;
    void miniaturize() override { setMiniaturized(true); }
    void deminiaturize() override { setMiniaturized(false); }
    void zoom() override;
    bool isZoomed() const override { return m_isZoomed; }
    bool beginInteractiveMove() override { return false; }
    PixelBuffer lockPixels() override;
    void present(std::span<PixelRect const>) override;
    void requestAttention() override { m_wantsAttention = true; }
    void cancelAttention() override { m_wantsAttention = false; }

private:
    void updateScale();

    HeadlessDisplay& m_display;
    HostWindowAttributes m_attributes;
    HostWindowClient* m_client;
    Rect m_contentRect;
    Rect m_unzoomedRect;
    Size m_minimumSize;
    Size m_maximumSize;
    std::string m_title;
    float m_scale { 1 };
    float m_alpha { 1 };
    bool m_isVisible { false };
    bool m_isMiniaturized { false };
    bool m_isZoomed { false };
    bool m_wantsAttention { false };
    WindowPixels m_pixels;
    std::vector<PixelRect> m_lastPresented;
    long m_presentCount { 0 };
};

}

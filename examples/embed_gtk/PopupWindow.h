#pragma once

#include "PaneDisplay.h"

#include <plix/hosting.h>

#include <gtk/gtk.h>

namespace embed_gtk {

/// A menu, a list or a tool tip: a surface of GDK's that pops up at an exact place against a window.
class PopupWindow final : public plix::EmbeddedWindow, public Pane {
public:
    PopupWindow(PaneDisplay&, plix::HostWindowAttributes const&);
    ~PopupWindow() override;

    // Pane:
    GdkSurface* surface() const override { return m_surface; }
    void setCursor(GdkCursor*) override;

    // plix::EmbeddedWindow:
    void focus() override { }

protected:
    void pixelsChanged(std::span<plix::PixelRect const>) override;
    void wantsPlace(plix::Rect) override;
    void visibilityChanged() override;

private:
    void present();
    void render();
    void dropSurface();

    PaneDisplay& m_display;
    GdkSurface* m_surface { nullptr };
    GdkCairoContext* m_context { nullptr };
};

}

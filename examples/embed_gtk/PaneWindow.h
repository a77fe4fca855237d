#pragma once

#include "PaneDisplay.h"
#include "PaneWidget.h"

#include <plix/hosting.h>

#include <gtk/gtk.h>

namespace embed_gtk {

/// One of the library's windows in GTK: in a widget of the application's, or, made without one, a window of its own. GTK leaves it
/// to the window manager where that comes to lie, but for one without a frame, as a sheet is.
class PaneWindow final : public plix::EmbeddedWindow, public Pane {
public:
    PaneWindow(PaneDisplay&, plix::HostWindowAttributes const&);
    /// In that widget, which outlives this. So large until GTK has laid it out.
    PaneWindow(PaneDisplay&, PaneWidget&, plix::Size);
    ~PaneWindow() override;

    // Pane:
    GdkSurface* surface() const override { return m_pane ? m_pane->surface() : nullptr; }
    void setCursor(GdkCursor*) override { }

    // plix::EmbeddedWindow:
    void setTitle(std::string_view) override;
    void setSizeLimits(plix::Size minimum, plix::Size maximum) override;
    void raise() override;
    void focus() override;
    void miniaturize() override;
    void deminiaturize() override;
    void zoom() override;
    bool isZoomed() const override;

protected:
    void pixelsChanged(std::span<plix::PixelRect const>) override;
    void wantsPlace(plix::Rect) override;
    void visibilityChanged() override;

private:
    void hang();
    GtkWidget* windowWidget() const;

    PaneDisplay& m_display;
    PaneWidget* m_pane { nullptr };
    /// Null in a widget of the application's.
    GtkWindow* m_window { nullptr };
};

}

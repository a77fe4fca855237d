#include "PaneWindow.h"
#include "gtk_translation.h"

#include <plix/plix.h>

#include <cmath>

namespace embed_gtk {

PaneWindow::PaneWindow(PaneDisplay& display, plix::HostWindowAttributes const& attributes)
    : EmbeddedWindow(display, attributes, display.screens().front().backingScale)
    , m_display(display)
    , m_pane(new PaneWidget(display))
    , m_window(instanceOf<GtkWindow>(gtk_window_new(), GTK_TYPE_WINDOW))
{
    m_pane->setPlace(this);
    gtk_window_set_child(m_window, m_pane->widget());
    gtk_window_set_decorated(m_window, attributes.isTitled ? 1 : 0);
    gtk_window_set_deletable(m_window, attributes.isClosable ? 1 : 0);
    gtk_window_set_resizable(m_window, attributes.isResizable ? 1 : 0);
    auto const close = +[](GtkWindow*, PaneWindow* self) -> gboolean {
        self->m_display.closeRequested(*self);
        return 1;
    };
    g_signal_connect(m_window, "close-request", reinterpret_cast<GCallback>(close), this);
    wantsPlace(attributes.contentRect);
}

PaneWindow::PaneWindow(PaneDisplay& display, PaneWidget& pane, plix::Size size)
    : EmbeddedWindow(display, { .contentRect = plix::rectWith({}, size), .isTitled = false }, pane.scale())
    , m_display(display)
    , m_pane(&pane)
{
    m_pane->setPlace(this);
}

PaneWindow::~PaneWindow()
{
    m_pane->setPlace(nullptr);
    if (!m_window)
        return;
    g_signal_handlers_disconnect_by_data(m_window, this);
    gtk_window_destroy(m_window);
}

GtkWidget* PaneWindow::windowWidget() const
{
    return &m_window->parent_instance;
}

void PaneWindow::pixelsChanged(std::span<plix::PixelRect const>)
{
    gtk_widget_queue_draw(m_pane->widget());
}

void PaneWindow::wantsPlace(plix::Rect rect)
{
    if (!m_window)
        return EmbeddedWindow::wantsPlace(rect);
    auto const wanted = screenFromRect(rect);
    gtk_widget_set_size_request(
        m_pane->widget(), attributes().isResizable ? -1 : wanted.width, attributes().isResizable ? -1 : wanted.height);
    gtk_window_set_default_size(m_window, wanted.width, wanted.height);
    placed(rectFromScreen(wanted), backingScale());
    hang();
}

/// GTK has no word for where a window stands; sheets hang from the top of another.
void PaneWindow::hang()
{
    if (!attributes().isTitled && isVisible())
        moveTo(surface(), screenFromRect(contentRect()));
}

void PaneWindow::visibilityChanged()
{
    if (!m_window)
        return;
    if (!isVisible()) {
        gtk_widget_set_visible(windowWidget(), 0);
        return;
    }
    auto const* const modal = plix::NSApp ? plix::NSApp->modalWindow() : nullptr;
    gtk_window_set_modal(m_window, modal && modal->hostWindow() == this ? 1 : 0);
    auto* const above = m_display.surfaceFor(parent());
    auto* const window = instanceOf<GtkWindow>(above ? gtk_native_get_for_surface(above) : nullptr, GTK_TYPE_WINDOW);
    if (window && window != m_window)
        gtk_window_set_transient_for(m_window, window);
    gtk_window_present(m_window);
    hang();
}

void PaneWindow::focus()
{
    if (m_window)
        gtk_window_present(m_window);
    gtk_widget_grab_focus(m_pane->widget());
}

// What a window of its own has besides.

void PaneWindow::setTitle(std::string_view title)
{
    if (m_window)
        gtk_window_set_title(m_window, std::string(title).c_str());
}

void PaneWindow::setSizeLimits(plix::Size minimum, plix::Size)
{
    if (m_window && attributes().isResizable)
        gtk_widget_set_size_request(
            m_pane->widget(), static_cast<int>(std::ceil(minimum.width)), static_cast<int>(std::ceil(minimum.height)));
}

void PaneWindow::raise()
{
    EmbeddedWindow::raise();
    if (m_window)
        gtk_window_present(m_window);
}

void PaneWindow::miniaturize()
{
    if (m_window)
        gtk_window_minimize(m_window);
}

void PaneWindow::deminiaturize()
{
    if (m_window)
        gtk_window_unminimize(m_window);
}

void PaneWindow::zoom()
{
    if (m_window && isZoomed())
        gtk_window_unmaximize(m_window);
    else if (m_window)
        gtk_window_maximize(m_window);
}

bool PaneWindow::isZoomed() const
{
    return m_window && gtk_window_is_maximized(m_window) != 0;
}

}

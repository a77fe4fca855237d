#include "PopupWindow.h"
#include "gtk_translation.h"
#include "pixel_painting.h"

namespace embed_gtk {

namespace {

float scaleOf(GdkSurface* surface)
{
    return surface ? static_cast<float>(gdk_surface_get_scale_factor(surface)) : 1.0F;
}

}

PopupWindow::PopupWindow(PaneDisplay& display, plix::HostWindowAttributes const& attributes)
    : EmbeddedWindow(display, attributes, scaleOf(display.surfaceFor(nullptr)))
    , m_display(display)
{
    m_display.add(*this);
}

PopupWindow::~PopupWindow()
{
    m_display.remove(*this);
    dropSurface();
}

void PopupWindow::dropSurface()
{
    if (!m_surface)
        return;
    g_signal_handlers_disconnect_by_data(m_surface, this);
    g_object_unref(m_context);
    gdk_surface_destroy(m_surface);
    g_object_unref(m_surface);
    m_context = nullptr;
    m_surface = nullptr;
}

void PopupWindow::setCursor(GdkCursor* cursor)
{
    if (m_surface)
        gdk_surface_set_cursor(m_surface, cursor);
}

void PopupWindow::pixelsChanged(std::span<plix::PixelRect const>)
{
    if (m_surface)
        gdk_surface_queue_render(m_surface);
}

void PopupWindow::wantsPlace(plix::Rect rect)
{
    placed(rectFromScreen(screenFromRect(rect)), scaleOf(m_surface ? m_surface : m_display.surfaceFor(nullptr)));
    if (m_surface)
        present();
}

void PopupWindow::visibilityChanged()
{
    dropSurface();
    auto* const parent = isVisible() ? m_display.surfaceFor(this->parent()) : nullptr;
    if (!parent)
        return;
    m_surface = gdk_surface_new_popup(parent, 0);
    m_context = gdk_surface_create_cairo_context(m_surface);
    auto const render = +[](GdkSurface*, cairo_region_t*, PopupWindow* self) -> gboolean {
        self->render();
        return 1;
    };
    auto const event = +[](GdkSurface*, GdkEvent* happened, PopupWindow* self) -> gboolean {
        return self->m_display.takePointerEvent(self, happened) ? 1 : 0;
    };
    g_signal_connect(m_surface, "render", reinterpret_cast<GCallback>(render), this);
    g_signal_connect(m_surface, "event", reinterpret_cast<GCallback>(event), this);
    present();
}

void PopupWindow::present()
{
    auto const wanted = screenFromRect(contentRect());
    auto const against = placeOf(gdk_popup_get_parent(instanceOf<GdkPopup>(m_surface, GDK_TYPE_POPUP)));
    GdkRectangle const anchor { wanted.x - against.x, wanted.y - against.y, 1, 1 };
    auto* const layout = gdk_popup_layout_new(&anchor, GDK_GRAVITY_NORTH_WEST, GDK_GRAVITY_NORTH_WEST);
    gdk_popup_present(instanceOf<GdkPopup>(m_surface, GDK_TYPE_POPUP), wanted.width, wanted.height, layout);
    gdk_popup_layout_unref(layout);
    gdk_surface_queue_render(m_surface);
}

void PopupWindow::render()
{
    placed(contentRect(), scaleOf(m_surface));
    plix::drawEmbeddedWindow(*this);
    auto* const drawing = instanceOf<GdkDrawContext>(m_context, GDK_TYPE_DRAW_CONTEXT);
    // GDK's own region has what the window system has lost, not what has been drawn.
    cairo_rectangle_int_t const all { 0, 0, gdk_surface_get_width(m_surface), gdk_surface_get_height(m_surface) };
    auto* const region = cairo_region_create_rectangle(&all);
    gdk_draw_context_begin_frame(drawing, region);
    cairo_region_destroy(region);
    if (auto* const context = gdk_cairo_context_cairo_create(m_context)) {
        paintPixels(context, shownPixels());
        cairo_destroy(context);
    }
    gdk_draw_context_end_frame(drawing);
}

}

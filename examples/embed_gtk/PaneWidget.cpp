#include "PaneWidget.h"
#include "gtk_translation.h"
#include "pixel_painting.h"

#include <utility>

namespace {

/// The C half.
struct EmbedPane {
    GtkWidget base;
    embed_gtk::PaneWidget* pane;
};

struct EmbedPaneClass {
    GtkWidgetClass base;
};

embed_gtk::PaneWidget* paneOf(gpointer widget)
{
    return static_cast<EmbedPane*>(widget)->pane;
}

void setUpClass(gpointer made, gpointer)
{
    auto* const type = static_cast<EmbedPaneClass*>(made);
    type->base.snapshot = [](GtkWidget* widget, GtkSnapshot* snapshot) {
        if (auto* const pane = paneOf(widget))
            pane->snapshot(snapshot);
    };
    type->base.size_allocate = [](GtkWidget* widget, int, int, int) {
        if (auto* const pane = paneOf(widget))
            pane->notePlace();
    };
    type->base.measure
        = [](GtkWidget* widget, GtkOrientation orientation, int, int* minimum, int* natural, int* lowest, int* usual) {
              *lowest = -1;
              *usual = -1;
              if (auto* const pane = paneOf(widget))
                  pane->measure(orientation, *minimum, *natural);
          };
    type->base.focus = [](GtkWidget* widget, GtkDirectionType direction) -> gboolean {
        auto* const pane = paneOf(widget);
        return pane && pane->focusComes(direction) ? 1 : 0;
    };
    type->base.parent_class.dispose = [](GObject* object) {
        delete std::exchange(reinterpret_cast<EmbedPane*>(object)->pane, nullptr);
        auto* const widgets = static_cast<GObjectClass*>(g_type_class_peek_static(GTK_TYPE_WIDGET));
        widgets->dispose(object);
    };
}

GType paneType()
{
    static auto const s_type = g_type_register_static_simple(
        GTK_TYPE_WIDGET, "EmbedPane", sizeof(EmbedPaneClass), setUpClass, sizeof(EmbedPane),
        [](GTypeInstance* made, gpointer) { reinterpret_cast<EmbedPane*>(made)->pane = nullptr; }, static_cast<GTypeFlags>(0));
    return s_type;
}

}

namespace embed_gtk {

PaneWidget::PaneWidget(PaneDisplay& display)
    : m_display(display)
    , m_widget(static_cast<GtkWidget*>(g_object_new(paneType(), "focusable", 1, nullptr)))
{
    static_cast<EmbedPane*>(static_cast<gpointer>(m_widget))->pane = this;
    connectControllers();
    connectInputMethod();
    m_display.add(*this);
}

PaneWidget::~PaneWidget()
{
    m_display.remove(*this);
    g_signal_handlers_disconnect_by_data(m_widget, this);
    g_signal_handlers_disconnect_by_data(m_inputMethod, this);
    if (m_window) {
        g_signal_handlers_disconnect_by_data(m_window, this);
        gtk_widget_remove_controller(&m_window->parent_instance, m_capture);
    }
    gtk_im_context_set_client_widget(m_inputMethod, nullptr);
    g_object_unref(m_inputMethod);
}

void PaneWidget::connectControllers()
{
    auto* const all = gtk_event_controller_legacy_new();
    auto const event = +[](GtkEventController*, GdkEvent* happened, PaneWidget* self) -> gboolean {
        return self->handleEvent(happened) ? 1 : 0;
    };
    g_signal_connect(all, "event", reinterpret_cast<GCallback>(event), this);
    gtk_widget_add_controller(m_widget, all);
    auto const follow = +[](GtkWidget*, GParamSpec*, PaneWidget* self) { self->followWindow(); };
    g_signal_connect(m_widget, "notify::root", reinterpret_cast<GCallback>(follow), this);
    auto const scaled = +[](GtkWidget*, GParamSpec*, PaneWidget* self) {
        self->notePlace();
        gtk_widget_queue_draw(self->m_widget);
    };
    g_signal_connect(m_widget, "notify::scale-factor", reinterpret_cast<GCallback>(scaled), this);
    auto const mapped = +[](GtkWidget*, PaneWidget* self) { self->mappedChanged(true); };
    auto const unmapped = +[](GtkWidget*, PaneWidget* self) { self->mappedChanged(false); };
    g_signal_connect(m_widget, "map", reinterpret_cast<GCallback>(mapped), this);
    g_signal_connect(m_widget, "unmap", reinterpret_cast<GCallback>(unmapped), this);
}

/// What the window does that the widget is in now: the keyboard comes and goes with it, and a press on another of its widgets ends
/// a menu.
void PaneWidget::followWindow()
{
    if (m_window) {
        g_signal_handlers_disconnect_by_data(m_window, this);
        gtk_widget_remove_controller(&m_window->parent_instance, m_capture);
    }
    m_window = instanceOf<GtkWindow>(gtk_widget_get_root(m_widget), GTK_TYPE_WINDOW);
    if (!m_window)
        return updateFocus();
    auto const focus = +[](GtkWindow*, GParamSpec*, PaneWidget* self) { self->updateFocus(); };
    g_signal_connect(m_window, "notify::is-active", reinterpret_cast<GCallback>(focus), this);
    g_signal_connect(m_window, "notify::focus-widget", reinterpret_cast<GCallback>(focus), this);
    m_capture = gtk_event_controller_legacy_new();
    gtk_event_controller_set_propagation_phase(m_capture, GTK_PHASE_CAPTURE);
    auto const event = +[](GtkEventController*, GdkEvent* happened, PaneWidget* self) -> gboolean {
        return self->handlePressElsewhere(happened) ? 1 : 0;
    };
    g_signal_connect(m_capture, "event", reinterpret_cast<GCallback>(event), this);
    gtk_widget_add_controller(&m_window->parent_instance, m_capture);
}

// Place and pixels.

GdkSurface* PaneWidget::surface() const
{
    auto* const native = gtk_widget_get_native(m_widget);
    return native ? gtk_native_get_surface(native) : nullptr;
}

float PaneWidget::scale() const
{
    return static_cast<float>(gtk_widget_get_scale_factor(m_widget));
}

plix::Rect PaneWidget::rectOnScreen() const
{
    double x = 0;
    double y = 0;
    if (auto* const surface = this->surface()) {
        auto* const native = gtk_widget_get_native(m_widget);
        gtk_widget_translate_coordinates(m_widget, static_cast<GtkWidget*>(static_cast<gpointer>(native)), 0, 0, &x, &y);
        double left = 0;
        double top = 0;
        gtk_native_get_surface_transform(native, &left, &top);
        auto const place = placeOf(surface);
        x += left + place.x;
        y += top + place.y;
    }
    auto const width = static_cast<float>(std::max(gtk_widget_get_width(m_widget), 1));
    auto const height = static_cast<float>(std::max(gtk_widget_get_height(m_widget), 1));
    auto const corner = pointFromScreen(x, y);
    return { corner.x, corner.y - height, width, height };
}

void PaneWidget::notePlace()
{
    if (m_place && gtk_widget_get_width(m_widget) > 0)
        m_place->placed(rectOnScreen(), scale());
}

void PaneWidget::snapshot(GtkSnapshot* snapshot)
{
    if (!m_place)
        return;
    notePlace();
    plix::drawEmbeddedWindow(*m_place);
    graphene_rect_t const bounds { { 0, 0 },
        { static_cast<float>(gtk_widget_get_width(m_widget)), static_cast<float>(gtk_widget_get_height(m_widget)) } };
    auto* const context = gtk_snapshot_append_cairo(snapshot, &bounds);
    paintPixels(context, m_place->shownPixels());
    cairo_destroy(context);
}

void PaneWidget::measure(GtkOrientation, int& minimum, int& natural) const
{
    minimum = 1;
    natural = 1;
}

void PaneWidget::setCursor(GdkCursor* cursor)
{
    gtk_widget_set_cursor(m_widget, cursor);
}

// The pointer.

bool PaneWidget::handleEvent(GdkEvent* event)
{
    auto const type = gdk_event_get_event_type(event);
    if (type == GDK_KEY_PRESS || type == GDK_KEY_RELEASE) {
        handleKey(event, type == GDK_KEY_PRESS);
        return true;
    }
    if (type == GDK_BUTTON_PRESS) {
        // GTK does not tell of a window that was moved.
        notePlace();
        gtk_widget_grab_focus(m_widget);
    }
    return m_display.takePointerEvent(m_place, event);
}

bool PaneWidget::handlePressElsewhere(GdkEvent* event)
{
    if (gdk_event_get_event_type(event) != GDK_BUTTON_PRESS)
        return false;
    auto* const window = &m_window->parent_instance;
    double x = 0;
    double y = 0;
    gdk_event_get_position(event, &x, &y);
    double left = 0;
    double top = 0;
    gtk_native_get_surface_transform(gtk_widget_get_native(window), &left, &top);
    auto* const hit = gtk_widget_pick(window, x - left, y - top, GTK_PICK_DEFAULT);
    if (hit && instanceOf<GtkWidget>(hit, paneType()))
        return false;
    auto const place = placeOf(gdk_event_get_surface(event));
    return m_display.takesPressElsewhere(pointFromScreen(place.x + x, place.y + y), buttonFrom(gdk_button_event_get_button(event)),
        plix::modifiersOfToolkitState(gdk_event_get_modifier_state(event)));
}

// The keyboard.

void PaneWidget::updateFocus()
{
    auto const isIn = m_window && gtk_window_is_active(m_window) != 0 && gtk_window_get_focus(m_window) == m_widget;
    if (!m_place || std::exchange(m_hasFocus, isIn) == isIn)
        return;
    m_display.focusChanged(*m_place, isIn);
    noteTextInput();
}

bool PaneWidget::focusComes(GtkDirectionType)
{
    return gtk_widget_is_focus(m_widget) == 0 && gtk_widget_grab_focus(m_widget) != 0;
}

void PaneWidget::handleKey(GdkEvent* event, bool isPress)
{
    if (!m_place)
        return;
    auto key = keyFrom(event);
    m_committed.clear();
    bool isTaken = false;
    bool const hadPreedit = m_hasPreedit;
    if (m_hasFocus && m_display.caret()) {
        m_isFiltering = true;
        isTaken = gtk_im_context_filter_keypress(m_inputMethod, event) != 0;
        m_isFiltering = false;
    }
    if (!isPress) {
        m_heldKey = 0;
        m_display.keyReleased(*m_place, key);
        return;
    }
    key.isRepeat = std::exchange(m_heldKey, unsigned { key.keyCode }) == key.keyCode;
    key.text = m_committed;
    if (hadPreedit && !m_committed.empty())
        m_display.textEntered(*m_place, m_committed);
    else if (!isTaken || !m_committed.empty())
        m_display.keyPressed(*m_place, key);
}

// Text.

void PaneWidget::connectInputMethod()
{
    m_inputMethod = gtk_im_multicontext_new();
    gtk_im_context_set_client_widget(m_inputMethod, m_widget);
    auto const commit = +[](GtkIMContext*, char const* text, PaneWidget* self) { self->committed(text); };
    auto const preedit = +[](GtkIMContext*, PaneWidget* self) { self->preeditChanged(); };
    g_signal_connect(m_inputMethod, "commit", reinterpret_cast<GCallback>(commit), this);
    g_signal_connect(m_inputMethod, "preedit-changed", reinterpret_cast<GCallback>(preedit), this);
}

void PaneWidget::noteTextInput()
{
    auto const& caret = m_display.caret();
    if (!m_hasFocus || !caret) {
        gtk_im_context_focus_out(m_inputMethod);
        gtk_im_context_reset(m_inputMethod);
        return;
    }
    auto const screen = screenFromRect(*caret);
    auto const own = screenFromRect(rectOnScreen());
    GdkRectangle const rect { screen.x - own.x, screen.y - own.y, screen.width, screen.height };
    gtk_im_context_focus_in(m_inputMethod);
    gtk_im_context_set_cursor_location(m_inputMethod, &rect);
}

void PaneWidget::committed(char const* text)
{
    if (m_isFiltering)
        m_committed += text;
    else if (m_place)
        m_display.textEntered(*m_place, text);
}

void PaneWidget::preeditChanged()
{
    char* text = nullptr;
    int caret = 0;
    gtk_im_context_get_preedit_string(m_inputMethod, &text, nullptr, &caret);
    bool const isEmpty = *text == 0;
    if (m_place && (std::exchange(m_hasPreedit, !isEmpty) || !isEmpty))
        m_display.preeditChanged(*m_place, text, unitsOf(text, caret));
    g_free(text);
}

}

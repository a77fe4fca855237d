#include "PaneDisplay.h"
#include "PaneWindow.h"
#include "PopupWindow.h"
#include "gtk_translation.h"

namespace embed_gtk {

PaneDisplay::PaneDisplay(plix::EmbeddingEvents& events)
    : EmbeddingDisplay(events)
{
    auto const changed = +[](GListModel*, guint, guint, guint, PaneDisplay* self) { self->screensChanged(); };
    g_signal_connect(
        gdk_display_get_monitors(gdk_display_get_default()), "items-changed", reinterpret_cast<GCallback>(changed), this);
}

bool PaneDisplay::takePointerEvent(plix::EmbeddedWindow* window, GdkEvent* event)
{
    auto const state = gdk_event_get_modifier_state(event);
    auto const modifiers = plix::modifiersOfToolkitState(state);
    auto const at = [event] {
        double x = 0;
        double y = 0;
        gdk_event_get_position(event, &x, &y);
        auto const place = placeOf(gdk_event_get_surface(event));
        return pointFromScreen(place.x + x, place.y + y);
    };
    switch (gdk_event_get_event_type(event)) {
    case GDK_BUTTON_PRESS:
        buttonPressed(window, at(), buttonFrom(gdk_button_event_get_button(event)), modifiers);
        return true;
    case GDK_BUTTON_RELEASE:
        buttonReleased(window, at(), buttonFrom(gdk_button_event_get_button(event)), modifiers);
        return true;
    case GDK_MOTION_NOTIFY:
        // Further buttons are not in the state.
        buttonsHeld(buttonsFrom(state) | (pressedButtons() & ~7U));
        pointerMoved(window, at(), modifiers);
        return true;
    case GDK_ENTER_NOTIFY:
        pointerMoved(window, at(), modifiers);
        return true;
    case GDK_LEAVE_NOTIFY:
        pointerLeft(at(), modifiers);
        return true;
    case GDK_SCROLL:
        wheelTurned(window, mouseLocation(), linesFrom(event), modifiers);
        return true;
    default:
        return false;
    }
}

GdkSurface* PaneDisplay::surfaceFor(plix::EmbeddedWindow const* window) const
{
    auto const* const wanted = window ? window : focusedWindow();
    if (auto const* const pane = dynamic_cast<Pane const*>(wanted))
        return pane->surface();
    for (auto const* const pane : m_panes) {
        auto* const surface = pane->surface();
        if (surface && !instanceOf<GdkPopup>(surface, GDK_TYPE_POPUP))
            return surface;
    }
    return nullptr;
}

std::unique_ptr<plix::EmbeddedWindow> PaneDisplay::makeToolkitWindow(plix::HostWindowAttributes const& attributes)
{
    if (attributes.kind == plix::HostWindowKind::popup)
        return std::make_unique<PopupWindow>(*this, attributes);
    return std::make_unique<PaneWindow>(*this, attributes);
}

std::vector<plix::HostScreen> PaneDisplay::screens() const
{
    return embed_gtk::screens();
}

// The cursor.

void PaneDisplay::showCursor(GdkCursor* cursor)
{
    for (auto* const pane : m_panes)
        pane->setCursor(cursor);
}

void PaneDisplay::setCursor(plix::CursorShape shape)
{
    GRef<GdkCursor> const cursor(gdk_cursor_new_from_name(nameOf(shape), nullptr));
    showCursor(cursor.get());
}

void PaneDisplay::setCursor(plix::CursorPixels const& cursor)
{
    auto const stride = static_cast<gsize>(cursor.width) * sizeof(std::uint32_t);
    auto* const bytes = g_bytes_new(cursor.pixels.data(), cursor.pixels.size() * sizeof(std::uint32_t));
    GRef<GdkTexture> const texture(gdk_memory_texture_new(cursor.width, cursor.height, GDK_MEMORY_DEFAULT, bytes, stride));
    g_bytes_unref(bytes);
    GRef<GdkCursor> const made(gdk_cursor_new_from_texture(texture.get(), cursor.hotSpotX, cursor.hotSpotY, nullptr));
    showCursor(made.get());
}

// Text.

void PaneDisplay::tellTextInput()
{
    for (auto* const pane : m_panes)
        pane->noteTextInput();
}

void PaneDisplay::startTextInput(plix::Rect caretOnScreen)
{
    m_caret = caretOnScreen;
    tellTextInput();
}

void PaneDisplay::stopTextInput()
{
    m_caret.reset();
    tellTextInput();
}

void PaneDisplay::beep()
{
    gdk_display_beep(gdk_display_get_default());
}

double PaneDisplay::doubleClickInterval() const
{
    int milliseconds = 500;
    g_object_get(gtk_settings_get_default(), "gtk-double-click-time", &milliseconds, nullptr);
    return milliseconds / 1000.0;
}

}

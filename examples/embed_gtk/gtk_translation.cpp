#include "gtk_translation.h"

#include <gdk/x11/gdkx.h>

#include <algorithm>
#include <cmath>

// Xlib makes a number of it.
#undef CursorShape

namespace embed_gtk {

namespace {

GListModel* monitors()
{
    return gdk_display_get_monitors(gdk_display_get_default());
}

GRef<GdkMonitor> monitorAt(unsigned index)
{
    return GRef<GdkMonitor>(static_cast<GdkMonitor*>(g_list_model_get_item(monitors(), index)));
}

double bottomOfScreen()
{
    GdkRectangle area { 0, 0, 0, 0 };
    if (auto const first = monitorAt(0))
        gdk_monitor_get_geometry(first.get(), &area);
    return area.y + area.height;
}

}

plix::Point pointFromScreen(double x, double y)
{
    return { static_cast<float>(x), static_cast<float>(bottomOfScreen() - y) };
}

plix::Rect rectFromScreen(GdkRectangle const& rect)
{
    auto const corner = pointFromScreen(rect.x, rect.y + rect.height);
    return { corner.x, corner.y, static_cast<float>(rect.width), static_cast<float>(rect.height) };
}

GdkRectangle screenFromRect(plix::Rect rect)
{
    auto const whole = [](double value) { return static_cast<int>(std::lround(value)); };
    auto const left = whole(double { rect.x });
    auto const top = whole(bottomOfScreen() - double { rect.maxY() });
    return { left, top, whole(double { rect.maxX() }) - left, whole(bottomOfScreen() - double { rect.y }) - top };
}

GdkRectangle placeOf(GdkSurface* surface)
{
    GdkRectangle place { 0, 0, gdk_surface_get_width(surface), gdk_surface_get_height(surface) };
    if (auto* const popup = instanceOf<GdkPopup>(surface, GDK_TYPE_POPUP)) {
        auto const parent = placeOf(gdk_popup_get_parent(popup));
        place.x = parent.x + gdk_popup_get_position_x(popup);
        place.y = parent.y + gdk_popup_get_position_y(popup);
    } else if (auto* const native = instanceOf<GdkX11Surface>(surface, GDK_TYPE_X11_SURFACE)) {
        auto* const server = gdk_x11_display_get_xdisplay(gdk_surface_get_display(surface));
        auto const root = gdk_x11_display_get_xrootwindow(gdk_surface_get_display(surface));
        Window child = 0;
        XTranslateCoordinates(server, gdk_x11_surface_get_xid(native), root, 0, 0, &place.x, &place.y, &child);
        place.x /= gdk_surface_get_scale_factor(surface);
        place.y /= gdk_surface_get_scale_factor(surface);
    }
    return place;
}

void moveTo(GdkSurface* surface, GdkRectangle place)
{
    auto* const native = instanceOf<GdkX11Surface>(surface, GDK_TYPE_X11_SURFACE);
    if (!native)
        return;
    auto const scale = gdk_surface_get_scale_factor(surface);
    auto* const server = gdk_x11_display_get_xdisplay(gdk_surface_get_display(surface));
    XMoveWindow(server, gdk_x11_surface_get_xid(native), place.x * scale, place.y * scale);
}

std::vector<plix::HostScreen> screens()
{
    std::vector<plix::HostScreen> result;
    for (unsigned index = 0; auto const monitor = monitorAt(index); ++index) {
        GdkRectangle area { 0, 0, 0, 0 };
        gdk_monitor_get_geometry(monitor.get(), &area);
        auto visible = area;
        if (instanceOf<GdkMonitor>(monitor.get(), GDK_TYPE_X11_MONITOR))
            gdk_x11_monitor_get_workarea(monitor.get(), &visible);
        result.push_back(
            { rectFromScreen(area), rectFromScreen(visible), static_cast<float>(gdk_monitor_get_scale_factor(monitor.get())) });
    }
    if (result.empty())
        result.emplace_back();
    return result;
}

int buttonFrom(unsigned button)
{
    constexpr int first[] = { 0, 0, 2, 1 };
    // Behind the three, four of the wheel were counted once, which come as no buttons now.
    return button < std::size(first) ? first[button] : static_cast<int>(std::max(button, 8U)) - 5;
}

std::uint32_t buttonsFrom(GdkModifierType state)
{
    std::uint32_t held = 0;
    held |= (state & GDK_BUTTON1_MASK) != 0 ? 1U : 0U;
    held |= (state & GDK_BUTTON2_MASK) != 0 ? 4U : 0U;
    held |= (state & GDK_BUTTON3_MASK) != 0 ? 2U : 0U;
    return held;
}

plix::ToolkitKey keyFrom(GdkEvent* event)
{
    return keyOf(gdk_key_event_get_keyval(event), gdk_event_get_modifier_state(event), gdk_key_event_get_keycode(event));
}

plix::ToolkitKey keyOf(unsigned keysym, GdkModifierType state, unsigned code)
{
    plix::ToolkitKey key;
    key.keysym = keysym;
    auto const character = gdk_keyval_to_unicode(key.keysym);
    key.character = character >= 0x20 && character != 0x7F ? char32_t { character } : 0;
    key.modifiers = plix::modifiersOfToolkitState(state);
    key.keyCode = static_cast<std::uint16_t>(code);
    return key;
}

plix::Size linesFrom(GdkEvent* event)
{
    double x = 0;
    double y = 0;
    auto const direction = gdk_scroll_event_get_direction(event);
    if (direction == GDK_SCROLL_SMOOTH)
        gdk_scroll_event_get_deltas(event, &x, &y);
    return linesOf(direction, x, y, gdk_scroll_event_get_unit(event));
}

plix::Size linesOf(GdkScrollDirection direction, double x, double y, GdkScrollUnit unit)
{
    constexpr double linesPerNotch = 3;
    constexpr double pixelsPerLine = 10;
    switch (direction) {
    case GDK_SCROLL_UP:
        y = -1;
        break;
    case GDK_SCROLL_DOWN:
        y = 1;
        break;
    case GDK_SCROLL_LEFT:
        x = -1;
        break;
    case GDK_SCROLL_RIGHT:
        x = 1;
        break;
    case GDK_SCROLL_SMOOTH:
        break;
    }
    auto const lines = unit == GDK_SCROLL_UNIT_SURFACE ? 1 / pixelsPerLine : linesPerNotch;
    return { static_cast<float>(-x * lines), static_cast<float>(-y * lines) };
}

char const* nameOf(plix::CursorShape shape)
{
    using plix::CursorShape;
    switch (shape) {
    case CursorShape::arrow:
        return "default";
    case CursorShape::iBeam:
        return "text";
    case CursorShape::crosshair:
        return "crosshair";
    case CursorShape::pointingHand:
        return "pointer";
    case CursorShape::openHand:
        return "grab";
    case CursorShape::closedHand:
        return "grabbing";
    case CursorShape::resizeLeftRight:
        return "ew-resize";
    case CursorShape::resizeUpDown:
        return "ns-resize";
    case CursorShape::resizeDiagonalDown:
        return "nwse-resize";
    case CursorShape::resizeDiagonalUp:
        return "nesw-resize";
    case CursorShape::notAllowed:
        return "not-allowed";
    case CursorShape::wait:
        return "wait";
    case CursorShape::hidden:
        return "none";
    }
    return "default";
}

long unitsOf(char const* text, int characters)
{
    long units = 0;
    for (auto const* at = text; *at != 0 && characters > 0; --characters) {
        units += g_utf8_get_char(at) > 0xFFFF ? 2 : 1;
        at += g_utf8_skip[static_cast<guchar>(*at)];
    }
    return units;
}

}

#pragma once

#include <plix/hosting.h>

#include <gtk/gtk.h>

#include <memory>

namespace embed_gtk {

/// Holds an object of GLib's.
struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
template <typename T> using GRef = std::unique_ptr<T, Unref>;

/// What goes by a type cast in C, checked.
template <typename T> T* instanceOf(gpointer object, GType type)
{
    return G_TYPE_CHECK_INSTANCE_TYPE(object, type) ? static_cast<T*>(object) : nullptr;
}

// GDK's screen has y downwards from the first monitor's upper left corner, in application pixels: those are the library's points.
plix::Point pointFromScreen(double x, double y);
plix::Rect rectFromScreen(GdkRectangle const&);
GdkRectangle screenFromRect(plix::Rect);
/// Where the upper left corner of a surface is on the screen. Known under X11; a window elsewhere counts as being in the corner of
/// the screen, and what pops up there is placed against it all the same.
GdkRectangle placeOf(GdkSurface*);
/// Moves a window without a frame there, where the window system lets programs say so: on X11.
void moveTo(GdkSurface*, GdkRectangle);
std::vector<plix::HostScreen> screens();

/// 0 left, 1 right, 2 middle, then the side buttons.
int buttonFrom(unsigned button);
std::uint32_t buttonsFrom(GdkModifierType);
plix::ToolkitKey keyFrom(GdkEvent*);
plix::ToolkitKey keyOf(unsigned keysym, GdkModifierType state, unsigned code);
/// A notch of the wheel is three lines; a touchpad says pixels, and ten of them are one.
plix::Size linesFrom(GdkEvent*);
/// x and y are those of a smooth turn.
plix::Size linesOf(GdkScrollDirection, double x, double y, GdkScrollUnit);
char const* nameOf(plix::CursorShape);
/// Characters to UTF-16 units.
long unitsOf(char const* text, int characters);

}

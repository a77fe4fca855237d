#pragma once

// The window system's headers with the macros taken away that are ordinary words elsewhere. Included by this folder's sources only.

#include <plix/platform/base/Handle.h>

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xcursor/Xcursor.h>
#include <X11/Xlib.h>
#include <X11/Xresource.h>
#include <X11/Xutil.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XShm.h>
#include <X11/extensions/Xfixes.h>
#include <X11/extensions/Xrandr.h>

namespace plix::x11 {

inline constexpr unsigned long none = None;
inline constexpr int falseValue = False;
inline constexpr int trueValue = True;

}

#undef None
#undef False
#undef True
#undef Bool
#undef Status
#undef Success
#undef Always
#undef CursorShape
#undef KeyPress
#undef KeyRelease
#undef FocusIn
#undef FocusOut

namespace plix::x11 {

using Connection = ::Display;

/// Numbers of events whose macros are ordinary words.
inline constexpr int keyPress = 2;
inline constexpr int keyRelease = 3;
inline constexpr int focusIn = 9;
inline constexpr int focusOut = 10;

/// Memory that the X library hands out.
struct Memory {
    void operator()(void* memory) const { XFree(memory); }
};

}

namespace plix {

template <> struct HandleDeleter<x11::Connection> {
    void operator()(x11::Connection* connection) const { XCloseDisplay(connection); }
};

}

#pragma once

// SDL as this folder uses it. Included by this folder's sources only.

#include <plix/platform/base/Handle.h>

#include <plix/platform/host/desktop/x11.h>

#define SDL_MAIN_HANDLED
#include <SDL.h>

namespace plix {

template <> struct HandleDeleter<SDL_Window> {
    void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
};

template <> struct HandleDeleter<SDL_Cursor> {
    void operator()(SDL_Cursor* cursor) const { SDL_FreeCursor(cursor); }
};

template <> struct HandleDeleter<SDL_Surface> {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};

/// The window system's names for one of SDL's windows.
struct NativeWindow {
    x11::Connection* connection { nullptr };
    ::Window window { 0 };
};
NativeWindow nativeWindow(SDL_Window*);

}

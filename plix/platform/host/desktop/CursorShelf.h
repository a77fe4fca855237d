#pragma once

#include <plix/platform/host/Display.h>
#include <plix/platform/host/desktop/sdl_handles.h>

#include <map>
#include <optional>

namespace plix {

/// The cursors that have been asked for, made once.
class CursorShelf {
public:
    void set(CursorShape);
    void set(CursorPixels const&);
    /// Forgets them without talking to the server.
    void abandon();

private:
    std::map<CursorShape, Handle<SDL_Cursor>> m_shapes;
    Handle<SDL_Cursor> m_own;
    std::optional<CursorShape> m_current;
};

}

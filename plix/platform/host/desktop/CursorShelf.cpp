#include <plix/platform/host/desktop/CursorShelf.h>

#include <cstdlib>

namespace plix {

namespace {

constexpr int s_usualSize = 24;

SDL_SystemCursor systemCursor(CursorShape shape)
{
    switch (shape) {
    case CursorShape::iBeam:
        return SDL_SYSTEM_CURSOR_IBEAM;
    case CursorShape::crosshair:
        return SDL_SYSTEM_CURSOR_CROSSHAIR;
    case CursorShape::pointingHand:
    case CursorShape::openHand:
        return SDL_SYSTEM_CURSOR_HAND;
    case CursorShape::closedHand:
        return SDL_SYSTEM_CURSOR_SIZEALL;
    case CursorShape::resizeLeftRight:
        return SDL_SYSTEM_CURSOR_SIZEWE;
    case CursorShape::resizeUpDown:
        return SDL_SYSTEM_CURSOR_SIZENS;
    case CursorShape::resizeDiagonalDown:
        return SDL_SYSTEM_CURSOR_SIZENWSE;
    case CursorShape::resizeDiagonalUp:
        return SDL_SYSTEM_CURSOR_SIZENESW;
    case CursorShape::notAllowed:
        return SDL_SYSTEM_CURSOR_NO;
    case CursorShape::wait:
        return SDL_SYSTEM_CURSOR_WAIT;
    case CursorShape::arrow:
    case CursorShape::hidden:
        break;
    }
    return SDL_SYSTEM_CURSOR_ARROW;
}

Handle<SDL_Cursor> cursorFromPixels(void const* pixels, int width, int height, int hotSpotX, int hotSpotY)
{
    if (width <= 0 || height <= 0)
        return {};
    // The pixels go to the server as they are, premultiplied; the surface only carries them.
    Handle<SDL_Surface> const surface(
        SDL_CreateRGBSurfaceWithFormatFrom(const_cast<void*>(pixels), width, height, 32, width * 4, SDL_PIXELFORMAT_ARGB8888));
    return Handle<SDL_Cursor>(surface ? SDL_CreateColorCursor(surface.get(), hotSpotX, hotSpotY) : nullptr);
}

/// The hands have no number among the system's cursors, but names in cursor themes.
Handle<SDL_Cursor> themedCursor(char const* name)
{
    auto const* const size = std::getenv("XCURSOR_SIZE");
    auto const pixels = size ? std::atoi(size) : s_usualSize;
    std::unique_ptr<XcursorImage, decltype(&XcursorImageDestroy)> const image(
        XcursorLibraryLoadImage(name, std::getenv("XCURSOR_THEME"), pixels > 0 ? pixels : s_usualSize), XcursorImageDestroy);
    if (!image)
        return {};
    return cursorFromPixels(image->pixels, static_cast<int>(image->width), static_cast<int>(image->height),
        static_cast<int>(image->xhot), static_cast<int>(image->yhot));
}

Handle<SDL_Cursor> makeCursor(CursorShape shape)
{
    Handle<SDL_Cursor> cursor;
    if (shape == CursorShape::openHand)
        cursor = themedCursor("grab");
    else if (shape == CursorShape::closedHand)
        cursor = themedCursor("grabbing");
    return cursor ? std::move(cursor) : Handle<SDL_Cursor>(SDL_CreateSystemCursor(systemCursor(shape)));
}

}

void CursorShelf::set(CursorShape shape)
{
    if (m_current == shape)
        return;
    m_current = shape;
    SDL_ShowCursor(shape == CursorShape::hidden ? SDL_DISABLE : SDL_ENABLE);
    if (shape == CursorShape::hidden)
        return;
    auto& cursor = m_shapes[shape];
    if (!cursor)
        cursor = makeCursor(shape);
    SDL_SetCursor(cursor.get());
}

void CursorShelf::set(CursorPixels const& pixels)
{
    auto const count = static_cast<std::size_t>(pixels.width > 0 ? pixels.width : 0)
        * static_cast<std::size_t>(pixels.height > 0 ? pixels.height : 0);
    if (pixels.pixels.size() < count)
        return;
    auto cursor = cursorFromPixels(pixels.pixels.data(), pixels.width, pixels.height, pixels.hotSpotX, pixels.hotSpotY);
    if (!cursor)
        return;
    m_current.reset();
    SDL_SetCursor(cursor.get());
    SDL_ShowCursor(SDL_ENABLE);
    m_own = std::move(cursor);
}

void CursorShelf::abandon()
{
    for (auto& [shape, cursor] : m_shapes)
        static_cast<void>(cursor.release());
    m_shapes.clear();
    static_cast<void>(m_own.release());
}

}

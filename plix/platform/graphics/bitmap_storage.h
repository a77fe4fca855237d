#pragma once

#include <plix/platform/graphics/handles.h>

#include <cstdint>
#include <memory>

// Private to plix/platform/graphics.

namespace plix {

class NSBitmapImageRep;

/// Premultiplied 32-bit pixels, shared by copies and never changed while more than one holds them.
struct BitmapStorage {
    int width { 0 };
    int height { 0 };
    std::uint64_t stamp { 0 };
    std::unique_ptr<std::uint32_t[]> pixels;
    Handle<cairo_surface_t> surface;

    /// Transparent pixels; null for sides below 1 or too many pixels.
    static std::shared_ptr<BitmapStorage> make(int width, int height);
    /// Likewise, for those who write to every pixel.
    static std::shared_ptr<BitmapStorage> makeUninitialized(int width, int height);
    std::shared_ptr<BitmapStorage> duplicate() const;
    std::uint32_t* row(int y) const { return pixels.get() + static_cast<std::ptrdiff_t>(y) * width; }
};

/// Never given before.
std::uint64_t nextContentStamp();
/// Belongs to the storage; null where Cairo can't make one.
cairo_surface_t* surfaceOf(NSBitmapImageRep const&);

}

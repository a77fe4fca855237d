#include <plix/platform/graphics/bitmap_storage.h>

#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/image_codecs.h>

#include <algorithm>
#include <new>

namespace plix {

std::shared_ptr<BitmapStorage> BitmapStorage::make(int width, int height)
{
    if (!isAcceptableSize(width, height))
        return nullptr;
    auto storage = std::make_shared<BitmapStorage>();
    storage->width = width;
    storage->height = height;
    storage->stamp = nextContentStamp();
    storage->pixels.reset(new (std::nothrow) std::uint32_t[static_cast<std::size_t>(width) * static_cast<std::size_t>(height)]());
    return storage->pixels ? storage : nullptr;
}

std::shared_ptr<BitmapStorage> BitmapStorage::duplicate() const
{
    auto copy = make(width, height);
    if (copy)
        std::copy_n(pixels.get(), static_cast<std::size_t>(width) * static_cast<std::size_t>(height), copy->pixels.get());
    return copy;
}

std::uint64_t nextContentStamp()
{
    static std::uint64_t s_next = 1;
    return s_next++;
}

cairo_surface_t* surfaceOf(NSBitmapImageRep const& rep)
{
    auto const& storage = rep.sharedStorage();
    if (!storage)
        return nullptr;
    if (!storage->surface) {
        storage->surface.reset(cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(storage->pixels.get()),
            CAIRO_FORMAT_ARGB32, storage->width, storage->height, storage->width * 4));
    }
    cairo_surface_mark_dirty(storage->surface.get());
    return cairo_surface_status(storage->surface.get()) == CAIRO_STATUS_SUCCESS ? storage->surface.get() : nullptr;
}

}

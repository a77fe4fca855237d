#include <plix/platform/graphics/bitmap_storage.h>

#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/image_codecs.h>

#include <algorithm>
#include <new>

namespace plix {

namespace {

std::size_t pixelCount(BitmapStorage const& storage)
{
    return static_cast<std::size_t>(storage.width) * static_cast<std::size_t>(storage.height);
}

}

std::shared_ptr<BitmapStorage> BitmapStorage::make(int width, int height)
{
    auto storage = makeUninitialized(width, height);
    if (storage)
        std::fill_n(storage->pixels.get(), pixelCount(*storage), 0U);
    return storage;
}

std::shared_ptr<BitmapStorage> BitmapStorage::makeUninitialized(int width, int height)
{
    if (!isAcceptableSize(width, height))
        return nullptr;
    auto storage = std::make_shared<BitmapStorage>();
    storage->width = width;
    storage->height = height;
    storage->stamp = nextContentStamp();
    storage->pixels.reset(new (std::nothrow) std::uint32_t[pixelCount(*storage)]);
    return storage->pixels ? storage : nullptr;
}

std::shared_ptr<BitmapStorage> BitmapStorage::duplicate() const
{
    auto copy = makeUninitialized(width, height);
    if (copy)
        std::copy_n(pixels.get(), pixelCount(*this), copy->pixels.get());
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

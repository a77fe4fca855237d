#include <plix/platform/graphics/image_recoloring.h>

#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/bitmap_storage.h>
#include <plix/platform/graphics/context_internals.h>
#include <plix/platform/graphics/pixel_operations.h>

namespace plix {

Ref<NSImage> recoloredImage(NSImage const& image, NSColor const& color)
{
    if (color.patternImage())
        return nullptr;
    auto const source = image.bitmapAtScale(NSImage::backingScaleForDrawing());
    auto storage = source ? BitmapStorage::makeUninitialized(source->pixelsWide(), source->pixelsHigh()) : nullptr;
    if (!storage)
        return nullptr;
    auto const pixel = premultipliedPixel(color.components());
    recolorRow(storage->pixels.get(), source->storage()->pixels.get(), storage->width * storage->height, pixel);
    return NSImage::imageDrawnInto(make<NSBitmapImageRep>(std::move(storage), image.size(), source->pixelsPerPoint()));
}

}

#include <tests/support/images.h>

#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <cstring>

namespace plix {

std::uint32_t distinctPixel(int x, int y)
{
    return 0xFF000080U | static_cast<std::uint32_t>(x * 3 + 1) << 16U | static_cast<std::uint32_t>(y * 3 + 1) << 8U;
}

Ref<NSBitmapImageRep> bitmapOfDistinctPixels(int width, int height)
{
    auto rep = make<NSBitmapImageRep>(width, height);
    auto const pixels = rep->mutablePixels();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            auto const pixel = distinctPixel(x, y);
            std::memcpy(pixels.pixels + static_cast<std::ptrdiff_t>(y) * pixels.stride + 4L * x, &pixel, 4);
        }
    }
    return rep;
}

Ref<NSImage> imageOfDistinctPixels(int width, int height)
{
    auto image = make<NSImage>();
    image->addRepresentation(bitmapOfDistinctPixels(width, height));
    return image;
}

Ref<NSBitmapImageRep> bitmapOfColor(int width, int height, ColorComponents color)
{
    auto rep = make<NSBitmapImageRep>(width, height);
    auto const context = NSGraphicsContext::graphicsContextWithBitmapImageRep(rep);
    {
        CurrentContext const current(context);
        NSColor::colorWithDeviceRed(color.red, color.green, color.blue, color.alpha)->set();
        NSRectFill({ 0, 0, static_cast<float>(width), static_cast<float>(height) });
    }
    context->flushGraphics();
    return rep;
}

Ref<NSImage> imageOfColor(Size size, ColorComponents color)
{
    auto image = make<NSImage>(size);
    FocusLock const focus(image);
    NSColor::colorWithDeviceRed(color.red, color.green, color.blue, color.alpha)->set();
    NSRectFill(rectWith({}, size));
    return image;
}

}

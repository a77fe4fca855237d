#include <plix/platform/appkit/theme_pictures.h>

#include <plix/platform/base/hash_of.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/recent_cache.h>

#include <cmath>

namespace plix {

namespace {

constexpr std::size_t mostPictures = 256;
constexpr std::size_t mostBytes = 4U << 20U;
/// Larger faces are rare and cost more to keep than to draw.
constexpr float largestSide = 512;

struct ThemePictureHash {
    std::size_t operator()(ThemePicture const& picture) const
    {
        return hashOf(picture.kind, picture.variant, picture.face, picture.state, picture.size.width, picture.size.height,
            picture.look.style, picture.look.isOn);
    }
};

bool isWhole(double value)
{
    return std::abs(value - std::round(value)) < 1e-4;
}

bool isOnPixels(NSGraphicsContext const& context, Rect rect)
{
    auto const transform = context.currentTransform();
    if (!transform.keepsAxes() || transform.m11 != 1 || std::abs(transform.m22) != 1)
        return false;
    double const scale = context.backingScale();
    auto const origin = transform.apply(rect.origin());
    return isWhole(origin.x * scale) && isWhole(origin.y * scale) && isWhole(rect.width * scale) && isWhole(rect.height * scale);
}

Ref<NSBitmapImageRep> newPicture(Size size, float scale, FunctionRef<void(Rect)> draw)
{
    auto const bitmap = make<NSBitmapImageRep>(
        static_cast<int>(std::lround(size.width * scale)), static_cast<int>(std::lround(size.height * scale)));
    if (!bitmap)
        return nullptr;
    bitmap->setPixelsPerPoint({ scale, scale });
    auto const context = NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap);
    if (!context)
        return nullptr;
    CurrentContext const current(context);
    context->translateBy(0, size.height);
    context->scaleBy(1, -1);
    context->setFlipped(true);
    draw(rectWith({}, size));
    context->flushGraphics();
    return bitmap;
}

}

bool drawThemePicture(Rect rect, ThemePicture const& wanted, FunctionRef<void(Rect)> draw, std::span<Rect const> parts)
{
    static auto& s_pictures = *new RecentCache<ThemePicture, Ref<NSBitmapImageRep>, ThemePictureHash>(mostPictures, mostBytes);
    auto const context = NSGraphicsContext::currentContext();
    if (!context || rect.isEmpty() || rect.width > largestSide || rect.height > largestSide || !isOnPixels(*context, rect))
        return false;
    auto key = wanted;
    key.size = rect.size();
    key.scale = context->backingScale();
    key.appearance = currentAppearance();
    auto const* kept = s_pictures.find(key);
    Ref<NSBitmapImageRep> picture = kept ? *kept : newPicture(key.size, key.scale, draw);
    if (!picture)
        return false;
    if (!kept)
        s_pictures.keep(
            key, picture, static_cast<std::size_t>(picture->pixelsWide()) * static_cast<std::size_t>(picture->pixelsHigh()) * 4);
    // Its first row at the smallest y, whichever way that is.
    for (auto const& part : parts) {
        auto const shown = NSIntersectionRect(part, rect);
        if (!shown.isEmpty())
            picture->draw({ shown, NSOffsetRect(shown, -rect.x, -rect.y), NSCompositeSourceOver, 1, true });
    }
    return !parts.empty() || picture->draw({ rect, rectWith({}, key.size), NSCompositeSourceOver, 1, true });
}

}

#include <plix/windows/window_background.h>

#include <plix/platform/base/FunctionRef.h>
#include <plix/platform/base/hash_of.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/recent_cache.h>
#include <plix/windows/background_plan.h>

#include <cstdint>

namespace plix {

namespace {

/// A pattern is narrow: this many are a resize by hand over the height of a screen.
constexpr std::size_t mostPatterns = 1024;
/// As large as a window, and seldom asked for again.
constexpr std::size_t mostWholeImages = 4;
constexpr std::size_t mostBytes = 16U * 1024 * 1024;

struct BackgroundKey {
    std::uint64_t stamp;
    /// Any number; of whole images, which are kept apart, always 0.
    int mode;
    Size size;
    float scale;
    friend bool operator==(BackgroundKey const&, BackgroundKey const&) = default;
};
struct BackgroundKeyHash {
    std::size_t operator()(BackgroundKey const& key) const { return hashOf(key.stamp, key.mode, key.size.width, key.size.height); }
};
using BackgroundCache = RecentCache<BackgroundKey, Ref<NSImage>, BackgroundKeyHash>;

std::size_t bytesOf(Size size, float scale)
{
    return static_cast<std::size_t>(size.width * scale) * static_cast<std::size_t>(size.height * scale) * 4;
}

Ref<NSImage> sharedBackground(
    BackgroundCache& cache, NSImage const* background, int mode, Size size, FunctionRef<void(NSImage const&)> draw)
{
    if (!background || !(size.width > 0) || !(size.height > 0))
        return make<NSImage>(size);
    float const scale = NSImage::backingScaleForDrawing();
    BackgroundKey const key { background->contentStamp(), mode, size, scale };
    if (auto const* earlier = cache.find(key))
        return (*earlier)->copy();
    auto image = make<NSImage>(size);
    {
        FocusLock const focus(image);
        draw(*background);
    }
    cache.keep(key, image->copy(), bytesOf(size, scale));
    return image;
}

/// The strip is captured from a copy, so that the background keeps its representations.
void drawStrip(NSImage const& background, BackgroundPiece const& piece)
{
    Ref<NSBitmapImageRep> strip;
    {
        FocusLock const focus(background.copy());
        strip = make<NSBitmapImageRep>(piece.source);
    }
    if (strip)
        NSImage::imageDrawnInto(strip)->drawInRect(piece.destination, {}, NSCompositeCopy, 1);
}

}

Ref<NSImage> backgroundPattern(NSImage const* background, int mode, float height)
{
    static auto& s_patterns = *new BackgroundCache(mostPatterns, mostBytes);
    Size const size = background ? background->size() : Size {};
    return sharedBackground(s_patterns, background, mode, { size.width, height }, [&](NSImage const& image) {
        for (auto const& piece : backgroundPlan(mode, size, height)) {
            if (piece.isStrip)
                drawStrip(image, piece);
            else
                image.drawInRect(piece.destination, piece.source, NSCompositeCopy, 1);
        }
    });
}

Ref<NSImage> stretchedBackground(NSImage const* background, Size size)
{
    static auto& s_wholeImages = *new BackgroundCache(mostWholeImages, mostBytes);
    return sharedBackground(s_wholeImages, background, 0, size,
        [&](NSImage const& image) { image.drawInRect(rectWith({}, size), {}, NSCompositeCopy, 1); });
}

}

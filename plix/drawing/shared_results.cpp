#include <plix/drawing/shared_results.h>

#include <plix/platform/base/hash_of.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/recent_cache.h>

namespace plix {

namespace {

constexpr std::size_t mostResults = 128;
constexpr std::size_t mostBytes = 24U * 1024 * 1024;

struct SharedKeyHash {
    std::size_t operator()(SharedKey const& key) const
    {
        return hashOf(key.operation, key.stamps[0], key.stamps[1], key.parameters.width, key.parameters.height);
    }
};

std::size_t bytesOf(NSImage const& image)
{
    std::size_t bytes = 0;
    for (auto const& rep : image.representations())
        bytes += static_cast<std::size_t>(rep->pixelsWide()) * static_cast<std::size_t>(rep->pixelsHigh()) * 4;
    return bytes;
}

}

void SharedKey::addStamp(std::uint64_t stamp)
{
    // One stamp is kept as it is; of more, their order counts too.
    auto& first = stamps[0];
    auto& folded = stamps[1];
    if (first == 0)
        first = stamp;
    else
        folded = (folded ^ stamp) * 0x9E3779B97F4A7C15U + 1;
}

Ref<NSImage> sharedResult(SharedKey key, FunctionRef<Ref<NSImage>()> makeImage)
{
    static auto& s_results = *new RecentCache<SharedKey, Ref<NSImage>, SharedKeyHash>(mostResults, mostBytes);
    key.scale = NSImage::backingScaleForDrawing();
    if (auto const* earlier = s_results.find(key))
        return (*earlier)->copy();
    auto image = makeImage();
    if (image)
        s_results.keep(key, image->copy(), bytesOf(*image));
    return image;
}

}

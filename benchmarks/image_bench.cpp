#include "allocations.h"
#include "bench.h"
#include "image_peers.h"

#include <examples/gallery/picture_samples.h>
#include <plix/drawing/PLIXShading.h>
#include <plix/drawing/image_composition.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace plix::bench {

namespace {

/// A soft disc on a transparent ground, coloured along both axes.
PeerPixels softDisc(int width, int height)
{
    PeerPixels picture { width, height, {} };
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            double const distance = std::hypot((x + 0.5) / width - 0.5, (y + 0.5) / height - 0.5) * 2;
            auto const alpha = static_cast<std::uint32_t>(std::clamp((1.2 - distance) * 2, 0.0, 1.0) * 255);
            auto const red = alpha * static_cast<std::uint32_t>(x) / static_cast<std::uint32_t>(width);
            auto const green = alpha * static_cast<std::uint32_t>(y) / static_cast<std::uint32_t>(height);
            picture.pixels.push_back(alpha << 24U | red << 16U | green << 8U | alpha / 2);
        }
    }
    return picture;
}

Ref<NSImage> imageOf(PeerPixels const& picture)
{
    auto rep = make<NSBitmapImageRep>(picture.width, picture.height);
    std::memcpy(rep->mutablePixels().pixels, picture.pixels.data(), picture.pixels.size() * 4);
    auto image = make<NSImage>();
    image->addRepresentation(rep);
    return image;
}

/// Looks changed to everything that keeps earlier results.
void touch(NSImage const& image)
{
    static_cast<NSBitmapImageRep&>(*image.representations().front()).contentChanged();
}

void measure(Figure& figure, ImagePeer const& peer, std::function<void()> const& ours, std::function<void()> const& theirs)
{
    figure.setUnit("us");
    figure.timeAgainst(peer.name, { ours }, { theirs });
}

using Measuring = void (*)(Figure&, ImagePeer const&);

void withQt([[maybe_unused]] Figure& figure, [[maybe_unused]] Measuring measuring)
{
#ifdef PLIX_BENCH_QT
    measuring(figure, qtPeer());
#else
    figure.skip("built without Qt");
#endif
}

void measureRecolor(Figure& figure, ImagePeer const& peer)
{
    auto const picture = softDisc(512, 512);
    auto const image = imageOf(picture);
    auto const color = NSColor::colorWithCalibratedRed(0.9F, 0.2F, 0.1F, 1);
    measure(
        figure, peer,
        [=] {
            touch(*image);
            keep(ReplaceColorsInImage(image, color));
        },
        peer.recolor(picture));
}

void measureNineSlice(Figure& figure, ImagePeer const& peer)
{
    auto const picture = softDisc(30, 30);
    auto const image = imageOf(picture);
    auto const target = make<NSImage>(Size { 400, 40 });
    measure(
        figure, peer,
        [=] {
            touch(*image);
            keep(PLIXStretchedImageOverImage(image, target));
        },
        peer.nineSlice(picture, 400, 40));
}

void measureNineSliceAgain(Figure& figure, ImagePeer const& peer)
{
    auto const picture = softDisc(30, 30);
    auto const image = imageOf(picture);
    auto const target = make<NSImage>(Size { 400, 40 });
    measure(
        figure, peer, [=] { keep(PLIXStretchedImageOverImage(image, target)); }, peer.nineSlice(picture, 400, 40));
}

void measureCompose(Figure& figure, ImagePeer const& peer)
{
    std::vector<PeerPixels> const pictures(8, softDisc(256, 256));
    std::vector<Ref<NSImage>> images;
    for (auto const& picture : pictures)
        images.push_back(imageOf(picture));
    measure(
        figure, peer,
        [=] {
            touch(*images.front());
            keep(imageByCompositingImages(images));
        },
        peer.compose(pictures));
}

void measurePart(Figure& figure, ImagePeer const& peer)
{
    auto const picture = softDisc(512, 512);
    auto const image = imageOf(picture);
    auto const target = make<NSBitmapImageRep>(256, 256);
    CurrentContext const current(NSGraphicsContext::graphicsContextWithBitmapImageRep(target));
    measure(
        figure, peer,
        [=] {
            image->drawInRect({ 8, 152, 160, 96 }, { 224, 224, 64, 64 }, NSCompositeSourceOver, 1);
        },
        peer.part(picture));
}

void measureAxial(Figure& figure, ImagePeer const& peer)
{
    auto const target = make<NSBitmapImageRep>(64, 17);
    CurrentContext const current(NSGraphicsContext::graphicsContextWithBitmapImageRep(target));
    auto const shading = make<PLIXShading>();
    shading->setStartColorComponents({ 0.1F, 0.3F, 0.7F, 1 });
    shading->setEndColorComponents({ 0.4F, 0.6F, 0.9F, 1 });
    shading->setStartPoint({ 0, 0 });
    shading->setEndPoint({ 0, 17 });
    measure(
        figure, peer, [=] { shading->drawShading(); }, peer.axial(64, 17));
}

}

PLIX_FIGURE("image.recolour")
{
    figure.wantRatio(2);
    withQt(figure, measureRecolor);
}

PLIX_FIGURE("image.recolour_cairo")
{
    measureRecolor(figure, cairoPeer());
}

PLIX_FIGURE("image.nine_slice")
{
    figure.wantRatio(1);
    withQt(figure, measureNineSlice);
}

PLIX_FIGURE("image.nine_slice_again")
{
    figure.wantRatio(5);
    withQt(figure, measureNineSliceAgain);
}

PLIX_FIGURE("image.nine_slice_cairo")
{
    measureNineSlice(figure, cairoPeer());
}

PLIX_FIGURE("image.compose")
{
    withQt(figure, measureCompose);
}

PLIX_FIGURE("image.compose_cairo")
{
    measureCompose(figure, cairoPeer());
}

PLIX_FIGURE("image.part")
{
    withQt(figure, measurePart);
}

PLIX_FIGURE("image.part_cairo")
{
    measurePart(figure, cairoPeer());
}

PLIX_FIGURE("shading.axial")
{
    withQt(figure, measureAxial);
}

PLIX_FIGURE("shading.axial_cairo")
{
    measureAxial(figure, cairoPeer());
}

PLIX_FIGURE("image.draw_allocations")
{
    auto const samples = gallery::PictureSamples::make();
    auto const target = make<NSBitmapImageRep>(512, 512);
    CurrentContext const current(NSGraphicsContext::graphicsContextWithBitmapImageRep(target));
    auto const images = samples.all();
    auto const drawAll = [&] {
        float x = 0;
        for (auto const* image : images) {
            auto const size = image->size();
            image->drawInRect({ x, 0, size.width, size.height }, {}, NSCompositeSourceOver, 1);
            image->drawInRect({ x, 100, 2 * size.width, 40 }, {}, NSCompositeSourceOver, 0.5F);
            image->compositeToPoint({ x, 200 }, NSCompositeSourceOver);
            x += 10;
        }
    };
    drawAll();
    auto const before = allocationCount();
    drawAll();
    figure.setUnit("allocations");
    figure.count(static_cast<double>(allocationCount() - before));
}

}

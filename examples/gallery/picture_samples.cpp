#include "picture_samples.h"

#include <plix/drawing/PLIXShading.h>
#include <plix/drawing/bezier_path_additions.h>
#include <plix/drawing/geometry_helpers.h>
#include <plix/drawing/image_composition.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <cmath>

namespace gallery {

using namespace plix;

namespace {

Ref<NSColor> rgb(float red, float green, float blue, float alpha = 1)
{
    return NSColor::colorWithCalibratedRed(red, green, blue, alpha);
}

template <typename Draw> Ref<NSImage> imageWith(Size size, Draw draw)
{
    auto image = make<NSImage>(size);
    FocusLock const focus(image);
    draw();
    return image;
}

void shade(Rect rect, PLIXShading::Components const& bottom, PLIXShading::Components const& top)
{
    GraphicsState const saved;
    auto const shading = make<PLIXShading>();
    shading->setStartColorComponents(bottom);
    shading->setEndColorComponents(top);
    shading->setStartPoint({ 0, rect.y });
    shading->setEndPoint({ 0, rect.maxY() });
    NSRectClip(rect);
    shading->drawShading();
}

Ref<NSImage> makeButton()
{
    return imageWith({ 30, 30 }, [] {
        auto const outline = bezierPathWithRoundedRect({ 0.5F, 0.5F, 29, 29 }, 8);
        {
            GraphicsState const saved;
            outline->addClip();
            shade({ 0, 0, 30, 30 }, { 0.74F, 0.80F, 0.90F, 1 }, { 0.97F, 0.98F, 1, 1 });
        }
        rgb(0.35F, 0.43F, 0.56F)->set();
        outline->stroke();
    });
}

Ref<NSImage> makeGlass()
{
    return imageWith({ 30, 30 }, [] {
        rgb(0.15F, 0.42F, 0.86F, 0.25F)->setFill();
        rgb(0.10F, 0.30F, 0.65F)->setStroke();
        auto const outline = bezierPathWithRoundedRect({ 3, 3, 24, 24 }, 6);
        outline->setLineWidth(2);
        outline->fill();
        outline->stroke();
    });
}

Ref<NSImage> makeFolder()
{
    return imageWith({ 40, 40 }, [] {
        rgb(0.25F, 0.50F, 0.80F)->set();
        bezierPathWithRoundedRect({ 3, 20, 16, 15 }, 3)->fill();
        auto const body = bezierPathWithRoundedRect({ 3, 6, 34, 25 }, 3);
        GraphicsState const saved;
        body->addClip();
        shade({ 3, 6, 34, 25 }, { 0.36F, 0.62F, 0.90F, 1 }, { 0.58F, 0.78F, 0.97F, 1 });
    });
}

Ref<NSImage> makeBadge()
{
    return imageWith({ 14, 14 }, [] {
        NSColor::whiteColor()->set();
        NSBezierPath::bezierPathWithOvalInRect({ 0, 0, 14, 14 })->fill();
        rgb(0.86F, 0.16F, 0.18F)->set();
        NSBezierPath::bezierPathWithOvalInRect({ 1, 1, 12, 12 })->fill();
        NSColor::whiteColor()->set();
        NSRectFillUsingOperation({ 6, 3, 2, 2 }, NSCompositeSourceOver);
        NSRectFillUsingOperation({ 6, 6, 2, 5 }, NSCompositeSourceOver);
    });
}

Ref<NSImage> makeStar()
{
    return imageWith({ 40, 40 }, [] {
        auto const star = NSBezierPath::bezierPath();
        for (int i = 0; i < 10; ++i) {
            double const angle = (90 + 36 * i) * 3.14159265 / 180;
            float const radius = i % 2 == 0 ? 18.0F : 7.5F;
            star->lineToPoint(
                { 20 + radius * static_cast<float>(std::cos(angle)), 19 + radius * static_cast<float>(std::sin(angle)) });
        }
        star->closePath();
        NSColor::blackColor()->set();
        star->fill();
    });
}

Ref<NSImage> makeOperation(NSCompositingOperation operation)
{
    auto const source = imageWith({ 48, 48 }, [] {
        rgb(0.95F, 0.55F, 0.10F, 0.8F)->set();
        bezierPathWithRoundedRect({ 18, 6, 26, 26 }, 5)->fill();
    });
    return imageWith({ 48, 48 }, [&] {
        rgb(0.15F, 0.42F, 0.86F)->set();
        NSBezierPath::bezierPathWithOvalInRect({ 4, 14, 30, 30 })->fill();
        source->drawInRect({ 0, 0, 48, 48 }, {}, operation, 1);
    });
}

Ref<NSImage> makeIcon()
{
    constexpr char const* rows[] { "....####....", "..##oooo##..", ".#oooooooo#.", ".#o#oooo#o#.", "#oooooooooo#", "#oooooooooo#",
        "#o#oooooo#o#", "#oo#oooo#oo#", ".#oo####oo#.", ".#oooooooo#.", "..##oooo##..", "....####...." };
    auto rep = make<NSBitmapImageRep>(12, 12);
    auto const line = rgb(0.30F, 0.22F, 0.05F);
    auto const fill = rgb(1, 0.82F, 0.25F);
    for (int y = 0; y < 12; ++y) {
        for (int x = 0; x < 12; ++x) {
            if (rows[y][x] != '.')
                rep->setColor(rows[y][x] == '#' ? *line : *fill, x, y);
        }
    }
    auto image = make<NSImage>();
    image->addRepresentation(rep);
    return image;
}

Ref<NSImage> makeLines()
{
    return imageWith({ 144, 144 }, [] {
        NSColor::whiteColor()->set();
        NSRectFill({ 0, 0, 144, 144 });
        NSColor::blackColor()->set();
        for (float inset = 1; inset < 72; inset += 3) {
            auto const circle = NSBezierPath::bezierPathWithOvalInRect(NSInsetRect({ 0, 0, 144, 144 }, inset, inset));
            circle->setLineWidth(1.5F);
            circle->stroke();
        }
    });
}

Ref<NSImage> makeTile()
{
    return imageWith({ 12, 12 }, [] {
        rgb(0.93F, 0.95F, 0.98F)->set();
        NSRectFill({ 0, 0, 12, 12 });
        rgb(0.45F, 0.60F, 0.80F)->set();
        NSBezierPath::bezierPathWithOvalInRect({ 1, 1, 5, 5 })->fill();
        NSBezierPath::bezierPathWithOvalInRect({ 7, 7, 5, 5 })->fill();
    });
}

}

void drawCheckerboard(Rect rect)
{
    GraphicsState const saved;
    NSRectClip(rect);
    NSColor::whiteColor()->set();
    NSRectFill(rect);
    NSColor::colorWithCalibratedWhite(0.87F, 1)->set();
    for (float y = 0; y < rect.height; y += 8) {
        for (float x = std::fmod(y, 16.0F); x < rect.width; x += 16)
            NSRectFill({ rect.x + x, rect.y + y, 8, 8 });
    }
}

PictureSamples PictureSamples::make()
{
    PictureSamples samples;
    samples.button = makeButton();
    for (Size const size : { Size { 52, 30 }, Size { 120, 30 }, Size { 120, 44 }, Size { 60, 24 } })
        samples.stretched.push_back(PLIXStretchedImageOverImage(samples.button, plix::make<NSImage>(size)));
    samples.tile = makeTile();
    auto const ground = imageWith({ 76, 44 }, [&] {
        NSColor::colorWithPatternImage(samples.tile)->set();
        NSRectFill({ 0, 0, 76, 44 });
    });
    samples.stretched.push_back(PLIXStretchImageOverImage(makeGlass(), ground));
    samples.folder = makeFolder();
    samples.badge = makeBadge();
    for (int alignment = 0; alignment < 9; ++alignment)
        samples.badged.push_back(badgedImage(samples.folder, samples.badge, alignment));
    auto const star = makeStar();
    samples.recolored.push_back(star);
    for (auto const& color : { rgb(0.86F, 0.16F, 0.18F), rgb(0.95F, 0.66F, 0.08F), rgb(0.20F, 0.62F, 0.30F),
             rgb(0.15F, 0.42F, 0.86F), rgb(0.55F, 0.30F, 0.75F), rgb(0.15F, 0.42F, 0.86F, 0.5F) })
        samples.recolored.push_back(ReplaceColorsInImage(star, color));
    samples.recolored.push_back(ReplaceColorsInImage(samples.folder, rgb(0.55F, 0.55F, 0.60F)));
    samples.parts = { samples.folder, ReplaceColorsInImage(star, NSColor::whiteColor()),
        badgedImage(plix::make<NSImage>(Size { 40, 40 }), samples.badge, PLIXAlignBottomRight) };
    samples.composed = imageByCompositingImages(samples.parts);
    for (int operation = 0; operation <= NSCompositePlusLighter; ++operation)
        samples.operations.push_back(makeOperation(static_cast<NSCompositingOperation>(operation)));
    samples.icon = makeIcon();
    samples.lines = makeLines();
    return samples;
}

std::vector<NSImage const*> PictureSamples::all() const
{
    std::vector<NSImage const*> images { button.get(), folder.get(), badge.get(), composed.get(), icon.get(), lines.get(),
        tile.get() };
    for (auto const* list : { &stretched, &badged, &recolored, &parts, &operations }) {
        for (auto const& image : *list)
            images.push_back(image.get());
    }
    return images;
}

}

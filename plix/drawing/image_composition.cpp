#include <plix/drawing/image_composition.h>

#include <plix/drawing/geometry_helpers.h>
#include <plix/drawing/image_plans.h>
#include <plix/drawing/shared_results.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/image_recoloring.h>

namespace plix {

namespace {

void drawWhole(NSImage const& image, Rect rect)
{
    image.drawInRect(rect, PLIXMakeRectWithSize(image.size()), NSCompositeSourceOver, 1);
}

Ref<NSImage> shrunkImage(NSImage const& image, double factor)
{
    auto shrunk = make<NSImage>(shrunkSize(image.size(), factor));
    FocusLock const focus(shrunk);
    drawWhole(image, PLIXMakeRectWithSize(shrunk->size()));
    return shrunk;
}

Ref<NSImage> composedOf(std::vector<Ref<NSImage>> const& images)
{
    auto const canvas = images.front()->size();
    auto composed = make<NSImage>(canvas);
    FocusLock const focus(composed);
    for (auto const& image : images)
        drawWhole(*image, compositionRect(image->size(), canvas));
    return composed;
}

}

Ref<NSImage> PLIXStretchedImageOverImage(Ref<NSImage> const& image, Ref<NSImage> const& target)
{
    if (!image || !target)
        return nullptr;
    auto const size = target->size();
    return sharedResult({ SharedOperation::stretch, { image->contentStamp() }, size }, [&] {
        double const factor = shrinkFactor(image->size(), size);
        auto const source = factor < 1 ? shrunkImage(*image, factor) : image;
        auto stretched = make<NSImage>(size);
        FocusLock const focus(stretched);
        for (auto const& piece : nineSlicePlan(source->size(), size)) {
            if (!piece.source.isEmpty())
                source->drawInRect(piece.destination, piece.source, NSCompositeSourceOver, 1);
        }
        return stretched;
    });
}

Ref<NSImage> PLIXStretchImageOverImage(Ref<NSImage> const& image, Ref<NSImage> const& target)
{
    auto const stretched = PLIXStretchedImageOverImage(image, target);
    if (!stretched)
        return nullptr;
    return sharedResult({ SharedOperation::stretchOver, { stretched->contentStamp(), target->contentStamp() }, {} }, [&] {
        auto result = make<NSImage>(stretched->size());
        FocusLock const focus(result);
        Rect const all = PLIXMakeRectWithSize(result->size());
        drawWhole(*target, all);
        drawWhole(*stretched, all);
        return result;
    });
}

Ref<NSImage> badgedImage(Ref<NSImage> const& image, Ref<NSImage> const& badge, int alignment)
{
    auto const size = image ? image->size() : Size {};
    auto const stamp = [](Ref<NSImage> const& of) { return of ? of->contentStamp() : 0; };
    return sharedResult({ SharedOperation::badge, { stamp(image), stamp(badge) }, { static_cast<float>(alignment), 0 } }, [&] {
        auto badged = make<NSImage>(size);
        FocusLock const focus(badged);
        if (image)
            drawWhole(*image, PLIXMakeRectWithSize(size));
        if (badge) {
            Rect const place = PLIXAlignRectOnRect(PLIXMakeRectWithSize(badge->size()), PLIXMakeRectWithSize(size), alignment);
            badge->compositeToPoint(place.origin(), NSCompositeSourceOver, 1);
        }
        return badged;
    });
}

Ref<NSImage> ReplaceColorsInImage(Ref<NSImage> const& image, Ref<NSColor> const& color)
{
    if (!image || !color)
        return nullptr;
    auto const recolored = [&] {
        if (auto quick = recoloredImage(*image, *color))
            return quick;
        auto result = make<NSImage>(image->size());
        FocusLock const focus(result);
        color->set();
        NSRectFill(PLIXMakeRectWithSize(result->size()));
        image->compositeToPoint({}, NSCompositeDestinationAtop);
        return result;
    };
    if (color->patternImage())
        return recolored();
    auto const components = color->components();
    return sharedResult({ SharedOperation::recolor, { image->contentStamp() }, {}, components }, recolored);
}

Ref<NSImage> imageByCompositingImages(std::vector<Ref<NSImage>> const& images)
{
    if (images.empty())
        return nullptr;
    SharedKey key { SharedOperation::compose, {}, {} };
    for (auto const& image : images)
        key.addStamp(image->contentStamp());
    return sharedResult(key, [&] { return composedOf(images); });
}

Ref<NSImage> imageByCompositingImages(ObjectValue const& images)
{
    auto const* array = images.array();
    if (!array)
        return nullptr;
    std::vector<Ref<NSImage>> found;
    for (auto const& element : *array) {
        if (auto image = element.as<NSImage>())
            found.push_back(std::move(image));
    }
    return imageByCompositingImages(found);
}

}

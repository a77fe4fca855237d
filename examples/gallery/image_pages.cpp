#include "image_pages.h"
#include "Canvas.h"
#include "Transcript.h"
#include "page_parts.h"

#include <plix/drawing/PLIXShading.h>
#include <plix/drawing/bezier_path_additions.h>
#include <plix/drawing/geometry_helpers.h>
#include <plix/drawing/image_composition.h>
#include <plix/drawing/rounded_rect.h>
#include <plix/drawing/text_height.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/graphics/CGColorSpace.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/NSImageRep.h>

#include <array>
#include <tuple>

namespace gallery {

using namespace plix;

namespace {

/// Four to a row.
constexpr Size small { 121, 84 };
/// Three to a row.
constexpr Size wide { 165, 96 };

void drawCentered(NSImage const& image, Rect bounds)
{
    auto const size = image.size();
    image.drawAtPoint({ bounds.midX() - size.width / 2, bounds.midY() - size.height / 2 }, {}, NSCompositeSourceOver, 1);
}

Ref<NSView> picture(char const* caption, Size size, std::function<Ref<NSImage>()> const& make)
{
    return drawing(caption, size, [make](Rect bounds) { drawCentered(*make(), bounds); });
}

/// A capsule with a light top, as buttons are made of.
Ref<NSImage> capsule(Size size)
{
    auto image = make<NSImage>(size);
    FocusLock const focus(image);
    Rect const outline = NSInsetRect(rectWith({}, size), 0.5F, 0.5F);
    NSColor::colorWithCalibratedRed(0.3F, 0.55F, 0.9F, 1)->set();
    bezierPathWithRoundedRect(outline, 9)->fill();
    NSColor::colorWithCalibratedWhite(1, 0.45F)->set();
    bezierPathWithRoundedRect({ 4, size.height / 2, size.width - 8, size.height / 2 - 3 }, 6)->fill();
    NSColor::colorWithCalibratedRed(0.1F, 0.25F, 0.5F, 1)->set();
    bezierPathWithRoundedRect(outline, 9)->stroke();
    return image;
}

// MARK: images

Ref<NSView> makeNSImagePage()
{
    auto const star = icon(Icon::star, 48);
    auto const drawn = [star](char const* caption, std::function<void(Rect)> const& draw) {
        return drawing(caption, small, [draw](Rect bounds) { draw(bounds); });
    };
    auto const transcript = make<Transcript>();
    SHOW(star->size());
    SHOW(star->representations().size());
    SHOW(NSImage::imageNamed("no such image"));
    SHOW(make<NSImage>(std::string_view("/no/such/file.png")));
    SHOW(make<NSImage>(*make<NSData>()));
    SHOW(NSImage::imageUnfilteredFileTypes());
    return tiledPage(
        {
            drawn("drawAtPoint",
                [star](Rect) {
                    star->drawAtPoint({ 36, 18 }, {}, NSCompositeSourceOver, 1);
                }),
            drawn("drawInRect", [star](Rect bounds) { star->drawInRect(NSInsetRect(bounds, 4, 4), {}, NSCompositeSourceOver, 1); }),
            drawn("a part of it",
                [star](Rect) {
                    star->drawAtPoint({ 48, 30 }, { 24, 0, 24, 24 }, NSCompositeSourceOver, 1);
                }),
            drawn("a third of it",
                [star](Rect) {
                    for (int i = 0; i < 4; ++i)
                        star->drawAtPoint({ 6 + 20 * static_cast<float>(i), 18 }, {}, NSCompositeSourceOver, 0.33F);
                }),
            drawn("dissolveToPoint",
                [star](Rect) {
                    star->dissolveToPoint({ 36, 18 }, 0.5F);
                }),
            drawn("in a turned view",
                [star](Rect bounds) {
                    NSGraphicsContext::currentContext()->translateBy(bounds.midX(), 10);
                    NSGraphicsContext::currentContext()->concat(AffineTransform::rotation(0.6));
                    star->drawAtPoint({}, {}, NSCompositeSourceOver, 1);
                }),
            drawn("composited there",
                [star](Rect bounds) {
                    NSGraphicsContext::currentContext()->translateBy(bounds.midX(), 10);
                    NSGraphicsContext::currentContext()->concat(AffineTransform::rotation(0.6));
                    star->compositeToPoint({}, NSCompositeSourceOver);
                }),
            drawn("with a background",
                [star](Rect bounds) {
                    auto const image = copyOf(*star);
                    image->setBackgroundColor(NSColor::colorWithCalibratedRed(0.6F, 0.75F, 0.95F, 1));
                    drawCentered(*image, bounds);
                }),
        },
        transcript);
}

Ref<NSView> makeNSImageRepPage()
{
    class Checkers : public NSImageRep {
    public:
        Checkers() { setSize({ 32, 32 }); }
        bool draw(ImageDrawing const& how) const override
        {
            for (int i = 0; i < 16; ++i) {
                float const side = how.destination.width / 4;
                NSColor::colorWithCalibratedHue(static_cast<float>(i) / 16, i % 3 == 0 ? 0.3F : 0.7F, 0.9F, how.fraction)->set();
                NSBezierPath::fillRect({ how.destination.x + static_cast<float>(i % 4) * side,
                    how.destination.y + static_cast<float>(i / 4) * side, side, side });
            }
            return true;
        }
    };
    auto const image = make<NSImage>(Size { 32, 32 });
    image->addRepresentation(make<Checkers>());
    auto const transcript = make<Transcript>();
    transcript->run("bool Checkers::draw(ImageDrawing const& how) const   // an override");
    RUN(auto const rep = make<Checkers>());
    SHOW(rep->size());
    SHOW(rep->pixelsWide());
    SHOW(rep->colorSpaceName());
    SHOW(rep->isOpaque());
    SHOW(NSImageRep::imageRepsWithContentsOfFile("/no/such/file").size());
    return tiledPage(
        {
            drawing("its size", small, [image](Rect bounds) { drawCentered(*image, bounds); }),
            drawing("larger", small,
                [image](Rect) {
                    image->drawInRect({ 24, 6, 72, 72 }, {}, NSCompositeSourceOver, 1);
                }),
            drawing("half as strong", small,
                [image](Rect) {
                    image->drawInRect({ 24, 6, 72, 72 }, {}, NSCompositeSourceOver, 0.5F);
                }),
            drawing("drawAtPoint", small,
                [](Rect) {
                    make<Checkers>()->drawAtPoint({ 8, 8 });
                }),
        },
        transcript);
}

Ref<NSView> makeNSBitmapImageRepPage()
{
    auto const transcript = make<Transcript>();
    RUN(auto const rep = make<NSBitmapImageRep>(4, 3));
    RUN(rep->setColor(*NSColor::redColor(), 1, 0));
    RUN(rep->setColor(*NSColor::colorWithCalibratedRed(0, 1, 0, 0.5F), 2, 0));
    SHOW(rep->colorAtX(1, 0)->description());
    SHOW(rep->pixelAtX(1, 0) == 0xFFFF0000);
    SHOW(rep->pixelAtX(2, 0) == 0x80008000);
    SHOW(rep->pixelAtX(0, 0));
    SHOW(rep->colorAtX(9, 9));
    SHOW(rep->size());
    RUN(rep->setPixelsPerPoint({ 2, 2 }));
    SHOW(rep->size());
    transcript->addHeading("Files");
    RUN(auto const png = rep->representationUsingType(NSPNGFileType));
    SHOW(std::string(png->bytes().begin() + 1, png->bytes().begin() + 4));
    SHOW(NSBitmapImageRep::imageRepWithData(*png)->colorAtX(1, 0)->isEqual(rep->colorAtX(1, 0).get()));
    SHOW(rep->representationUsingType(NSGIFFileType));
    SHOW(NSBitmapImageRep::imageRepWithData(*make<NSData>()));
    SHOW(make<NSBitmapImageRep>(100'000, 100'000));
    return transcript;
}

Ref<NSView> makeFocusLockPage()
{
    auto const transcript = make<Transcript>();
    RUN(auto const image = make<NSImage>(Size { 20, 10 }));
    {
        RUN(FocusLock const focus(image));
        RUN(NSColor::blueColor()->set());
        RUN(NSRectFill({ 0, 0, 10, 10 }));
        SHOW(NSReadPixel({ 5, 5 })->blueComponent());
        SHOW(NSReadPixel({ 15, 5 })->alphaComponent());
        SHOW(NSReadPixel({ 25, 5 }));
        transcript->addHeading("Locks nest");
        RUN(auto const inner = make<NSImage>(Size { 4, 4 }));
        {
            RUN(FocusLock const second(inner));
            SHOW(NSGraphicsContext::currentContext()->clipBounds());
        }
        transcript->addNote("Where the scope of a FocusLock ends, the context from before is the current one again.");
        SHOW(NSGraphicsContext::currentContext()->clipBounds());
    }
    SHOW(NSGraphicsContext::currentContext());
    SHOW(image->bitmapAtScale(1)->colorAtX(5, 5)->blueComponent());
    return transcript;
}

Ref<NSView> makeInterpolationPage()
{
    std::vector<Ref<NSView>> tiles;
    for (auto const& [caption, interpolation] : { std::pair { "default", NSImageInterpolationDefault },
             { "none", NSImageInterpolationNone }, { "low", NSImageInterpolationLow }, { "high", NSImageInterpolationHigh } }) {
        tiles.push_back(drawing(caption, { 121, 121 }, [interpolation = interpolation](Rect bounds) {
            auto const rep = make<NSBitmapImageRep>(8, 8);
            for (int i = 0; i < 64; ++i)
                rep->setColor(*NSColor::colorWithCalibratedHue(static_cast<float>(i * 5 % 64) / 64, 0.7F, 0.95F, 1), i % 8, i / 8);
            auto const image = make<NSImage>(Size { 8, 8 });
            image->addRepresentation(rep);
            NSGraphicsContext::currentContext()->setImageInterpolation(interpolation);
            image->drawInRect(NSInsetRect(bounds, 8, 8), {}, NSCompositeSourceOver, 1);
        }));
    }
    return tiledPage(tiles);
}

// MARK: made of images

Ref<NSView> makeNineSlicesPage()
{
    auto const stretched = [](char const* caption, Size size) {
        return picture(caption, wide, [size] { return PLIXStretchedImageOverImage(capsule({ 42, 24 }), make<NSImage>(size)); });
    };
    return tiledPage({
        picture("the image", wide,
            [] {
                return capsule({ 42, 24 });
            }),
        stretched("wide", { 150, 24 }),
        stretched("high", { 42, 84 }),
        stretched("both", { 150, 84 }),
        stretched("smaller", { 21, 12 }),
        picture("stretched over an image", wide,
            [] {
                auto const pale = make<NSImage>(Size { 42, 24 });
                {
                    FocusLock const focus(pale);
                    capsule({ 42, 24 })->drawAtPoint({}, {}, NSCompositeSourceOver, 0.5F);
                }
                return PLIXStretchImageOverImage(pale, icon(Icon::folder, 80));
            }),
    });
}

Ref<NSView> makeBadgesPage()
{
    std::vector<Ref<NSView>> tiles;
    std::array const names { "top left", "top centre", "top right", "middle left", "centre", "middle right", "bottom left",
        "bottom centre", "bottom right" };
    for (std::size_t place = 0; place < names.size(); ++place)
        tiles.push_back(picture(names[place], wide,
            [place] { return badgedImage(icon(Icon::folder, 64), icon(Icon::star, 24), static_cast<int>(place)); }));
    return tiledPage(tiles);
}

Ref<NSView> makeRecoloringPage()
{
    std::vector<Ref<NSView>> tiles;
    for (auto const& [caption, color] : { std::pair { "red", NSColor::redColor() }, { "text colour", NSColor::textColor() },
             { "half blue", NSColor::blueColor()->colorWithAlphaComponent(0.5F) }, { "clear", NSColor::clearColor() } })
        tiles.push_back(picture(caption, small, [color = color] { return ReplaceColorsInImage(icon(Icon::folder, 56), color); }));
    auto const images = [] { return std::vector { icon(Icon::paper, 56), icon(Icon::note, 28), icon(Icon::warning, 56) }; };
    char const* const names[] { "paper", "a smaller note", "a warning" };
    for (std::size_t i = 0; i < std::size(names); ++i)
        tiles.push_back(picture(names[i], small, [images, i] { return images()[i]; }));
    tiles.push_back(picture("composed", small, [images] { return imageByCompositingImages(images()); }));
    return tiledPage(tiles);
}

Ref<NSView> makePLIXShadingPage()
{
    auto const shown
        = [](char const* caption, PLIXShading::Components const& from, PLIXShading::Components const& to, Point start, Point end) {
              return drawing(caption, wide, [=](Rect bounds) {
                  NSGraphicsContext::currentContext()->scaleBy(bounds.width, bounds.height);
                  auto const shading = make<PLIXShading>();
                  shading->setStartColorComponents(from);
                  shading->setEndColorComponents(to);
                  shading->setStartPoint(start);
                  shading->setEndPoint(end);
                  shading->drawShading();
              });
          };
    PLIXShading::Components const blue { 0.25F, 0.5F, 0.9F, 1 };
    PLIXShading::Components const pale { 0.8F, 0.9F, 1, 1 };
    auto const transcript = make<Transcript>();
    RUN(auto const shading = make<PLIXShading>());
    SHOW(shading->startPoint());
    SHOW(shading->endPoint());
    RUN(shading->setEndColorComponents({ 1, 0.5F, 0, 1 }));
    SHOW(shading->numColorComponents());
    SHOW(shading->colorSpace()->numberOfComponents());
    return tiledPage(
        {
            shown("up the unit square", blue, pale, { 0.5F, 0 }, { 0.5F, 1 }),
            shown("from left to right", pale, blue, { 0, 0.5F }, { 1, 0.5F }),
            shown("into nothing", blue, { 0.25F, 0.5F, 0.9F, 0 }, { 0.5F, 0 }, { 0.5F, 1 }),
            shown("ends before the edges", { 1, 0.6F, 0.2F, 1 }, { 0.9F, 0.1F, 0.3F, 1 }, { 0.3F, 0.5F }, { 0.7F, 0.5F }),
            shown("slanting", { 1, 0.9F, 0.4F, 1 }, { 0.2F, 0.6F, 0.3F, 1 }, { 0, 0 }, { 1, 1 }),
            drawing("in a clip", wide,
                [blue, pale](Rect bounds) {
                    bezierPathWithRoundedRect(NSInsetRect(bounds, 20, 20), 28)->addClip();
                    NSGraphicsContext::currentContext()->scaleBy(bounds.width, bounds.height);
                    auto const inner = make<PLIXShading>();
                    inner->setStartColorComponents(blue);
                    inner->setEndColorComponents(pale);
                    inner->drawShading();
                }),
        },
        transcript);
}

Ref<NSView> makeRoundedRectsPage()
{
    auto const shown = [](char const* caption, float radius, unsigned sides) {
        return drawing(caption, small, [radius, sides](Rect bounds) {
            NSColor::colorWithCalibratedRed(0.35F, 0.7F, 0.4F, 1)->set();
            bezierPathWithRoundedRect(NSInsetRect(bounds, 18, 14), radius, sides)->fill();
        });
    };
    return tiledPage({
        shown("radius 4", 4, PLIXRoundAllSides),
        shown("radius 14", 14, PLIXRoundAllSides),
        shown("radius 1000", 1000, PLIXRoundAllSides),
        shown("radius 0", 0, PLIXRoundAllSides),
        shown("left half", 14, PLIXRoundMinXSide | PLIXRoundMinYSide | PLIXRoundMaxYSide),
        shown("right half", 14, PLIXRoundMaxXSide | PLIXRoundMinYSide | PLIXRoundMaxYSide),
        shown("upper half", 14, PLIXRoundMaxYSide | PLIXRoundMinXSide | PLIXRoundMaxXSide),
        shown("one corner", 14, PLIXRoundMaxYSide | PLIXRoundMaxXSide),
    });
}

Ref<NSView> makeAlignmentPage()
{
    auto const transcript = make<Transcript>();
    RUN(Rect const a { 0, 0, 40, 20 });
    RUN(Rect const b { 10, 10, 101, 60 });
    SHOW(PLIXRectCenterOnRect(a, b));
    SHOW(PLIXScaleRectToRect(a, b));
    SHOW(PLIXAlignRectOnRect(a, b, PLIXAlignTopRight));
    SHOW(PLIXAlignRectOnRect(a, b, PLIXAlignBottomCenter));
    SHOW(PLIXAlignRectOnRect(a, b, 99));
    SHOW(PLIXMakeRectWithSize({ 3, 4 }));
    SHOW(PLIXIntegralPoint({ 0.5F, 1.5F }));
    SHOW(PLIXIntegralPoint({ 2.5F, -2.6F }));
    SHOW(PLIXNormalizedRect({ 0.6F, 0.6F, 9.6F, -2.7F }));
    transcript->addHeading("Multiples");
    SHOW(PLIXRoundToNearestIncrement(17, 5));
    SHOW(PLIXRoundToNearestIncrement(18, 5));
    SHOW(PLIXRoundToNearestIncrement(-18, 5));
    SHOW(PLIXRoundToNearestIncrement(12, 5));
    return transcript;
}

Ref<NSView> makeTextHeightPage()
{
    auto const text = make<NSAttributedString>("How high is a text that is set as wide as this?",
        Attributes {
            { NSFontAttributeName, NSFont::systemFontOfSize(13) }, { NSForegroundColorAttributeName, NSColor::textColor() } });
    std::vector<Ref<NSView>> tiles;
    for (float const width : { 60.F, 80.F, 100.F }) {
        tiles.push_back(drawing("in a width of " + numberText(width), { wide.width, 110 }, [text, width](Rect bounds) {
            float const height = PLIXAttributedStringHeightForWidth(*text, width);
            Rect const place { 5, bounds.height - 5 - height, width, height };
            NSColor::colorWithCalibratedRed(1, 0.8F, 0.4F, 0.5F)->set();
            NSRectFillUsingOperation(place, NSCompositeSourceOver);
            text->drawInRect(place);
        }));
    }
    auto const transcript = make<Transcript>();
    SHOW(PLIXAttributedStringHeightForWidth(*text, 60));
    SHOW(PLIXAttributedStringHeightForWidth(*text, 110));
    SHOW(PLIXAttributedStringHeightForWidth(*text, 1000));
    SHOW(PLIXAttributedStringHeightForWidth(*make<NSAttributedString>(), 110));
    return tiledPage(tiles, transcript);
}

constexpr Page all[] {
    { "NSImage", "NSImage", drawingSection, "image_pages.cpp", makeNSImagePage },
    { "NSImageRep", "NSImageRep", drawingSection, "image_pages.cpp", makeNSImageRepPage },
    { "NSBitmapImageRep", "NSBitmapImageRep", drawingSection, "image_pages.cpp", makeNSBitmapImageRepPage },
    { "FocusLock", "FocusLock", drawingSection, "image_pages.cpp", makeFocusLockPage },
    { "interpolation", "Interpolation", drawingSection, "image_pages.cpp", makeInterpolationPage },
    { "nine_slices", "Images in nine slices", drawingSection, "image_pages.cpp", makeNineSlicesPage },
    { "badges", "Badges", drawingSection, "image_pages.cpp", makeBadgesPage },
    { "recoloring", "Recoloured and composed images", drawingSection, "image_pages.cpp", makeRecoloringPage },
    { "PLIXShading", "PLIXShading", drawingSection, "image_pages.cpp", makePLIXShadingPage },
    { "rounded_rects", "Rounded rectangles", drawingSection, "image_pages.cpp", makeRoundedRectsPage },
    { "alignment", "Aligning rectangles", drawingSection, "image_pages.cpp", makeAlignmentPage },
    { "text_height", "The height of texts", drawingSection, "image_pages.cpp", makeTextHeightPage },
};

}

std::span<Page const> imagePages()
{
    return all;
}

}

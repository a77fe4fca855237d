#include "graphics_pages.h"
#include "Canvas.h"
#include "Transcript.h"
#include "page_parts.h"

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/graphics/CGColorSpace.h>
#include <plix/platform/graphics/CGFunction.h>
#include <plix/platform/graphics/CGShading.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSAffineTransform.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/NSShadow.h>
#include <plix/platform/graphics/appearance.h>
#include <plix/platform/graphics/compositing.h>
#include <plix/platform/graphics/string_drawing.h>

#include <array>
#include <cmath>

namespace gallery {

using namespace plix;

namespace {

/// Four to a row.
constexpr Size small { 121, 84 };
/// Three to a row.
constexpr Size wide { 165, 96 };

Ref<NSColor> blue()
{
    return NSColor::colorWithCalibratedRed(0.25F, 0.5F, 0.9F, 1);
}

Ref<NSColor> orange()
{
    return NSColor::colorWithCalibratedRed(0.95F, 0.6F, 0.2F, 1);
}

Ref<NSColor> green()
{
    return NSColor::colorWithCalibratedRed(0.35F, 0.7F, 0.4F, 1);
}

/// With its five points on a circle.
Ref<NSBezierPath> star(Point center, float radius)
{
    auto path = NSBezierPath::bezierPath();
    for (int i = 0; i < 5; ++i) {
        double const angle = M_PI / 2 + i * 4 * M_PI / 5;
        Point const point { center.x + radius * static_cast<float>(std::cos(angle)),
            center.y + radius * static_cast<float>(std::sin(angle)) };
        i == 0 ? path->moveToPoint(point) : path->lineToPoint(point);
    }
    path->closePath();
    return path;
}

// MARK: geometry

Ref<NSView> makeGeometryPage()
{
    auto const transcript = make<Transcript>();
    RUN(Rect const a { 10, 20, 100, 50 });
    SHOW(a.maxX());
    SHOW(NSInsetRect(a, 5, 10));
    SHOW(NSInsetRect(a, 60, 0).isEmpty());
    SHOW(NSOffsetRect(a, -10, 0.5F));
    SHOW(NSIntegralRect({ 0.4F, 0.6F, 2, 2 }));
    SHOW(NSUnionRect(a, { 0, 0, 5, 5 }));
    SHOW(NSUnionRect(a, { 0, 0, 0, 5 }));
    SHOW(NSIntersectionRect(a, { 90, 0, 100, 100 }));
    SHOW(NSIntersectionRect(a, { 110, 0, 100, 100 }));
    SHOW(NSContainsRect(a, { 20, 20, 10, 10 }));
    RUN(Rect slice, rest);
    RUN(NSDivideRect(a, slice, rest, 30, NSMaxXEdge));
    SHOW(slice);
    SHOW(rest);
    SHOW(NSMouseInRect({ 10, 70 }, a, false));
    SHOW(NSMouseInRect({ 10, 70 }, a, true));
    SHOW(NSRectFromString("{{1, 2}, {3"));
    return transcript;
}

Ref<NSView> makeAffineTransformPage()
{
    auto const transcript = make<Transcript>();
    RUN(auto const moved = AffineTransform::translation(10, 0));
    RUN(auto const doubled = AffineTransform::scaling(2, 2));
    SHOW(concatenated(moved, doubled).apply(Point { 1, 1 }));
    SHOW(concatenated(doubled, moved).apply(Point { 1, 1 }));
    SHOW(moved.apply(Size { 3, 4 }));
    SHOW(AffineTransform::mirror({ 0, 0, 10, 40 }).apply(Point { 5, 10 }));
    SHOW(AffineTransform::rotation(M_PI).boundsOf({ 0, 0, 2, 1 }));
    SHOW(doubled.determinant());
    SHOW(doubled.inverse()->apply(Point { 1, 1 }));
    SHOW(AffineTransform::scaling(0, 1).inverse().has_value());
    SHOW(AffineTransform::rotation(1).keepsAxes());
    SHOW(concatenated(moved, *moved.inverse()) == AffineTransform());
    return transcript;
}

Ref<NSView> makeNSAffineTransformPage()
{
    auto const house = [] {
        auto const path = NSBezierPath::bezierPathWithRect({ 0, 0, 24, 18 });
        path->moveToPoint({ -4, 18 });
        path->appendBezierPathWithPoints(std::array { Point { 12, 32 }, Point { 28, 18 } });
        path->closePath();
        path->appendBezierPathWithRect({ 9, 0, 6, 10 });
        path->setWindingRule(NSEvenOddWindingRule);
        return path;
    };
    auto const shown = [house](char const* caption, std::function<void(NSAffineTransform&)> const& build) {
        return drawing(caption, small, [house, build](Rect) {
            NSColor::gridColor()->set();
            house()->stroke();
            auto const transform = NSAffineTransform::transform();
            build(*transform);
            blue()->set();
            transform->transformBezierPath(*house())->fill();
        });
    };
    auto const transcript = make<Transcript>();
    RUN(auto const transform = NSAffineTransform::transform());
    RUN(transform->translateXBy(40, 0));
    RUN(transform->scaleBy(2));
    SHOW(transform->transformPoint({ 1, 1 }));
    RUN(transform->invert());
    SHOW(transform->transformPoint({ 42, 2 }));
    return tiledPage(
        {
            shown("translate", [](NSAffineTransform& it) { it.translateXBy(50, 20); }),
            shown("scale",
                [](NSAffineTransform& it) {
                    it.translateXBy(20, 0);
                    it.scaleXBy(3, 1.5);
                }),
            shown("translate, rotate",
                [](NSAffineTransform& it) {
                    it.translateXBy(60, 20);
                    it.rotateByDegrees(30);
                }),
            shown("rotate, translate",
                [](NSAffineTransform& it) {
                    it.rotateByDegrees(30);
                    it.translateXBy(60, 20);
                }),
        },
        transcript);
}

Ref<NSView> makeNSBezierPathPage()
{
    auto const filled = [](NSWindingRule rule) {
        return [rule](Rect bounds) {
            auto const path = star({ bounds.midX(), bounds.midY() - 4 }, 38);
            path->setWindingRule(rule);
            orange()->set();
            path->fill();
            NSColor::textColor()->set();
            path->stroke();
        };
    };
    return tiledPage({
        drawing("curve", small,
            [](Rect) {
                auto const path = NSBezierPath::bezierPath();
                path->moveToPoint({ 12, 20 });
                path->curveToPoint({ 108, 60 }, { 50, 110 }, { 70, -40 });
                path->setLineWidth(3);
                blue()->set();
                path->stroke();
            }),
        drawing("arcs", small,
            [](Rect bounds) {
                float angle = 20;
                for (auto const& [color, extent] : { std::pair { blue(), 130.F }, { orange(), 140.F }, { green(), 90.F } }) {
                    auto const path = NSBezierPath::bezierPath();
                    path->moveToPoint({ bounds.midX(), bounds.midY() });
                    path->appendBezierPathWithArcWithCenter({ bounds.midX(), bounds.midY() }, 34, angle, angle + extent);
                    path->closePath();
                    color->set();
                    path->fill();
                    angle += extent;
                }
            }),
        drawing("non-zero", small, filled(NSNonZeroWindingRule)),
        drawing("even and odd", small, filled(NSEvenOddWindingRule)),
    });
}

Ref<NSView> makeLineStylesPage()
{
    auto const strokes = [](char const* caption, std::function<void(NSBezierPath&, int)> const& style) {
        return drawing(caption, small, [style](Rect) {
            for (int i = 0; i < 3; ++i) {
                auto const path = NSBezierPath::bezierPath();
                auto const x = 16 + 32 * static_cast<float>(i);
                path->moveToPoint({ x, 18 });
                path->lineToPoint({ x + 13, 62 });
                path->lineToPoint({ x + 25, 18 });
                path->setLineWidth(8);
                style(*path, i);
                std::array { blue(), orange(), green() }[static_cast<std::size_t>(i)]->set();
                path->stroke();
            }
        });
    };
    float const dashes[] { 10, 4, 2, 4 };
    return tiledPage({
        strokes("butt, round, square", [](NSBezierPath& path, int i) { path.setLineCapStyle(static_cast<NSLineCapStyle>(i)); }),
        strokes("miter, round, bevel", [](NSBezierPath& path, int i) { path.setLineJoinStyle(static_cast<NSLineJoinStyle>(i)); }),
        strokes("widths", [](NSBezierPath& path, int i) { path.setLineWidth(static_cast<float>(i) * 2); }),
        drawing("dashes", small,
            [dashes](Rect bounds) {
                auto const path = NSBezierPath::bezierPathWithOvalInRect(NSInsetRect(bounds, 14, 14));
                path->setLineDash(dashes, 0);
                path->setLineWidth(2);
                green()->set();
                path->stroke();
            }),
    });
}

Ref<NSView> makePathUsesPage()
{
    return tiledPage({
        drawing("a clip", small,
            [](Rect bounds) {
                star({ bounds.midX(), bounds.midY() - 4 }, 38)->addClip();
                for (float x = 0; x < bounds.width; x += 8) {
                    (std::fmod(x, 16) == 0 ? blue() : orange())->set();
                    NSBezierPath::fillRect({ x, 0, 8, bounds.height });
                }
            }),
        drawing("tangent arcs", small,
            [](Rect bounds) {
                auto const box = NSInsetRect(bounds, 18, 14);
                auto const path = NSBezierPath::bezierPath();
                path->moveToPoint({ box.x, box.midY() });
                path->appendBezierPathWithArcFromPoint({ box.x, box.maxY() }, { box.maxX(), box.maxY() }, 24);
                path->appendBezierPathWithArcFromPoint({ box.maxX(), box.maxY() }, { box.maxX(), box.y }, 24);
                path->lineToPoint({ box.maxX(), box.y });
                path->lineToPoint({ box.x, box.y });
                path->closePath();
                blue()->set();
                path->fill();
            }),
        drawing("flattened, curved", small,
            [](Rect) {
                auto const path = NSBezierPath::bezierPathWithOvalInRect({ 8, 14, 48, 56 });
                path->setFlatness(6);
                NSColor::textColor()->set();
                path->bezierPathByFlatteningPath()->stroke();
                NSBezierPath::bezierPathWithOvalInRect({ 64, 14, 48, 56 })->stroke();
            }),
        drawing("dots that are inside", small,
            [](Rect bounds) {
                auto const path = star({ bounds.midX(), bounds.midY() - 4 }, 38);
                for (float x = 4; x < bounds.width; x += 6) {
                    for (float y = 4; y < bounds.height; y += 6) {
                        (path->containsPoint({ x, y }) ? orange() : NSColor::gridColor())->set();
                        NSBezierPath::fillRect({ x - 1, y - 1, 2, 2 });
                    }
                }
            }),
    });
}

// MARK: colours

Ref<NSView> makeNSColorPage()
{
    auto const strip = [](char const* caption, Canvas::Draw draw) { return drawing(caption, { 520, 22 }, std::move(draw)); };
    auto const swatches = [strip](char const* caption, std::vector<Ref<NSColor>> const& colors) {
        return strip(caption, [colors](Rect bounds) {
            float const width = bounds.width / static_cast<float>(colors.size());
            for (std::size_t i = 0; i < colors.size(); ++i)
                colors[i]->drawSwatchInRect({ std::round(static_cast<float>(i) * width), 0, std::ceil(width), bounds.height });
        });
    };
    std::vector<Ref<NSColor>> hues;
    std::vector<Ref<NSColor>> alphas;
    std::vector<Ref<NSColor>> blends;
    for (int i = 0; i < 13; ++i) {
        float const part = static_cast<float>(i) / 12;
        hues.push_back(NSColor::colorWithCalibratedHue(part, 0.8F, 0.95F, 1));
        alphas.push_back(NSColor::redColor()->colorWithAlphaComponent(part));
        blends.push_back(NSColor::yellowColor()->blendedColorWithFraction(part, *NSColor::blueColor()));
    }
    auto const transcript = make<Transcript>();
    RUN(auto const color = NSColor::colorWithCalibratedRed(1, 0.5F, 0, 1));
    SHOW(color->description());
    SHOW(color->hueComponent());
    SHOW(color->whiteComponent());
    SHOW(NSColor::colorWithDeviceWhite(1.5F, -1)->description());
    SHOW(NSColor::colorWithCatalogName("System", "noSuchColor"));
    return tiledPage(
        {
            swatches("black to magenta",
                { NSColor::blackColor(), NSColor::darkGrayColor(), NSColor::grayColor(), NSColor::lightGrayColor(),
                    NSColor::whiteColor(), NSColor::redColor(), NSColor::orangeColor(), NSColor::yellowColor(),
                    NSColor::greenColor(), NSColor::cyanColor(), NSColor::blueColor(), NSColor::purpleColor(),
                    NSColor::magentaColor() }),
            swatches("hues", hues),
            swatches("alpha", alphas),
            swatches("blended", blends),
            strip("a pattern",
                [](Rect bounds) {
                    NSColor::colorWithPatternImage(icon(Icon::star, 16))->set();
                    NSBezierPath::fillRect(bounds);
                }),
        },
        transcript);
}

/// A ground with a few controls on it, in an appearance of its own.
Ref<NSView> controlsIn(Appearance appearance, std::string_view caption)
{
    auto const ground = make<Canvas>(Size { 254, 104 }, [](Rect bounds) {
        NSColor::windowBackgroundColor()->set();
        NSRectFill(bounds);
    });
    ground->setAppearance(appearance);
    auto const field = textField("A field", 100);
    field->setFrameOrigin({ 16, 66 });
    auto const box = checkBox("A switch");
    box->setState(NSOnState);
    box->setFrameOrigin({ 130, 67 });
    auto const button = pushButton("A Button");
    button->setFrameOrigin({ 16, 16 });
    for (NSView* control :
        { static_cast<NSView*>(field.get()), static_cast<NSView*>(box.get()), static_cast<NSView*>(button.get()) })
        ground->addSubview(*control);
    return captioned(caption, ground);
}

Ref<NSView> makeAppearancePage()
{
    auto const transcript = make<Transcript>();
    auto const before = currentAppearance();
    for (auto const appearance : { Appearance::light, Appearance::dark }) {
        transcript->addHeading(
            appearance == Appearance::light ? "setCurrentAppearance(Appearance::light)" : "setCurrentAppearance(Appearance::dark)");
        setCurrentAppearance(appearance);
        SHOW(NSColor::controlTextColor()->whiteComponent());
        SHOW(NSColor::windowBackgroundColor()->whiteComponent());
        SHOW(NSColor::textBackgroundColor()->whiteComponent());
        SHOW(NSColor::blackColor()->whiteComponent());
    }
    setCurrentAppearance(before);
    transcript->addNote("Named system colours follow the appearance; others stay as they are.");
    return tiledPage({ controlsIn(Appearance::light, "setAppearance(Appearance::light)"),
                         controlsIn(Appearance::dark, "setAppearance(Appearance::dark)") },
        transcript);
}

// MARK: contexts

Ref<NSView> makeNSGraphicsContextPage()
{
    auto const scene = [](Rect bounds) {
        blue()->set();
        NSBezierPath::fillRect({ bounds.midX() - 44, bounds.midY() - 10, 60, 30 });
        orange()->set();
        NSBezierPath::bezierPathWithOvalInRect({ bounds.midX() - 16, bounds.midY() - 30, 56, 44 })->fill();
    };
    auto const shown = [scene](char const* caption, std::function<void(NSGraphicsContext&, Rect)> const& prepare) {
        return drawing(caption, small, [scene, prepare](Rect bounds) {
            prepare(*NSGraphicsContext::currentContext(), bounds);
            scene(bounds);
        });
    };
    return tiledPage({
        shown("as it is", [](NSGraphicsContext&, Rect) {}),
        shown("half the alpha", [](NSGraphicsContext& context, Rect) { context.setAlpha(0.5F); }),
        shown("clipped",
            [](NSGraphicsContext& context, Rect bounds) {
                context.clipToPath(*NSBezierPath::bezierPathWithOvalInRect(NSInsetRect(bounds, 26, 6)));
            }),
        shown("clipped to stripes",
            [](NSGraphicsContext& context, Rect bounds) {
                std::vector<Rect> stripes;
                for (float x = 0; x < bounds.width; x += 10)
                    stripes.push_back({ x, 0, 6, bounds.height });
                context.clipToRects(stripes);
            }),
        shown("scaled",
            [](NSGraphicsContext& context, Rect bounds) {
                context.translateBy(bounds.midX() / 2, bounds.midY() / 2);
                context.scaleBy(0.5, 0.5);
            }),
        shown("turned",
            [](NSGraphicsContext& context, Rect bounds) {
                context.concat(AffineTransform::translation(bounds.midX(), bounds.midY()));
                context.concat(AffineTransform::rotation(0.5));
                context.concat(AffineTransform::translation(-bounds.midX(), -bounds.midY()));
            }),
        shown("not antialiased", [](NSGraphicsContext& context, Rect) { context.setShouldAntialias(false); }),
        shown("with a shadow",
            [](NSGraphicsContext& context, Rect) {
                auto const shadow = make<NSShadow>();
                shadow->setShadowOffset({ 3, -3 });
                shadow->setShadowBlurRadius(5);
                context.setShadow(shadow.get());
            }),
    });
}

Ref<NSView> makeGraphicsStatePage()
{
    auto const transcript = make<Transcript>();
    RUN(auto const image = make<NSImage>(Size { 40, 30 }));
    SHOW(NSGraphicsContext::currentContext());
    {
        RUN(FocusLock const focus(image));
        RUN(auto const context = NSGraphicsContext::currentContext());
        RUN(auto const depth = context->stateDepth());
        {
            RUN(GraphicsState const saved);
            RUN(context->setAlpha(0.5F));
            RUN(context->translateBy(10, 5));
            RUN(NSRectClip({ 0, 0, 5, 5 }));
            SHOW(context->stateDepth() - depth);
            SHOW(context->alpha());
            SHOW(context->clipBounds());
            SHOW(context->currentTransform().tX);
        }
        transcript->addHeading("After the scope of the GraphicsState");
        SHOW(context->stateDepth() - depth);
        SHOW(context->alpha());
        SHOW(context->clipBounds());
        SHOW(context->currentTransform().tX);
    }
    return transcript;
}

Ref<NSView> makeCompositingPage()
{
    std::vector<Ref<NSView>> tiles;
    char const* const names[] { "clear", "copy", "source over", "source in", "source out", "source atop", "destination over",
        "destination in", "destination out", "destination atop", "xor", "plus darker", "highlight", "plus lighter" };
    for (int operation = NSCompositeClear; operation <= NSCompositePlusLighter; ++operation) {
        tiles.push_back(drawing(names[operation], { 94, 70 }, [operation](Rect bounds) {
            auto const image = make<NSImage>(bounds.size());
            {
                FocusLock const focus(image);
                orange()->set();
                NSBezierPath::bezierPathWithOvalInRect({ 12, 14, 46, 46 })->fill();
                auto const source = make<NSImage>(bounds.size());
                {
                    FocusLock const inner(source);
                    blue()->colorWithAlphaComponent(0.8F)->set();
                    NSBezierPath::fillRect({ 36, 10, 46, 34 });
                }
                source->drawAtPoint({}, {}, static_cast<NSCompositingOperation>(operation), 1);
            }
            image->drawAtPoint({}, {}, NSCompositeSourceOver, 1);
        }));
    }
    return tiledPage(tiles);
}

Ref<NSView> makeRectanglesPage()
{
    std::array const colors { blue(), orange(), green() };
    return tiledPage({
        drawing("NSRectFill", wide,
            [](Rect bounds) {
                blue()->set();
                NSRectFill(NSInsetRect(bounds, 24, 18));
            }),
        drawing("NSFrameRect", wide,
            [](Rect bounds) {
                blue()->set();
                NSFrameRect(NSInsetRect(bounds, 24, 18));
            }),
        drawing("NSFrameRectWithWidth", wide,
            [](Rect bounds) {
                orange()->set();
                NSFrameRectWithWidth(NSInsetRect(bounds, 24, 18), 6);
            }),
        drawing("NSRectFillListWithColors", wide,
            [colors](Rect) {
                std::array<Rect, 3> const places { Rect { 12, 12, 30, 24 }, { 46, 30, 30, 24 }, { 80, 48, 30, 24 } };
                NSRectFillListWithColors(places, colors);
            }),
        drawing("NSRectFillUsingOperation", wide,
            [](Rect bounds) {
                green()->set();
                NSRectFill({ 20, 16, 50, 40 });
                NSColor::redColor()->colorWithAlphaComponent(0.5F)->set();
                NSRectFillUsingOperation({ 44, 30, 50, bounds.height - 44 }, NSCompositeSourceOver);
            }),
        drawing("NSDrawWhiteBezel", wide, [](Rect bounds) { NSDrawWhiteBezel(NSInsetRect(bounds, 24, 18), bounds); }),
        drawing("NSDrawTiledRects", wide,
            [](Rect bounds) {
                NSRectEdge const sides[] { NSMaxYEdge, NSMinXEdge, NSMinYEdge, NSMaxXEdge, NSMaxYEdge, NSMinXEdge };
                float const grays[] { 0, 0.2F, 0.8F, 0.9F, 0.4F, 0.5F };
                NSColor::lightGrayColor()->set();
                NSRectFill(NSDrawTiledRects(NSInsetRect(bounds, 24, 18), bounds, sides, grays));
            }),
        drawing("NSRectClipList", wide,
            [](Rect bounds) {
                std::array<Rect, 2> const holes { Rect { 36, 8, 42, 79 }, { 88, 8, 42, 79 } };
                NSRectClipList(holes);
                orange()->set();
                star({ bounds.midX(), bounds.midY() - 4 }, 40)->fill();
            }),
    });
}

Ref<NSView> makeNSShadowPage()
{
    auto const shown = [](char const* caption, Size offset, float radius, Ref<NSColor> const& color) {
        return drawing(caption, small, [=](Rect bounds) {
            auto const shadow = make<NSShadow>();
            shadow->setShadowOffset(offset);
            shadow->setShadowBlurRadius(radius);
            if (color)
                shadow->setShadowColor(color);
            shadow->set();
            blue()->set();
            NSBezierPath::bezierPathWithOvalInRect(NSInsetRect(bounds, 36, 18))->fill();
        });
    };
    auto const text = [](Rect bounds) {
        auto const shadow = make<NSShadow>();
        shadow->setShadowOffset({ 2, -2 });
        shadow->setShadowBlurRadius(3);
        shadow->setShadowColor(NSColor::redColor());
        drawAtPoint("Tea", { bounds.midX() - 32, bounds.midY() - 20 },
            { { NSFontAttributeName, NSFont::boldSystemFontOfSize(34) }, { NSForegroundColorAttributeName, NSColor::textColor() },
                { NSShadowAttributeName, shadow } });
    };
    auto const transcript = make<Transcript>();
    RUN(auto const soft = make<NSShadow>());
    SHOW(soft->shadowOffset());
    SHOW(soft->shadowBlurRadius());
    SHOW(soft->shadowColor()->alphaComponent());
    RUN(soft->setShadowBlurRadius(-4));
    SHOW(soft->shadowBlurRadius());
    SHOW(soft->isEqual(copyOf(*soft).get()));
    return tiledPage(
        {
            shown("sharp", { 5, -5 }, 0, nullptr),
            shown("blurred", { 5, -5 }, 6, nullptr),
            shown("upwards", { 0, 8 }, 4, nullptr),
            shown("a glow", {}, 14, NSColor::orangeColor()),
            drawing("of a text", small, text),
            drawing("of a line", small,
                [](Rect bounds) {
                    auto const shadow = make<NSShadow>();
                    shadow->setShadowOffset({ 4, -4 });
                    shadow->setShadowBlurRadius(2);
                    shadow->set();
                    orange()->set();
                    auto const path = star({ bounds.midX(), bounds.midY() - 4 }, 32);
                    path->setLineWidth(4);
                    path->stroke();
                }),
            drawing("of an image", small,
                [](Rect bounds) {
                    auto const shadow = make<NSShadow>();
                    shadow->setShadowOffset({ 3, -3 });
                    shadow->setShadowBlurRadius(4);
                    shadow->set();
                    icon(Icon::paper, 48)->drawAtPoint({ bounds.midX() - 24, bounds.midY() - 24 }, {}, NSCompositeSourceOver, 1);
                }),
            shown("a clear colour", { 5, -5 }, 3, NSColor::clearColor()),
        },
        transcript);
}

// MARK: shadings

Ref<NSView> makeCGColorSpacePage()
{
    auto const transcript = make<Transcript>();
    RUN(auto const rgb = CGColorSpaceCreateWithName(kCGColorSpaceGenericRGB));
    SHOW(rgb->numberOfComponents());
    SHOW(rgb->model() == CGColorSpace::Model::rgb);
    SHOW(CGColorSpaceGetNumberOfComponents(CGColorSpaceCreateDeviceGray()));
    SHOW(CGColorSpaceCreateWithName("kCGColorSpacePlaid"));
    SHOW(CGColorSpaceGetNumberOfComponents(nullptr));
    SHOW(rgb == CGColorSpaceCreateWithName(kCGColorSpaceGenericRGB));
    SHOW(copyOf(*rgb)->model() == rgb->model());
    transcript->addNote("Alpha is not counted. What a shading’s function gives is read by its space, followed by alpha.");
    return transcript;
}

Ref<NSView> makeCGFunctionPage()
{
    auto const transcript = make<Transcript>();
    RUN(float const domain[] { 0, 1 });
    RUN(float const range[] { 0, 100 });
    RUN(int calls = 0);
    RUN(CGFunctionCallbacks const squared { 0,
        [](void* info, float const* in, float* out) {
            ++*static_cast<int*>(info);
            out[0] = 200 * in[0] * in[0];
        },
        [](void* info) { *static_cast<int*>(info) = -1; } });
    RUN(auto function = CGFunctionCreate(&calls, 1, domain, 1, range, &squared));
    RUN(float in = 0.5F, out = 0);
    RUN(function->evaluate(&in, &out));
    SHOW(out);
    RUN(in = 7);
    RUN(function->evaluate(&in, &out));
    SHOW(out);
    SHOW(calls);
    RUN(function = nullptr);
    SHOW(calls);
    SHOW(CGFunctionCreate(nullptr, 1, domain, 0, range, &squared));
    SHOW(CGFunctionCreate(nullptr, 1, domain, 1, range, nullptr));
    return transcript;
}

Ref<NSView> makeCGShadingPage()
{
    constexpr CGFunctionEvaluateCallback fade = [](void*, float const* in, float* out) {
        std::array const color { 0.25F + 0.7F * in[0], 0.5F + 0.1F * in[0], 0.9F - 0.7F * in[0], 1.F };
        std::copy(color.begin(), color.end(), out);
    };
    constexpr CGFunctionEvaluateCallback rainbow = [](void*, float const* in, float* out) {
        NSColor::colorWithCalibratedHue(in[0] * 0.8F, 0.7F, 0.95F, 1)->getRed(out[0], out[1], out[2], out[3]);
    };
    constexpr CGFunctionEvaluateCallback stripes = [](void*, float const* in, float* out) {
        std::fill(out, out + 4, 0.F);
        out[1] = 0.6F;
        out[3] = std::fmod(in[0] * 6, 1.F);
    };
    auto const shown = [](char const* caption, CGFunctionEvaluateCallback evaluate, Point start, Point end, bool extends) {
        return drawing(caption, wide, [=](Rect) {
            float const domain[] { 0, 1 };
            CGFunctionCallbacks const callbacks { 0, evaluate, nullptr };
            auto const function = CGFunctionCreate(nullptr, 1, domain, 4, nullptr, &callbacks);
            auto const shading = CGShadingCreateAxial(CGColorSpaceCreateDeviceRGB(), start, end, function, extends, extends);
            CGContextDrawShading(NSGraphicsContext::currentContext()->graphicsPort(), shading);
        });
    };
    return tiledPage({
        shown("upwards", fade, { 0, 0 }, { 0, 96 }, false),
        shown("from left to right", rainbow, { 0, 0 }, { 165, 0 }, false),
        shown("slanting", fade, { 20, 0 }, { 145, 96 }, true),
        shown("not extended", rainbow, { 50, 20 }, { 115, 60 }, false),
        shown("extended", rainbow, { 50, 20 }, { 115, 60 }, true),
        shown("with alpha", stripes, { 0, 0 }, { 165, 0 }, false),
    });
}

constexpr Page all[] {
    { "geometry", "Points, sizes and rectangles", drawingSection, "graphics_pages.cpp", makeGeometryPage },
    { "AffineTransform", "AffineTransform", drawingSection, "graphics_pages.cpp", makeAffineTransformPage },
    { "NSAffineTransform", "NSAffineTransform", drawingSection, "graphics_pages.cpp", makeNSAffineTransformPage },
    { "NSBezierPath", "NSBezierPath", drawingSection, "graphics_pages.cpp", makeNSBezierPathPage },
    { "line_styles", "Styles of lines", drawingSection, "graphics_pages.cpp", makeLineStylesPage },
    { "path_uses", "Paths as clips and areas", drawingSection, "graphics_pages.cpp", makePathUsesPage },
    { "NSColor", "NSColor", drawingSection, "graphics_pages.cpp", makeNSColorPage },
    { "Appearance", "Appearance", drawingSection, "graphics_pages.cpp", makeAppearancePage },
    { "NSGraphicsContext", "NSGraphicsContext", drawingSection, "graphics_pages.cpp", makeNSGraphicsContextPage },
    { "GraphicsState", "GraphicsState", drawingSection, "graphics_pages.cpp", makeGraphicsStatePage },
    { "compositing", "Compositing", drawingSection, "graphics_pages.cpp", makeCompositingPage },
    { "rectangles", "Rectangles", drawingSection, "graphics_pages.cpp", makeRectanglesPage },
    { "NSShadow", "NSShadow", drawingSection, "graphics_pages.cpp", makeNSShadowPage },
    { "CGColorSpace", "CGColorSpace", drawingSection, "graphics_pages.cpp", makeCGColorSpacePage },
    { "CGFunction", "CGFunction", drawingSection, "graphics_pages.cpp", makeCGFunctionPage },
    { "CGShading", "CGShading", drawingSection, "graphics_pages.cpp", makeCGShadingPage },
};

}

std::span<Page const> graphicsPages()
{
    return all;
}

}

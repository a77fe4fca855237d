#include <plix/platform/graphics/NSGraphics.h>

#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/context_internals.h>

#include <algorithm>
#include <cstring>

namespace plix {

namespace {

constexpr float defaultFrameWidth = 1;

/// The whole of a plain rectangle, written without detours.
void fillPixels(PixelBuffer const& pixels, PixelRect area, std::uint32_t color)
{
    for (int y = area.y; y < area.y + area.height; ++y) {
        auto* row = reinterpret_cast<std::uint32_t*>(pixels.pixels + static_cast<std::ptrdiff_t>(y) * pixels.stride);
        std::fill_n(row + area.x, area.width, color);
    }
}

bool replacesPixels(NSCompositingOperation operation, Paint const& paint, float alpha)
{
    if (paint.pattern)
        return false;
    bool const isOpaque = paint.components.alpha * alpha >= 1;
    return operation == NSCompositeCopy || (isOpaque && (operation == NSCompositeSourceOver || operation == NSCompositeHighlight));
}

void fillRect(ContextInternals& internals, Rect rect, Paint const& paint, NSCompositingOperation operation)
{
    auto const& state = internals.state();
    auto const matrix = internals.matrix();
    bool const isUpright = keepsAxes(matrix);
    bool const isPlain = isUpright && state.clipIsRectangle && !state.hasShadow();
    if (isPlain && replacesPixels(operation, paint, state.alpha)) {
        auto const area = intersection(snapped(deviceRect(matrix, rect)), state.clip);
        auto color = paint.components;
        color.alpha *= state.alpha;
        if (isEmpty(area))
            return;
        cairo_surface_flush(internals.surface.get());
        fillPixels(internals.pixels, area, premultipliedPixel(color));
        cairo_surface_mark_dirty(internals.surface.get());
        return;
    }
    if (isPlain && paint.pattern && operation == NSCompositeCopy && state.alpha >= 1) {
        auto const area = intersection(snapped(deviceRect(matrix, rect)), state.clip);
        if (isEmpty(area) || fillWithTiles(internals, area, *paint.pattern->patternImage()))
            return;
    }
    auto const source = [&](cairo_t* cairo) { setSource(cairo, internals, paint); };
    auto const shape = [&](cairo_t* cairo) {
        cairo_new_path(cairo);
        if (isUpright) {
            auto const area = snapped(deviceRect(matrix, rect));
            cairo_identity_matrix(cairo);
            cairo_rectangle(cairo, area.x, area.y, area.width, area.height);
        } else {
            cairo_rectangle(cairo, rect.x, rect.y, rect.width, rect.height);
        }
        cairo_fill(cairo);
        cairo_set_matrix(cairo, &matrix);
    };
    float const pixel = 1 / internals.pixels.scale;
    paintComposited(internals, operation, { isUpright ? NSInsetRect(rect, -pixel, -pixel) : rect, source, shape });
}

template <typename PaintAt> void fillRects(std::span<Rect const> rects, NSCompositingOperation operation, PaintAt paintAt)
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context)
        return;
    auto& internals = context->internals();
    for (std::size_t i = 0; i < rects.size(); ++i) {
        if (!rects[i].isEmpty())
            fillRect(internals, rects[i], paintAt(internals, i), operation);
    }
}

template <typename ColorAt> Rect drawTiledRects(Rect bounds, Rect clip, std::span<NSRectEdge const> sides, ColorAt colorAt)
{
    Rect rest = bounds;
    for (std::size_t i = 0; i < sides.size(); ++i) {
        Rect slice;
        NSDivideRect(rest, slice, rest, 1, sides[i]);
        Rect const visible = NSIntersectionRect(slice, clip);
        fillRects({ &visible, 1 }, NSCompositeSourceOver, [&](ContextInternals&, std::size_t) { return colorAt(i); });
    }
    return rest;
}

}

void NSRectFill(Rect rect)
{
    NSRectFillUsingOperation(rect, NSCompositeCopy);
}

void NSRectFillUsingOperation(Rect rect, NSCompositingOperation operation)
{
    NSRectFillListUsingOperation({ &rect, 1 }, operation);
}

void NSRectFillList(std::span<Rect const> rects)
{
    NSRectFillListUsingOperation(rects, NSCompositeCopy);
}

void NSRectFillListUsingOperation(std::span<Rect const> rects, NSCompositingOperation operation)
{
    fillRects(rects, operation, [](ContextInternals& internals, std::size_t) -> Paint const& { return internals.state().fill; });
}

void NSRectFillListWithColors(std::span<Rect const> rects, std::span<Ref<NSColor> const> colors)
{
    NSRectFillListWithColorsUsingOperation(rects, colors, NSCompositeCopy);
}

void NSRectFillListWithColorsUsingOperation(
    std::span<Rect const> rects, std::span<Ref<NSColor> const> colors, NSCompositingOperation operation)
{
    fillRects(rects.first(std::min(rects.size(), colors.size())), operation, [&](ContextInternals&, std::size_t i) {
        auto const& color = colors[i];
        return color ? Paint { color->components(), color->patternImage() ? color : nullptr } : Paint {};
    });
}

void NSFrameRect(Rect rect)
{
    NSFrameRectWithWidth(rect, defaultFrameWidth);
}

void NSFrameRectWithWidth(Rect rect, float width)
{
    NSFrameRectWithWidthUsingOperation(rect, width, NSCompositeCopy);
}

void NSFrameRectWithWidthUsingOperation(Rect rect, float width, NSCompositingOperation operation)
{
    if (rect.isEmpty() || !(width > 0))
        return;
    Rect rest = rect;
    Rect slices[4];
    NSDivideRect(rest, slices[0], rest, width, NSMaxYEdge);
    NSDivideRect(rest, slices[1], rest, width, NSMinYEdge);
    NSDivideRect(rest, slices[2], rest, width, NSMinXEdge);
    NSDivideRect(rest, slices[3], rest, width, NSMaxXEdge);
    NSRectFillListUsingOperation(slices, operation);
}

void NSEraseRect(Rect rect)
{
    auto const white = NSColor::whiteColor();
    NSRectFillListWithColors({ &rect, 1 }, { &white, 1 });
}

void NSDrawWhiteBezel(Rect rect, Rect clip)
{
    constexpr NSRectEdge sides[] { NSMaxYEdge, NSMinXEdge, NSMaxXEdge, NSMinYEdge };
    constexpr float grays[] { 0.5F, 0.67F, 0.67F, 0.8F };
    Rect const inside = NSIntersectionRect(NSDrawTiledRects(rect, clip, sides, grays), clip);
    NSEraseRect(inside);
}

Rect NSDrawTiledRects(Rect bounds, Rect clip, std::span<NSRectEdge const> sides, std::span<float const> grays)
{
    return drawTiledRects(bounds, clip, sides.first(std::min(sides.size(), grays.size())), [&](std::size_t i) {
        float const white = clampedComponent(grays[i]);
        return Paint { { white, white, white, 1 }, nullptr };
    });
}

Rect NSDrawColorTiledRects(Rect bounds, Rect clip, std::span<NSRectEdge const> sides, std::span<Ref<NSColor> const> colors)
{
    return drawTiledRects(bounds, clip, sides.first(std::min(sides.size(), colors.size())), [&](std::size_t i) {
        return colors[i] ? Paint { colors[i]->components(), colors[i]->patternImage() ? colors[i] : nullptr } : Paint {};
    });
}

void NSRectClip(Rect rect)
{
    NSRectClipList({ &rect, 1 });
}

void NSRectClipList(std::span<Rect const> rects)
{
    if (auto const context = NSGraphicsContext::currentContext())
        context->clipToRects(rects);
}

Ref<NSColor> NSReadPixel(Point point)
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context)
        return nullptr;
    auto const pixels = context->pixels();
    auto const area = pixelsAround(deviceRect(context->internals().matrix(), { point.x, point.y, 0, 0 }));
    // A point of user space belongs to the pixel above it on the screen.
    int const y = context->internals().matrix().yy < 0 ? area.y + area.height - 1 : area.y;
    if (area.x < 0 || y < 0 || area.x >= pixels.width || y >= pixels.height)
        return nullptr;
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, pixels.pixels + static_cast<std::ptrdiff_t>(y) * pixels.stride + 4L * area.x, 4);
    float const alpha = pixels.hasAlpha ? static_cast<float>(pixel >> 24U) / 255 : 1;
    auto const channel = [&](unsigned shift) { return alpha > 0 ? static_cast<float>(pixel >> shift & 255U) / 255 / alpha : 0; };
    return NSColor::colorWithDeviceRed(channel(16), channel(8), channel(0), alpha);
}

}

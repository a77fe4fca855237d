#include <plix/platform/graphics/context_internals.h>

#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/bitmap_storage.h>
#include <plix/platform/graphics/path_geometry.h>
#include <plix/platform/graphics/pixel_operations.h>
#include <plix/platform/graphics/shadow_blur.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

// Of an opaque color Cairo cuts the components' fractions off, while premultipliedPixel() rounds. A whole number of 255ths is the
// same to both.
void setSource(cairo_t* cairo, ColorComponents const& color, double alpha)
{
    auto const whole = [&](double component) { return alpha < 1 ? component : std::round(component * 255.0) / 255.0; };
    cairo_set_source_rgba(cairo, whole(color.red), whole(color.green), whole(color.blue), alpha);
}

/// Beyond these Cairo's fixed-point numbers wrap around.
constexpr double largestCoordinate = 4'000'000;

double inRange(double value)
{
    return value > -largestCoordinate ? std::min(value, largestCoordinate) : -largestCoordinate;
}

/// A surface that covers a part of the device and is drawn into with the device's coordinates.
struct Layer {
    Handle<cairo_surface_t> surface;
    Handle<cairo_t> cairo;

    Layer(cairo_format_t format, PixelRect area)
        : surface(cairo_image_surface_create(format, area.width, area.height))
    {
        cairo_surface_set_device_offset(surface.get(), -area.x, -area.y);
        cairo.reset(cairo_create(surface.get()));
    }
    unsigned char* data()
    {
        cairo_surface_flush(surface.get());
        return cairo_image_surface_get_data(surface.get());
    }
    int stride() const { return cairo_image_surface_get_stride(surface.get()); }
    bool isUsable() const { return cairo_status(cairo.get()) == CAIRO_STATUS_SUCCESS; }
};

PixelRect outset(PixelRect rect, int by)
{
    return { rect.x - by, rect.y - by, rect.width + 2 * by, rect.height + 2 * by };
}

void prepare(cairo_t* cairo, ContextInternals const& internals)
{
    auto const matrix = internals.matrix();
    cairo_set_matrix(cairo, &matrix);
    cairo_set_antialias(cairo, internals.state().antialiases ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
}

void paintShadow(ContextInternals& internals, Painting const& painting)
{
    auto const& state = internals.state();
    double const scale = internals.pixels.scale;
    auto const radius = static_cast<float>(state.shadow.radius * scale);
    int const reach = shadowBlurReach(radius);
    int const dx = static_cast<int>(std::lround(inRange(state.shadow.offset.width * scale)));
    int const dy = static_cast<int>(std::lround(inRange(-state.shadow.offset.height * scale)));
    PixelRect visible = outset(state.clip, reach);
    visible.x -= dx;
    visible.y -= dy;
    auto const shape = pixelsAround(deviceRect(internals.matrix(), painting.bounds));
    auto const area = intersection(outset(shape, reach), visible);
    if (isEmpty(area))
        return;
    Layer mask(CAIRO_FORMAT_A8, area);
    if (!mask.isUsable())
        return;
    prepare(mask.cairo.get(), internals);
    painting.setSource(mask.cairo.get());
    painting.paintShape(mask.cairo.get());
    blurShadowMask(mask.data(), area.width, area.height, mask.stride(), radius);
    cairo_surface_mark_dirty(mask.surface.get());
    cairo_surface_set_device_offset(mask.surface.get(), 0, 0);
    auto* cairo = internals.cairo.get();
    auto const matrix = internals.matrix();
    auto const& color = state.shadow.color;
    cairo_identity_matrix(cairo);
    cairo_set_operator(cairo, CAIRO_OPERATOR_OVER);
    setSource(cairo, color, color.alpha);
    cairo_mask_surface(cairo, mask.surface.get(), area.x + dx, area.y + dy);
    cairo_set_matrix(cairo, &matrix);
}

void copyFromContext(Layer& layer, ContextInternals& internals, PixelRect area)
{
    auto* cairo = layer.cairo.get();
    cairo_identity_matrix(cairo);
    cairo_set_source_surface(cairo, internals.surface.get(), 0, 0);
    cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
    cairo_rectangle(cairo, area.x, area.y, area.width, area.height);
    cairo_fill(cairo);
}

/// For operations that change what the source leaves transparent: works the result out for the whole area, then lets it through
/// the shape alone.
void paintThroughShape(ContextInternals& internals, NSCompositingOperation operation, Painting const& painting)
{
    auto const shape = pixelsAround(deviceRect(internals.matrix(), painting.bounds));
    auto const area = intersection(shape, internals.state().clip);
    if (isEmpty(area))
        return;
    Layer result(CAIRO_FORMAT_ARGB32, area);
    Layer mask(CAIRO_FORMAT_A8, area);
    if (!result.isUsable() || !mask.isUsable())
        return;
    copyFromContext(result, internals, area);
    prepare(result.cairo.get(), internals);
    if (operation == NSCompositePlusDarker) {
        Layer source(CAIRO_FORMAT_ARGB32, area);
        prepare(source.cairo.get(), internals);
        painting.setSource(source.cairo.get());
        cairo_paint(source.cairo.get());
        plusDarker(result.data(), source.data(), area.width, area.height, result.stride());
        cairo_surface_mark_dirty(result.surface.get());
    } else {
        painting.setSource(result.cairo.get());
        cairo_set_operator(result.cairo.get(), cairoOperator(operation));
        cairo_paint(result.cairo.get());
    }
    prepare(mask.cairo.get(), internals);
    cairo_set_source_rgba(mask.cairo.get(), 1, 1, 1, 1);
    painting.paintShape(mask.cairo.get());
    auto* cairo = internals.cairo.get();
    auto const matrix = internals.matrix();
    cairo_identity_matrix(cairo);
    cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cairo, result.surface.get(), 0, 0);
    cairo_mask_surface(cairo, mask.surface.get(), 0, 0);
    cairo_set_matrix(cairo, &matrix);
}

void setPatternSource(cairo_t* cairo, ContextInternals const& internals, NSImage const& image, double alpha)
{
    auto const bitmap = image.bitmapAtScale(internals.pixels.scale);
    auto* surface = bitmap ? surfaceOf(*bitmap) : nullptr;
    if (!surface) {
        cairo_set_source_rgba(cairo, 0, 0, 0, 0);
        return;
    }
    auto const perPoint = bitmap->pixelsPerPoint();
    auto const& phase = internals.state().patternPhase;
    double const scale = internals.pixels.scale;
    Handle<cairo_pattern_t> const pattern(cairo_pattern_create_for_surface(surface));
    cairo_matrix_t const toImage { perPoint.width / scale, 0, 0, perPoint.height / scale,
        -static_cast<double>(phase.x) * perPoint.width,
        bitmap->pixelsHigh() - (internals.pixels.height / scale - phase.y) * perPoint.height };
    cairo_pattern_set_matrix(pattern.get(), &toImage);
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_REPEAT);
    bool const isOneToOne = perPoint.width == internals.pixels.scale && perPoint.height == internals.pixels.scale;
    cairo_pattern_set_filter(pattern.get(), isOneToOne ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_GOOD);
    auto const matrix = [cairo] {
        cairo_matrix_t current;
        cairo_get_matrix(cairo, &current);
        return current;
    }();
    cairo_identity_matrix(cairo);
    cairo_set_source(cairo, pattern.get());
    if (alpha < 1) {
        cairo_push_group(cairo);
        cairo_set_source(cairo, pattern.get());
        cairo_paint_with_alpha(cairo, alpha);
        cairo_pop_group_to_source(cairo);
    }
    cairo_set_matrix(cairo, &matrix);
}

}

void paintComposited(ContextInternals& internals, NSCompositingOperation operation, Painting const& painting)
{
    if (isEmpty(internals.state().clip))
        return;
    if (internals.state().hasShadow())
        paintShadow(internals, painting);
    if (reachesBeyondSource(operation)) {
        paintThroughShape(internals, operation, painting);
        return;
    }
    auto* cairo = internals.cairo.get();
    if (operation == NSCompositeClear)
        setClearingSource(cairo);
    else
        painting.setSource(cairo);
    cairo_set_operator(cairo, cairoOperator(operation));
    cairo_set_antialias(cairo, internals.state().antialiases ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    painting.paintShape(cairo);
}

void setSource(cairo_t* cairo, ContextInternals const& internals, Paint const& paint)
{
    float const alpha = internals.state().alpha;
    if (paint.pattern) {
        setPatternSource(cairo, internals, *paint.pattern->patternImage(), alpha);
        return;
    }
    auto const& color = paint.components;
    setSource(cairo, color, static_cast<double>(color.alpha) * alpha);
}

void setClearingSource(cairo_t* cairo)
{
    cairo_set_source_rgba(cairo, 0, 0, 0, 1);
}

cairo_operator_t cairoOperator(NSCompositingOperation operation)
{
    switch (operation) {
    case NSCompositeClear:
        // With an opaque source: strokes under Cairo's own operator "clear" paint their source.
        return CAIRO_OPERATOR_DEST_OUT;
    case NSCompositeCopy:
        return CAIRO_OPERATOR_SOURCE;
    case NSCompositeSourceIn:
        return CAIRO_OPERATOR_IN;
    case NSCompositeSourceOut:
        return CAIRO_OPERATOR_OUT;
    case NSCompositeSourceAtop:
        return CAIRO_OPERATOR_ATOP;
    case NSCompositeDestinationOver:
        return CAIRO_OPERATOR_DEST_OVER;
    case NSCompositeDestinationIn:
        return CAIRO_OPERATOR_DEST_IN;
    case NSCompositeDestinationOut:
        return CAIRO_OPERATOR_DEST_OUT;
    case NSCompositeDestinationAtop:
        return CAIRO_OPERATOR_DEST_ATOP;
    case NSCompositeXOR:
        return CAIRO_OPERATOR_XOR;
    case NSCompositePlusLighter:
        return CAIRO_OPERATOR_ADD;
    case NSCompositeSourceOver:
    case NSCompositePlusDarker:
    case NSCompositeHighlight:
        return CAIRO_OPERATOR_OVER;
    }
    return CAIRO_OPERATOR_OVER;
}

bool reachesBeyondSource(NSCompositingOperation operation)
{
    return operation == NSCompositeSourceIn || operation == NSCompositeSourceOut || operation == NSCompositeDestinationIn
        || operation == NSCompositeDestinationAtop || operation == NSCompositePlusDarker;
}

DeviceRect deviceRect(cairo_matrix_t const& matrix, Rect rect)
{
    double const xs[] { rect.x, static_cast<double>(rect.x) + rect.width };
    double const ys[] { rect.y, static_cast<double>(rect.y) + rect.height };
    DeviceRect result { largestCoordinate, largestCoordinate, -largestCoordinate, -largestCoordinate };
    for (double const x : xs) {
        for (double const y : ys) {
            double deviceX = x;
            double deviceY = y;
            cairo_matrix_transform_point(&matrix, &deviceX, &deviceY);
            result.left = std::min(result.left, inRange(deviceX));
            result.right = std::max(result.right, inRange(deviceX));
            result.top = std::min(result.top, inRange(deviceY));
            result.bottom = std::max(result.bottom, inRange(deviceY));
        }
    }
    return result;
}

PixelRect snapped(DeviceRect const& rect)
{
    auto const edge = [](double value) { return static_cast<int>(std::floor(value + 0.5)); };
    int const x = edge(rect.left);
    int const y = edge(rect.top);
    return { x, y, std::max(edge(rect.right) - x, 1), std::max(edge(rect.bottom) - y, 1) };
}

PixelRect pixelsAround(DeviceRect const& rect)
{
    if (rect.left > rect.right || rect.top > rect.bottom)
        return {};
    int const x = static_cast<int>(std::floor(rect.left));
    int const y = static_cast<int>(std::floor(rect.top));
    return { x, y, static_cast<int>(std::ceil(rect.right)) - x, static_cast<int>(std::ceil(rect.bottom)) - y };
}

std::uint32_t premultipliedPixel(ColorComponents const& color)
{
    auto const channel = [&](float value) { return static_cast<std::uint32_t>(std::lround(value * color.alpha * 255.0F)); };
    auto const alpha = static_cast<std::uint32_t>(std::lround(color.alpha * 255.0F));
    return alpha << 24U | channel(color.red) << 16U | channel(color.green) << 8U | channel(color.blue);
}

void addPath(cairo_t* cairo, PathGeometry const& path)
{
    for (auto const& element : path.elements()) {
        auto const& points = element.points;
        auto const x = [&](int index) { return inRange(points[static_cast<std::size_t>(index)].x); };
        auto const y = [&](int index) { return inRange(points[static_cast<std::size_t>(index)].y); };
        switch (element.kind) {
        case NSMoveToBezierPathElement:
            cairo_move_to(cairo, x(0), y(0));
            break;
        case NSLineToBezierPathElement:
            cairo_line_to(cairo, x(0), y(0));
            break;
        case NSCurveToBezierPathElement:
            cairo_curve_to(cairo, x(0), y(0), x(1), y(1), x(2), y(2));
            break;
        case NSClosePathBezierPathElement:
            cairo_close_path(cairo);
            break;
        }
    }
}

}

#include <plix/platform/graphics/bitmap_drawing.h>

#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/bitmap_storage.h>
#include <plix/platform/graphics/context_internals.h>
#include <plix/platform/graphics/pixel_operations.h>
#include <plix/platform/graphics/pixel_scaling.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace plix {

namespace {

/// The part that is really there, in pixels from the top left, and where it goes in user space.
struct Placement {
    double left;
    double top;
    double width;
    double height;
    double x;
    double y;
    double destinationWidth;
    double destinationHeight;

    bool isEmpty() const { return !(width > 0 && height > 0 && destinationWidth > 0 && destinationHeight > 0); }
};

Placement placementOf(NSBitmapImageRep const& rep, ImageDrawing const& drawing)
{
    auto const perPoint = rep.pixelsPerPoint();
    auto const& source = drawing.source;
    auto const& target = drawing.destination;
    double const high = rep.pixelsHigh();
    double const left = static_cast<double>(source.x) * perPoint.width;
    double const right = left + static_cast<double>(source.width) * perPoint.width;
    double const low = static_cast<double>(source.y) * perPoint.height;
    double const upper = low + static_cast<double>(source.height) * perPoint.height;
    double const clippedLeft = std::max(left, 0.0);
    double const clippedRight = std::min(right, static_cast<double>(rep.pixelsWide()));
    double const clippedLow = std::max(low, 0.0);
    double const clippedUpper = std::min(upper, high);
    double const perX = right > left ? target.width / (right - left) : 0;
    double const perY = upper > low ? target.height / (upper - low) : 0;
    return { clippedLeft, drawing.isMirrored ? clippedLow : high - clippedUpper, clippedRight - clippedLeft,
        clippedUpper - clippedLow, target.x + (clippedLeft - left) * perX, target.y + (clippedLow - low) * perY,
        (clippedRight - clippedLeft) * perX, (clippedUpper - clippedLow) * perY };
}

/// From user space to the bitmap's pixels.
cairo_matrix_t patternMatrix(Placement const& place, bool isMirrored)
{
    double const scaleX = place.width / place.destinationWidth;
    double const scaleY = place.height / place.destinationHeight;
    if (isMirrored)
        return { scaleX, 0, 0, scaleY, place.left - place.x * scaleX, place.top - place.y * scaleY };
    return { scaleX, 0, 0, -scaleY, place.left - place.x * scaleX, place.top + (place.y + place.destinationHeight) * scaleY };
}

bool isWhole(double value)
{
    return std::abs(value - std::round(value)) < 1e-4;
}

/// Pixel to pixel, rows in the same order.
bool copiesPixels(cairo_matrix_t const& deviceToBitmap)
{
    return std::abs(deviceToBitmap.xx - 1) < 1e-6 && std::abs(deviceToBitmap.yy - 1) < 1e-6 && keepsAxes(deviceToBitmap)
        && isWhole(deviceToBitmap.x0) && isWhole(deviceToBitmap.y0);
}

cairo_filter_t filterFor(NSImageInterpolation interpolation)
{
    switch (interpolation) {
    case NSImageInterpolationNone:
        return CAIRO_FILTER_NEAREST;
    case NSImageInterpolationLow:
        return CAIRO_FILTER_BILINEAR;
    case NSImageInterpolationDefault:
    case NSImageInterpolationHigh:
        return CAIRO_FILTER_GOOD;
    }
    return CAIRO_FILTER_GOOD;
}

Handle<cairo_pattern_t> makePattern(
    ContextInternals const& internals, NSBitmapImageRep const& rep, Placement const& place, bool isMirrored)
{
    auto matrix = patternMatrix(place, isMirrored);
    auto* surface = surfaceOf(rep);
    cairo_matrix_t deviceToUser = internals.matrix();
    cairo_matrix_t deviceToBitmap;
    cairo_matrix_invert(&deviceToUser);
    cairo_matrix_multiply(&deviceToBitmap, &deviceToUser, &matrix);
    bool const isCopy = copiesPixels(deviceToBitmap);
    double const left = std::floor(place.left + 1e-4);
    double const top = std::floor(place.top + 1e-4);
    double const right = std::ceil(place.left + place.width - 1e-4);
    double const bottom = std::ceil(place.top + place.height - 1e-4);
    bool const isPart = left > 0 || top > 0 || right < rep.pixelsWide() || bottom < rep.pixelsHigh();
    Handle<cairo_surface_t> part;
    if (isPart && !isCopy) {
        part.reset(cairo_surface_create_for_rectangle(surface, left, top, right - left, bottom - top));
        surface = part.get();
        matrix.x0 -= left;
        matrix.y0 -= top;
    }
    Handle<cairo_pattern_t> pattern(cairo_pattern_create_for_surface(surface));
    cairo_pattern_set_matrix(pattern.get(), &matrix);
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_PAD);
    cairo_pattern_set_filter(pattern.get(), isCopy ? CAIRO_FILTER_NEAREST : filterFor(internals.state().interpolation));
    return pattern;
}

void addRectangle(cairo_t* cairo, Placement const& place)
{
    cairo_new_path(cairo);
    cairo_rectangle(cairo, place.x, place.y, place.destinationWidth, place.destinationHeight);
}

void paintClipped(cairo_t* cairo, Placement const& place, cairo_operator_t op, double alpha)
{
    cairo_save(cairo);
    addRectangle(cairo, place);
    cairo_clip(cairo);
    // Cairo's operator "source" mixes with what is there where alpha is below 1: the platform replaces.
    if (op == CAIRO_OPERATOR_SOURCE && alpha < 1) {
        cairo_set_operator(cairo, CAIRO_OPERATOR_CLEAR);
        cairo_paint(cairo);
        op = CAIRO_OPERATOR_ADD;
    }
    cairo_set_operator(cairo, op);
    cairo_paint_with_alpha(cairo, alpha);
    cairo_restore(cairo);
}

Rect boundsOf(Placement const& place)
{
    return { static_cast<float>(place.x), static_cast<float>(place.y), static_cast<float>(place.destinationWidth),
        static_cast<float>(place.destinationHeight) };
}

/// Whole pixels of the bitmap onto whole pixels of the device, sides along the axes.
struct DirectDrawing {
    PixelRect source;
    PixelRect target;
    bool reversesRows { false };
};

std::optional<PixelRect> wholePixels(double left, double top, double right, double bottom)
{
    constexpr double most = INT16_MAX;
    bool const isPlain = isWhole(left) && isWhole(top) && isWhole(right) && isWhole(bottom) && left > -most && top > -most
        && right < most && bottom < most;
    if (!isPlain)
        return std::nullopt;
    auto const edge = [](double value) { return static_cast<int>(std::lround(value)); };
    PixelRect const rect { edge(left), edge(top), edge(right) - edge(left), edge(bottom) - edge(top) };
    return isEmpty(rect) ? std::nullopt : std::optional(rect);
}

std::optional<DirectDrawing> directDrawing(
    ContextInternals const& internals, NSBitmapImageRep const& rep, Placement const& place, ImageDrawing const& drawing)
{
    auto const& state = internals.state();
    auto const matrix = internals.matrix();
    bool const replaces = drawing.operation == NSCompositeCopy;
    bool const isPlain = replaces || drawing.operation == NSCompositeSourceOver || drawing.operation == NSCompositeHighlight;
    bool const isSelf = rep.pixels().pixels == internals.pixels.pixels;
    if (!isPlain || isSelf || state.hasShadow() || !state.clipIsRectangle || !keepsAxes(matrix) || matrix.xx <= 0)
        return std::nullopt;
    auto const source = wholePixels(place.left, place.top, place.left + place.width, place.top + place.height);
    double const left = place.x * matrix.xx + matrix.x0;
    double const right = (place.x + place.destinationWidth) * matrix.xx + matrix.x0;
    double const low = place.y * matrix.yy + matrix.y0;
    double const high = (place.y + place.destinationHeight) * matrix.yy + matrix.y0;
    auto const target = wholePixels(left, std::min(low, high), right, std::max(low, high));
    if (!source || !target)
        return std::nullopt;
    bool const isUpright = matrix.yy < 0;
    return DirectDrawing { *source, *target, isUpright == drawing.isMirrored };
}

ScalingQuality qualityFor(NSImageInterpolation interpolation)
{
    switch (interpolation) {
    case NSImageInterpolationNone:
        return ScalingQuality::nearest;
    case NSImageInterpolationLow:
        return ScalingQuality::linear;
    case NSImageInterpolationDefault:
        return ScalingQuality::averaged;
    case NSImageInterpolationHigh:
        return ScalingQuality::smooth;
    }
    return ScalingQuality::averaged;
}

void drawDirectly(
    ContextInternals& internals, NSBitmapImageRep const& rep, DirectDrawing const& direct, bool replaces, double alpha)
{
    static auto& s_scaler = *new PixelScaler; // kept with its memory
    auto const visible = intersection(direct.target, internals.state().clip);
    auto const fraction = static_cast<std::uint32_t>(std::lround(alpha * 255));
    if (isEmpty(visible) || (fraction == 0 && !replaces))
        return;
    auto const pixels = rep.pixels();
    auto const* words = reinterpret_cast<std::uint32_t const*>(pixels.pixels);
    std::ptrdiff_t const stride = pixels.stride / 4;
    auto const& source = direct.source;
    int const firstRow = direct.reversesRows ? source.y + source.height - 1 : source.y;
    PixelView const view { words + firstRow * stride + source.x, direct.reversesRows ? -stride : stride, source.width,
        source.height };
    bool const isScaled = source.width != direct.target.width || source.height != direct.target.height;
    if (isScaled)
        s_scaler.prepare(view, direct.target.width, direct.target.height, qualityFor(internals.state().interpolation));
    cairo_surface_flush(internals.surface.get());
    int const left = visible.x - direct.target.x;
    for (int y = visible.y; y < visible.y + visible.height; ++y) {
        auto* bytes = internals.pixels.pixels + static_cast<std::ptrdiff_t>(y) * internals.pixels.stride;
        auto* row = reinterpret_cast<std::uint32_t*>(bytes) + visible.x;
        int const sourceRow = y - direct.target.y;
        auto const* scaled = isScaled ? s_scaler.row(sourceRow, left, left + visible.width) : view.row(sourceRow) + left;
        if (replaces)
            copyRow(row, scaled, visible.width, fraction);
        else
            blendRowOver(row, scaled, visible.width, fraction);
    }
    cairo_surface_mark_dirty(internals.surface.get());
}

void drawComposited(
    ContextInternals& internals, NSCompositingOperation operation, Placement const& place, cairo_pattern_t* pattern, double alpha)
{
    auto const source = [&](cairo_t* cairo) {
        cairo_set_source(cairo, pattern);
        if (alpha >= 1)
            return;
        cairo_push_group(cairo);
        cairo_set_source(cairo, pattern);
        cairo_paint_with_alpha(cairo, alpha);
        cairo_pop_group_to_source(cairo);
    };
    auto const shape = [&](cairo_t* cairo) {
        addRectangle(cairo, place);
        cairo_fill(cairo);
    };
    paintComposited(internals, operation, { boundsOf(place), source, shape });
}

}

void drawBitmap(ContextInternals& internals, NSBitmapImageRep const& rep, ImageDrawing const& drawing)
{
    auto const place = placementOf(rep, drawing);
    double const alpha = static_cast<double>(clampedComponent(drawing.fraction)) * internals.state().alpha;
    if (place.isEmpty() || isEmpty(internals.state().clip))
        return;
    if (auto const direct = directDrawing(internals, rep, place, drawing)) {
        drawDirectly(internals, rep, *direct, drawing.operation == NSCompositeCopy, alpha);
        return;
    }
    if (!surfaceOf(rep))
        return;
    auto const pattern = makePattern(internals, rep, place, drawing.isMirrored);
    if (internals.state().hasShadow() || drawing.operation == NSCompositePlusDarker) {
        drawComposited(internals, drawing.operation, place, pattern.get(), alpha);
        return;
    }
    auto* cairo = internals.cairo.get();
    auto const op = cairoOperator(drawing.operation);
    cairo_set_antialias(cairo, internals.state().antialiases ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    bool const clears = drawing.operation == NSCompositeClear;
    if (clears)
        setClearingSource(cairo);
    else
        cairo_set_source(cairo, pattern.get());
    if ((alpha < 1 && !clears) || reachesBeyondSource(drawing.operation)) {
        paintClipped(cairo, place, op, alpha);
        return;
    }
    cairo_set_operator(cairo, op);
    addRectangle(cairo, place);
    cairo_fill(cairo);
}

}

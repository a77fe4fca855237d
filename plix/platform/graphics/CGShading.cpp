#include <plix/platform/graphics/CGShading.h>

#include <plix/platform/graphics/context_internals.h>
#include <plix/platform/graphics/pixel_operations.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace plix {

namespace {

constexpr int mostSteps = 8192;
constexpr double nothing = 1e-9;

/// t = x * perX + y * perY + offset for the middle of device pixel (x, y).
struct AxisOnDevice {
    double perX { 0 };
    double perY { 0 };
    double offset { 0 };
    /// How many pixels from t 0 to t 1.
    double length { 0 };

    bool isUpright() const { return std::abs(perX) < nothing * std::abs(perY); }
    bool isLying() const { return std::abs(perY) < nothing * std::abs(perX); }
    double at(int x, int y) const { return (x + 0.5) * perX + (y + 0.5) * perY + offset; }
};

std::optional<AxisOnDevice> axisOnDevice(cairo_matrix_t const& matrix, CGShading::Axis const& axis)
{
    double const dx = static_cast<double>(axis.end.x) - axis.start.x;
    double const dy = static_cast<double>(axis.end.y) - axis.start.y;
    double const squared = dx * dx + dy * dy;
    cairo_matrix_t toUser = matrix;
    if (!(squared > 0) || !std::isfinite(squared) || cairo_matrix_invert(&toUser) != CAIRO_STATUS_SUCCESS)
        return std::nullopt;
    AxisOnDevice result;
    result.perX = (toUser.xx * dx + toUser.yx * dy) / squared;
    result.perY = (toUser.xy * dx + toUser.yy * dy) / squared;
    result.offset = ((toUser.x0 - axis.start.x) * dx + (toUser.y0 - axis.start.y) * dy) / squared;
    result.length = 1 / std::hypot(result.perX, result.perY);
    return std::isfinite(result.length) ? std::optional(result) : std::nullopt;
}

class Painter {
public:
    /// Unless the ends show in the colours, all places are covered.
    Painter(CGShading const& shading, AxisOnDevice const& axis, double alpha, bool antialiases, bool showsEnds)
        : m_shading(shading)
        , m_axis(axis)
        , m_alpha(static_cast<float>(alpha))
        , m_antialiases(antialiases)
        , m_showsEnds(showsEnds)
    {
    }

    /// The premultiplied colour of a pixel whose middle lies at t.
    std::uint32_t pixelAt(double t) const
    {
        float const coverage = coverageAt(t);
        return coverage > 0 ? colorAt(static_cast<float>(std::clamp(t, 0.0, 1.0)), coverage) : 0;
    }
    std::uint32_t colorAt(float t, float coverage) const
    {
        float out[8] {};
        m_shading.function().evaluate(&t, out);
        bool const isGray = m_shading.colorSpace().model() == CGColorSpace::Model::gray;
        ColorComponents const color { clampedComponent(out[0]), clampedComponent(out[isGray ? 0 : 1]),
            clampedComponent(out[isGray ? 0 : 2]), clampedComponent(out[isGray ? 1 : 3]) * coverage * m_alpha };
        return premultipliedPixel(color);
    }
    float coverageAt(double t) const
    {
        auto const& axis = m_shading.axis();
        return covered(t * m_axis.length, axis.extendsStart) * covered((1 - t) * m_axis.length, axis.extendsEnd);
    }

private:
    float covered(double inside, bool isExtended) const
    {
        if (isExtended || !m_showsEnds)
            return 1;
        if (!m_antialiases)
            return inside >= 0 ? 1 : 0;
        // An end on the edge between two pixels leaves a middle half a pixel away from it.
        double const share = inside + 0.5;
        return share < 1e-4 ? 0 : share > 1 - 1e-4 ? 1 : static_cast<float>(share);
    }

    CGShading const& m_shading;
    AxisOnDevice const& m_axis;
    float m_alpha;
    bool m_antialiases;
    bool m_showsEnds;
};

/// The colours of a slanting axis at even steps, so that not every pixel asks the function.
class Steps {
public:
    Steps(Painter const& painter, AxisOnDevice const& axis)
        : m_painter(painter)
    {
        auto const count = std::clamp(static_cast<int>(std::ceil(axis.length * 2)), 2, mostSteps);
        for (int i = 0; i <= count; ++i)
            m_colors.push_back(painter.colorAt(static_cast<float>(i) / static_cast<float>(count), 1));
    }
    std::uint32_t pixelAt(double t) const
    {
        float const coverage = m_painter.coverageAt(t);
        if (coverage <= 0)
            return 0;
        if (coverage < 1)
            return m_painter.pixelAt(t);
        auto const last = static_cast<double>(m_colors.size() - 1);
        return m_colors[static_cast<std::size_t>(std::lround(std::clamp(t, 0.0, 1.0) * last))];
    }

private:
    Painter const& m_painter;
    std::vector<std::uint32_t> m_colors;
};

struct Canvas {
    std::uint8_t* pixels;
    int stride;
    PixelRect area; ///< on the device

    std::uint32_t* row(int y) const { return reinterpret_cast<std::uint32_t*>(pixels + static_cast<std::ptrdiff_t>(y) * stride); }
};

void paintRows(Canvas const& canvas, Painter const& painter, AxisOnDevice const& axis)
{
    for (int y = 0; y < canvas.area.height; ++y)
        std::fill_n(canvas.row(y), canvas.area.width, painter.pixelAt(axis.at(canvas.area.x, canvas.area.y + y)));
}

void paintColumns(Canvas const& canvas, Painter const& painter, AxisOnDevice const& axis)
{
    auto* first = canvas.row(0);
    for (int x = 0; x < canvas.area.width; ++x)
        first[x] = painter.pixelAt(axis.at(canvas.area.x + x, canvas.area.y));
    for (int y = 1; y < canvas.area.height; ++y)
        std::copy_n(first, canvas.area.width, canvas.row(y));
}

void paintSlanting(Canvas const& canvas, Painter const& painter, AxisOnDevice const& axis)
{
    Steps const steps(painter, axis);
    for (int y = 0; y < canvas.area.height; ++y) {
        auto* row = canvas.row(y);
        for (int x = 0; x < canvas.area.width; ++x)
            row[x] = steps.pixelAt(axis.at(canvas.area.x + x, canvas.area.y + y));
    }
}

/// Narrows the clip to what lies between the ends that are not extended.
void clipBetweenEnds(cairo_t* cairo, CGShading::Axis const& axis)
{
    constexpr double far = 100'000;
    double const dx = static_cast<double>(axis.end.x) - axis.start.x;
    double const dy = static_cast<double>(axis.end.y) - axis.start.y;
    double const length = std::hypot(dx, dy);
    double const alongX = dx / length * far;
    double const alongY = dy / length * far;
    double const startX = axis.start.x - (axis.extendsStart ? alongX : 0);
    double const startY = axis.start.y - (axis.extendsStart ? alongY : 0);
    double const endX = axis.end.x + (axis.extendsEnd ? alongX : 0);
    double const endY = axis.end.y + (axis.extendsEnd ? alongY : 0);
    cairo_new_path(cairo);
    cairo_move_to(cairo, startX - alongY, startY + alongX);
    cairo_line_to(cairo, startX + alongY, startY - alongX);
    cairo_line_to(cairo, endX + alongY, endY - alongX);
    cairo_line_to(cairo, endX - alongY, endY + alongX);
    cairo_clip(cairo);
}

void paint(Canvas const& canvas, Painter const& painter, AxisOnDevice const& axis)
{
    if (axis.isUpright())
        paintRows(canvas, painter, axis);
    else if (axis.isLying())
        paintColumns(canvas, painter, axis);
    else
        paintSlanting(canvas, painter, axis);
}

/// Straight into the context's pixels, row by row or, where the axis lies, one row again and again.
void paintDirectly(ContextInternals& internals, Painter const& painter, AxisOnDevice const& axis, bool isAcross)
{
    static auto& s_row = *new std::vector<std::uint32_t>; // kept with its memory
    auto const area = internals.state().clip;
    s_row.resize(static_cast<std::size_t>(area.width));
    for (int x = 0; isAcross && x < area.width; ++x)
        s_row[static_cast<std::size_t>(x)] = painter.pixelAt(axis.at(area.x + x, area.y));
    cairo_surface_flush(internals.surface.get());
    for (int y = area.y; y < area.y + area.height; ++y) {
        auto* bytes = internals.pixels.pixels + static_cast<std::ptrdiff_t>(y) * internals.pixels.stride;
        auto* row = reinterpret_cast<std::uint32_t*>(bytes) + area.x;
        auto const color = isAcross ? 0 : painter.pixelAt(axis.at(area.x, y));
        if (!isAcross && color >> 24U == 255) {
            std::fill_n(row, area.width, color);
            continue;
        }
        if (!isAcross)
            std::fill(s_row.begin(), s_row.end(), color);
        blendRowOver(row, s_row.data(), area.width, 255);
    }
    cairo_surface_mark_dirty(internals.surface.get());
}

void compositeShading(ContextInternals& internals, cairo_surface_t* colors, CGShading::Axis const& axis, bool showsEnds)
{
    auto const& state = internals.state();
    auto* cairo = internals.cairo.get();
    cairo_save(cairo);
    if (!showsEnds)
        clipBetweenEnds(cairo, axis);
    cairo_identity_matrix(cairo);
    if (state.operation == NSCompositeClear)
        setClearingSource(cairo);
    else
        cairo_set_source_surface(cairo, colors, state.clip.x, state.clip.y);
    cairo_pattern_set_filter(cairo_get_source(cairo), CAIRO_FILTER_NEAREST);
    cairo_set_operator(cairo, cairoOperator(state.operation));
    if (showsEnds) {
        cairo_rectangle(cairo, state.clip.x, state.clip.y, state.clip.width, state.clip.height);
        cairo_fill(cairo);
    } else {
        cairo_paint(cairo);
    }
    cairo_restore(cairo);
}

}

PLIX_DESCRIBE(CGShading)
{
}

bool CGShading::init(CGColorSpaceRef const& space, Axis const& axis, CGFunctionRef const& function)
{
    m_colorSpace = space;
    m_axis = axis;
    m_function = function;
    return m_colorSpace && m_function;
}

CGShadingRef CGShadingCreateAxial(
    CGColorSpaceRef const& space, Point start, Point end, CGFunctionRef const& function, bool extendStart, bool extendEnd)
{
    bool const fits
        = space && function && function->domainDimension() == 1 && function->rangeDimension() == space->numberOfComponents() + 1;
    return fits ? make<CGShading>(space, CGShading::Axis { start, end, extendStart, extendEnd }, function) : nullptr;
}

void CGContextDrawShading(CGContextRef context, CGShadingRef const& shading)
{
    if (!context || !shading)
        return;
    auto& internals = context->internals();
    auto const& state = internals.state();
    auto const area = state.clip;
    auto const axis = axisOnDevice(internals.matrix(), shading->axis());
    if (isEmpty(area) || !axis)
        return;
    bool const isBounded
        = !reachesBeyondSource(state.operation) && state.operation != NSCompositeClear && state.operation != NSCompositeCopy;
    Painter const painter(*shading, *axis, state.alpha, state.antialiases, isBounded);
    bool const isOver = state.operation == NSCompositeSourceOver || state.operation == NSCompositeHighlight;
    if (isOver && state.clipIsRectangle && (axis->isUpright() || axis->isLying())) {
        paintDirectly(internals, painter, *axis, axis->isLying());
        return;
    }
    Handle<cairo_surface_t> const surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, area.width, area.height));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS)
        return;
    paint({ cairo_image_surface_get_data(surface.get()), cairo_image_surface_get_stride(surface.get()), area }, painter, *axis);
    cairo_surface_mark_dirty(surface.get());
    compositeShading(internals, surface.get(), shading->axis(), isBounded);
}

}

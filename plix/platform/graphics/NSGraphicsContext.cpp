#include <plix/platform/graphics/NSGraphicsContext.h>

#include <plix/platform/base/Global.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSShadow.h>
#include <plix/platform/graphics/context_internals.h>

#include <algorithm>
#include <cassert>
#include <cmath>

namespace plix {

namespace {

constexpr std::size_t expectedDepth = 32;

constinit Global<NSGraphicsContext> s_current;

cairo_matrix_t cairoMatrix(AffineTransform const& transform)
{
    return { transform.m11, transform.m12, transform.m21, transform.m22, transform.tX, transform.tY };
}

Rect userRect(cairo_matrix_t const& matrix, double left, double top, double right, double bottom)
{
    cairo_matrix_t inverse = matrix;
    if (cairo_matrix_invert(&inverse) != CAIRO_STATUS_SUCCESS)
        return {};
    cairo_matrix_transform_point(&inverse, &left, &top);
    cairo_matrix_transform_point(&inverse, &right, &bottom);
    return { static_cast<float>(std::min(left, right)), static_cast<float>(std::min(top, bottom)),
        static_cast<float>(std::abs(right - left)), static_cast<float>(std::abs(bottom - top)) };
}

}

cairo_matrix_t ContextInternals::baseMatrix() const
{
    double const scale = pixels.scale;
    return { scale, 0, 0, -scale, 0, static_cast<double>(pixels.height) };
}

cairo_matrix_t ContextInternals::matrix() const
{
    cairo_matrix_t matrix;
    cairo_get_matrix(cairo.get(), &matrix);
    return matrix;
}

PLIX_DESCRIBE(NSGraphicsContext)
{
}

NSGraphicsContext::NSGraphicsContext() = default;

NSGraphicsContext::~NSGraphicsContext() = default;

bool NSGraphicsContext::init(PixelBuffer const& pixels)
{
    bool const isUsable = pixels.pixels && pixels.width > 0 && pixels.height > 0 && pixels.width <= INT16_MAX
        && pixels.height <= INT16_MAX && pixels.stride % 4 == 0 && pixels.stride / 4 >= pixels.width && pixels.scale > 0;
    if (!isUsable)
        return false;
    m_internals = std::make_unique<ContextInternals>();
    auto& internals = *m_internals;
    internals.pixels = pixels;
    internals.surface.reset(cairo_image_surface_create_for_data(
        pixels.pixels, pixels.hasAlpha ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_RGB24, pixels.width, pixels.height, pixels.stride));
    internals.cairo.reset(cairo_create(internals.surface.get()));
    if (cairo_status(internals.cairo.get()) != CAIRO_STATUS_SUCCESS)
        return false;
    auto const base = internals.baseMatrix();
    cairo_set_matrix(internals.cairo.get(), &base);
    internals.states.reserve(expectedDepth);
    internals.states.emplace_back();
    internals.state().clip = { 0, 0, pixels.width, pixels.height };
    return true;
}

Ref<NSGraphicsContext> NSGraphicsContext::graphicsContextWithBitmapImageRep(Ref<NSBitmapImageRep> const& rep)
{
    if (!rep)
        return nullptr;
    auto pixels = rep->mutablePixels();
    pixels.scale = rep->pixelsPerPoint().width;
    auto context = make<NSGraphicsContext>(pixels);
    if (context)
        context->m_imageRep = rep;
    return context;
}

Ref<NSGraphicsContext> NSGraphicsContext::currentContext()
{
    return s_current;
}

void NSGraphicsContext::setCurrentContext(Ref<NSGraphicsContext> context)
{
    s_current = std::move(context);
}

float NSGraphicsContext::backingScale() const
{
    return m_internals->pixels.scale;
}

PixelBuffer NSGraphicsContext::pixels()
{
    flushGraphics();
    return m_internals->pixels;
}

void NSGraphicsContext::pixelsChanged()
{
    cairo_surface_mark_dirty(m_internals->surface.get());
}

void NSGraphicsContext::flushGraphics()
{
    cairo_surface_flush(m_internals->surface.get());
}

void NSGraphicsContext::concat(AffineTransform const& transform)
{
    // Cairo refuses all further work after a matrix without inverse.
    if (!transform.isInvertible())
        return;
    auto const matrix = cairoMatrix(transform);
    cairo_transform(m_internals->cairo.get(), &matrix);
}

AffineTransform NSGraphicsContext::currentTransform() const
{
    auto inverse = m_internals->baseMatrix();
    cairo_matrix_invert(&inverse);
    auto const matrix = m_internals->matrix();
    cairo_matrix_t result;
    cairo_matrix_multiply(&result, &matrix, &inverse);
    return { result.xx, result.yx, result.xy, result.yy, result.x0, result.y0 };
}

void NSGraphicsContext::setTransform(AffineTransform const& transform)
{
    if (!transform.isInvertible())
        return;
    auto const base = m_internals->baseMatrix();
    cairo_set_matrix(m_internals->cairo.get(), &base);
    concat(transform);
}

bool NSGraphicsContext::isFlipped() const
{
    return m_internals->state().isFlipped;
}

void NSGraphicsContext::setFlipped(bool isFlipped)
{
    m_internals->state().isFlipped = isFlipped;
}

Rect NSGraphicsContext::rectSnappedToPixels(Rect rect) const
{
    auto const matrix = m_internals->matrix();
    if (rect.isEmpty() || !keepsAxes(matrix))
        return rect;
    auto const pixels = snapped(deviceRect(matrix, rect));
    return userRect(matrix, pixels.x, pixels.y, pixels.x + pixels.width, pixels.y + pixels.height);
}

void NSGraphicsContext::clipToRect(Rect rect)
{
    clipToRects({ &rect, 1 });
}

void NSGraphicsContext::clipToRects(std::span<Rect const> rects)
{
    auto* cairo = m_internals->cairo.get();
    auto& state = m_internals->state();
    auto const matrix = m_internals->matrix();
    cairo_new_path(cairo);
    if (keepsAxes(matrix)) {
        PixelRect around {};
        int count = 0;
        cairo_identity_matrix(cairo);
        for (auto const& rect : rects) {
            if (rect.isEmpty())
                continue;
            auto const pixels = intersection(snapped(deviceRect(matrix, rect)), state.clip);
            if (plix::isEmpty(pixels))
                continue;
            cairo_rectangle(cairo, pixels.x, pixels.y, pixels.width, pixels.height);
            int const right = std::max(around.x + around.width, pixels.x + pixels.width);
            int const bottom = std::max(around.y + around.height, pixels.y + pixels.height);
            int const x = count == 0 ? pixels.x : std::min(around.x, pixels.x);
            int const y = count == 0 ? pixels.y : std::min(around.y, pixels.y);
            around = { x, y, (count == 0 ? pixels.x + pixels.width : right) - x,
                (count == 0 ? pixels.y + pixels.height : bottom) - y };
            ++count;
        }
        cairo_clip(cairo);
        cairo_set_matrix(cairo, &matrix);
        state.clip = around;
        state.clipIsRectangle = state.clipIsRectangle && count <= 1;
        return;
    }
    DeviceRect around { INT16_MAX, INT16_MAX, 0, 0 };
    for (auto const& rect : rects) {
        if (rect.isEmpty())
            continue;
        cairo_rectangle(cairo, rect.x, rect.y, rect.width, rect.height);
        auto const device = deviceRect(matrix, rect);
        around = { std::min(around.left, device.left), std::min(around.top, device.top), std::max(around.right, device.right),
            std::max(around.bottom, device.bottom) };
    }
    cairo_clip(cairo);
    state.clip = intersection(state.clip, pixelsAround(around));
    state.clipIsRectangle = false;
}

void NSGraphicsContext::clipToPath(NSBezierPath const& path)
{
    auto* cairo = m_internals->cairo.get();
    auto& state = m_internals->state();
    cairo_new_path(cairo);
    addPath(cairo, path.geometry());
    cairo_set_fill_rule(cairo, path.windingRule() == NSEvenOddWindingRule ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
    cairo_set_antialias(cairo, state.antialiases ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    cairo_clip(cairo);
    state.clip = intersection(state.clip, pixelsAround(deviceRect(m_internals->matrix(), path.bounds())));
    state.clipIsRectangle = false;
}

void NSGraphicsContext::resetClip()
{
    cairo_reset_clip(m_internals->cairo.get());
    m_internals->state().clip = { 0, 0, m_internals->pixels.width, m_internals->pixels.height };
    m_internals->state().clipIsRectangle = true;
}

Rect NSGraphicsContext::clipBounds() const
{
    auto const& clip = m_internals->state().clip;
    if (plix::isEmpty(clip))
        return {};
    cairo_matrix_t inverse = m_internals->matrix();
    if (cairo_matrix_invert(&inverse) != CAIRO_STATUS_SUCCESS)
        return {};
    AffineTransform const toUser { inverse.xx, inverse.yx, inverse.xy, inverse.yy, inverse.x0, inverse.y0 };
    return toUser.boundsOf({ static_cast<float>(clip.x), static_cast<float>(clip.y), static_cast<float>(clip.width),
        static_cast<float>(clip.height) });
}

void NSGraphicsContext::setFillColor(NSColor const& color)
{
    auto& fill = m_internals->state().fill;
    fill.components = color.components();
    fill.pattern = color.patternImage() ? Ref<NSColor>(const_cast<NSColor*>(&color)) : nullptr;
}

void NSGraphicsContext::setStrokeColor(NSColor const& color)
{
    auto& stroke = m_internals->state().stroke;
    stroke.components = color.components();
    stroke.pattern = color.patternImage() ? Ref<NSColor>(const_cast<NSColor*>(&color)) : nullptr;
}

NSCompositingOperation NSGraphicsContext::compositingOperation() const
{
    return m_internals->state().operation;
}

void NSGraphicsContext::setCompositingOperation(NSCompositingOperation operation)
{
    m_internals->state().operation = operation;
}

NSImageInterpolation NSGraphicsContext::imageInterpolation() const
{
    return m_internals->state().interpolation;
}

void NSGraphicsContext::setImageInterpolation(NSImageInterpolation interpolation)
{
    m_internals->state().interpolation = interpolation;
}

bool NSGraphicsContext::shouldAntialias() const
{
    return m_internals->state().antialiases;
}

void NSGraphicsContext::setShouldAntialias(bool antialiases)
{
    m_internals->state().antialiases = antialiases;
}

bool NSGraphicsContext::shouldSmoothFonts() const
{
    return m_internals->state().smoothsFonts;
}

void NSGraphicsContext::setShouldSmoothFonts(bool smooths)
{
    m_internals->state().smoothsFonts = smooths;
}

float NSGraphicsContext::alpha() const
{
    return m_internals->state().alpha;
}

void NSGraphicsContext::setAlpha(float alpha)
{
    m_internals->state().alpha = clampedComponent(alpha);
}

void NSGraphicsContext::setShadow(NSShadow const* shadow)
{
    auto& values = m_internals->state().shadow;
    values = {};
    if (shadow && shadow->shadowColor())
        values = { shadow->shadowOffset(), shadow->shadowBlurRadius(), shadow->shadowColor()->components() };
}

Point NSGraphicsContext::patternPhase() const
{
    return m_internals->state().patternPhase;
}

void NSGraphicsContext::setPatternPhase(Point phase)
{
    m_internals->state().patternPhase = phase;
}

std::size_t NSGraphicsContext::stateDepth() const
{
    return m_internals->states.size() - 1;
}

void NSGraphicsContext::saveGraphicsState(Badge<GraphicsState> const&)
{
    cairo_save(m_internals->cairo.get());
    m_internals->states.push_back(DrawingState(m_internals->state()));
}

void NSGraphicsContext::restoreGraphicsState(Badge<GraphicsState> const&, [[maybe_unused]] std::size_t expectedDepthAfter)
{
    m_internals->states.pop_back();
    assert(stateDepth() == expectedDepthAfter);
    cairo_restore(m_internals->cairo.get());
}

GraphicsState::GraphicsState()
    : GraphicsState(NSGraphicsContext::currentContext())
{
}

GraphicsState::GraphicsState(NSGraphicsContext& context)
    : GraphicsState(Ref<NSGraphicsContext>(context))
{
}

GraphicsState::GraphicsState(Ref<NSGraphicsContext> const& context)
    : m_context(context)
{
    if (!m_context)
        return;
    m_depth = m_context->stateDepth();
    m_context->saveGraphicsState({});
}

GraphicsState::~GraphicsState()
{
    if (m_context)
        m_context->restoreGraphicsState({}, m_depth);
}

CurrentContext::CurrentContext(Ref<NSGraphicsContext> const& context)
    : m_previous(NSGraphicsContext::currentContext())
    , m_state(context)
{
    NSGraphicsContext::setCurrentContext(context);
}

CurrentContext::~CurrentContext()
{
    NSGraphicsContext::setCurrentContext(std::move(m_previous));
}

}

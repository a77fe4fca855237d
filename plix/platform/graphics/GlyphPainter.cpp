#include <plix/platform/graphics/GlyphPainter.h>

#include <plix/platform/graphics/GlyphFont.h>
#include <plix/platform/graphics/GlyphShadow.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/context_internals.h>
#include <plix/platform/graphics/glyph_blending.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace plix {

namespace {

/// Glyphs farther from the pixels' corner than this are left to Cairo.
constexpr double farthestPlace = 1e6;

/// As Cairo rounds a glyph's place.
int nearestPixel(double value)
{
    return static_cast<int>(std::floor(value + 0.5));
}

}

GlyphPainter::GlyphPainter(NSGraphicsContext& context)
    : m_context(context)
    , m_internals(context.internals())
{
    auto const& state = m_internals.state();
    auto const matrix = m_internals.matrix();
    double const down = state.isFlipped ? matrix.yy : -matrix.yy;
    if (keepsAxes(matrix) && matrix.xx > 0 && std::abs(matrix.xx - down) < 1e-6)
        m_scale = matrix.xx;
    m_blends = m_scale > 0 && state.operation == NSCompositeSourceOver && state.clipIsRectangle;
    setColor(nullptr);
}

GlyphPainter::~GlyphPainter()
{
    if (m_hasBlended)
        cairo_surface_mark_dirty(m_internals.surface.get());
}

void GlyphPainter::setColor(NSColor const* color)
{
    m_color = color;
    ColorComponents components = color ? color->components() : ColorComponents { 0, 0, 0, 1 };
    components.alpha *= m_internals.state().alpha;
    m_pixel = premultipliedPixel(components);
}

void GlyphPainter::paint(GlyphFont& font, std::span<SetGlyph const> glyphs, Point origin)
{
    if (glyphs.empty() || !std::isfinite(origin.x) || !std::isfinite(origin.y))
        return;
    bool const isPlain = m_blends && !(m_color && m_color->patternImage());
    if (isPlain && (!m_internals.state().hasShadow() || blendShadow(font, glyphs, origin)))
        blend(font, glyphs, origin);
    else
        paintByCairo(font, glyphs, origin);
}

void GlyphPainter::beginBlending()
{
    if (m_hasBlended)
        return;
    cairo_surface_flush(m_internals.surface.get());
    m_hasBlended = true;
}

bool GlyphPainter::blendShadow(GlyphFont& font, std::span<SetGlyph const> glyphs, Point origin)
{
    if (m_pixel >> 24 != 0xFF)
        return false;
    auto const& state = m_internals.state();
    GlyphShadow shadow(state.shadow, static_cast<double>(m_internals.pixels.scale), state.clip);
    auto const matrix = m_internals.matrix();
    auto const xOf = [&](SetGlyph const& glyph) {
        return matrix.xx * static_cast<double>(origin.x) + matrix.x0 + m_scale * static_cast<double>(glyph.x);
    };
    auto const yOf = [&](SetGlyph const& glyph) {
        return matrix.yy * static_cast<double>(origin.y) + matrix.y0 + m_scale * static_cast<double>(glyph.y);
    };
    for (auto const& glyph : glyphs) {
        double const x = xOf(glyph);
        double const y = yOf(glyph);
        bool const isFar = std::abs(x) > farthestPlace || std::abs(y) > farthestPlace;
        auto const* mask = glyph.glyph & SetGlyph::isUnknown || isFar ? nullptr : font.mask(glyph.glyph, m_scale);
        if (!mask)
            return false;
        shadow.enclose(*mask, nearestPixel(x), nearestPixel(y));
    }
    if (shadow.isEmpty())
        return true;
    for (auto const& glyph : glyphs)
        shadow.add(*font.mask(glyph.glyph, m_scale), nearestPixel(xOf(glyph)), nearestPixel(yOf(glyph)));
    beginBlending();
    shadow.blend(m_internals.pixels);
    return true;
}

void GlyphPainter::blend(GlyphFont& font, std::span<SetGlyph const> glyphs, Point origin)
{
    if (m_pixel >> 24 == 0)
        return;
    beginBlending();
    auto const matrix = m_internals.matrix();
    double const x = matrix.xx * static_cast<double>(origin.x) + matrix.x0;
    double const y = matrix.yy * static_cast<double>(origin.y) + matrix.y0;
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        if (blendGlyph(
                font, glyphs[i], x + m_scale * static_cast<double>(glyphs[i].x), y + m_scale * static_cast<double>(glyphs[i].y)))
            continue;
        cairo_surface_mark_dirty(m_internals.surface.get());
        paintByCairo(font, glyphs.subspan(i, 1), origin);
        cairo_surface_flush(m_internals.surface.get());
    }
}

bool GlyphPainter::blendGlyph(GlyphFont& font, SetGlyph const& glyph, double x, double y)
{
    if (glyph.glyph & SetGlyph::isUnknown)
        return false;
    auto const& clip = m_internals.state().clip;
    // Far outside: nothing shows, and no whole number holds it.
    constexpr double beyondAnyGlyph = 1000;
    if (x < clip.x - beyondAnyGlyph || x > clip.x + clip.width + beyondAnyGlyph || y < clip.y - beyondAnyGlyph
        || y > clip.y + clip.height + beyondAnyGlyph)
        return m_scale < 10;
    auto const* mask = font.mask(glyph.glyph, m_scale);
    if (!mask)
        return false;
    int const left = nearestPixel(x) + mask->left;
    int const top = nearestPixel(y) + mask->top;
    // Masks are padded to the right, so that whole groups of pixels can be blended where there is room.
    int const firstColumn = std::max(0, clip.x - left);
    int const endColumn = std::min(mask->stride, clip.x + clip.width - left);
    int const firstRow = std::max(0, clip.y - top);
    int const endRow = std::min(mask->height, clip.y + clip.height - top);
    if (firstColumn >= endColumn)
        return true;
    auto const& buffer = m_internals.pixels;
    for (int row = firstRow; row < endRow; ++row) {
        auto* const line = reinterpret_cast<std::uint32_t*>(buffer.pixels + static_cast<std::ptrdiff_t>(top + row) * buffer.stride);
        auto const* coverage = mask->coverage + static_cast<std::ptrdiff_t>(row) * mask->stride;
        blendCoverage(line + left + firstColumn, coverage + firstColumn, endColumn - firstColumn, m_pixel);
    }
    return true;
}

void GlyphPainter::paintByCairo(GlyphFont& font, std::span<SetGlyph const> glyphs, Point origin)
{
    thread_local std::vector<cairo_glyph_t> placed;
    placed.clear();
    float left = std::numeric_limits<float>::max();
    float right = -left;
    auto const& metrics = font.metrics();
    // Outlines may leave the line by about a letter on each side.
    float const margin = metrics.ascender - metrics.descender;
    for (auto const& glyph : glyphs) {
        left = std::min(left, glyph.x);
        right = std::max(right, glyph.x);
        if (glyph.glyph & SetGlyph::isUnknown)
            paintUnknown(glyph, metrics.capHeight, origin);
        else
            placed.push_back({ glyph.glyph, glyph.x, glyph.y });
    }
    if (placed.empty())
        return;
    bool const isFlipped = m_internals.state().isFlipped;
    float const width = right - left + 2 * margin + std::max(metrics.maximumAdvance, margin);
    Rect const bounds { origin.x + left - margin, origin.y - 2 * margin, width, 4 * margin };
    Paint paint;
    if (m_color && m_color->patternImage())
        paint.pattern = Ref<NSColor>(const_cast<NSColor*>(m_color));
    else if (m_color)
        paint.components = m_color->components();
    paintComposited(m_internals, m_internals.state().operation,
        { bounds, [&](cairo_t* cairo) { setSource(cairo, m_internals, paint); },
            [&](cairo_t* cairo) {
                cairo_matrix_t before;
                cairo_get_matrix(cairo, &before);
                cairo_translate(cairo, origin.x, origin.y);
                cairo_scale(cairo, 1, isFlipped ? 1 : -1);
                cairo_set_scaled_font(cairo, font.scaledFont(m_scale > 0 ? m_scale : 1));
                cairo_show_glyphs(cairo, placed.data(), static_cast<int>(placed.size()));
                cairo_set_matrix(cairo, &before);
            } });
}

/// A box stands for a character that no font has.
void GlyphPainter::paintUnknown(SetGlyph const& glyph, float height, Point origin)
{
    auto const advance = static_cast<float>(glyph.glyph & ~SetGlyph::isUnknown);
    float const up = m_internals.state().isFlipped ? -1 : 1;
    Rect const box { origin.x + glyph.x + 1, up > 0 ? origin.y : origin.y - height, advance - 2, height };
    if (box.isEmpty())
        return;
    GraphicsState const saved(m_context);
    m_context.setFillColor(m_color ? *m_color : *NSColor::blackColor());
    NSFrameRectWithWidthUsingOperation(box, 1, m_internals.state().operation);
}

}

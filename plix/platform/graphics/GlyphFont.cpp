#include <plix/platform/graphics/GlyphFont.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <hb-ot.h>

namespace plix {

namespace {

// Larger glyphs are few, and drawn well enough from their outlines.
constexpr int largestMaskSide = 96;
// A page of an ideographic script stays below this.
constexpr std::size_t mostMasks = 4096;
// A window has one scale; while it is moved between screens, or zoomed, a few are enough.
constexpr std::size_t mostScales = 4;

float points(hb_position_t units)
{
    return static_cast<float>(units) / PANGO_SCALE;
}

float openTypeMetric(hb_font_t* font, hb_ot_metrics_tag_t tag, float otherwise)
{
    hb_position_t position = 0;
    return hb_ot_metrics_get_position(font, tag, &position) ? points(position) : otherwise;
}

FontMetrics metricsOf(PangoFont* font)
{
    hb_font_t* const shaping = pango_font_get_hb_font(font);
    FontMetrics metrics;
    hb_font_extents_t extents {};
    hb_font_get_h_extents(shaping, &extents);
    metrics.ascender = points(extents.ascender);
    metrics.descender = points(extents.descender);
    metrics.leading = points(extents.line_gap);
    metrics.capHeight = openTypeMetric(shaping, HB_OT_METRICS_TAG_CAP_HEIGHT, metrics.ascender * 0.75F);
    metrics.xHeight = openTypeMetric(shaping, HB_OT_METRICS_TAG_X_HEIGHT, metrics.ascender * 0.55F);
    metrics.underlinePosition = openTypeMetric(shaping, HB_OT_METRICS_TAG_UNDERLINE_OFFSET, metrics.descender * 0.5F);
    metrics.underlineThickness = openTypeMetric(shaping, HB_OT_METRICS_TAG_UNDERLINE_SIZE, metrics.ascender * 0.06F);
    metrics.italicAngle = hb_style_get_value(shaping, HB_STYLE_TAG_SLANT_ANGLE);
    cairo_font_extents_t cairoExtents;
    cairo_scaled_font_extents(pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font)), &cairoExtents);
    metrics.maximumAdvance = static_cast<float>(cairoExtents.max_x_advance);
    return metrics;
}

std::unordered_map<PangoFont*, std::weak_ptr<GlyphFont>>& fontsInUse()
{
    static auto& s_fonts = *new std::unordered_map<PangoFont*, std::weak_ptr<GlyphFont>>;
    return s_fonts;
}

}

struct GlyphFont::Scaled {
    double scale { 1 };
    Handle<cairo_scaled_font_t> font;
    struct Entry {
        GlyphMask mask;
        bool isUsable { true };
        std::unique_ptr<std::uint8_t[]> bytes;
    };
    std::unordered_map<std::uint32_t, Entry> masks;
    // Most glyphs of a Latin font have small numbers.
    std::vector<Entry const*> lowGlyphs;
};

std::shared_ptr<GlyphFont> GlyphFont::of(PangoFont* font)
{
    auto& known = fontsInUse()[font];
    auto found = known.lock();
    if (!found) {
        found = std::make_shared<GlyphFont>(font);
        known = found;
    }
    return found;
}

GlyphFont::GlyphFont(PangoFont* font)
    : m_font(PANGO_FONT(g_object_ref(font)))
    , m_metrics(metricsOf(font))
{
}

GlyphFont::~GlyphFont()
{
    fontsInUse().erase(m_font.get());
}

GlyphFont::Scaled& GlyphFont::scaled(double scale)
{
    for (auto& scaled : m_scaled) {
        if (scaled->scale == scale)
            return *scaled;
    }
    auto* const base = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(m_font.get()));
    cairo_matrix_t fontMatrix;
    cairo_scaled_font_get_font_matrix(base, &fontMatrix);
    cairo_matrix_t transform;
    cairo_matrix_init_scale(&transform, scale, scale);
    Handle<cairo_font_options_t> const options(cairo_font_options_create());
    cairo_scaled_font_get_font_options(base, options.get());
    if (m_scaled.size() >= mostScales)
        m_scaled.erase(m_scaled.begin());
    auto made = std::make_unique<Scaled>();
    made->scale = scale;
    made->font.reset(cairo_scaled_font_create(cairo_scaled_font_get_font_face(base), &fontMatrix, &transform, options.get()));
    m_scaled.push_back(std::move(made));
    return *m_scaled.back();
}

cairo_scaled_font_t* GlyphFont::scaledFont(double scale)
{
    return scaled(scale).font.get();
}

GlyphMask const* GlyphFont::mask(std::uint32_t glyph, double scale)
{
    auto& set = scaled(scale);
    if (glyph < set.lowGlyphs.size() && set.lowGlyphs[glyph])
        return set.lowGlyphs[glyph]->isUsable ? &set.lowGlyphs[glyph]->mask : nullptr;
    if (set.masks.size() >= mostMasks) {
        set.masks.clear();
        set.lowGlyphs.clear();
    }
    auto const [place, isNew] = set.masks.try_emplace(glyph);
    auto& entry = place->second;
    if (isNew) {
        cairo_glyph_t const placed { glyph, 0, 0 };
        cairo_text_extents_t extents;
        cairo_scaled_font_glyph_extents(set.font.get(), &placed, 1, &extents);
        auto& mask = entry.mask;
        mask.left = static_cast<int>(std::floor(extents.x_bearing * scale)) - 1;
        mask.top = static_cast<int>(std::floor(extents.y_bearing * scale)) - 1;
        mask.width = static_cast<int>(std::ceil(extents.width * scale)) + 3;
        mask.height = static_cast<int>(std::ceil(extents.height * scale)) + 3;
        bool const isPlain = !(cairo_scaled_font_get_type(set.font.get()) == CAIRO_FONT_TYPE_USER);
        entry.isUsable = isPlain && mask.width <= largestMaskSide && mask.height <= largestMaskSide;
        if (entry.isUsable) {
            render(set, glyph, mask);
            entry.bytes.reset(const_cast<std::uint8_t*>(mask.coverage));
        }
        constexpr std::uint32_t lowGlyphCount = 2048;
        if (glyph < lowGlyphCount) {
            set.lowGlyphs.resize(std::max<std::size_t>(set.lowGlyphs.size(), glyph + 1));
            set.lowGlyphs[glyph] = &entry;
        }
    }
    return entry.isUsable ? &entry.mask : nullptr;
}

/// Draws the glyph into a mask of the given bounds and trims it to its ink; the bytes are the caller's.
void GlyphFont::render(Scaled& set, std::uint32_t glyph, GlyphMask& mask)
{
    Handle<cairo_surface_t> const surface(cairo_image_surface_create(CAIRO_FORMAT_A8, mask.width, mask.height));
    Handle<cairo_t> const cairo(cairo_create(surface.get()));
    cairo_scale(cairo.get(), set.scale, set.scale);
    cairo_set_scaled_font(cairo.get(), set.font.get());
    cairo_glyph_t const placed { glyph, -mask.left / set.scale, -mask.top / set.scale };
    cairo_show_glyphs(cairo.get(), &placed, 1);
    cairo_surface_flush(surface.get());
    auto const* data = cairo_image_surface_get_data(surface.get());
    int const stride = cairo_image_surface_get_stride(surface.get());
    int left = mask.width;
    int right = -1;
    int top = mask.height;
    int bottom = -1;
    for (int y = 0; data && y < mask.height; ++y) {
        for (int x = 0; x < mask.width; ++x) {
            if (data[y * stride + x] == 0)
                continue;
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = y;
        }
    }
    if (right < 0) {
        mask = {};
        return;
    }
    int const width = right - left + 1;
    int const height = bottom - top + 1;
    int const padded = (width + 3) / 4 * 4;
    auto bytes = std::make_unique<std::uint8_t[]>(static_cast<std::size_t>(padded) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y)
        std::memcpy(bytes.get() + y * padded, data + (top + y) * stride + left, static_cast<std::size_t>(width));
    mask = { bytes.release(), mask.left + left, mask.top + top, width, height, padded };
}

}

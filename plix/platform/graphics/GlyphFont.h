#pragma once

#include <plix/platform/graphics/font_metrics.h>
#include <plix/platform/graphics/text_handles.h>

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

// Private to plix/platform/graphics.

namespace plix {

/// A glyph's coverage at one scale, as it is blended into pixels.
struct GlyphMask {
    std::uint8_t const* coverage { nullptr }; ///< height rows of stride bytes; null where there is no ink
    int left { 0 }; ///< from the glyph's origin, in device pixels, y downwards
    int top { 0 };
    int width { 0 };
    int height { 0 };
    int stride { 0 }; ///< a multiple of 4; zeros behind the width
};

/// The glyphs of one font that Pango has chosen, with their metrics and their masks at the scales they are drawn at.
class GlyphFont {
public:
    /// The one there is for this font, which must be one of the catalogue's.
    static std::shared_ptr<GlyphFont> of(PangoFont*);
    explicit GlyphFont(PangoFont*);
    ~GlyphFont();
    GlyphFont(GlyphFont const&) = delete;
    GlyphFont& operator=(GlyphFont const&) = delete;

    PangoFont* pangoFont() const { return m_font.get(); }
    hb_font_t* shapingFont() const { return pango_font_get_hb_font(m_font.get()); }
    FontMetrics const& metrics() const { return m_metrics; }
    /// For a context whose transform is this scale and no other.
    cairo_scaled_font_t* scaledFont(double scale);
    /// Null where the glyph is too large for a mask, or is no plain mask.
    GlyphMask const* mask(std::uint32_t glyph, double scale);

private:
    struct Scaled;

    Scaled& scaled(double scale);
    static void render(Scaled&, std::uint32_t glyph, GlyphMask&);

    Handle<PangoFont> m_font;
    FontMetrics m_metrics;
    std::vector<std::unique_ptr<Scaled>> m_scaled;
};

}

#pragma once

#include <plix/platform/graphics/GlyphFont.h>
#include <plix/platform/graphics/context_internals.h>
#include <plix/platform/graphics/pixel_buffer.h>

// Private to plix/platform/graphics.

namespace plix {

/// The shadow of some glyphs, put together from their masks: first all are enclosed, then all are added, then it is blended into
/// the pixels. Places are device pixels; a glyph's is that of its origin.
class GlyphShadow {
public:
    /// Only what reaches into the clip counts.
    GlyphShadow(ShadowValues const&, double scale, PixelRect clip);

    void enclose(GlyphMask const&, int x, int y);
    /// Whether nothing of it is to be seen.
    bool isEmpty() const { return m_area.width <= 0; }
    void add(GlyphMask const&, int x, int y);
    void blend(PixelBuffer const&);

private:
    PixelRect inkOf(GlyphMask const&, int x, int y) const;
    void prepare();

    ShadowValues const& m_values;
    PixelRect m_clip;
    float m_radius { 0 };
    int m_reach { 0 };
    int m_dx { 0 };
    int m_dy { 0 };
    /// Around the ink of the glyphs, as far as its shadow is seen; then with room for the blur.
    PixelRect m_area;
    bool m_isPrepared { false };
};

}

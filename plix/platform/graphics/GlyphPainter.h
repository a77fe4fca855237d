#pragma once

#include <plix/platform/graphics/color_components.h>
#include <plix/platform/graphics/geometry.h>
#include <plix/platform/graphics/set_text.h>

#include <cstdint>
#include <span>

// Private to plix/platform/graphics.

namespace plix {

class GlyphFont;
class NSColor;
class NSGraphicsContext;
struct ContextInternals;

/// Paints glyphs into a context, upright as the context's flippedness says. In the ordinary case (source over, an upright
/// transform, a clip that is a rectangle) it blends masks into the pixels itself, after their shadow where there is one; otherwise
/// it hands them to Cairo. What both give is the same: each glyph stands on whole device pixels.
class GlyphPainter {
public:
    explicit GlyphPainter(NSGraphicsContext&);
    ~GlyphPainter();
    GlyphPainter(GlyphPainter const&) = delete;
    GlyphPainter& operator=(GlyphPainter const&) = delete;

    /// The colour of what follows; null is black. A pattern paints as one.
    void setColor(NSColor const*);
    /// The origin is where x 0 on the baseline lies in user space.
    void paint(GlyphFont&, std::span<SetGlyph const> glyphs, Point origin);

    /// Device pixels a point. 0 where the transform turns or mirrors, so that nothing can be said.
    double uprightScale() const { return m_scale; }

private:
    void beginBlending();
    void blend(GlyphFont&, std::span<SetGlyph const> glyphs, Point origin);
    /// False, with nothing done, where a glyph has no mask or the colour is not opaque.
    bool blendShadow(GlyphFont&, std::span<SetGlyph const> glyphs, Point origin);
    bool blendGlyph(GlyphFont&, SetGlyph const&, double x, double y);
    void paintByCairo(GlyphFont&, std::span<SetGlyph const> glyphs, Point origin);
    void paintUnknown(SetGlyph const&, float height, Point origin);

    NSGraphicsContext& m_context;
    ContextInternals& m_internals;
    NSColor const* m_color { nullptr };
    std::uint32_t m_pixel { 0xFF000000 }; ///< premultiplied
    bool m_blends { false };
    bool m_hasBlended { false };
    double m_scale { 0 };
};

}

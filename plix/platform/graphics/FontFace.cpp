#include <plix/platform/graphics/FontFace.h>

namespace plix {

namespace {

std::uint32_t nextIdentifier()
{
    static std::uint32_t s_next = 1;
    return s_next++;
}

}

FontFace::FontFace(FontMember const& member, float size)
    : m_member(member)
    , m_size(size)
    , m_identifier(nextIdentifier())
    , m_description(FontCatalog::shared().description(member, size))
{
}

std::shared_ptr<GlyphFont> const& FontFace::glyphs()
{
    if (!m_glyphs) {
        auto& catalog = FontCatalog::shared();
        Handle<PangoFont> const font(pango_font_map_load_font(catalog.fontMap(), catalog.context(), m_description.get()));
        if (font)
            m_glyphs = GlyphFont::of(font.get());
    }
    return m_glyphs;
}

FontMetrics const& FontFace::metrics()
{
    static constexpr FontMetrics s_none {};
    return glyphs() ? m_glyphs->metrics() : s_none;
}

}

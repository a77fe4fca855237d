#pragma once

#include <plix/platform/graphics/GlyphFont.h>
#include <plix/platform/graphics/font_catalog.h>
#include <plix/platform/graphics/simple_text.h>

#include <cstdint>
#include <memory>

// Private to plix/platform/graphics.

namespace plix {

/// A font as the text system knows it: what describes it to Pango, its glyphs, and its tables for simple text. Loaded from its file
/// when something is first measured or drawn.
class FontFace {
public:
    FontFace(FontMember const&, float size);

    FontMember const& member() const { return m_member; }
    float size() const { return m_size; }
    /// Differs between fonts of different looks or sizes, for keys. Never 0.
    std::uint32_t identifier() const { return m_identifier; }

    PangoFontDescription* description() const { return m_description.get(); }
    /// Null where there is no font at all on the machine.
    std::shared_ptr<GlyphFont> const& glyphs();
    FontMetrics const& metrics();
    SimpleTextTable& simpleText() { return m_simpleText; }

private:
    FontMember const& m_member;
    float m_size;
    std::uint32_t m_identifier;
    Handle<PangoFontDescription> m_description;
    std::shared_ptr<GlyphFont> m_glyphs;
    SimpleTextTable m_simpleText;
};

}

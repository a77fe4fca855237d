#include <plix/platform/graphics/font_table.h>

#include <plix/platform/graphics/FontFace.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

// Glyphs beyond this size are no text any more, and their extents leave what positions can hold.
constexpr float largestSize = 2000;
constexpr float smallestSize = 0.5F;
// Sizes closer than this look the same; a size that is animated must not make a font of each step.
constexpr float stepsPerPoint = 64;

}

FontTable& FontTable::shared()
{
    static auto& s_table = *new FontTable;
    return s_table;
}

Ref<NSFont> FontTable::font(FontMember const& member, float size)
{
    size = std::clamp(std::round(size * stepsPerPoint) / stepsPerPoint, smallestSize, largestSize);
    Key const key { &member, size };
    if (m_last && key == m_lastKey)
        return m_last;
    auto& font = m_fonts[key];
    if (!font) {
        font = make<NSFont>();
        font->m_size = size;
        font->m_face = std::make_shared<FontFace>(member, size);
    }
    auto const found = font;
    if (m_fonts.size() > m_sizeToTidyAt)
        dropUnused();
    m_lastKey = key;
    m_last = found;
    return found;
}

void FontTable::dropUnused()
{
    std::erase_if(m_fonts, [](auto const& entry) { return entry.second->retainCount() == 1; });
    m_sizeToTidyAt = std::max<std::size_t>(64, m_fonts.size() * 2);
}

}

#include <plix/platform/graphics/NSFont.h>

#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/FontFace.h>
#include <plix/platform/graphics/font_table.h>
#include <plix/platform/graphics/string_drawing.h>

#include <cmath>
#include <functional>

namespace plix {

namespace {

constexpr float userFontSize = 12;
constexpr float userFixedPitchFontSize = 10;
constexpr int boldWeight = 700;
constexpr int regularWeight = 400;

Ref<NSFont> interfaceFont(float size, float otherwise, int weight = regularWeight)
{
    return FontTable::shared().font(FontCatalog::shared().interfaceMember(weight), size > 0 ? size : otherwise);
}

}

PLIX_DESCRIBE(NSFont)
{
}

NSFont::NSFont() = default;
NSFont::~NSFont() = default;

Ref<NSFont> NSFont::systemFontOfSize(float size)
{
    return interfaceFont(size, systemFontSize());
}

Ref<NSFont> NSFont::boldSystemFontOfSize(float size)
{
    return interfaceFont(size, systemFontSize(), boldWeight);
}

Ref<NSFont> NSFont::userFontOfSize(float size)
{
    return interfaceFont(size, userFontSize);
}

Ref<NSFont> NSFont::userFixedPitchFontOfSize(float size)
{
    return FontTable::shared().font(FontCatalog::shared().fixedPitchMember(), size > 0 ? size : userFixedPitchFontSize);
}

Ref<NSFont> NSFont::labelFontOfSize(float size)
{
    return interfaceFont(size, labelFontSize());
}

Ref<NSFont> NSFont::messageFontOfSize(float size)
{
    return interfaceFont(size, systemFontSize());
}

Ref<NSFont> NSFont::menuFontOfSize(float size)
{
    return interfaceFont(size, systemFontSize());
}

Ref<NSFont> NSFont::menuBarFontOfSize(float size)
{
    return interfaceFont(size, systemFontSize());
}

Ref<NSFont> NSFont::titleBarFontOfSize(float size)
{
    return interfaceFont(size, systemFontSize());
}

Ref<NSFont> NSFont::paletteFontOfSize(float size)
{
    return interfaceFont(size, smallSystemFontSize());
}

Ref<NSFont> NSFont::toolTipsFontOfSize(float size)
{
    return interfaceFont(size, smallSystemFontSize());
}

Ref<NSFont> NSFont::controlContentFontOfSize(float size)
{
    return interfaceFont(size, userFontSize);
}

Ref<NSFont> NSFont::fontWithName(std::string_view name, float size)
{
    auto const* member = FontCatalog::shared().memberNamed(name);
    if (!member)
        return nullptr;
    return FontTable::shared().font(*member, size > 0 ? size : userFontSize);
}

bool NSFont::init(NSCoder& coder)
{
    float const size = coder.decodeFloatForKey("size");
    auto font = fontWithName(coder.decodeStringForKey("name"), size);
    if (!font)
        font = systemFontOfSize(size);
    m_face = font->m_face;
    m_size = font->m_size;
    return true;
}

void NSFont::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(fontName(), "name");
    coder.encodeDouble(m_size, "size");
}

std::string const& NSFont::fontName() const
{
    return m_face->member().postScriptName;
}

std::string const& NSFont::displayName() const
{
    return m_face->member().fullName;
}

std::string const& NSFont::familyName() const
{
    return m_face->member().family;
}

bool NSFont::isFixedPitch() const
{
    return m_face->member().isFixedPitch;
}

float NSFont::ascender() const
{
    return m_face->metrics().ascender;
}

float NSFont::descender() const
{
    return m_face->metrics().descender;
}

float NSFont::leading() const
{
    return m_face->metrics().leading;
}

float NSFont::capHeight() const
{
    return m_face->metrics().capHeight;
}

float NSFont::xHeight() const
{
    return m_face->metrics().xHeight;
}

float NSFont::italicAngle() const
{
    return m_face->metrics().italicAngle;
}

float NSFont::underlinePosition() const
{
    return m_face->metrics().underlinePosition;
}

float NSFont::underlineThickness() const
{
    return m_face->metrics().underlineThickness;
}

Rect NSFont::boundingRectForFont() const
{
    auto const& metrics = m_face->metrics();
    return { 0, metrics.descender, metrics.maximumAdvance, metrics.ascender - metrics.descender };
}

Size NSFont::maximumAdvancement() const
{
    return { m_face->metrics().maximumAdvance, 0 };
}

float NSFont::defaultLineHeightForFont() const
{
    auto const& metrics = m_face->metrics();
    return metrics.lineAscent() + metrics.lineDescent() + std::round(metrics.leading);
}

float NSFont::widthOfString(std::string_view text) const
{
    return sizeWithAttributes(text, { { NSFontAttributeName, Ref<NSFont>(const_cast<NSFont*>(this)) } }).width;
}

void NSFont::set() const
{
}

bool NSFont::isEqual(NSObject const* other) const
{
    if (this == other)
        return true;
    auto const* font = dynamic_cast<NSFont const*>(other);
    return font && font->m_size == m_size && &font->m_face->member() == &m_face->member();
}

std::size_t NSFont::hash() const
{
    return std::hash<std::string> {}(fontName()) ^ std::hash<float> {}(m_size);
}

std::string NSFont::description() const
{
    return "\"" + fontName() + " " + ObjectValue(m_size).description() + " pt.\"";
}

void NSFont::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& copied = static_cast<NSFont&>(fresh);
    copied.m_size = m_size;
    copied.m_face = m_face;
}

}

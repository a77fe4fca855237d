#include <plix/platform/graphics/NSShadow.h>

#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <functional>

namespace plix {

PLIX_DESCRIBE(NSShadow)
{
}

bool NSShadow::init(NSCoder& coder)
{
    if (!NSObject::init())
        return false;
    coder.read("offset", [&](ObjectValue const& value) { m_offset = NSSizeFromString(value.description()); });
    coder.read("blurRadius", [&](ObjectValue const& value) { setShadowBlurRadius(value.floatValue()); });
    coder.read("color", [&](ObjectValue const& value) { m_color = value.as<NSColor>(); });
    return true;
}

void NSShadow::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(NSStringFromSize(m_offset), "offset");
    coder.encodeDouble(m_blurRadius, "blurRadius");
    coder.encodeObject(m_color, "color");
}

NSShadow::NSShadow()
{
    static NSColor* const s_default = NSColor::colorWithCalibratedWhite(0, 1 / 3.0F).leak();
    m_color = s_default;
}

NSShadow::~NSShadow() = default;

void NSShadow::setShadowColor(Ref<NSColor> const& color)
{
    m_color = color;
}

void NSShadow::set() const
{
    if (auto const context = NSGraphicsContext::currentContext())
        context->setShadow(this);
}

bool NSShadow::isEqual(NSObject const* other) const
{
    auto const* shadow = dynamic_cast<NSShadow const*>(other);
    return shadow && m_offset == shadow->m_offset && m_blurRadius == shadow->m_blurRadius
        && (m_color == shadow->m_color || plix::isEqual(m_color.get(), shadow->m_color.get()));
}

std::size_t NSShadow::hash() const
{
    auto const part = std::hash<float> {};
    return part(m_offset.width) ^ part(m_offset.height) << 1U ^ part(m_blurRadius) << 2U ^ (m_color ? m_color->hash() : 0);
}

void NSShadow::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& shadow = static_cast<NSShadow&>(fresh);
    shadow.m_offset = m_offset;
    shadow.m_blurRadius = m_blurRadius;
    shadow.m_color = m_color;
}

}

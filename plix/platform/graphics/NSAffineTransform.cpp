#include <plix/platform/graphics/NSAffineTransform.h>

#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <functional>
#include <numbers>

namespace plix {

PLIX_DESCRIBE(NSAffineTransform)
{
}

Ref<NSAffineTransform> NSAffineTransform::transform()
{
    return make<NSAffineTransform>();
}

bool NSAffineTransform::init(Ref<NSAffineTransform> const& other)
{
    if (other)
        m_value = other->m_value;
    return true;
}

bool NSAffineTransform::init(AffineTransform const& value)
{
    m_value = value;
    return true;
}

void NSAffineTransform::translateXBy(double dx, double dy)
{
    m_value = concatenated(AffineTransform::translation(dx, dy), m_value);
}

void NSAffineTransform::scaleXBy(double sx, double sy)
{
    m_value = concatenated(AffineTransform::scaling(sx, sy), m_value);
}

void NSAffineTransform::rotateByDegrees(double degrees)
{
    rotateByRadians(degrees * std::numbers::pi / 180);
}

void NSAffineTransform::rotateByRadians(double radians)
{
    m_value = concatenated(AffineTransform::rotation(radians), m_value);
}

void NSAffineTransform::invert()
{
    m_value = m_value.inverse().value_or(m_value);
}

void NSAffineTransform::appendTransform(NSAffineTransform const& other)
{
    m_value = concatenated(m_value, other.m_value);
}

void NSAffineTransform::prependTransform(NSAffineTransform const& other)
{
    m_value = concatenated(other.m_value, m_value);
}

Ref<NSBezierPath> NSAffineTransform::transformBezierPath(NSBezierPath const& path) const
{
    auto transformed = path.copy();
    transformed->transformUsingAffineTransform(*this);
    return transformed;
}

void NSAffineTransform::set() const
{
    if (auto const context = NSGraphicsContext::currentContext())
        context->setTransform(m_value);
}

void NSAffineTransform::concat() const
{
    if (auto const context = NSGraphicsContext::currentContext())
        context->concat(m_value);
}

bool NSAffineTransform::isEqual(NSObject const* other) const
{
    auto const* transform = dynamic_cast<NSAffineTransform const*>(other);
    return transform && transform->m_value == m_value;
}

std::size_t NSAffineTransform::hash() const
{
    auto const part = std::hash<double> {};
    return part(m_value.m11) ^ part(m_value.m22) << 1U ^ part(m_value.tX) << 2U ^ part(m_value.tY) << 3U;
}

void NSAffineTransform::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    static_cast<NSAffineTransform&>(fresh).m_value = m_value;
}

}

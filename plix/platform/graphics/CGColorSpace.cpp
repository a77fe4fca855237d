#include <plix/platform/graphics/CGColorSpace.h>

namespace plix {

PLIX_DESCRIBE(CGColorSpace)
{
}

void CGColorSpace::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    static_cast<CGColorSpace&>(fresh).m_model = m_model;
}

CGColorSpaceRef CGColorSpaceCreateWithName(std::string_view name)
{
    if (name == kCGColorSpaceUserRGB || name == kCGColorSpaceGenericRGB)
        return make<CGColorSpace>(CGColorSpace::Model::rgb);
    if (name == kCGColorSpaceUserGray || name == kCGColorSpaceGenericGray)
        return make<CGColorSpace>(CGColorSpace::Model::gray);
    return nullptr;
}

CGColorSpaceRef CGColorSpaceCreateDeviceGray()
{
    return make<CGColorSpace>(CGColorSpace::Model::gray);
}

CGColorSpaceRef CGColorSpaceCreateDeviceRGB()
{
    return make<CGColorSpace>(CGColorSpace::Model::rgb);
}

std::size_t CGColorSpaceGetNumberOfComponents(CGColorSpaceRef const& space)
{
    return space ? space->numberOfComponents() : 0;
}

}

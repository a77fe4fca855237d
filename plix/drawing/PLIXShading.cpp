#include <plix/drawing/PLIXShading.h>

#include <plix/platform/graphics/CGFunction.h>
#include <plix/platform/graphics/CGShading.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

namespace plix {

PLIX_DESCRIBE(PLIXShading)
{
}

bool PLIXShading::init()
{
    Base::init();
    m_startColorComponents = {};
    m_endColorComponents = {};
    m_colorSpace = CGColorSpaceCreateWithName(kCGColorSpaceUserRGB);
    m_startPoint = { 0.5F, 0 };
    m_endPoint = { 0.5F, 1 };
    return true;
}

void PLIXShading::drawShading()
{
    constexpr float domain[] { 0, 1 };
    constexpr float range[] { 0, 1, 0, 1, 0, 1, 0, 1 };
    constexpr CGFunctionCallbacks callbacks { 0, PLIXShadingStandardShadingFunction, nullptr };
    m_numColorComponents = static_cast<std::uint32_t>(CGColorSpaceGetNumberOfComponents(m_colorSpace) + 1);
    auto const function = CGFunctionCreate(this, 1, domain, m_numColorComponents, range, &callbacks);
    auto const shading = CGShadingCreateAxial(m_colorSpace, m_startPoint, m_endPoint, function, false, false);
    auto const context = NSGraphicsContext::currentContext();
    CGContextDrawShading(context ? context->graphicsPort() : nullptr, shading);
}

void PLIXShading::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& shading = static_cast<PLIXShading&>(fresh);
    shading.m_startColorComponents = m_startColorComponents;
    shading.m_endColorComponents = m_endColorComponents;
    shading.m_colorSpace = m_colorSpace;
    shading.m_startPoint = m_startPoint;
    shading.m_endPoint = m_endPoint;
    shading.m_numColorComponents = m_numColorComponents;
}

void PLIXShadingStandardShadingFunction(void* info, float const* in, float* out)
{
    auto const& shading = *static_cast<PLIXShading const*>(info);
    for (std::uint32_t i = 0; i < shading.m_numColorComponents; ++i) {
        float const start = shading.m_startColorComponents[i];
        out[i] = start + (shading.m_endColorComponents[i] - start) * *in;
    }
}

}

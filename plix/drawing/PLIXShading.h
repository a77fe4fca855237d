#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/CGColorSpace.h>
#include <plix/platform/graphics/geometry.h>

#include <array>
#include <cstdint>

namespace plix {

/// A gradient of two colours along an axis, painted into the current context's clip. The axis lies in user space; at first it runs
/// up the middle of the unit square, so that a host scales the context to the area or sets its own points.
class PLIX_EXPORT PLIXShading : public NSObject {
    PLIX_CLASS(PLIXShading, NSObject);

public:
    /// The colour space's components and then alpha; what a space has no use for is not looked at.
    using Components = std::array<float, 4>;

    /// Both colours zero, the one RGB space, the axis from (0.5, 0) to (0.5, 1).
    bool init();

    void setStartColorComponents(Components const& components) { m_startColorComponents = components; }
    /// The held components themselves, to read and to write.
    Components& startColorComponents() { return m_startColorComponents; }
    void setEndColorComponents(Components const& components) { m_endColorComponents = components; }
    Components& endColorComponents() { return m_endColorComponents; }
    /// Held until another one comes or the shading goes. May be null: then nothing is drawn.
    void setColorSpace(CGColorSpaceRef const& space) { m_colorSpace = space; }
    CGColorSpaceRef const& colorSpace() const { return m_colorSpace; }
    void setStartPoint(Point point) { m_startPoint = point; }
    Point startPoint() const { return m_startPoint; }
    void setEndPoint(Point point) { m_endPoint = point; }
    Point endPoint() const { return m_endPoint; }
    /// Values that the shading function gives for each place: the space's components and alpha. 0 until something was drawn.
    std::uint32_t numColorComponents() const { return m_numColorComponents; }

    /// Nothing without a current context. Beyond the ends of the axis nothing is painted.
    void drawShading();

private:
    friend void PLIXShadingStandardShadingFunction(void* info, float const* in, float* out);
    void copyStateTo(NSObject& fresh) const override;

    Components m_startColorComponents {};
    Components m_endColorComponents {};
    CGColorSpaceRef m_colorSpace;
    Point m_startPoint;
    Point m_endPoint;
    std::uint32_t m_numColorComponents { 0 };
};

/// The evaluate callback of a CGFunction over a PLIXShading (info): for a place on the axis (one value in) the components between
/// start and end colour, as many as numColorComponents() says. The place is not clamped, the colour not premultiplied.
PLIX_EXPORT void PLIXShadingStandardShadingFunction(void* info, float const* in, float* out);

}

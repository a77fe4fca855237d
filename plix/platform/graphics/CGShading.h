#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/CGColorSpace.h>
#include <plix/platform/graphics/CGFunction.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

class NSGraphicsContext;

/// The context that a shading is drawn into.
using CGContextRef = NSGraphicsContext*;

/// Colours along an axis in user space, worked out by a function of one value: 0 at the start, 1 at the end.
class PLIX_EXPORT CGShading : public NSObject {
    PLIX_CLASS(CGShading, NSObject);

public:
    /// From where to where the colours go, and whether they go on beyond.
    struct Axis {
        Point start;
        Point end;
        bool extendsStart { false };
        bool extendsEnd { false };
    };

    bool init() { return false; }
    bool init(CGColorSpaceRef const&, Axis const&, CGFunctionRef const&);

    // What it was made with.
    CGColorSpace const& colorSpace() const { return *m_colorSpace; }
    CGFunction const& function() const { return *m_function; }
    Axis const& axis() const { return m_axis; }

private:
    CGColorSpaceRef m_colorSpace;
    CGFunctionRef m_function;
    Axis m_axis;
};

/// Holds a shading.
using CGShadingRef = Ref<CGShading>;

/// Null where a part is missing, or the function has not one input and as many outputs as the space has components and alpha.
PLIX_EXPORT CGShadingRef CGShadingCreateAxial(
    CGColorSpaceRef const&, Point start, Point end, CGFunctionRef const&, bool extendStart, bool extendEnd);

/// Paints the context's clip, with the context's operation and alpha, without shadow. The function is evaluated
/// for every row or column of pixels that the axis crosses, or, for a slanting axis, at steps of half a pixel. What lies beyond an
/// end that is not extended stays as it is; a pixel that an end crosses is covered in part. Nothing for null.
PLIX_EXPORT void CGContextDrawShading(CGContextRef, CGShadingRef const&);

}

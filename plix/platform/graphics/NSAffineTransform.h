#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/Forward.h>
#include <plix/platform/graphics/affine_transform.h>

namespace plix {

/// The six numbers of a transform.
using NSAffineTransformStruct = AffineTransform;

/// A transform that is built up step by step. Each of translate, scale, rotate and prependTransform acts on coordinates before what
/// is there already: after translate then scale, a point is scaled first.
class PLIX_EXPORT NSAffineTransform : public NSObject {
    PLIX_CLASS(NSAffineTransform, NSObject);

public:
    /// A new one that changes nothing.
    static Ref<NSAffineTransform> transform();
    bool init() { return true; }
    bool init(Ref<NSAffineTransform> const& other);
    bool init(AffineTransform const& value);

    // Each comes before what the transform does already.
    void translateXBy(double dx, double dy);
    void scaleBy(double factor) { scaleXBy(factor, factor); }
    void scaleXBy(double sx, double sy);
    void rotateByDegrees(double);
    void rotateByRadians(double);
    /// Leaves a transform without inverse as it is.
    void invert();
    /// The other one acts after this one.
    void appendTransform(NSAffineTransform const&);
    /// The other one acts before this one.
    void prependTransform(NSAffineTransform const&);

    // What it makes of points, sizes and paths.
    Point transformPoint(Point point) const { return m_value.apply(point); }
    Size transformSize(Size size) const { return m_value.apply(size); }
    Ref<NSBezierPath> transformBezierPath(NSBezierPath const&) const;

    // Its numbers.
    AffineTransform const& transformStruct() const { return m_value; }
    void setTransformStruct(AffineTransform const& value) { m_value = value; }

    /// Makes this the current context's transform from user space to the context's base space.
    void set() const;
    /// Acts on user space before the current context's transform.
    void concat() const;

    // NSObject:
    bool isEqual(NSObject const* other) const override;
    std::size_t hash() const override;

private:
    void copyStateTo(NSObject& fresh) const override;

    AffineTransform m_value;
};

}

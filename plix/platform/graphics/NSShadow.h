#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/Forward.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

/// What is drawn below everything that is painted while it is set on a context. The offset is in points of the context's base
/// space, y upwards whatever the transform; the radius is where the blur fades out, 0 for a sharp shadow.
class PLIX_EXPORT NSShadow : public NSObject {
    PLIX_CLASS(NSShadow, NSObject);

public:
    using NSObject::init;
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;
    NSShadow();
    ~NSShadow() override;

    // In points of base space: y upwards, whatever the view's is.
    Size shadowOffset() const { return m_offset; }
    void setShadowOffset(Size offset) { m_offset = offset; }
    float shadowBlurRadius() const { return m_blurRadius; }
    /// Below 0 counts as 0.
    void setShadowBlurRadius(float radius) { m_blurRadius = radius > 0 ? radius : 0; }
    /// Black with alpha 1/3 at first. Null: no shadow is drawn.
    NSColor* shadowColor() const { return m_color.get(); }
    void setShadowColor(Ref<NSColor> const&);

    /// Becomes the current context's shadow. The context keeps the values of this moment.
    void set() const;

    // NSObject:
    bool isEqual(NSObject const* other) const override;
    std::size_t hash() const override;

private:
    void copyStateTo(NSObject& fresh) const override;

    Size m_offset;
    float m_blurRadius { 0 };
    Ref<NSColor> m_color;
};

}

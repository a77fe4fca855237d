#pragma once

#include <plix/platform/base/Class.h>

#include <cstddef>
#include <string_view>

namespace plix {

/// What the components of a shading's colours mean. One RGB space and one grey space lie underneath all names.
class PLIX_EXPORT CGColorSpace : public NSObject {
    PLIX_CLASS(CGColorSpace, NSObject);

public:
    /// How many components a colour has.
    enum class Model { gray, rgb };

    using Base::init;
    bool init(Model model)
    {
        m_model = model;
        return true;
    }
    /// The space's own.
    Model model() const { return m_model; }
    /// Without alpha.
    std::size_t numberOfComponents() const { return m_model == Model::gray ? 1 : 3; }

private:
    void copyStateTo(NSObject& fresh) const override;

    Model m_model { Model::rgb };
};

/// Holds a colour space.
using CGColorSpaceRef = Ref<CGColorSpace>;

// Names of spaces. Those of one model agree.
inline constexpr std::string_view kCGColorSpaceUserGray = "kCGColorSpaceUserGray";
inline constexpr std::string_view kCGColorSpaceUserRGB = "kCGColorSpaceUserRGB";
inline constexpr std::string_view kCGColorSpaceGenericGray = "kCGColorSpaceGenericGray";
inline constexpr std::string_view kCGColorSpaceGenericRGB = "kCGColorSpaceGenericRGB";

/// A new space that the caller holds alone; null for an unknown name.
PLIX_EXPORT CGColorSpaceRef CGColorSpaceCreateWithName(std::string_view name);
PLIX_EXPORT CGColorSpaceRef CGColorSpaceCreateDeviceGray();
PLIX_EXPORT CGColorSpaceRef CGColorSpaceCreateDeviceRGB();
/// 0 for null.
PLIX_EXPORT std::size_t CGColorSpaceGetNumberOfComponents(CGColorSpaceRef const&);

}

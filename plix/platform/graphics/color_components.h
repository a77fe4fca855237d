#pragma once

#include <plix/platform/base/export.h>

namespace plix {

/// Red, green, blue, alpha, each 0..1, not premultiplied.
struct PLIX_EXPORT ColorComponents {
    float red { 0 };
    float green { 0 };
    float blue { 0 };
    float alpha { 1 };

    /// 0.30 R + 0.59 G + 0.11 B.
    float white() const;
    friend constexpr bool operator==(ColorComponents const&, ColorComponents const&) = default;
};

/// Hue (0..1, a full turn), saturation, brightness. The hue of a grey is 0, and so is the saturation of black.
struct HueComponents {
    float hue { 0 };
    float saturation { 0 };
    float brightness { 0 };
    float alpha { 1 };
};

/// A component brought to 0..1; what is not a number becomes 0.
PLIX_EXPORT float clampedComponent(float);
PLIX_EXPORT ColorComponents colorFromHue(HueComponents const&);
PLIX_EXPORT HueComponents hueOfColor(ColorComponents const&);
/// (1 - fraction) of a and fraction of b, alpha included; the fraction is clamped.
PLIX_EXPORT ColorComponents blended(ColorComponents const& a, ColorComponents const& b, float fraction);

}

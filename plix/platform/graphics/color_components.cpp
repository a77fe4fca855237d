#include <plix/platform/graphics/color_components.h>

#include <algorithm>
#include <cmath>

namespace plix {

float clampedComponent(float value)
{
    return value > 0 ? std::min(value, 1.0F) : 0;
}

float ColorComponents::white() const
{
    if (red == green && green == blue)
        return red;
    return static_cast<float>(0.30 * red + 0.59 * green + 0.11 * blue);
}

ColorComponents colorFromHue(HueComponents const& components)
{
    float const saturation = clampedComponent(components.saturation);
    float const brightness = clampedComponent(components.brightness);
    float const alpha = clampedComponent(components.alpha);
    double const sixth = clampedComponent(components.hue) * 6.0;
    int const sector = static_cast<int>(sixth) % 6;
    double const along = sixth - std::floor(sixth);
    auto const level = [&](double part) { return static_cast<float>(brightness * (1 - saturation * part)); };
    float const low = level(1);
    float const falling = level(along);
    float const rising = level(1 - along);
    switch (sector) {
    case 0:
        return { brightness, rising, low, alpha };
    case 1:
        return { falling, brightness, low, alpha };
    case 2:
        return { low, brightness, rising, alpha };
    case 3:
        return { low, falling, brightness, alpha };
    case 4:
        return { rising, low, brightness, alpha };
    default:
        return { brightness, low, falling, alpha };
    }
}

HueComponents hueOfColor(ColorComponents const& color)
{
    double const high = std::max({ color.red, color.green, color.blue });
    double const low = std::min({ color.red, color.green, color.blue });
    double const range = high - low;
    HueComponents result { 0, 0, static_cast<float>(high), color.alpha };
    if (range <= 0)
        return result;
    result.saturation = static_cast<float>(range / high);
    double sixth = 0;
    if (color.red == high)
        sixth = (static_cast<double>(color.green) - color.blue) / range;
    else if (color.green == high)
        sixth = 2 + (static_cast<double>(color.blue) - color.red) / range;
    else
        sixth = 4 + (static_cast<double>(color.red) - color.green) / range;
    result.hue = static_cast<float>((sixth < 0 ? sixth + 6 : sixth) / 6);
    return result;
}

ColorComponents blended(ColorComponents const& a, ColorComponents const& b, float fraction)
{
    float const share = clampedComponent(fraction);
    auto const mix = [share](float from, float to) { return from + (to - from) * share; };
    return { mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue), mix(a.alpha, b.alpha) };
}

}

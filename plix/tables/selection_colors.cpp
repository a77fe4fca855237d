#include <plix/tables/selection_colors.h>

namespace plix {

namespace {

constexpr ColorComponents inactiveFill { 0.7F, 0.7F, 0.7F, 1 };
constexpr float disabledSaturation = 0.3F;
constexpr float edgeBrightness = 0.8F;
constexpr float dropLineAlpha = 0.9F;
constexpr float dropWashAlpha = 0.15F;

ColorComponents withAlpha(ColorComponents color, float alpha)
{
    color.alpha = alpha;
    return color;
}

/// A step in double precision, left unclamped.
float stepped(float component, double by)
{
    return static_cast<float>(static_cast<double>(component) + by);
}

}

ColorComponents selectionFill(ColorComponents const& base, ViewFocus focus, ViewState state)
{
    auto const color = focus == ViewFocus::active ? base : inactiveFill;
    if (state == ViewState::enabled)
        return color;
    auto pale = hueOfColor(color);
    pale.saturation *= disabledSaturation; // still decides how light the grey is
    auto const components = colorFromHue(pale);
    float const white = components.white();
    return { white, white, white, components.alpha };
}

ColorComponents selectionEdge(ColorComponents const& fill)
{
    auto edge = hueOfColor(fill);
    edge.brightness *= edgeBrightness;
    edge.alpha = 1;
    return colorFromHue(edge);
}

GradientColors highlightGradientColors(ColorComponents const& base)
{
    auto const hue = hueOfColor(base);
    // The two ends are not equally far from the base; that is meant.
    return { colorFromHue({ hue.hue, stepped(hue.saturation, -0.15), stepped(hue.brightness, 0.15), hue.alpha }),
        colorFromHue({ hue.hue, stepped(hue.saturation, 0.1), stepped(hue.brightness, -0.1), hue.alpha }) };
}

ColorComponents dropLine(ColorComponents const& edge)
{
    return withAlpha(edge, dropLineAlpha);
}

ColorComponents dropWash(ColorComponents const& fill)
{
    return withAlpha(fill, dropWashAlpha);
}

}

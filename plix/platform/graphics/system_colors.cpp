#include <plix/platform/graphics/system_colors.h>

#include <plix/platform/graphics/appearance.h>

#include <array>
#include <cstdint>
#include <optional>
#include <utility>

namespace plix {

namespace {

constexpr ColorComponents defaultHighlight { 0.20F, 0.45F, 0.85F, 1 };

constexpr ColorComponents gray(float white)
{
    return { white, white, white, 1 };
}

/// How much of the highlight colour is mixed in; its own colour is the rest.
struct SystemColor {
    std::string_view name;
    ColorComponents light;
    ColorComponents dark;
    float lightHighlight { 0 };
    float darkHighlight { 0 };
};

constexpr std::array<SystemColor, systemColorCount> table { {
    { "controlShadowColor", gray(0.62F), gray(0.08F) },
    { "controlDarkShadowColor", gray(0.40F), gray(0.02F) },
    { "controlColor", gray(0.96F), gray(0.27F) },
    { "controlHighlightColor", gray(0.98F), gray(0.34F) },
    { "controlLightHighlightColor", gray(1), gray(0.40F) },
    { "controlTextColor", gray(0), gray(0.93F) },
    { "controlBackgroundColor", gray(1), gray(0.13F) },
    { "selectedControlColor", gray(1), gray(0.13F), 0.32F, 0.55F },
    { "secondarySelectedControlColor", gray(0.84F), gray(0.28F) },
    { "selectedControlTextColor", gray(0), gray(1) },
    { "disabledControlTextColor", gray(0.56F), gray(0.50F) },
    { "textColor", gray(0), gray(0.93F) },
    { "textBackgroundColor", gray(1), gray(0.13F) },
    { "selectedTextColor", gray(0), gray(1) },
    { "selectedTextBackgroundColor", gray(1), gray(0.13F), 0.32F, 0.55F },
    { "gridColor", gray(0.86F), gray(0.24F) },
    { "keyboardFocusIndicatorColor", gray(1), gray(0.40F), 0.72F, 0.80F },
    { "windowBackgroundColor", gray(0.93F), gray(0.18F) },
    { "scrollBarColor", gray(0.95F), gray(0.16F) },
    { "knobColor", gray(0.72F), gray(0.42F) },
    { "selectedKnobColor", gray(0.55F), gray(0.55F) },
    { "windowFrameColor", gray(0.66F), gray(0.06F) },
    { "windowFrameTextColor", gray(0.15F), gray(0.88F) },
    { "selectedMenuItemColor", gray(1), gray(0), 1, 1 },
    { "selectedMenuItemTextColor", gray(1), gray(1) },
    { "highlightColor", gray(1), gray(0.70F) },
    { "shadowColor", gray(0), gray(0) },
    { "headerColor", gray(0.96F), gray(0.20F) },
    { "headerTextColor", gray(0.10F), gray(0.90F) },
    { "alternateSelectedControlColor", gray(1), gray(0), 1, 1 },
    { "alternateSelectedControlTextColor", gray(1), gray(1) },
    { "alternatingRowBackgroundColor", { 0.957F, 0.965F, 0.976F, 1 }, gray(0.16F) },
} };

Appearance s_appearance = Appearance::light;
std::optional<Appearance> s_scoped;
std::optional<ColorComponents> s_highlight;
std::uint64_t s_stamp = 1;

}

Appearance currentAppearance()
{
    return s_scoped.value_or(s_appearance);
}

Appearance processAppearance()
{
    return s_appearance;
}

void setCurrentAppearance(Appearance appearance)
{
    if (appearance == s_appearance)
        return;
    s_appearance = appearance;
    ++s_stamp;
}

std::uint64_t systemColorsStamp()
{
    // Two looks may answer in turn.
    return s_stamp * 2 + (currentAppearance() == Appearance::dark ? 1 : 0);
}

AppearanceScope::AppearanceScope(Appearance appearance)
    : m_outer(std::exchange(s_scoped, appearance))
{
}

AppearanceScope::~AppearanceScope()
{
    s_scoped = m_outer;
}

std::optional<int> systemColorNamed(std::string_view name)
{
    for (int index = 0; index < systemColorCount; ++index) {
        if (systemColorName(index) == name)
            return index;
    }
    return std::nullopt;
}

std::string_view systemColorName(int index)
{
    return table[static_cast<std::size_t>(index)].name;
}

ColorComponents systemColorComponents(int index)
{
    auto const& entry = table[static_cast<std::size_t>(index)];
    bool const isLight = currentAppearance() == Appearance::light;
    float const share = isLight ? entry.lightHighlight : entry.darkHighlight;
    auto const& own = isLight ? entry.light : entry.dark;
    return share > 0 ? blended(own, s_highlight.value_or(defaultHighlight), share) : own;
}

void setUserHighlightColor(std::optional<ColorComponents> color)
{
    if (color == s_highlight)
        return;
    s_highlight = color;
    ++s_stamp;
}

}

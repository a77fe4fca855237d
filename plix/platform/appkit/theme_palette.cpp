#include <plix/platform/appkit/theme_palette.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace plix {

namespace {

struct RoleColors {
    ThemeRole role;
    ColorComponents light;
    ColorComponents dark;
};

constexpr ColorComponents gray(float white)
{
    return { white, white, white, 1 };
}

constexpr std::array<RoleColors, themeRoleCount> palette { {
    { ThemeRole::secondaryText, gray(0.38F), gray(0.66F) },
    { ThemeRole::placeholderText, gray(0.52F), gray(0.52F) },
    { ThemeRole::errorText, { 0.74F, 0.11F, 0.09F, 1 }, { 1.00F, 0.55F, 0.50F, 1 } },
    { ThemeRole::line, gray(0.76F), gray(0.34F) },
    { ThemeRole::fieldBorder, gray(0.74F), gray(0.38F) },
    { ThemeRole::fieldBorderTop, gray(0.62F), gray(0.46F) },
    { ThemeRole::fieldShade, { 0, 0, 0, 0.05F }, { 0, 0, 0, 0.22F } },
    { ThemeRole::fieldDisabled, gray(0.95F), gray(0.20F) },
    { ThemeRole::headerBackground, gray(0.965F), gray(0.21F) },
    { ThemeRole::headerDivider, gray(0.83F), gray(0.36F) },
    { ThemeRole::headerText, gray(0.27F), gray(0.78F) },
    { ThemeRole::headerChosen, { 0, 0.25F, 0.6F, 0.10F }, { 0.35F, 0.6F, 1, 0.20F } },
    { ThemeRole::headerPressed, { 0, 0, 0, 0.12F }, { 1, 1, 1, 0.14F } },
    { ThemeRole::barBackground, gray(0.93F), gray(0.18F) },
    { ThemeRole::scrollerSlot, gray(0.965F), gray(0.16F) },
    { ThemeRole::scrollerEdge, gray(0.89F), gray(0.23F) },
    { ThemeRole::scrollerKnob, gray(0.73F), gray(0.40F) },
    { ThemeRole::scrollerKnobHovered, gray(0.60F), gray(0.52F) },
    { ThemeRole::scrollerKnobPressed, gray(0.48F), gray(0.64F) },
    { ThemeRole::scrollerKnobDisabled, gray(0.90F), gray(0.22F) },
    { ThemeRole::buttonTop, gray(1.00F), gray(0.36F) },
    { ThemeRole::buttonBottom, gray(0.955F), gray(0.31F) },
    { ThemeRole::buttonBorder, gray(0.76F), gray(0.46F) },
    { ThemeRole::buttonEdge, gray(0.66F), gray(0.40F) },
    { ThemeRole::buttonHoveredTop, gray(0.985F), gray(0.41F) },
    { ThemeRole::buttonHoveredBottom, gray(0.92F), gray(0.36F) },
    { ThemeRole::buttonPressedTop, gray(0.80F), gray(0.22F) },
    { ThemeRole::buttonPressedBottom, gray(0.85F), gray(0.25F) },
    { ThemeRole::buttonDisabled, gray(0.955F), gray(0.23F) },
    { ThemeRole::buttonDisabledBorder, gray(0.85F), gray(0.30F) },
    { ThemeRole::buttonText, gray(0.08F), gray(0.95F) },
    { ThemeRole::buttonDisabledText, gray(0.58F), gray(0.50F) },
    { ThemeRole::buttonOnTop, { 0.18F, 0.45F, 0.83F, 1 }, { 0.18F, 0.42F, 0.78F, 1 } },
    { ThemeRole::buttonOnBottom, { 0.13F, 0.39F, 0.78F, 1 }, { 0.13F, 0.35F, 0.68F, 1 } },
    { ThemeRole::buttonOnBorder, { 0.08F, 0.29F, 0.63F, 1 }, { 0.32F, 0.57F, 0.94F, 1 } },
    { ThemeRole::buttonOnText, gray(1.00F), gray(1.00F) },
    { ThemeRole::menuBackground, gray(0.985F), gray(0.20F) },
    { ThemeRole::menuBorder, gray(0.68F), gray(0.38F) },
    { ThemeRole::menuText, gray(0.08F), gray(0.93F) },
    { ThemeRole::menuDisabledText, gray(0.60F), gray(0.47F) },
    { ThemeRole::menuKeyText, gray(0.40F), gray(0.68F) },
    { ThemeRole::menuHighlightText, gray(1), gray(1) },
    { ThemeRole::iconFolder, { 0.49F, 0.68F, 0.91F, 1 }, { 0.40F, 0.60F, 0.84F, 1 } },
    { ThemeRole::iconFolderEdge, { 0.25F, 0.45F, 0.72F, 1 }, { 0.24F, 0.40F, 0.62F, 1 } },
    { ThemeRole::iconFolderOnSelection, { 0.84F, 0.91F, 1.00F, 1 }, { 0.84F, 0.91F, 1.00F, 1 } },
    { ThemeRole::iconFolderEdgeOnSelection, { 0.08F, 0.22F, 0.48F, 1 }, { 0.08F, 0.22F, 0.48F, 1 } },
    { ThemeRole::iconPaper, gray(0.99F), gray(0.82F) },
    { ThemeRole::iconPaperEdge, gray(0.58F), gray(0.50F) },
    { ThemeRole::iconBadge, { 0.82F, 0.24F, 0.20F, 1 }, { 0.94F, 0.38F, 0.33F, 1 } },
} };

constexpr bool isInOrder()
{
    for (std::size_t index = 0; index < palette.size(); ++index) {
        if (palette[index].role != static_cast<ThemeRole>(index))
            return false;
    }
    return true;
}
static_assert(isInOrder(), "roles are looked up by their number");

float linear(float component)
{
    return component <= 0.03928F ? component / 12.92F : std::pow((component + 0.055F) / 1.055F, 2.4F);
}

float luminance(ColorComponents const& color)
{
    return 0.2126F * linear(color.red) + 0.7152F * linear(color.green) + 0.0722F * linear(color.blue);
}

}

ColorComponents themeColor(ThemeRole role, Appearance appearance)
{
    auto const& colors = palette.at(static_cast<std::size_t>(role));
    return appearance == Appearance::light ? colors.light : colors.dark;
}

float contrastRatio(ColorComponents const& a, ColorComponents const& b)
{
    float const first = luminance(a);
    float const second = luminance(b);
    return (std::max(first, second) + 0.05F) / (std::min(first, second) + 0.05F);
}

}

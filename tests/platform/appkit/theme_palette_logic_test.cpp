#include <plix/platform/appkit/theme_palette.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

TEST(ThemePalette, MeasuresContrastAsTheStandardDoes)
{
    EXPECT_FLOAT_EQ(contrastRatio({ 0, 0, 0, 1 }, { 1, 1, 1, 1 }), 21);
    EXPECT_FLOAT_EQ(contrastRatio({ 1, 1, 1, 1 }, { 1, 1, 1, 1 }), 1);
    // #777777 on white is the standard's well-known near miss of 4.5.
    float const grey = 0x77 / 255.F;
    EXPECT_NEAR(contrastRatio({ grey, grey, grey, 1 }, { 1, 1, 1, 1 }), 4.48F, 0.005F);
}

TEST(ThemePalette, KeepsTextReadableOnWhatItStandsOn)
{
    struct Row {
        ThemeRole text;
        ThemeRole ground;
        float least;
    };
    Row const rows[] = {
        { ThemeRole::headerText, ThemeRole::headerBackground, 4.5F },
        { ThemeRole::secondaryText, ThemeRole::barBackground, 4.5F },
        { ThemeRole::secondaryText, ThemeRole::headerBackground, 4.5F },
        { ThemeRole::errorText, ThemeRole::barBackground, 4.5F },
        { ThemeRole::placeholderText, ThemeRole::fieldDisabled, 2.5F },
    };
    for (auto appearance : { Appearance::light, Appearance::dark }) {
        for (auto const& row : rows)
            EXPECT_GE(contrastRatio(themeColor(row.text, appearance), themeColor(row.ground, appearance)), row.least)
                << "row " << &row - rows << (appearance == Appearance::light ? ", light" : ", dark");
    }
}

TEST(ThemePalette, LetsLinesBeSeenOnWhatTheyEnclose)
{
    struct Row {
        ThemeRole line;
        ThemeRole ground;
        float least;
    };
    Row const rows[] = {
        { ThemeRole::line, ThemeRole::barBackground, 1.5F },
        { ThemeRole::line, ThemeRole::headerBackground, 1.5F },
        { ThemeRole::fieldBorder, ThemeRole::barBackground, 1.5F },
        { ThemeRole::fieldBorderTop, ThemeRole::barBackground, 2 },
        { ThemeRole::headerDivider, ThemeRole::headerBackground, 1.3F },
        { ThemeRole::buttonBorder, ThemeRole::barBackground, 1.5F },
        { ThemeRole::buttonDisabledBorder, ThemeRole::barBackground, 1.2F },
        { ThemeRole::menuBorder, ThemeRole::menuBackground, 1.5F },
        { ThemeRole::menuBorder, ThemeRole::barBackground, 1.5F },
    };
    for (auto appearance : { Appearance::light, Appearance::dark }) {
        for (auto const& row : rows)
            EXPECT_GE(contrastRatio(themeColor(row.line, appearance), themeColor(row.ground, appearance)), row.least)
                << "row " << &row - rows << (appearance == Appearance::light ? ", light" : ", dark");
    }
}

TEST(ThemePalette, LetsTheKnobStandOutMoreWhenItIsHoveredAndPressed)
{
    for (auto appearance : { Appearance::light, Appearance::dark }) {
        auto const slot = themeColor(ThemeRole::scrollerSlot, appearance);
        auto contrast = [&](ThemeRole role) { return contrastRatio(themeColor(role, appearance), slot); };
        EXPECT_LT(contrast(ThemeRole::scrollerKnobDisabled), contrast(ThemeRole::scrollerKnob));
        EXPECT_LT(contrast(ThemeRole::scrollerKnob), contrast(ThemeRole::scrollerKnobHovered));
        EXPECT_LT(contrast(ThemeRole::scrollerKnobHovered), contrast(ThemeRole::scrollerKnobPressed));
    }
}

}
}

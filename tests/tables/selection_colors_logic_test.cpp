#include <plix/tables/selection_colors.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

constexpr ColorComponents blue { 0.2F, 0.4F, 0.8F, 1 };

void expectNear(ColorComponents const& actual, ColorComponents const& expected, char const* what)
{
    EXPECT_NEAR(actual.red, expected.red, 1e-5) << what;
    EXPECT_NEAR(actual.green, expected.green, 1e-5) << what;
    EXPECT_NEAR(actual.blue, expected.blue, 1e-5) << what;
    EXPECT_NEAR(actual.alpha, expected.alpha, 1e-5) << what;
}

TEST(SelectionFill, IsTheHighlightColorOnlyWhileActive)
{
    EXPECT_EQ(selectionFill(blue, ViewFocus::active, ViewState::enabled), blue);
    EXPECT_EQ(selectionFill(blue, ViewFocus::inactive, ViewState::enabled), (ColorComponents { 0.7F, 0.7F, 0.7F, 1 }));
}

TEST(SelectionFill, OfADisabledViewIsTheGreyOfItsPalerShade)
{
    struct Row {
        char const* name;
        ColorComponents base;
        ViewFocus focus;
        float grey;
        float alpha;
    };
    // At 0.3 of the saturation every component c becomes max - 0.3 (max - c).
    for (auto const& row : {
             Row { "blue", blue, ViewFocus::active, 0.30F * 0.62F + 0.59F * 0.68F + 0.11F * 0.8F, 1 },
             Row { "half clear red", { 1, 0, 0, 0.5F }, ViewFocus::active, 0.30F + 0.59F * 0.7F + 0.11F * 0.7F, 0.5F },
             Row { "a grey stays", { 0.4F, 0.4F, 0.4F, 1 }, ViewFocus::active, 0.4F, 1 },
             Row { "black stays", { 0, 0, 0, 1 }, ViewFocus::active, 0, 1 },
             Row { "inactive", blue, ViewFocus::inactive, 0.7F, 1 },
         })
        expectNear(selectionFill(row.base, row.focus, ViewState::disabled), { row.grey, row.grey, row.grey, row.alpha }, row.name);
}

TEST(SelectionEdge, IsFourFifthsAsBrightAndOpaque)
{
    expectNear(selectionEdge(blue), { 0.16F, 0.32F, 0.64F, 1 }, "blue");
    expectNear(selectionEdge({ 1, 0, 0, 0.25F }), { 0.8F, 0, 0, 1 }, "clear red");
    expectNear(selectionEdge({ 0.7F, 0.7F, 0.7F, 1 }), { 0.56F, 0.56F, 0.56F, 1 }, "grey");
}

TEST(HighlightGradientColors, StepSaturationAndBrightnessApart)
{
    struct Row {
        char const* name;
        HueComponents base;
        HueComponents top;
        HueComponents bottom;
    };
    for (auto const& row : {
             Row { "in the middle", { 0.6F, 0.5F, 0.5F, 1 }, { 0.6F, 0.35F, 0.65F, 1 }, { 0.6F, 0.6F, 0.4F, 1 } },
             Row { "alpha is kept", { 0.1F, 0.4F, 0.6F, 0.3F }, { 0.1F, 0.25F, 0.75F, 0.3F }, { 0.1F, 0.5F, 0.5F, 0.3F } },
             Row { "the brightest", { 0.3F, 1, 1, 1 }, { 0.3F, 0.85F, 1, 1 }, { 0.3F, 1, 0.9F, 1 } },
             Row { "a grey", { 0, 0, 0.5F, 1 }, { 0, 0, 0.65F, 1 }, { 0, 0.1F, 0.4F, 1 } },
             Row { "nearly black", { 0.5F, 0.05F, 0.05F, 1 }, { 0.5F, 0, 0.2F, 1 }, { 0.5F, 0.15F, 0, 1 } },
         }) {
        auto const colors = highlightGradientColors(colorFromHue(row.base));
        expectNear(colors.top, colorFromHue(row.top), row.name);
        expectNear(colors.bottom, colorFromHue(row.bottom), row.name);
    }
}

TEST(DropColors, AreTheSelectionsAtTheirOwnAlpha)
{
    EXPECT_EQ(dropLine({ 0.1F, 0.2F, 0.3F, 1 }), (ColorComponents { 0.1F, 0.2F, 0.3F, 0.9F }));
    EXPECT_EQ(dropWash({ 0.1F, 0.2F, 0.3F, 0.5F }), (ColorComponents { 0.1F, 0.2F, 0.3F, 0.15F }));
}

}
}

#include <plix/platform/graphics/color_components.h>

#include <gtest/gtest.h>

#include <cmath>

namespace plix {
namespace {

TEST(ColorComponents, BecomeGreyByTheWeightsOfTheirChannels)
{
    EXPECT_FLOAT_EQ((ColorComponents { 1, 0, 0, 1 }.white()), 0.30F);
    EXPECT_FLOAT_EQ((ColorComponents { 0, 1, 0, 1 }.white()), 0.59F);
    EXPECT_FLOAT_EQ((ColorComponents { 0, 0, 1, 1 }.white()), 0.11F);
    EXPECT_EQ((ColorComponents { 0.7F, 0.7F, 0.7F, 1 }.white()), 0.7F);
}

TEST(ColorComponents, ConvertToAndFromHue)
{
    struct Row {
        HueComponents hue;
        ColorComponents color;
    };
    Row const rows[] {
        { { 0, 1, 1, 1 }, { 1, 0, 0, 1 } },
        { { 1 / 3.0F, 1, 1, 1 }, { 0, 1, 0, 1 } },
        { { 2 / 3.0F, 1, 1, 0.5F }, { 0, 0, 1, 0.5F } },
        { { 1 / 6.0F, 1, 1, 1 }, { 1, 1, 0, 1 } },
        { { 0.5F, 1, 0.5F, 1 }, { 0, 0.5F, 0.5F, 1 } },
        { { 5 / 6.0F, 0.5F, 1, 1 }, { 1, 0.5F, 1, 1 } },
        { { 0.9F, 0.4F, 0.8F, 1 }, { 0.8F, 0.48F, 0.672F, 1 } },
    };
    for (auto const& row : rows) {
        auto const color = colorFromHue(row.hue);
        EXPECT_NEAR(color.red, row.color.red, 1e-5);
        EXPECT_NEAR(color.green, row.color.green, 1e-5);
        EXPECT_NEAR(color.blue, row.color.blue, 1e-5);
        EXPECT_EQ(color.alpha, row.color.alpha);
        auto const hue = hueOfColor(row.color);
        EXPECT_NEAR(hue.hue, row.hue.hue, 1e-5);
        EXPECT_NEAR(hue.saturation, row.hue.saturation, 1e-5);
        EXPECT_NEAR(hue.brightness, row.hue.brightness, 1e-5);
    }
}

TEST(ColorComponents, OfAHueOfOneAreTheSameAsOfZero)
{
    EXPECT_EQ(colorFromHue({ 1, 1, 1, 1 }), colorFromHue({ 0, 1, 1, 1 }));
}

TEST(ColorComponents, OfAGreyHaveNoHueAndNoSaturation)
{
    for (float const white : { 0.0F, 0.25F, 1.0F }) {
        auto const hue = hueOfColor({ white, white, white, 1 });
        EXPECT_EQ(hue.hue, 0);
        EXPECT_EQ(hue.saturation, 0);
        EXPECT_EQ(hue.brightness, white);
    }
}

TEST(ColorComponents, AreClamped)
{
    EXPECT_EQ(clampedComponent(-0.1F), 0);
    EXPECT_EQ(clampedComponent(1.5F), 1);
    EXPECT_EQ(clampedComponent(0.25F), 0.25F);
    EXPECT_EQ(clampedComponent(NAN), 0);
    EXPECT_EQ(colorFromHue({ -1, 2, 3, -4 }), (ColorComponents { 1, 0, 0, 0 }));
}

TEST(ColorComponents, BlendByTheFraction)
{
    ColorComponents const a { 0, 0.5F, 1, 1 };
    ColorComponents const b { 1, 0.5F, 0, 0 };
    EXPECT_EQ(blended(a, b, 0.25F), (ColorComponents { 0.25F, 0.5F, 0.75F, 0.75F }));
    EXPECT_EQ(blended(a, b, -1), a);
    EXPECT_EQ(blended(a, b, 2), b);
}

}
}

#include <plix/format/color_text.h>

#include <gtest/gtest.h>

#include <cstdio>

namespace plix {
namespace {

TEST(ColorText, GivesTheStatedTexts)
{
    EXPECT_EQ(textForColorComponents({ 1, 0, 0, 1 }), "1.00000,0.00000,0.00000,1.00000");
    EXPECT_EQ(textForColorComponents({ 0.5F, 0.333333F, 0.000004F, 0.999996F }), "0.50000,0.33333,0.00000,1.00000");
    EXPECT_EQ(textForColorComponents({ 0, 0, 0, 0 }), "0.00000,0.00000,0.00000,0.00000");
}

TEST(ColorText, ReadsTheStatedComponents)
{
    struct Row {
        std::optional<std::string_view> text;
        ColorComponents color;
    };
    constexpr ColorComponents black { 0, 0, 0, 1 };
    for (auto const& row : {
             Row { "1.00000,0.00000,0.00000,1.00000", { 1, 0, 0, 1 } },
             Row { "0.25,0.5,0.75,0", { 0.25F, 0.5F, 0.75F, 0 } },
             Row { "0.25,0.5,0.75,0.5,junk,9", { 0.25F, 0.5F, 0.75F, 0.5F } },
             Row { ",,,", { 0, 0, 0, 0 } },
             Row { ",,,,", { 0, 0, 0, 0 } },
             Row { "a,b,c,d", { 0, 0, 0, 0 } },
             Row { " 0.5, 0.5x,\t.5,+5e-1", { 0.5F, 0.5F, 0.5F, 0.5F } },
             Row { "-1,2,1e300,-0", { 0, 1, 1, 0 } },
             Row { "1e999,inf,nan,0x1", { 1, 0, 0, 0 } },
             Row { "1,1,1", black },
             Row { "", black },
             Row { std::nullopt, black },
         })
        EXPECT_EQ(colorComponentsForText(row.text), row.color) << row.text.value_or("nil");
}

TEST(ColorText, EveryLevelOfAByteComesBack)
{
    for (int level = 0; level <= 255; ++level) {
        auto const value = static_cast<float>(level) / 255;
        ColorComponents const color { value, 1 - value, value / 2, value };
        auto const text = textForColorComponents(color);
        char wanted[64];
        std::snprintf(wanted, sizeof wanted, "%.5f,%.5f,%.5f,%.5f", double { color.red }, double { color.green },
            double { color.blue }, double { color.alpha });
        EXPECT_EQ(text, wanted);
        auto const back = colorComponentsForText(text);
        EXPECT_NEAR(back.red, color.red, 0.000006);
        EXPECT_NEAR(back.green, color.green, 0.000006);
        EXPECT_EQ(textForColorComponents(back), text);
    }
}

}
}

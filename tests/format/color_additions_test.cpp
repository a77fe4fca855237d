#include <plix/format/color_additions.h>

#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSImage.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

TEST(ColorAdditions, WriteAndReadCalibratedColours)
{
    auto const red = NSColor::colorWithCalibratedRed(1, 0, 0, 1);
    EXPECT_EQ(asCalibratedRGBString(*red), "1.00000,0.00000,0.00000,1.00000");
    auto const back = colorFromCalibratedRGBString("1.00000,0.00000,0.00000,1.00000");
    EXPECT_TRUE(back->isEqual(red.get()));
    EXPECT_EQ(back->colorSpaceName(), NSCalibratedRGBColorSpace);
}

TEST(ColorAdditions, ConvertOtherColours)
{
    EXPECT_EQ(asCalibratedRGBString(*NSColor::colorWithCalibratedWhite(0.5F, 0.25F)), "0.50000,0.50000,0.50000,0.25000");
    EXPECT_EQ(asCalibratedRGBString(*NSColor::colorWithDeviceRed(0, 1, 0, 1)), "0.00000,1.00000,0.00000,1.00000");
    EXPECT_EQ(
        asCalibratedRGBString(*NSColor::colorWithPatternImage(make<NSImage>(Size { 4, 4 }))), "0.00000,0.00000,0.00000,0.00000");
}

TEST(ColorAdditions, ReadTooLittleAsOpaqueBlack)
{
    for (auto const& text : { std::optional<std::string_view>(), std::optional<std::string_view>("1,1,1") }) {
        auto const color = colorFromCalibratedRGBString(text);
        EXPECT_EQ(asCalibratedRGBString(*color), "0.00000,0.00000,0.00000,1.00000");
    }
}

TEST(ColorAdditions, ClampComponents)
{
    EXPECT_EQ(asCalibratedRGBString(*colorFromCalibratedRGBString("2,-1,0.5,1e40,7")), "1.00000,0.00000,0.50000,1.00000");
}

}
}

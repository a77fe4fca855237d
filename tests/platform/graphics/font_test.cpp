#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSFontManager.h>

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace plix {
namespace {

NSFontManager& manager()
{
    return NSFontManager::sharedFontManager();
}

TEST(NSFont, EqualFontsAreOneObject)
{
    auto const font = NSFont::systemFontOfSize(13);
    EXPECT_EQ(font, NSFont::systemFontOfSize(13));
    EXPECT_EQ(font, NSFont::systemFontOfSize(0));
    EXPECT_EQ(font, NSFont::fontWithName("Inter-Regular", 13));
    EXPECT_NE(font, NSFont::systemFontOfSize(11));
    EXPECT_NE(font, NSFont::boldSystemFontOfSize(13));
    EXPECT_TRUE(font->isEqual(font->copy().get()));
}

TEST(NSFont, DefaultSizesAreThePlatforms)
{
    EXPECT_EQ(NSFont::systemFontSize(), 13);
    EXPECT_EQ(NSFont::smallSystemFontSize(), 11);
    EXPECT_EQ(NSFont::labelFontSize(), 10);
    EXPECT_EQ(NSFont::systemFontSizeForControlSize(NSRegularControlSize), 13);
    EXPECT_EQ(NSFont::systemFontSizeForControlSize(NSSmallControlSize), 11);
    EXPECT_EQ(NSFont::systemFontSizeForControlSize(NSMiniControlSize), 9);
    EXPECT_EQ(NSFont::labelFontOfSize(-1)->pointSize(), 10);
    EXPECT_EQ(NSFont::userFontOfSize(0)->pointSize(), 12);
    EXPECT_EQ(NSFont::messageFontOfSize(0)->pointSize(), 13);
    EXPECT_EQ(NSFont::systemFontOfSize(NAN)->pointSize(), 13);
    EXPECT_EQ(NSFont::systemFontOfSize(INFINITY)->pointSize(), 2000);
}

TEST(NSFont, IsFoundByItsNames)
{
    EXPECT_EQ(NSFont::fontWithName("Inter-Bold", 12)->displayName(), "Inter Bold");
    EXPECT_EQ(NSFont::fontWithName("Inter Bold", 12)->fontName(), "Inter-Bold");
    EXPECT_EQ(NSFont::fontWithName("DejaVu Sans", 12)->fontName(), "DejaVuSans");
    EXPECT_EQ(NSFont::fontWithName("No Such Font", 12), nullptr);
    EXPECT_EQ(NSFont::fontWithName("", 12), nullptr);
}

// The private configuration fixes them.
TEST(NSFont, MetricsAreFixed)
{
    auto const font = NSFont::systemFontOfSize(13);
    EXPECT_EQ(font->familyName(), "Inter");
    EXPECT_NEAR(font->ascender(), 12.594, 0.01);
    EXPECT_NEAR(font->descender(), -3.140, 0.01);
    EXPECT_EQ(font->leading(), 0);
    EXPECT_NEAR(font->capHeight(), 9.454, 0.01);
    EXPECT_NEAR(font->xHeight(), 7.091, 0.01);
    EXPECT_EQ(font->defaultLineHeightForFont(), 16);
    EXPECT_EQ(NSFont::systemFontOfSize(11)->defaultLineHeightForFont(), 14);
    EXPECT_EQ(NSFont::systemFontOfSize(9)->defaultLineHeightForFont(), 11);
    EXPECT_EQ(font->widthOfString("Hello"), 32);
    EXPECT_EQ(font->widthOfString(""), 0);
    EXPECT_EQ(font->italicAngle(), 0);
    EXPECT_LT(manager().convertFontToHaveTrait(*font, NSItalicFontMask)->italicAngle(), -5);
}

TEST(NSFontManager, ConvertsTraitsBothWays)
{
    auto const regular = NSFont::systemFontOfSize(13);
    auto const bold = manager().convertFontToHaveTrait(*regular, NSBoldFontMask);
    EXPECT_EQ(bold, NSFont::boldSystemFontOfSize(13));
    EXPECT_EQ(manager().traitsOfFont(*bold), NSBoldFontMask);
    auto const both = manager().convertFontToHaveTrait(*bold, NSItalicFontMask);
    EXPECT_EQ(both->fontName(), "Inter-BoldItalic");
    EXPECT_EQ(manager().traitsOfFont(*both), NSBoldFontMask | NSItalicFontMask);
    EXPECT_EQ(manager().convertFontToHaveTrait(*both, NSUnboldFontMask)->fontName(), "Inter-Italic");
    EXPECT_EQ(manager().convertFontToHaveTrait(*both, NSUnitalicFontMask), bold);
    EXPECT_EQ(manager().convertFontToNotHaveTrait(*bold, NSBoldFontMask), regular);
    EXPECT_EQ(manager().convertFontToHaveTrait(*bold, NSBoldFontMask), bold);
    auto const mono = NSFont::userFixedPitchFontOfSize(12);
    EXPECT_TRUE(mono->isFixedPitch());
    EXPECT_EQ(manager().traitsOfFont(*mono), NSFixedPitchFontMask);
}

TEST(NSFontManager, WhatCannotBeConvertedStaysAsItIs)
{
    auto const font = NSFont::fontWithName("DejaVu Math TeX Gyre", 12);
    ASSERT_TRUE(font);
    EXPECT_EQ(manager().convertFontToHaveTrait(*font, NSItalicFontMask), font);
    EXPECT_EQ(manager().convertFontToFamily(*font, "No Such Family"), font);
    EXPECT_EQ(manager().convertFontToFace(*font, "Nothing"), font);
    EXPECT_EQ(manager().fontWithFamily("No Such Family", 0, 5, 12), nullptr);
}

TEST(NSFontManager, FindsFamilyMembersByTraitsAndWeight)
{
    EXPECT_EQ(manager().fontWithFamily("Inter", NSBoldFontMask, 5, 14)->fontName(), "Inter-Bold");
    EXPECT_EQ(manager().fontWithFamily("Inter", NSItalicFontMask, 5, 14)->fontName(), "Inter-Italic");
    EXPECT_EQ(manager().fontWithFamily("Inter", 0, 8, 14)->fontName(), "Inter-SemiBold");
    EXPECT_EQ(manager().weightOfFont(*NSFont::systemFontOfSize(13)), 5);
    EXPECT_EQ(manager().weightOfFont(*NSFont::boldSystemFontOfSize(13)), 9);
    EXPECT_EQ(manager().convertWeight(true, *NSFont::systemFontOfSize(13))->fontName(), "Inter-Medium");
    EXPECT_EQ(manager().convertWeight(false, *NSFont::systemFontOfSize(13))->fontName(), "Inter-Light");
}

TEST(NSFontManager, ListsTheFamiliesOfTheTextSystemOnly)
{
    EXPECT_THAT(manager().availableFontFamilies(), testing::IsSupersetOf({ "Inter", "DejaVu Sans", "DejaVu Sans Mono" }));
    EXPECT_THAT(manager().availableFonts(), testing::Contains("Inter-Bold"));
}

}
}

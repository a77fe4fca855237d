#include <plix/platform/graphics/NSColor.h>

#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/appearance.h>

#include <tests/support/pixels.h>

#include <algorithm>
#include <cmath>

namespace plix {
namespace {

struct AppearanceGuard {
    ~AppearanceGuard()
    {
        setCurrentAppearance(Appearance::light);
        NSColor::setUserHighlightColor(nullptr);
    }
};

TEST(NSColor, ClampsItsComponents)
{
    auto const color = NSColor::colorWithCalibratedRed(2, -1, 0.5F, 3);
    EXPECT_EQ(color->components(), (ColorComponents { 1, 0, 0.5F, 1 }));
    EXPECT_EQ(NSColor::colorWithDeviceWhite(-0.5F, 0.5F)->components(), (ColorComponents { 0, 0, 0, 0.5F }));
}

TEST(NSColor, ConvertsBetweenItsSpaces)
{
    auto const color = NSColor::colorWithDeviceRed(0.2F, 0.4F, 0.6F, 0.8F);
    auto const white = color->colorUsingColorSpaceName(NSDeviceWhiteColorSpace);
    EXPECT_EQ(color->colorSpaceName(), NSDeviceRGBColorSpace);
    EXPECT_EQ(white->colorSpaceName(), NSDeviceWhiteColorSpace);
    EXPECT_FLOAT_EQ(white->whiteComponent(), 0.3F * 0.2F + 0.59F * 0.4F + 0.11F * 0.6F);
    EXPECT_FLOAT_EQ(white->alphaComponent(), 0.8F);
    auto const back = white->colorUsingColorSpaceName(NSCalibratedRGBColorSpace);
    EXPECT_EQ(back->colorSpaceName(), NSCalibratedRGBColorSpace);
    EXPECT_EQ(back->redComponent(), back->blueComponent());
    EXPECT_EQ(back->hueComponent(), 0);
    EXPECT_EQ(color->colorUsingColorSpaceName(NSDeviceRGBColorSpace), color);
    EXPECT_EQ(color->colorUsingColorSpaceName("a space that is not there"), nullptr);
}

TEST(NSColor, GivesItsComponentsInEveryForm)
{
    auto const color = NSColor::colorWithCalibratedHue(0.25F, 0.5F, 0.8F, 0.6F);
    float hue = 0;
    float saturation = 0;
    float brightness = 0;
    float alpha = 0;
    color->getHue(hue, saturation, brightness, alpha);
    EXPECT_NEAR(hue, 0.25F, 1e-5);
    EXPECT_NEAR(saturation, 0.5F, 1e-5);
    EXPECT_NEAR(brightness, 0.8F, 1e-5);
    EXPECT_EQ(alpha, 0.6F);
    float red = 0;
    float green = 0;
    float blue = 0;
    color->getRed(red, green, blue, alpha);
    EXPECT_NEAR(red, 0.6F, 1e-5);
    EXPECT_NEAR(green, 0.8F, 1e-5);
    EXPECT_NEAR(blue, 0.4F, 1e-5);
    float white = 0;
    NSColor::darkGrayColor()->getWhite(white, alpha);
    EXPECT_FLOAT_EQ(white, 1 / 3.0F);
    EXPECT_EQ(alpha, 1);
}

TEST(NSColor, MakesItsConstantsOnce)
{
    EXPECT_EQ(NSColor::blackColor(), NSColor::blackColor());
    EXPECT_EQ(NSColor::controlTextColor(), NSColor::controlTextColor());
    EXPECT_EQ(NSColor::colorWithCatalogName("System", "gridColor"), NSColor::gridColor());
    EXPECT_EQ(NSColor::colorWithCatalogName("System", "noSuchColor"), nullptr);
    EXPECT_EQ(NSColor::colorWithCatalogName("Crayons", "gridColor"), nullptr);
}

TEST(NSColor, ComparesWhatColorsAre)
{
    EXPECT_TRUE(NSColor::colorWithCalibratedRed(1, 0, 0, 1)->isEqual(NSColor::redColor().get()));
    EXPECT_TRUE(NSColor::colorWithDeviceRed(1, 0, 0, 1)->isEqual(NSColor::redColor().get()));
    EXPECT_EQ(NSColor::colorWithDeviceRed(1, 0, 0, 1)->hash(), NSColor::redColor()->hash());
    EXPECT_FALSE(NSColor::colorWithCalibratedRed(1, 1, 1, 1)->isEqual(NSColor::whiteColor().get()));
    EXPECT_FALSE(NSColor::colorWithCalibratedWhite(0, 1)->isEqual(NSColor::controlTextColor().get()));
    EXPECT_FALSE(NSColor::blackColor()->isEqual(nullptr));
    EXPECT_TRUE(NSColor::gridColor()->copy()->isEqual(NSColor::gridColor().get()));
}

TEST(NSColor, ChangesAlphaAndBlends)
{
    auto const faint = NSColor::redColor()->colorWithAlphaComponent(0.25F);
    EXPECT_EQ(faint->components(), (ColorComponents { 1, 0, 0, 0.25F }));
    EXPECT_EQ(NSColor::redColor()->colorWithAlphaComponent(1), NSColor::redColor());
    auto const mixed = NSColor::blackColor()->blendedColorWithFraction(0.25F, *NSColor::redColor());
    EXPECT_EQ(mixed->components(), (ColorComponents { 0.25F, 0, 0, 1 }));
    EXPECT_EQ(mixed->colorSpaceName(), NSCalibratedRGBColorSpace);
}

TEST(NSColor, SystemColorsFollowTheAppearance)
{
    AppearanceGuard const guard;
    auto const stamp = systemColorsStamp();
    auto const text = NSColor::controlTextColor();
    EXPECT_EQ(text->colorSpaceName(), NSNamedColorSpace);
    EXPECT_EQ(text->components(), colors::black);
    setCurrentAppearance(Appearance::dark);
    EXPECT_GT(text->whiteComponent(), 0.8F);
    EXPECT_LT(NSColor::windowBackgroundColor()->whiteComponent(), 0.3F);
    EXPECT_NE(systemColorsStamp(), stamp);
}

TEST(NSColor, SystemColorsFollowTheInnermostAppearance)
{
    AppearanceGuard const guard;
    auto const stamp = systemColorsStamp();
    auto const white = [] { return NSColor::windowBackgroundColor()->whiteComponent(); };
    auto const light = white();
    {
        AppearanceScope const outer(Appearance::dark);
        EXPECT_LT(white(), 0.3F);
        EXPECT_NE(systemColorsStamp(), stamp);
        EXPECT_EQ(processAppearance(), Appearance::light);
        {
            AppearanceScope const inner(Appearance::light);
            EXPECT_EQ(white(), light);
            setCurrentAppearance(Appearance::dark);
            EXPECT_EQ(currentAppearance(), Appearance::light);
        }
        EXPECT_EQ(currentAppearance(), Appearance::dark);
        setCurrentAppearance(Appearance::light);
        EXPECT_LT(white(), 0.3F);
    }
    EXPECT_EQ(white(), light);
    EXPECT_EQ(currentAppearance(), Appearance::light);
}

TEST(NSColor, SelectionFollowsTheUsersHighlightColor)
{
    AppearanceGuard const guard;
    auto const before = NSColor::selectedTextBackgroundColor()->components();
    NSColor::setUserHighlightColor(NSColor::greenColor());
    EXPECT_EQ(NSColor::alternateSelectedControlColor()->components(), colors::green);
    EXPECT_NE(NSColor::selectedTextBackgroundColor()->components(), before);
    NSColor::setUserHighlightColor(nullptr);
    EXPECT_EQ(NSColor::selectedTextBackgroundColor()->components(), before);
}

TEST(NSColor, TextOnSelectionsAndGroundsIsReadable)
{
    AppearanceGuard const guard;
    auto const luminance = [](ColorComponents const& color) {
        auto const linear
            = [](float value) { return value <= 0.04045F ? value / 12.92F : std::pow((value + 0.055F) / 1.055F, 2.4F); };
        return 0.2126F * linear(color.red) + 0.7152F * linear(color.green) + 0.0722F * linear(color.blue);
    };
    auto const contrast = [&](Ref<NSColor> const& a, Ref<NSColor> const& b) {
        float const first = luminance(a->components());
        float const second = luminance(b->components());
        return (std::max(first, second) + 0.05F) / (std::min(first, second) + 0.05F);
    };
    for (auto const appearance : { Appearance::light, Appearance::dark }) {
        setCurrentAppearance(appearance);
        EXPECT_GT(contrast(NSColor::controlTextColor(), NSColor::windowBackgroundColor()), 7);
        EXPECT_GT(contrast(NSColor::textColor(), NSColor::textBackgroundColor()), 7);
        EXPECT_GT(contrast(NSColor::selectedTextColor(), NSColor::selectedTextBackgroundColor()), 4.5);
        EXPECT_GT(contrast(NSColor::alternateSelectedControlTextColor(), NSColor::alternateSelectedControlColor()), 4.5);
        EXPECT_GT(contrast(NSColor::headerTextColor(), NSColor::headerColor()), 7);
    }
}

TEST(NSColor, PatternsHaveNoComponentsAndNoWayOut)
{
    auto const image = make<NSImage>(Size { 4, 4 });
    auto const pattern = NSColor::colorWithPatternImage(image);
    EXPECT_EQ(pattern->colorSpaceName(), NSPatternColorSpace);
    EXPECT_EQ(pattern->patternImage(), image.get());
    EXPECT_EQ(pattern->colorUsingColorSpaceName(NSCalibratedRGBColorSpace), nullptr);
    EXPECT_EQ(pattern->blendedColorWithFraction(0.5F, *NSColor::redColor()), nullptr);
    EXPECT_EQ(pattern->alphaComponent(), 0);
    EXPECT_EQ(NSColor::colorWithPatternImage(nullptr), nullptr);
}

TEST(NSColor, SetsFillAndStrokeOrOneOfThem)
{
    auto const bitmap = renderBitmap({ 4, 2 }, 1, [] {
        NSColor::redColor()->set();
        NSColor::blueColor()->setStroke();
        NSRectFill({ 0, 0, 2, 2 });
        NSColor::greenColor()->setFill();
        NSRectFill({ 2, 0, 2, 2 });
    });
    EXPECT_TRUE(pixelNear(bitmap, 0, 0, colors::red));
    EXPECT_TRUE(pixelNear(bitmap, 3, 0, colors::green));
}

TEST(NSColor, SetsNothingWithoutAContext)
{
    NSColor::redColor()->set();
    NSRectFill({ 0, 0, 2, 2 });
    EXPECT_EQ(NSReadPixel({ 0, 0 }), nullptr);
}

TEST(NSColor, DescribesItself)
{
    EXPECT_EQ(NSColor::colorWithCalibratedRed(1, 0.5F, 0, 1)->description(), "NSCalibratedRGBColorSpace 1 0.5 0 1");
    EXPECT_EQ(NSColor::whiteColor()->description(), "NSCalibratedWhiteColorSpace 1 1");
    EXPECT_EQ(NSColor::gridColor()->description(), "NSNamedColorSpace System gridColor");
}

}
}

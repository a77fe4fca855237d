#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <tests/support/pixels.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

class ThemeTest : public testing::TestWithParam<Appearance> {
protected:
    void SetUp() override { setCurrentAppearance(GetParam()); }
    void TearDown() override { setCurrentAppearance(Appearance::light); }
};

constexpr Size sheetSize { 400, 250 };

void drawScrollers(Theme const& theme)
{
    ControlLook const looks[] = { {}, { .isHovered = true }, { .isHovered = true, .isPressed = true }, { .isEnabled = false } };
    float x = 10;
    for (auto const& look : looks) {
        Rect const bounds { x, 10, 15, 110 };
        auto const plan
            = scrollerPlan(bounds, Theme::scrollerMetrics(NSRegularControlSize), { 0.4F, 0.35F, NSScrollerArrowsMaxEnd });
        theme.drawScrollerSlot(plan, bounds);
        theme.drawScrollerKnob(plan, look);
        theme.drawScrollerArrow(plan, NSScrollerDecrementLine, look);
        theme.drawScrollerArrow(plan, NSScrollerIncrementLine, look);
        x += 24;
    }
    Rect const small { x, 10, 11, 110 };
    auto const smallPlan = scrollerPlan(small, Theme::scrollerMetrics(NSSmallControlSize), { 1, 0.5F, NSScrollerArrowsNone });
    theme.drawScrollerSlot(smallPlan, small);
    theme.drawScrollerKnob(smallPlan, {});
    Rect const across { 10, 128, 120, 15 };
    auto const acrossPlan
        = scrollerPlan(across, Theme::scrollerMetrics(NSRegularControlSize), { 0.5F, 0.4F, NSScrollerArrowsNone });
    theme.drawScrollerSlot(acrossPlan, across);
    theme.drawScrollerKnob(acrossPlan, {});
    theme.drawScrollerCorner({ 130, 128, 15, 15 });
}

void drawFields(Theme const& theme)
{
    auto const background = NSColor::textBackgroundColor();
    float y = 10;
    for (auto shape : { FieldShape::square, FieldShape::round }) {
        theme.drawFieldBezel({ 160, y, 100, 22 }, shape, {}, background.get());
        theme.drawFieldBezel({ 280, y, 100, 22 }, shape, { .isEnabled = false }, background.get());
        theme.drawFieldBezel({ 160, y + 30, 100, 22 }, shape, { .isFocused = true }, background.get());
        theme.drawFocusRing({ 160, y + 30, 100, 22 }, shape);
        theme.drawFieldBezel({ 280, y + 30, 100, 22 }, shape, {});
        y += 64;
    }
}

void drawSheet(Theme const& theme)
{
    theme.fill({ 0, 0, sheetSize.width, sheetSize.height }, *NSColor::windowBackgroundColor());
    drawScrollers(theme);
    drawFields(theme);
    theme.drawBorder(NSLineBorder, { 160, 140, 60, 36 });
    theme.drawBorder(NSBezelBorder, { 240, 140, 60, 36 });
    theme.drawBorder(NSGrooveBorder, { 320, 140, 60, 36 });
    theme.drawHeaderBackground({ 10, 190, 370, Theme::headerHeight() });
    theme.drawHeaderDivider({ 10, 190, 250, Theme::headerHeight() });
    ControlLook const active { .isFocused = true };
    theme.fill({ 10, 214, 180, 22 }, *theme.selectionColor(active));
    theme.fill({ 200, 214, 180, 22 }, *theme.selectionColor({ .isFocused = true, .isWindowActive = false }));
}

Ref<NSBitmapImageRep> flippedBitmap(Size size, float scale, FunctionRef<void()> draw)
{
    return renderBitmap(size, scale, [&] {
        auto const context = NSGraphicsContext::currentContext();
        context->concat(AffineTransform::mirror({ 0, 0, size.width, size.height }));
        context->setFlipped(true);
        draw();
    });
}

TEST_P(ThemeTest, LooksAsItDidAtBothScales)
{
    auto const& theme = Theme::current();
    std::string const name = GetParam() == Appearance::light ? "appkit/theme_light" : "appkit/theme_dark";
    for (int scale : { 1, 2 }) {
        auto const sheet = flippedBitmap(sheetSize, static_cast<float>(scale), [&] { drawSheet(theme); });
        EXPECT_TRUE(matchesReference(sheet, name + "_" + std::to_string(scale) + "x"));
    }
}

TEST_P(ThemeTest, DrawsLinesOnWholePixels)
{
    auto const& theme = Theme::current();
    auto const line = theme.color(ThemeRole::line)->components();
    auto const box = flippedBitmap({ 20, 20 }, 1, [&] { theme.drawBorder(NSLineBorder, { 2, 2, 16, 16 }); });
    EXPECT_TRUE(areaNear(box, { 2, 2, 16, 1 }, line));
    EXPECT_TRUE(areaNear(box, { 2, 17, 16, 1 }, line));
    EXPECT_TRUE(areaNear(box, { 3, 3, 14, 14 }, colors::clear));
    EXPECT_TRUE(areaNear(box, { 0, 0, 20, 2 }, colors::clear));
}

TEST_P(ThemeTest, DrawsNothingOfAnEmptyKnob)
{
    auto const& theme = Theme::current();
    auto const drawn = flippedBitmap({ 20, 20 }, 1, [&] { theme.drawScrollerKnob({}, {}); });
    EXPECT_EQ(countPixels(drawn, colors::clear), 400);
}

TEST_P(ThemeTest, GivesTheSelectionItsColourOnlyWhereTheKeyboardIs)
{
    auto const& theme = Theme::current();
    EXPECT_EQ(theme.selectionColor({ .isFocused = true }), NSColor::alternateSelectedControlColor());
    EXPECT_EQ(theme.selectionColor({ .isFocused = false }), NSColor::secondarySelectedControlColor());
    EXPECT_EQ(theme.selectionColor({ .isFocused = true, .isWindowActive = false }), NSColor::secondarySelectedControlColor());
}

TEST_P(ThemeTest, KeepsTextReadable)
{
    auto const& theme = Theme::current();
    struct Row {
        Ref<NSColor> text;
        Ref<NSColor> ground;
        float least;
    };
    ControlLook const focused { .isFocused = true };
    Row const rows[] = {
        { NSColor::controlTextColor(), NSColor::windowBackgroundColor(), 4.5F },
        { NSColor::controlTextColor(), NSColor::controlBackgroundColor(), 4.5F },
        { theme.color(ThemeRole::secondaryText), NSColor::controlBackgroundColor(), 4.5F },
        { theme.color(ThemeRole::secondaryText), NSColor::controlAlternatingRowBackgroundColors()[1], 4.5F },
        { theme.color(ThemeRole::placeholderText), NSColor::textBackgroundColor(), 2.5F },
        { theme.selectionTextColor(focused), theme.selectionColor(focused), 4.5F },
        { theme.selectionTextColor({}), theme.selectionColor({}), 4.5F },
        { NSColor::disabledControlTextColor(), NSColor::windowBackgroundColor(), 2.5F },
        { NSColor::disabledControlTextColor(), NSColor::textBackgroundColor(), 2.5F },
        { NSColor::disabledControlTextColor(), theme.color(ThemeRole::fieldDisabled), 2.5F },
    };
    for (auto const& row : rows)
        EXPECT_GE(contrastRatio(row.text->components(), row.ground->components()), row.least) << "row " << &row - rows;
}

INSTANTIATE_TEST_SUITE_P(Appearances, ThemeTest, testing::Values(Appearance::light, Appearance::dark),
    [](auto const& appearance) { return appearance.param == Appearance::light ? "Light" : "Dark"; });

}
}

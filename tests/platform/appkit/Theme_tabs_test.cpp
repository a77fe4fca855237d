#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/cell_constants.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/appearance.h>
#include <plix/platform/graphics/string_drawing.h>

#include <tests/support/pixels.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

class ThemeTabsTest : public testing::TestWithParam<Appearance> {
protected:
    void SetUp() override { setCurrentAppearance(GetParam()); }
    void TearDown() override { setCurrentAppearance(Appearance::light); }
};

constexpr Size sheetSize { 260, 244 };

struct TabState {
    char const* name;
    ControlLook control;
};

constexpr TabState states[] {
    { "normal", {} },
    { "hovered", { .isHovered = true } },
    { "pressed", { .isPressed = true } },
    { "focused", { .isFocused = true } },
    { "disabled", { .isEnabled = false } },
    { "inactive", { .isWindowActive = false } },
};

void drawLabel(Theme const& theme, char const* text, Rect tab, ButtonLook const& look)
{
    drawInRect(text, { tab.x + 10, tab.y + 4, tab.width - 20, 16 },
        { { NSFontAttributeName, NSFont::systemFontOfSize(13) }, { NSForegroundColorAttributeName, theme.buttonTextColor(look) } });
}

// Each state off, on, and of the button for more.
void drawSheet(Theme const& theme)
{
    theme.fill(rectWith({}, sheetSize), *NSColor::windowBackgroundColor());
    theme.drawTabPane({ 4, 4, sheetSize.width - 8, 113 }, FieldShape::round, true);
    theme.drawTabPane({ 4, 120, sheetSize.width - 8, 120 }, FieldShape::square, false);
    float y = 12;
    for (auto const& state : states) {
        ButtonLook off { .control = state.control };
        off.control.isFocused = false;
        ButtonLook on { .control = state.control };
        on.isOn = true;
        off.joinsRight = on.joinsRight = on.joinsLeft = true;
        ButtonLook more = off;
        more.joinsLeft = true;
        more.joinsRight = false;
        Rect const first { 12, y, 100, 24 };
        theme.drawTab(first, off);
        drawLabel(theme, state.name, first, off);
        theme.drawTabOverflow({ 212, y, 36, 24 }, more);
        Rect const second { 112, y, 100, 24 };
        theme.drawTab(second, on);
        drawLabel(theme, state.name, second, on);
        y += 38;
    }
}

TEST_P(ThemeTabsTest, LooksAsItDidAtBothScales)
{
    auto const& theme = Theme::current();
    std::string const name = GetParam() == Appearance::light ? "appkit/tabs_light" : "appkit/tabs_dark";
    for (int const scale : { 1, 2 }) {
        auto const sheet = renderBitmap(sheetSize, static_cast<float>(scale), [&] {
            auto const context = NSGraphicsContext::currentContext();
            context->concat(AffineTransform::mirror(rectWith({}, sheetSize)));
            context->setFlipped(true);
            drawSheet(theme);
        });
        EXPECT_TRUE(matchesReference(sheet, name + "_" + std::to_string(scale) + "x"));
    }
}

INSTANTIATE_TEST_SUITE_P(Appearances, ThemeTabsTest, testing::Values(Appearance::light, Appearance::dark),
    [](auto const& test) { return test.param == Appearance::light ? "Light" : "Dark"; });

}
}

#include <examples/embed_gtk/gtk_translation.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace embed_gtk {
namespace {

using namespace plix;

GdkModifierType stateOf(unsigned bits)
{
    return static_cast<GdkModifierType>(bits);
}

TEST(GTKTranslation, ButtonsAreCountedFromTheLeftOne)
{
    EXPECT_EQ(buttonFrom(1), 0);
    EXPECT_EQ(buttonFrom(3), 1);
    EXPECT_EQ(buttonFrom(2), 2);
    EXPECT_EQ(buttonFrom(4), 3);
    EXPECT_EQ(buttonFrom(7), 3);
    EXPECT_EQ(buttonFrom(8), 3);
    EXPECT_EQ(buttonFrom(9), 4);
    EXPECT_EQ(buttonsFrom(stateOf(0)), 0U);
    EXPECT_EQ(buttonsFrom(GDK_BUTTON1_MASK), 1U << buttonFrom(1));
    EXPECT_EQ(buttonsFrom(GDK_BUTTON2_MASK), 1U << buttonFrom(2));
    EXPECT_EQ(buttonsFrom(GDK_BUTTON3_MASK), 1U << buttonFrom(3));
    EXPECT_EQ(buttonsFrom(stateOf(GDK_BUTTON1_MASK | GDK_BUTTON3_MASK | GDK_SHIFT_MASK)), 0b11U);
}

struct KeyCase {
    unsigned keysym;
    unsigned state;
    char32_t character;
    std::uint32_t modifiers;
};

TEST(GTKTranslation, AKeyHasItsCharacterAndModifiers)
{
    constexpr KeyCase cases[] {
        { GDK_KEY_a, 0, U'a', 0 },
        { GDK_KEY_A, GDK_SHIFT_MASK, U'A', HostModifierShift },
        { GDK_KEY_a, GDK_CONTROL_MASK, U'a', HostModifierControl },
        { GDK_KEY_a, GDK_ALT_MASK, U'a', HostModifierAlternate },
        { GDK_KEY_a, GDK_SUPER_MASK, U'a', HostModifierCommand },
        { GDK_KEY_a, GDK_LOCK_MASK, U'a', HostModifierCapsLock },
        { GDK_KEY_a, GDK_CONTROL_MASK | GDK_ALT_MASK, U'a', HostModifierControl | HostModifierAlternate },
        { GDK_KEY_adiaeresis, 0, 0xE4, 0 },
        { GDK_KEY_EuroSign, 0, 0x20AC, 0 },
        { GDK_KEY_Return, 0, 0, 0 },
        { GDK_KEY_Delete, 0, 0, 0 },
        { GDK_KEY_Left, 0, 0, 0 },
        { GDK_KEY_dead_acute, 0, 0, 0 },
        { GDK_KEY_Shift_L, 0, 0, 0 },
    };
    for (auto const& each : cases) {
        auto const key = keyOf(each.keysym, stateOf(each.state), 38);
        EXPECT_EQ(key.keysym, each.keysym);
        EXPECT_EQ(key.character, each.character) << each.keysym;
        EXPECT_EQ(key.modifiers, each.modifiers) << each.keysym << ' ' << each.state;
        EXPECT_EQ(key.keyCode, 38);
        EXPECT_EQ(key.text, "");
    }
}

TEST(GTKTranslation, ANotchIsThreeLinesAndTenPixelsAreOne)
{
    struct Case {
        GdkScrollDirection direction;
        double x;
        double y;
        GdkScrollUnit unit;
        Size lines;
    };
    constexpr Case cases[] {
        { GDK_SCROLL_UP, 0, 0, GDK_SCROLL_UNIT_WHEEL, { 0, 3 } },
        { GDK_SCROLL_DOWN, 0, 0, GDK_SCROLL_UNIT_WHEEL, { 0, -3 } },
        { GDK_SCROLL_LEFT, 0, 0, GDK_SCROLL_UNIT_WHEEL, { 3, 0 } },
        { GDK_SCROLL_RIGHT, 0, 0, GDK_SCROLL_UNIT_WHEEL, { -3, 0 } },
        { GDK_SCROLL_SMOOTH, 0, 1, GDK_SCROLL_UNIT_WHEEL, { 0, -3 } },
        { GDK_SCROLL_SMOOTH, -0.25, 0.5, GDK_SCROLL_UNIT_WHEEL, { 0.75, -1.5 } },
        { GDK_SCROLL_SMOOTH, 5, -20, GDK_SCROLL_UNIT_SURFACE, { -0.5, 2 } },
        { GDK_SCROLL_SMOOTH, 0, 0, GDK_SCROLL_UNIT_SURFACE, { 0, 0 } },
    };
    for (auto const& each : cases)
        EXPECT_EQ(linesOf(each.direction, each.x, each.y, each.unit), each.lines) << each.direction << ' ' << each.y;
}

TEST(GTKTranslation, EveryCursorHasANameOfItsOwn)
{
    std::set<std::string> names;
    auto const last = static_cast<int>(CursorShape::hidden);
    for (int shape = 0; shape <= last; ++shape)
        names.insert(nameOf(static_cast<CursorShape>(shape)));
    EXPECT_EQ(static_cast<int>(names.size()), last + 1);
    EXPECT_STREQ(nameOf(CursorShape::iBeam), "text");
    EXPECT_STREQ(nameOf(CursorShape::resizeDiagonalDown), "nwse-resize");
}

TEST(GTKTranslation, CharactersBecomeUTF16Units)
{
    struct Case {
        char const* text;
        int characters;
        long units;
    };
    for (auto const& [text, characters, units] :
        { Case { "", 3, 0 }, Case { "abc", 2, 2 }, Case { "\xC3\xA4z", 2, 2 }, Case { "a\xF0\x9F\x8D\x8Bz", 1, 1 },
            Case { "a\xF0\x9F\x8D\x8Bz", 2, 3 }, Case { "a\xF0\x9F\x8D\x8Bz", 9, 4 }, Case { "abc", 0, 0 }, Case { "abc", -1, 0 } })
        EXPECT_EQ(unitsOf(text, characters), units) << text << ' ' << characters;
}

}
}

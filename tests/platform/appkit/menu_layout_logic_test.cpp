#include <plix/platform/appkit/TypeAhead.h>
#include <plix/platform/appkit/event_constants.h>
#include <plix/platform/appkit/key_names.h>
#include <plix/platform/appkit/menu_layout.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

TEST(MenuLayout, StacksItemsBetweenItsEdges)
{
    MenuItemMeasure const items[] { { .titleWidth = 60 }, { .isSeparator = true }, { .titleWidth = 80, .height = 24 } };
    auto const layout = menuLayout(items, 0);
    EXPECT_EQ(layout.tops, (std::vector<float> { 4, 24, 33, 57 }));
    EXPECT_EQ(layout.size, (Size { 112, 61 }));
    EXPECT_EQ(layout.itemRect(2), (Rect { 0, 33, 112, 24 }));
    EXPECT_EQ(layout.itemRect(3), Rect {});
    EXPECT_EQ(layout.itemRect(-1), Rect {});
}

TEST(MenuLayout, FindsTheItemAtAHeight)
{
    MenuItemMeasure const items[] { {}, { .height = 0 }, {} };
    auto const layout = menuLayout(items, 0);
    EXPECT_EQ(layout.itemAt(3.9F), -1);
    EXPECT_EQ(layout.itemAt(4), 0);
    EXPECT_EQ(layout.itemAt(23.9F), 0);
    EXPECT_EQ(layout.itemAt(24), 2) << "nothing is found in an item without height";
    EXPECT_EQ(layout.itemAt(43.9F), 2);
    EXPECT_EQ(layout.itemAt(44), -1);
    EXPECT_EQ(menuLayout({}, 0).itemAt(4), -1);
}

TEST(MenuLayout, HasRoomForKeysArrowsImagesAndIndentation)
{
    MenuItemMeasure const plain[] { { .titleWidth = 50 } };
    float const width = menuLayout(plain, 0).size.width;
    MenuItemMeasure const withKey[] { { .titleWidth = 50, .keyWidth = 30 } };
    EXPECT_EQ(menuLayout(withKey, 0).size.width, width + 54);
    MenuItemMeasure const withArrow[] { { .titleWidth = 50, .hasSubmenu = true } };
    EXPECT_EQ(menuLayout(withArrow, 0).size.width, width + 18);
    MenuItemMeasure const withImage[] { { .titleWidth = 50, .imageWidth = 16 } };
    EXPECT_EQ(menuLayout(withImage, 0).size.width, width + 22);
    MenuItemMeasure const indented[] { { .titleWidth = 50, .indentation = 2 } };
    EXPECT_EQ(menuLayout(indented, 0).size.width, width + 24);
    EXPECT_EQ(menuLayout(plain, 200).size.width, 200);
}

constexpr Rect screen { 0, 0, 1000, 800 };

TEST(MenuPlacement, OpensBelowAndRightOfThePoint)
{
    struct Row {
        Point point;
        Rect expected;
    };
    constexpr Row rows[] {
        { { 100, 700 }, { 100, 500, 150, 200 } },
        { { 950, 700 }, { 800, 500, 150, 200 } }, // to the left at the right edge
        { { 100, 100 }, { 100, 100, 150, 200 } }, // above at the lower edge
        { { 950, 100 }, { 800, 100, 150, 200 } },
        { { -50, 900 }, { 0, 600, 150, 200 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(menuFrameAtPoint(row.point, { 150, 200 }, screen), row.expected) << "row " << &row - rows;
}

TEST(MenuPlacement, IsCutToTheScreen)
{
    EXPECT_EQ(menuFrameAtPoint({ 100, 400 }, { 150, 2000 }, screen), (Rect { 100, 0, 150, 800 }));
    EXPECT_EQ(menuFrameAtPoint({ 100, 400 }, { 1500, 100 }, screen), (Rect { 0, 300, 1000, 100 }));
}

TEST(MenuPlacement, SubmenusOpenBesideTheirItem)
{
    constexpr Rect parent { 100, 400, 150, 300 };
    constexpr Rect item { 100, 600, 150, 20 };
    EXPECT_EQ(submenuFrame(parent, item, { 120, 100 }, screen), (Rect { 248, 524, 120, 100 }));
    constexpr Rect atEdge { 800, 400, 150, 300 };
    EXPECT_EQ(submenuFrame(atEdge, { 800, 600, 150, 20 }, { 120, 100 }, screen), (Rect { 682, 524, 120, 100 }));
    EXPECT_EQ(submenuFrame({ 100, 0, 150, 60 }, { 100, 20, 150, 20 }, { 120, 300 }, screen), (Rect { 248, 0, 120, 300 }));
}

TEST(MenuPlacement, CoversATitleWithItsItem)
{
    auto const inside = menuFrameCovering({ 100, 400, 150, 24 }, 44, 20, { 150, 200 }, screen);
    EXPECT_EQ(inside.frame, (Rect { 100, 266, 150, 200 }));
    EXPECT_EQ(inside.scrolled, 0);
    // The item's middle is the title's: 466 - 44 - 10 = 412.
    auto const above = menuFrameCovering({ 100, 700, 150, 24 }, 304, 20, { 150, 400 }, screen);
    EXPECT_EQ(above.frame.maxY(), 800);
    EXPECT_EQ(above.scrolled, 226);
    EXPECT_EQ(above.frame.height, 174);
    auto const below = menuFrameCovering({ 100, 50, 150, 24 }, 4, 20, { 150, 400 }, screen);
    EXPECT_EQ(below.frame.y, 0);
    EXPECT_EQ(below.scrolled, 0);
}

TEST(MenuPlacement, ShowsAtLeastAFewItems)
{
    auto const atTop = menuFrameCovering({ 100, 780, 150, 20 }, 1984, 20, { 150, 2008 }, screen);
    EXPECT_GE(atTop.frame.height, 90);
    EXPECT_LE(atTop.frame.maxY(), 800);
    EXPECT_LE(atTop.scrolled + atTop.frame.height, 2008);
}

TEST(KeyNames, SayWhichKeysToPress)
{
    struct Row {
        char const* key;
        unsigned modifiers;
        char const* expected;
    };
    constexpr Row rows[] {
        { "", NSCommandKeyMask, "" },
        { "c", NSCommandKeyMask, "Ctrl+C" },
        { "C", NSCommandKeyMask, "Ctrl+Shift+C" },
        { "z", NSCommandKeyMask | NSShiftKeyMask, "Ctrl+Shift+Z" },
        { "c", NSControlKeyMask, "Ctrl+C" },
        { "c", NSAlternateKeyMask, "Alt+C" },
        { "c", 0, "C" },
        { "\r", 0, "Return" },
        { "\x1b", 0, "Esc" },
        { " ", NSCommandKeyMask, "Ctrl+Space" },
        { "\xEF\x9C\xA8", 0, "Del" },
        { "\xEF\x9C\x80", NSAlternateKeyMask, "Alt+Up" },
        { "\xEF\x9C\x84", 0, "F1" },
        { "\xEF\x9C\x8F", NSShiftKeyMask, "Shift+F12" },
        { ",", NSCommandKeyMask, "Ctrl+," },
        { "é", NSCommandKeyMask, "Ctrl+é" },
    };
    for (auto const& row : rows)
        EXPECT_EQ(keyNameWithModifiers(row.key, row.modifiers), row.expected);
}

TEST(TypeAhead, CollectsLettersUntilAPause)
{
    TypeAhead ahead;
    ahead.add("a", 10);
    ahead.add("b", 10.9);
    EXPECT_EQ(ahead.typed(), "ab");
    ahead.add("c", 12);
    EXPECT_EQ(ahead.typed(), "c");
    ahead.clear();
    EXPECT_TRUE(ahead.isEmpty());
}

TEST(TypeAhead, LooksFurtherFromWhereItIs)
{
    std::string const words[] { "apple", "avocado", "banana", "apricot" };
    TypeAhead ahead;
    auto const find
        = [&](long current) { return ahead.find(4, current, [&](long index) { return words[index].starts_with(ahead.typed()); }); };
    ahead.add("a", 1);
    EXPECT_EQ(find(-1), 0);
    EXPECT_EQ(find(0), 1) << "a first letter leaves the current one";
    ahead.add("a", 1.5);
    EXPECT_EQ(find(1), 3) << "the same letter again goes on";
    EXPECT_EQ(find(3), 0) << "around the end";
    ahead.add("p", 1.8);
    EXPECT_EQ(ahead.typed(), "ap");
    EXPECT_EQ(find(0), 0) << "a word stays where it matches";
    EXPECT_EQ(find(1), 3);
    ahead.add("x", 1.9);
    EXPECT_EQ(find(0), -1);
    EXPECT_EQ(ahead.find(0, -1, [](long) { return true; }), -1);
}

}
}

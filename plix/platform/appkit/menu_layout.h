#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/graphics/geometry.h>

#include <span>
#include <vector>

namespace plix {

/// What a menu's item takes, in points.
struct MenuItemMeasure {
    float titleWidth { 0 };
    /// Of its key equivalent; 0 for none.
    float keyWidth { 0 };
    float imageWidth { 0 };
    float height { 20 };
    int indentation { 0 };
    bool isSeparator { false };
    bool hasSubmenu { false };
};

/// Where everything in a menu is, in a flipped view without scrolling.
struct PLIX_EXPORT MenuLayout {
    Size size;
    /// The tops of all items, and the bottom of the last.
    std::vector<float> tops;
    /// Titles and images begin here, key equivalents and submenu arrows end here.
    float titleStart { 0 };
    float contentEnd { 0 };

    Rect itemRect(long index) const;
    /// -1 outside the items.
    long itemAt(float y) const;
};

inline constexpr float menuSeparatorHeight = 9;
inline constexpr float menuEdge = 4;
inline constexpr float menuScrollArrowHeight = 16;

PLIX_EXPORT MenuLayout menuLayout(std::span<MenuItemMeasure const>, float minimumWidth);

// Frames are in screen coordinates, y upwards; `screen` is the part of it that menus may cover. A menu that is higher than the
// screen is cut to it, and scrolls.

/// Below and right of a point; above or left of it where there is no room.
PLIX_EXPORT Rect menuFrameAtPoint(Point, Size menu, Rect screen);
/// Beside its item: to the right of the menu above, or to the left where there is no room; its first item as high as the item.
PLIX_EXPORT Rect submenuFrame(Rect parentMenu, Rect item, Size menu, Rect screen);

/// A menu whose item covers a rectangle, such as a pop-up button's title.
struct CoveringMenu {
    Rect frame;
    /// How far the menu is scrolled.
    float scrolled { 0 };
};
/// `itemTop` is the item's distance from the menu's top, `itemHeight` its height.
PLIX_EXPORT CoveringMenu menuFrameCovering(Rect title, float itemTop, float itemHeight, Size menu, Rect screen);

}

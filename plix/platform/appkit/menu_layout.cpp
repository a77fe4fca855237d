#include <plix/platform/appkit/menu_layout.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr float sideMargin = 10;
constexpr float stateColumnWidth = 22;
constexpr float imageGap = 6;
constexpr float keyGap = 24;
constexpr float arrowRoom = 18;
constexpr float indentationWidth = 12;
constexpr float submenuOverlap = 2;

}

Rect MenuLayout::itemRect(long index) const
{
    if (index < 0 || index + 1 >= static_cast<long>(tops.size()))
        return {};
    auto const at = static_cast<std::size_t>(index);
    return { 0, tops[at], size.width, tops[at + 1] - tops[at] };
}

long MenuLayout::itemAt(float y) const
{
    if (tops.size() < 2 || !(y >= tops.front()) || y >= tops.back())
        return -1;
    return std::upper_bound(tops.begin(), tops.end(), y) - tops.begin() - 1;
}

MenuLayout menuLayout(std::span<MenuItemMeasure const> items, float minimumWidth)
{
    MenuLayout layout;
    layout.titleStart = stateColumnWidth;
    float widestTitle = 0;
    float widestEnd = 0;
    float y = menuEdge;
    layout.tops.reserve(items.size() + 1);
    for (auto const& item : items) {
        layout.tops.push_back(y);
        y += item.isSeparator ? menuSeparatorHeight : item.height;
        float const image = item.imageWidth > 0 ? item.imageWidth + imageGap : 0;
        widestTitle = std::max(widestTitle, static_cast<float>(item.indentation) * indentationWidth + image + item.titleWidth);
        float const end = item.hasSubmenu ? arrowRoom : item.keyWidth > 0 ? item.keyWidth + keyGap : 0;
        widestEnd = std::max(widestEnd, end);
    }
    layout.tops.push_back(y);
    float const width = std::ceil(layout.titleStart + widestTitle + widestEnd + sideMargin);
    layout.size = { std::max(width, std::ceil(minimumWidth)), y + menuEdge };
    layout.contentEnd = layout.size.width - sideMargin;
    return layout;
}

static Size cutToScreen(Size menu, Rect screen)
{
    return { std::min(menu.width, screen.width), std::min(menu.height, screen.height) };
}

static Rect movedOntoScreen(Rect frame, Rect screen)
{
    frame.x = std::clamp(frame.x, screen.x, screen.maxX() - frame.width);
    frame.y = std::clamp(frame.y, screen.y, screen.maxY() - frame.height);
    return frame;
}

Rect menuFrameAtPoint(Point point, Size menu, Rect screen)
{
    Size const size = cutToScreen(menu, screen);
    Rect frame { point.x, point.y - size.height, size.width, size.height };
    if (frame.maxX() > screen.maxX() && point.x - size.width >= screen.x)
        frame.x = point.x - size.width;
    if (frame.y < screen.y && point.y + size.height <= screen.maxY())
        frame.y = point.y;
    return movedOntoScreen(frame, screen);
}

Rect submenuFrame(Rect parentMenu, Rect item, Size menu, Rect screen)
{
    Size const size = cutToScreen(menu, screen);
    Rect frame { parentMenu.maxX() - submenuOverlap, item.maxY() + menuEdge - size.height, size.width, size.height };
    if (frame.maxX() > screen.maxX() && parentMenu.x + submenuOverlap - size.width >= screen.x)
        frame.x = parentMenu.x + submenuOverlap - size.width;
    return movedOntoScreen(frame, screen);
}

CoveringMenu menuFrameCovering(Rect title, float itemTop, float itemHeight, Size menu, Rect screen)
{
    float const centre = title.y + title.height / 2;
    // The menu's whole extent with the item's middle on the title's; what lies beyond the screen is scrolled out of sight.
    float const top = std::round(centre + itemTop + itemHeight / 2);
    float const bottom = top - menu.height;
    float const shownTop = std::min(top, screen.maxY());
    float const shownBottom = std::max(bottom, screen.y);
    CoveringMenu covering;
    covering.scrolled = top - shownTop;
    covering.frame = { title.x, shownBottom, std::min(menu.width, screen.width), shownTop - shownBottom };
    // Too little of it could be seen.
    float const least = std::min(menu.height, 3 * itemHeight + 2 * menuScrollArrowHeight);
    if (covering.frame.height < least) {
        covering.frame = movedOntoScreen({ title.x, shownBottom, covering.frame.width, least }, screen);
        covering.scrolled = std::clamp(covering.scrolled, 0.F, menu.height - least);
    }
    covering.frame.x = std::clamp(covering.frame.x, screen.x, screen.maxX() - covering.frame.width);
    return covering;
}

}

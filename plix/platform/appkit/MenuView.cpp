#include <plix/platform/appkit/MenuView.h>

#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/key_equivalent.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/text_line.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr float imageGap = 6;
constexpr float indentationWidth = 12;
constexpr float airAroundText = 5;
constexpr float largestImage = 32;

float heightOfLine(NSFont const& font)
{
    return std::ceil(font.defaultLineHeightForFont()) + airAroundText;
}

Size imageSize(NSMenuItem const& item)
{
    auto const* image = item.image();
    if (!image || image->size().width <= 0 || image->size().height <= 0)
        return {};
    auto const size = image->size();
    float const scale = std::min(1.F, largestImage / std::max(size.width, size.height));
    return { size.width * scale, size.height * scale };
}

MenuItemMeasure measureOf(NSMenuItem const& item, NSFont const& font)
{
    MenuItemMeasure measure;
    if (item.isHidden()) {
        measure.height = 0;
        return measure;
    }
    measure.isSeparator = item.isSeparatorItem();
    measure.hasSubmenu = item.hasSubmenu();
    measure.indentation = item.indentationLevel();
    auto const picture = imageSize(item);
    measure.imageWidth = picture.width;
    measure.height = std::max(heightOfLine(font), std::ceil(picture.height) + 4);
    if (auto const* title = item.attributedTitle()) {
        auto const size = title->size();
        measure.titleWidth = std::ceil(size.width);
        measure.height = std::max(measure.height, std::ceil(size.height) + 4);
    } else {
        measure.titleWidth = std::ceil(widthOfTextLine(item.title(), font));
    }
    if (!item.keyEquivalent().empty())
        measure.keyWidth
            = std::ceil(widthOfTextLine(keyEquivalentText(item.keyEquivalent(), item.keyEquivalentModifierMask()), font));
    return measure;
}

Ref<NSFont> fontOf(NSMenu const& menu)
{
    return menu.font() ? Ref<NSFont>(menu.font()) : NSFont::menuFontOfSize(0);
}

MenuLayout layoutWith(NSMenu const& menu, NSFont const& font, float minimumWidth)
{
    std::vector<MenuItemMeasure> measures;
    measures.reserve(menu.itemArray().size());
    for (auto const& item : menu.itemArray())
        measures.push_back(measureOf(*item, font));
    return menuLayout(measures, minimumWidth);
}

}

PLIX_DESCRIBE(MenuView)
{
}

MenuView::MenuView() = default;
MenuView::~MenuView() = default;

bool MenuView::init(Ref<NSMenu> const& menu, Ref<NSFont> const& font, float minimumWidth)
{
    if (!Base::init(Rect {}))
        return false;
    m_menu = menu;
    m_font = font ? font : fontOf(*menu);
    m_minimumWidth = minimumWidth;
    layOut();
    setFrameSize(m_layout.size);
    return true;
}

MenuLayout MenuView::layoutOfMenu(NSMenu& menu, float minimumWidth)
{
    return layoutWith(menu, *fontOf(menu), minimumWidth);
}

void MenuView::layOut()
{
    m_layout = layoutWith(*m_menu, *m_font, m_minimumWidth);
    if (!canHighlight(m_highlighted))
        m_highlighted = -1;
    setNeedsDisplay(true);
}

void MenuView::setFrameSize(Size size)
{
    Base::setFrameSize(size);
    scrollTo(m_scrolled);
}

// MARK: scrolling

float MenuView::greatestOffset() const
{
    return std::max(0.F, m_layout.size.height - bounds().height);
}

void MenuView::scrollTo(float offset)
{
    float const wanted = std::round(std::clamp(offset, 0.F, greatestOffset()));
    if (wanted == m_scrolled)
        return;
    m_scrolled = wanted;
    setNeedsDisplay(true);
}

int MenuView::arrowAtPoint(Point point) const
{
    if (point.x < 0 || point.x >= bounds().width)
        return 0;
    if (canScrollUp() && point.y < menuScrollArrowHeight)
        return -1;
    return canScrollDown() && point.y >= bounds().height - menuScrollArrowHeight ? 1 : 0;
}

Rect MenuView::itemArea() const
{
    float const top = canScrollUp() ? menuScrollArrowHeight : 0;
    float const bottom = canScrollDown() ? menuScrollArrowHeight : 0;
    return { 0, top, bounds().width, std::max(0.F, bounds().height - top - bottom) };
}

// MARK: items

Rect MenuView::rectOfItem(long index) const
{
    auto const rect = NSOffsetRect(m_layout.itemRect(index), 0, -m_scrolled);
    return { 0, rect.y, bounds().width, rect.height };
}

bool MenuView::canHighlight(long index) const
{
    if (index < 0 || index >= m_menu->numberOfItems())
        return false;
    auto const* item = m_menu->itemAtIndex(index);
    return item->isEnabled() && !item->isSeparatorItem() && !item->isHidden();
}

long MenuView::indexAtPoint(Point point) const
{
    if (!NSPointInRect(point, itemArea()))
        return -1;
    long const index = m_layout.itemAt(point.y + m_scrolled);
    return canHighlight(index) ? index : -1;
}

void MenuView::highlight(long index, Reveal reveal)
{
    if (!canHighlight(index))
        index = -1;
    if (index >= 0 && reveal == Reveal::yes) {
        // Where there are arrows, the item stands between them.
        auto const rect = m_layout.itemRect(index);
        if (rect.y - menuScrollArrowHeight < m_scrolled)
            scrollTo(index == 0 ? 0 : rect.y - menuScrollArrowHeight);
        else if (rect.maxY() + menuScrollArrowHeight > m_scrolled + bounds().height)
            scrollTo(rect.maxY() + menuScrollArrowHeight - bounds().height);
    }
    if (index == m_highlighted)
        return;
    if (m_highlighted >= 0)
        setNeedsDisplayInRect(rectOfItem(m_highlighted));
    m_highlighted = index;
    if (m_highlighted >= 0)
        setNeedsDisplayInRect(rectOfItem(m_highlighted));
}

// MARK: drawing

void MenuView::drawRect(Rect dirty)
{
    auto const& theme = Theme::current();
    theme.drawMenuBackground(bounds());
    auto const area = NSIntersectionRect(itemArea(), dirty);
    if (!area.isEmpty()) {
        GraphicsState const saved;
        NSGraphicsContext::currentContext()->clipToRect(area);
        long index = std::max(0L, m_layout.itemAt(std::max(area.y + m_scrolled, m_layout.tops.front())));
        for (; index < m_menu->numberOfItems() && rectOfItem(index).y < area.maxY(); ++index)
            drawItem(index);
    }
    if (canScrollUp())
        theme.drawMenuScrollArrow({ 0, 0, bounds().width, menuScrollArrowHeight }, true);
    if (canScrollDown())
        theme.drawMenuScrollArrow({ 0, bounds().height - menuScrollArrowHeight, bounds().width, menuScrollArrowHeight }, false);
}

void MenuView::drawItem(long index) const
{
    auto const& theme = Theme::current();
    auto const& item = *m_menu->itemAtIndex(index);
    auto const rect = rectOfItem(index);
    if (rect.height <= 0)
        return;
    if (item.isSeparatorItem()) {
        theme.drawMenuSeparator(rect);
        return;
    }
    MenuItemLook const look { .isEnabled = item.isEnabled(), .isHighlighted = index == m_highlighted };
    if (look.isHighlighted)
        theme.drawMenuHighlight(rect);
    auto const& color = theme.menuTextColor(look);
    float const lineHeight = std::ceil(m_font->defaultLineHeightForFont());
    float const textTop = std::round(rect.midY() - lineHeight / 2);
    if (item.state() != NSOffState)
        theme.drawMenuState({ 0, rect.y, m_layout.titleStart, rect.height }, item.state(), look);
    float x = m_layout.titleStart + static_cast<float>(item.indentationLevel()) * indentationWidth;
    auto const picture = imageSize(item);
    if (picture.width > 0) {
        Theme::drawImage(
            *item.image(), { x, std::round(rect.midY() - picture.height / 2), picture.width, picture.height }, item.isEnabled());
        x += picture.width + imageGap;
    }
    float const end = bounds().width - (m_layout.size.width - m_layout.contentEnd);
    if (auto const* title = item.attributedTitle()) {
        auto const size = title->size();
        title->drawInRect({ x, std::round(rect.midY() - size.height / 2), std::max(0.F, end - x), std::ceil(size.height) });
    } else {
        drawTextLine(item.title(), { x, textTop, std::max(0.F, end - x), lineHeight }, { .font = *m_font, .color = color.get() });
    }
    if (item.hasSubmenu()) {
        theme.drawSubmenuArrow({ end - 8, rect.y, 8, rect.height }, look);
    } else if (!item.keyEquivalent().empty()) {
        auto const text = keyEquivalentText(item.keyEquivalent(), item.keyEquivalentModifierMask());
        drawTextLine(text, { x, textTop, std::max(0.F, end - x), lineHeight },
            { .font = *m_font, .color = theme.menuKeyColor(look).get(), .alignment = NSRightTextAlignment });
    }
}

}

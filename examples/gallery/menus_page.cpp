#include "buttons_page.h"

#include <plix/platform/appkit/MenuView.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>

namespace gallery {

using namespace plix;

namespace {

constexpr float margin = 24;
constexpr float pageHeight = 330;

class Desk final : public NSView {
public:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(Rect dirty) override
    {
        NSColor::windowBackgroundColor()->set();
        NSRectFill(dirty);
        NSColor::gridColor()->set();
        for (auto const& menu : subviews())
            NSFrameRect(NSInsetRect(menu->frame(), -1, -1));
    }
};

Ref<NSMenu> editMenu()
{
    auto const menu = make<NSMenu>("Edit");
    menu->setAutoenablesItems(false);
    auto const add = [&](char const* title, char const* key) { return menu->addItemWithTitle(title, Selector("edit:"), key); };
    add("Undo Typing", "z");
    auto const redo = add("Redo", "Z");
    redo->setEnabled(false);
    menu->addItem(*NSMenuItem::separatorItem());
    add("Cut", "x");
    add("Copy", "c");
    add("Paste", "v");
    auto const erase = add("Delete", "\x7F");
    erase->setKeyEquivalentModifierMask(0);
    menu->addItem(*NSMenuItem::separatorItem());
    auto const find = menu->addItemWithTitle("Find", {}, "");
    auto const inside = make<NSMenu>("Find");
    inside->addItemWithTitle("Next", {}, "");
    find->setSubmenu(inside);
    return menu;
}

Ref<NSMenu> viewMenu()
{
    auto const menu = make<NSMenu>("View");
    menu->setAutoenablesItems(false);
    auto const add = [&](char const* title, int state) {
        auto item = menu->addItemWithTitle(title, {}, "");
        item->setState(state);
        return item;
    };
    add("as Icons", NSOffState);
    add("as List", NSOnState);
    add("as Mixture", NSMixedState);
    add("as Columns", NSOnState)->setEnabled(false);
    menu->addItem(*NSMenuItem::separatorItem());
    add("Arrange", NSOffState);
    add("by Name", NSOnState)->setIndentationLevel(1);
    add("by Date", NSOffState)->setIndentationLevel(1);
    return menu;
}

Ref<NSMenu> longMenu()
{
    auto const menu = make<NSMenu>("Many");
    menu->setAutoenablesItems(false);
    for (int i = 1; i <= 60; ++i)
        menu->addItemWithTitle("Item " + std::to_string(i), {}, "");
    return menu;
}

}

Ref<NSView> makeMenusPage()
{
    auto page = make<Desk>(Rect { 0, 0, 0, pageHeight });
    float x = margin;
    auto const add = [&](Ref<NSMenu> const& menu, long lit, float scrolled) {
        auto const view = make<MenuView>(menu, Ref<NSFont>(), 0.F);
        auto const size = view->layout().size;
        view->setFrame({ x, margin, size.width, std::min(size.height, pageHeight - 2 * margin) });
        view->scrollTo(scrolled);
        view->highlight(lit, MenuView::Reveal::no);
        page->addSubview(*view);
        x += size.width + margin;
    };
    add(editMenu(), 4, 0);
    add(viewMenu(), 1, 0);
    add(longMenu(), -1, 95);
    page->setFrameSize({ x, pageHeight });
    return page;
}

}

#include "tabs_page.h"
#include "Desk.h"
#include "picture_samples.h"

#include <plix/controls/PLIXTabView.h>
#include <plix/controls/PLIXTabViewItem.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/NSFont.h>

#include <string_view>

namespace gallery {

using namespace plix;

namespace {

constexpr float pageWidth = 780;
constexpr float pageHeight = 640;

Ref<NSTextField> label(std::string_view text, Rect frame, float size)
{
    auto made = NSTextField::labelWithString(text);
    made->setFont(NSFont::systemFontOfSize(size));
    made->setFrame(frame);
    return made;
}

Ref<NSButton> choice(std::string_view title, Rect frame)
{
    auto button = make<NSButton>(frame);
    button->setButtonType(NSSwitchButton);
    button->setTitle(title);
    button->setState(NSOnState);
    return button;
}

Ref<NSView> pane(std::string_view text)
{
    auto made = make<NSView>(Rect { 0, 0, 100, 60 });
    auto const inside = choice(text, { 10, 32, 88, 18 });
    inside->setAutoresizingMask(NSViewMinYMargin | NSViewWidthSizable);
    made->addSubview(*inside);
    return made;
}

template <typename Item> void addItem(NSTabView& tabs, std::string_view title)
{
    auto const item = make<Item>(title);
    item->setLabel(title);
    item->setView(pane(title));
    tabs.addTabViewItem(*item);
}

Ref<NSTabView> tabView(Rect frame, NSTabViewType type, std::vector<char const*> const& titles)
{
    auto tabs = make<NSTabView>(frame);
    tabs->setTabViewType(type);
    for (auto const* title : titles)
        addItem<NSTabViewItem>(*tabs, title);
    return tabs;
}

void addKinds(Desk& desk)
{
    struct Kind {
        NSTabViewType type;
        Rect frame;
    };
    std::vector<char const*> const titles { "Oboe", "Clarinet", "Bassoon" };
    for (auto const& kind : {
             Kind { NSTopTabsBezelBorder, { 10, 40, 250, 130 } },
             Kind { NSBottomTabsBezelBorder, { 265, 40, 250, 130 } },
             Kind { NSLeftTabsBezelBorder, { 10, 176, 250, 230 } },
             Kind { NSRightTabsBezelBorder, { 265, 176, 250, 230 } },
             Kind { NSNoTabsBezelBorder, { 520, 40, 120, 130 } },
             Kind { NSNoTabsLineBorder, { 650, 50, 110, 110 } },
         }) {
        auto const tabs = tabView(kind.frame, kind.type, titles);
        tabs->selectTabViewItemAtIndex(kind.type == NSTopTabsBezelBorder ? 1 : 0);
        desk.addSubview(*tabs);
    }
}

void addSizes(Desk& desk)
{
    auto const small = tabView({ 520, 176, 250, 110 }, NSTopTabsBezelBorder, { "Small", "tabs", "here" });
    small->setControlSize(NSSmallControlSize);
    desk.addSubview(*small);
    auto const mini = tabView({ 520, 296, 250, 110 }, NSTopTabsBezelBorder, { "Mini", "tabs", "here" });
    mini->setControlSize(NSMiniControlSize);
    desk.addSubview(*mini);
}

void addMany(Desk& desk)
{
    std::vector<char const*> const titles { "Piccolo", "Flute", "Oboe", "English horn", "Clarinet", "Bassoon" };
    auto const menu = tabView({ 10, 440, 250, 100 }, NSTopTabsBezelBorder, titles);
    desk.addSubview(*menu);
    auto const shortened = tabView({ 265, 440, 250, 100 }, NSTopTabsBezelBorder, { "Contrabassoon", "Cor anglais", "Horn" });
    shortened->setAllowsTruncatedLabels(true);
    desk.addSubview(*shortened);
}

void addImages(Desk& desk)
{
    auto const samples = PictureSamples::make();
    auto const tabs = make<NSTabView>(Rect { 520, 440, 250, 100 });
    for (auto const* title : { "Folder", "Badge" })
        addItem<PLIXTabViewItem>(*tabs, title);
    static_cast<PLIXTabViewItem*>(tabs->tabViewItemAtIndex(0))->setImage(samples.folder);
    static_cast<PLIXTabViewItem*>(tabs->tabViewItemAtIndex(1))->setImage(samples.badge);
    desk.addSubview(*tabs);
}

void addInactive(Desk& desk)
{
    auto const place = make<Desk>(Rect { 10, 548, 250, 86 });
    place->setLooksActive(false);
    place->addSubview(*tabView(place->bounds(), NSTopTabsBezelBorder, { "In an", "inactive", "window" }));
    desk.addSubview(*place);
}

// MARK: a window of its own

Ref<NSView> rows(int count)
{
    auto made = make<NSView>(Rect { 0, 0, 300, 40 });
    for (int i = 0; i < count; ++i)
        made->addSubview(*choice("Row " + std::to_string(count - i), { 20, 20 + static_cast<float>(i) * 26, 200, 18 }));
    return made;
}

void showFittingWindow()
{
    auto const window
        = make<NSWindow>(Rect { 0, 0, 420, 200 }, NSTitledWindowMask | NSClosableWindowMask, NSBackingStoreBuffered, false);
    window->setTitle("A window that fits its panes");
    auto const tabs = make<PLIXTabView>(Rect { 0, 0, 420, 200 });
    for (int const count : { 2, 9 }) {
        auto const item = make<PLIXTabViewItem>();
        item->setLabel(std::to_string(count) + " rows");
        item->setView(rows(count));
        tabs->addTabViewItem(*item);
    }
    auto const wide = make<PLIXTabViewItem>();
    wide->setLabel("Wide");
    wide->setCustomView(make<NSView>(Rect { 0, 0, 560, 160 }));
    wide->customView()->addSubview(*label("This pane is 560 points wide and 160 high.", { 20, 120, 400, 18 }, 13));
    tabs->addTabViewItem(*wide);
    window->contentView()->addSubview(*tabs);
    window->center();
    tabs->resizeToFitContent();
    window->makeKeyAndOrderFront(nullptr);
}

void addButton(Desk& desk)
{
    auto const button = make<NSButton>(Rect { 520, 590, 240, 26 });
    button->setTitle("Open a window that fits its panes");
    button->setActionFunction([](NSObject*) { showFittingWindow(); });
    desk.addSubview(*button);
}

}

Ref<NSView> makeTabsPage()
{
    auto desk = make<Desk>(Rect { 0, 0, pageWidth, pageHeight });
    auto const heading = label("Kinds and sizes", { 20, 14, 300, 18 }, 13);
    heading->setFont(NSFont::boldSystemFontOfSize(13));
    desk->addSubview(*heading);
    auto const many = label("More tabs than fit, shortened labels, images", { 20, 414, 400, 18 }, 13);
    many->setFont(NSFont::boldSystemFontOfSize(13));
    desk->addSubview(*many);
    addKinds(*desk);
    addSizes(*desk);
    addMany(*desk);
    addImages(*desk);
    addInactive(*desk);
    addButton(*desk);
    return desk;
}

}

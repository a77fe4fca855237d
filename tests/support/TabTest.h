#pragma once

#include <plix/platform/appkit/NSTabView.h>
#include <plix/platform/appkit/NSTabViewItem.h>
#include <plix/platform/appkit/NSTextField.h>

#include <tests/support/CountingView.h>
#include <tests/support/HeadlessTest.h>

#include <string>
#include <vector>

namespace plix {

using Strings = std::vector<std::string>;

/// A delegate of tab views that notes what it is told.
class TabDelegate : public NSObject {
    PLIX_CLASS(TabDelegate, NSObject);

public:
    bool init() { return true; }
    bool shouldSelectTabViewItem(NSTabView&, NSTabViewItem& item)
    {
        log.push_back("should " + item.label());
        return item.label() != refused;
    }
    void willSelectTabViewItem(NSTabView& tabs, NSTabViewItem& item)
    {
        log.push_back("will " + item.label());
        if (whenWillSelect)
            whenWillSelect(tabs, item);
    }
    void didSelectTabViewItem(NSTabView& tabs, NSTabViewItem& item)
    {
        log.push_back("did " + item.label() + (tabs.selectedTabViewItem() == &item ? "" : " elsewhere"));
    }
    void tabViewDidChangeNumberOfTabViewItems(NSTabView& tabs)
    {
        log.push_back("count " + std::to_string(tabs.numberOfTabViewItems()));
    }

    Strings log;
    std::string refused;
    std::function<void(NSTabView&, NSTabViewItem&)> whenWillSelect;
};

inline Ref<NSTabViewItem> tabItem(std::string_view label, Ref<NSView> const& view = nullptr)
{
    auto item = make<NSTabViewItem>(label);
    item->setLabel(label);
    if (view)
        item->setView(view);
    return item;
}

/// A tab view with three tabs in the middle of a window that has a field above and one below.
class TabTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow({ 100, 200, 400, 300 });
        above = field({ 20, 270, 100, 22 });
        below = field({ 20, 8, 100, 22 });
        tabs = make<NSTabView>(Rect { 20, 40, 360, 220 });
        for (auto const* label : { "General", "Columns", "Sounds" }) {
            auto const pane = make<CountingView>();
            panes.push_back(pane);
            tabs->addTabViewItem(*tabItem(label, pane));
        }
        window->contentView()->addSubview(*above);
        window->contentView()->addSubview(*tabs);
        window->contentView()->addSubview(*below);
        delegate = make<TabDelegate>();
        tabs->setDelegate(delegate);
        pump();
    }
    static Ref<NSTextField> field(Rect frame)
    {
        auto made = make<NSTextField>(frame);
        made->setStringValue("text");
        return made;
    }
    NSTabViewItem& item(long index) { return *tabs->tabViewItemAtIndex(index); }
    std::string selected() { return tabs->selectedTabViewItem() ? tabs->selectedTabViewItem()->label() : "none"; }
    Point middleOf(long index)
    {
        auto const rect = tabs->rectForTabViewItem(item(index));
        return { rect.midX(), rect.midY() };
    }
    void clickTab(long index) { click(*tabs, middleOf(index)); }
    bool isEditing(NSTextField& wanted) { return wanted.currentEditor() && window->firstResponder() == wanted.currentEditor(); }

    Ref<NSWindow> window;
    Ref<NSTextField> above;
    Ref<NSTextField> below;
    Ref<NSTabView> tabs;
    std::vector<Ref<CountingView>> panes;
    Ref<TabDelegate> delegate;
};

}

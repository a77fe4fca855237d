#include "tabs_pages.h"
#include "Form.h"
#include "page_parts.h"

#include <plix/controls/PLIXTabView.h>
#include <plix/controls/PLIXTabViewItem.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSTabView.h>
#include <plix/platform/appkit/NSTabViewItem.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/base/Weak.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSImage.h>

#include <string>
#include <utility>
#include <vector>

namespace gallery {

using namespace plix;

namespace {

/// Check boxes one below the other, 20 points from the upper left corner.
Ref<NSView> pane(Size size, std::vector<char const*> const& titles)
{
    auto view = make<NSView>(rectWith({}, size));
    for (float y = size.height - 38; auto const* title : titles) {
        auto const box = checkBox(title);
        box->setFrameOrigin({ 20, y });
        box->setAutoresizingMask(NSViewMinYMargin);
        view->addSubview(*box);
        y -= 26;
    }
    return view;
}

Ref<NSView> makeNSTabViewPage()
{
    class Listener : public NSObject {
    public:
        void didSelectTabViewItem(NSTabView&, NSTabViewItem& item)
        {
            if (form)
                form->setStatus("Selected: " + item.label());
        }
        Weak<Form> form; // the page may go first
    };
    auto const form = Form::page();
    auto const listener = form->keep(make<Listener>());
    listener->form = form;
    auto const tabs = make<NSTabView>(Rect { 0, 0, 520, 170 });
    for (auto const& [label, titles] : { std::pair { "Page", std::vector { "Show margins", "Show rulers" } },
             { "Fonts", std::vector { "Smooth text", "Ligatures", "Kerning" } }, { "Printing", std::vector { "Both sides" } } }) {
        auto const item = make<NSTabViewItem>(ObjectValue(label));
        item->setLabel(label);
        item->setView(pane({ 500, 120 }, titles));
        tabs->addTabViewItem(*item);
    }
    tabs->setDelegate(listener);
    form->addView(tabs);
    auto const kind = make<NSPopUpButton>(Rect { 0, 0, 160, 26 }, false);
    kind->addItemsWithTitles({ "At the top", "At the left", "At the bottom", "At the right", "No tabs, a bezel" });
    kind->setActionFunction([tabs](NSObject* sender) {
        tabs->setTabViewType(static_cast<NSTabViewType>(static_cast<NSPopUpButton*>(sender)->indexOfSelectedItem()));
    });
    form->addRow("Tabs", { kind });
    auto const many = make<NSTabView>(Rect { 0, 0, 520, 80 });
    for (auto const* label :
        { "Piccolo", "Flute", "Oboe", "English horn", "Clarinet", "Bassoon", "Contrabassoon", "Horn", "Trumpet" }) {
        auto const item = make<NSTabViewItem>(ObjectValue(label));
        item->setLabel(label);
        many->addTabViewItem(*item);
    }
    many->setDelegate(listener);
    form->addView(many);
    form->addStatus("Ctrl+Tab goes on; tabs for which there is no room are in a menu.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makeNSTabViewItemPage()
{
    auto const form = Form::page();
    auto const tabs = make<NSTabView>(Rect { 0, 0, 520, 150 });
    auto const add = [tabs](std::string const& label) {
        auto const item = make<NSTabViewItem>(ObjectValue(label));
        item->setLabel(label);
        auto const field = textField("The pane of " + label, 200);
        field->setFrameOrigin({ 20, 60 });
        auto const view = make<NSView>(Rect { 0, 0, 500, 100 });
        view->addSubview(*field);
        item->setView(view);
        item->setInitialFirstResponder(field.get());
        tabs->addTabViewItem(*item);
        return item;
    };
    add("First");
    add("Second");
    form->addView(tabs);
    auto const say = [tabs, page = form.get()] {
        auto const count = tabs->numberOfTabViewItems();
        page->setStatus(std::to_string(count) + (count == 1 ? " item" : " items"));
    };
    form->addRow("Items",
        { pushButton("Add",
              [tabs, add, say] {
                  tabs->selectTabViewItem(add("Number " + std::to_string(tabs->numberOfTabViewItems() + 1)).get());
                  say();
              }),
            pushButton("Remove",
                [tabs, say] {
                    if (auto* const item = tabs->selectedTabViewItem())
                        tabs->removeTabViewItem(*item);
                    say();
                }),
            pushButton("Rename", [tabs] {
                if (auto* const item = tabs->selectedTabViewItem())
                    item->setLabel(item->label() + "!");
            }) });
    form->addNote("An item has an identifier, a label, a pane, and the view of it that gets the keyboard.");
    form->addStatus("2 items");
    form->sizeToRows();
    return form;
}

/// Makes its window as large as the pane wants it.
Ref<NSView> makePLIXTabViewPage()
{
    auto const form = Form::page();
    auto const tabs = make<PLIXTabView>(Rect { 0, 0, 520, 190 });
    auto const item = make<PLIXTabViewItem>(ObjectValue("here"));
    item->setLabel("In a page it stays as it is");
    item->setView(pane({ 500, 140 }, { "One", "Two", "Three" }));
    tabs->addTabViewItem(*item);
    auto const place = make<NSView>(tabs->frame()); // it would grow with the page
    place->addSubview(*tabs);
    form->addView(place);
    form->addRow("", { pushButton("Open a Window That Fits", [] {
        auto const window
            = make<NSWindow>(Rect { 0, 0, 400, 160 }, NSTitledWindowMask | NSClosableWindowMask, NSBackingStoreBuffered, false);
        window->setTitle("Settings");
        auto const fitting = make<PLIXTabView>(Rect { 0, 0, 400, 160 });
        for (auto const& [label, titles] :
            { std::pair { "Few", std::vector { "One" } }, { "Some", std::vector { "One", "Two", "Three" } },
                { "Many", std::vector { "One", "Two", "Three", "Four", "Five", "Six", "Seven" } } }) {
            auto const choice = make<PLIXTabViewItem>(ObjectValue(label));
            choice->setLabel(label);
            choice->setView(pane({ 380, 240 }, titles));
            fitting->addTabViewItem(*choice);
        }
        window->contentView()->addSubview(*fitting);
        window->center();
        fitting->resizeToFitContent();
        window->makeKeyAndOrderFront(nullptr);
    }) });
    form->addNote("Selecting a tab changes the window’s height, animated, so that the pane’s subviews just fit.");
    form->sizeToRows();
    return form;
}

Ref<NSView> makePLIXTabViewItemPage()
{
    auto const form = Form::page();
    auto const tabs = make<NSTabView>(Rect { 0, 0, 520, 150 });
    for (auto const& [label, picture] : { std::pair { "Documents", Icon::folder }, { "Music", Icon::note },
             { "Favourites", Icon::star }, { "Plain", Icon::disc } }) {
        auto const item = make<PLIXTabViewItem>(ObjectValue(label));
        item->setLabel(label);
        if (label != std::string_view("Plain"))
            item->setImage(icon(picture));
        item->setView(pane({ 500, 100 }, { "A choice", "Another choice" }));
        tabs->addTabViewItem(*item);
    }
    form->addView(tabs);
    form->addRow("Music", { checkBox("Has another picture", [tabs](bool isOn) {
        static_cast<PLIXTabViewItem*>(tabs->tabViewItemAtIndex(1))->setImage(icon(isOn ? Icon::disc : Icon::note));
    }) });
    form->addNote("The picture is as high as the label. An item may have a custom view, which a PLIXTabView sizes its window by.");
    form->sizeToRows();
    return form;
}

constexpr char source[] = "tabs_pages.cpp";
constexpr Page familyPages[] {
    { "NSTabView", "Tab view", controlsSection, source, makeNSTabViewPage },
    { "NSTabViewItem", "Tab", controlsSection, source, makeNSTabViewItemPage },
    { "PLIXTabView", "Tab view that fits its window", controlsSection, source, makePLIXTabViewPage },
    { "PLIXTabViewItem", "Tab with a picture", controlsSection, source, makePLIXTabViewItemPage },
};

}

std::span<Page const> tabsPages()
{
    return familyPages;
}

}

#pragma once

#include <plix/platform/appkit/MenuTracker.h>
#include <plix/platform/appkit/MenuView.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <tests/support/HeadlessTest.h>

#include <functional>
#include <string>
#include <vector>

namespace plix {

using Strings = std::vector<std::string>;

/// The target of items: notes the titles of those that were chosen, and refuses to enable what has the tag 99.
class MenuReceiver : public NSObject, public NSMenuValidation {
    PLIX_CLASS(MenuReceiver, NSObject);

public:
    void act(NSObject* sender);
    bool validateMenuItem(NSMenuItem& item) override { return item.tag() != 99; }
    Strings chosen;
};

/// A window whose view has a menu, and what a person does to it.
class MenuTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        receiver = make<MenuReceiver>();
        window = showWindow({ 100, 200, 400, 300 });
        view = window->contentView();
        menu = make<NSMenu>("Menu");
        menu->setAutoenablesItems(false);
        for (auto const* title : { "Apple", "Banana", "Cherry", "Date" })
            add(*menu, title);
        view->setMenu(menu);
    }
    Ref<NSMenuItem> add(NSMenu& to, std::string_view title)
    {
        auto item = to.addItemWithTitle(title, Selector("act:"), "");
        item->setTarget(Ref<NSObject>(receiver));
        return item;
    }
    Ref<NSMenu> addSubmenu(NSMenu& to, std::string_view title, std::vector<char const*> const& titles)
    {
        auto submenu = make<NSMenu>(title);
        submenu->setAutoenablesItems(false);
        for (auto const* each : titles)
            add(*submenu, each);
        to.addItemWithTitle(title, {}, "")->setSubmenu(submenu);
        return submenu;
    }

    static constexpr Point spot { 50, 250 };
    /// A click of the right button: the menu stays open behind it.
    void openByClick() { person().click(onScreen(*view, spot), { .button = 1 }); }
    /// Where an item is, as long as its menu is open.
    static Point placeOf(NSMenu const& shown, long index)
    {
        auto const* host = MenuTracker::windowOfMenu(shown);
        if (!host)
            return {};
        auto const rect = static_cast<MenuView*>(host->contentView())->rectOfItem(index);
        return onScreen(*host->contentView(), { rect.midX(), rect.midY() });
    }
    void clickItem(NSMenu const& shown, long index)
    {
        person().then([this, &shown, index] { person().click(placeOf(shown, index)); });
    }
    void hover(NSMenu const& shown, long index)
    {
        person().then([this, &shown, index] { person().moveMouse(placeOf(shown, index)); });
    }
    /// Says what is lit when its turn comes.
    void note(NSMenu const& shown)
    {
        person().then([this, &shown] {
            auto const* item = shown.highlightedItem();
            seen.push_back(!shown.isTracking() ? "closed" : item ? item->title() : "-");
        });
    }
    void press(char32_t key, unsigned modifiers = 0) { person().key(key, modifiers); }
    void dismiss()
    {
        person().key(NSEscapeCharacter);
        person().key(NSEscapeCharacter);
        person().key(NSEscapeCharacter);
    }
    /// After a wait, so that what waits for time takes place.
    void later(double seconds, std::function<void()> action) { machine().headlessEvents().postAfter(seconds, std::move(action)); }

    Ref<MenuReceiver> receiver;
    Ref<NSWindow> window;
    NSView* view { nullptr };
    Ref<NSMenu> menu;
    Strings seen;
};

}

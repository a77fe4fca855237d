#include <plix/format/menu_additions.h>

#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPopUpButton.h>

namespace plix {

void addItems(NSMenu& menu, std::optional<std::vector<Ref<NSMenuItem>>> const& items)
{
    if (!items)
        return;
    for (auto const& item : *items) {
        if (item)
            menu.addItem(*item);
    }
}

NSMenuItem* lastItem(NSMenu const& menu)
{
    return menu.numberOfItems() == 0 ? nullptr : menu.itemAtIndex(menu.numberOfItems() - 1);
}

NSMenuItem* itemWithTag(NSPopUpButton const& button, int tag)
{
    auto const* menu = button.menu();
    return menu ? menu->itemWithTag(tag) : nullptr;
}

bool selectItemWithTag(NSPopUpButton& button, int tag)
{
    long const index = button.indexOfItemWithTag(tag);
    if (index == -1)
        return false;
    button.selectItemAtIndex(index);
    return true;
}

void selectItemWithTagOrNone(NSPopUpButton& button, int tag)
{
    button.selectItem(itemWithTag(button, tag));
}

}

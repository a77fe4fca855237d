#include <plix/platform/appkit/NSPopUpButton.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPopUpButtonCell.h>
#include <plix/platform/foundation/NSCoder.h>

namespace plix {

PLIX_DESCRIBE(NSPopUpButton)
{
}

bool NSPopUpButton::init()
{
    return NSPopUpButton::init(Rect {}, false);
}

bool NSPopUpButton::init(Rect frame)
{
    return NSPopUpButton::init(frame, false);
}

bool NSPopUpButton::init(Rect frame, bool pullsDown)
{
    if (!Base::init(frame))
        return false;
    setPullsDown(pullsDown);
    return true;
}

bool NSPopUpButton::init(NSCoder& coder)
{
    return Base::init(coder);
}

Class const* NSPopUpButton::cellClass()
{
    return &NSPopUpButtonCell::staticClass();
}

NSPopUpButtonCell* NSPopUpButton::popUpCell() const
{
    return dynamic_cast<NSPopUpButtonCell*>(cell());
}

NSMenu* NSPopUpButton::menu() const
{
    auto const* cell = popUpCell();
    return cell ? cell->menu() : nullptr;
}

void NSPopUpButton::setMenu(Ref<NSMenu> const& menu)
{
    if (auto* cell = popUpCell())
        cell->setMenu(menu);
}

bool NSPopUpButton::pullsDown() const
{
    auto const* cell = popUpCell();
    return cell && cell->pullsDown();
}

void NSPopUpButton::setPullsDown(bool pullsDown)
{
    if (auto* cell = popUpCell())
        cell->setPullsDown(pullsDown);
}

bool NSPopUpButton::autoenablesItems() const
{
    auto const* cell = popUpCell();
    return cell && cell->autoenablesItems();
}

void NSPopUpButton::setAutoenablesItems(bool enables)
{
    if (auto* cell = popUpCell())
        cell->setAutoenablesItems(enables);
}

void NSPopUpButton::addItemWithTitle(std::string_view title)
{
    if (auto* cell = popUpCell())
        cell->addItemWithTitle(title);
}

void NSPopUpButton::addItemsWithTitles(std::vector<std::string> const& titles)
{
    if (auto* cell = popUpCell())
        cell->addItemsWithTitles(titles);
}

void NSPopUpButton::insertItemWithTitle(std::string_view title, long index)
{
    if (auto* cell = popUpCell())
        cell->insertItemWithTitle(title, index);
}

void NSPopUpButton::removeItemWithTitle(std::string_view title)
{
    if (auto* cell = popUpCell())
        cell->removeItemWithTitle(title);
}

void NSPopUpButton::removeItemAtIndex(long index)
{
    if (auto* cell = popUpCell())
        cell->removeItemAtIndex(index);
}

void NSPopUpButton::removeAllItems()
{
    if (auto* cell = popUpCell())
        cell->removeAllItems();
}

std::vector<Ref<NSMenuItem>> const& NSPopUpButton::itemArray() const
{
    static std::vector<Ref<NSMenuItem>> const s_none;
    auto const* cell = popUpCell();
    return cell ? cell->itemArray() : s_none;
}

long NSPopUpButton::numberOfItems() const
{
    return static_cast<long>(itemArray().size());
}

long NSPopUpButton::indexOfItem(NSMenuItem const* item) const
{
    auto const* cell = popUpCell();
    return cell ? cell->indexOfItem(item) : -1;
}

long NSPopUpButton::indexOfItemWithTitle(std::string_view title) const
{
    auto const* cell = popUpCell();
    return cell ? cell->indexOfItemWithTitle(title) : -1;
}

long NSPopUpButton::indexOfItemWithTag(long tag) const
{
    auto const* cell = popUpCell();
    return cell ? cell->indexOfItemWithTag(tag) : -1;
}

long NSPopUpButton::indexOfItemWithRepresentedObject(ObjectValue const& object) const
{
    auto const* cell = popUpCell();
    return cell ? cell->indexOfItemWithRepresentedObject(object) : -1;
}

NSMenuItem* NSPopUpButton::itemAtIndex(long index) const
{
    auto const* cell = popUpCell();
    return cell ? cell->itemAtIndex(index) : nullptr;
}

NSMenuItem* NSPopUpButton::itemWithTitle(std::string_view title) const
{
    return itemAtIndex(indexOfItemWithTitle(title));
}

NSMenuItem* NSPopUpButton::lastItem() const
{
    return itemAtIndex(numberOfItems() - 1);
}

std::vector<std::string> NSPopUpButton::itemTitles() const
{
    auto const* cell = popUpCell();
    return cell ? cell->itemTitles() : std::vector<std::string> {};
}

std::string NSPopUpButton::itemTitleAtIndex(long index) const
{
    auto const* cell = popUpCell();
    return cell ? cell->itemTitleAtIndex(index) : "";
}

NSMenuItem* NSPopUpButton::selectedItem() const
{
    auto const* cell = popUpCell();
    return cell ? cell->selectedItem() : nullptr;
}

long NSPopUpButton::indexOfSelectedItem() const
{
    return indexOfItem(selectedItem());
}

std::string NSPopUpButton::titleOfSelectedItem() const
{
    auto const* item = selectedItem();
    return item ? item->title() : "";
}

void NSPopUpButton::selectItem(NSMenuItem* item)
{
    if (auto* cell = popUpCell())
        cell->selectItem(item);
}

void NSPopUpButton::selectItemAtIndex(long index)
{
    if (auto* cell = popUpCell())
        cell->selectItemAtIndex(index);
}

void NSPopUpButton::selectItemWithTitle(std::string_view title)
{
    if (auto* cell = popUpCell())
        cell->selectItemWithTitle(title);
}

void NSPopUpButton::setTitle(std::string_view title)
{
    if (auto* cell = popUpCell())
        cell->setTitle(title);
}

void NSPopUpButton::synchronizeTitleAndSelectedItem()
{
    if (auto* cell = popUpCell())
        cell->synchronizeTitleAndSelectedItem();
}

long NSPopUpButton::selectedTag() const
{
    auto const* item = selectedItem();
    return item ? item->tag() : -1;
}

void NSPopUpButton::keyDown(NSEvent& event)
{
    auto const key = event.characterIgnoringModifiers();
    if (isEnabled() && (key == NSDownArrowFunctionKey || key == NSUpArrowFunctionKey))
        performClick(this);
    else
        Base::keyDown(event);
}

// Its menu belongs to the left button; the right one asks what is behind.
void NSPopUpButton::rightMouseDown(NSEvent& event)
{
    NSResponder::rightMouseDown(event);
}

// Keys of the items act while the menu is closed.
bool NSPopUpButton::performKeyEquivalent(NSEvent& event)
{
    Ref<NSMenu> const items(menu());
    if (isEnabled() && !isHiddenOrHasHiddenAncestor() && items) {
        for (auto const& item : items->itemArray()) {
            if (!item->keyEquivalent().empty())
                return items->performKeyEquivalent(event) || Base::performKeyEquivalent(event);
        }
    }
    return Base::performKeyEquivalent(event);
}

}

#pragma once

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSMenu.h>

namespace plix {

class NSPopUpButtonCell;

/// A button that shows a menu of choices, or one that pulls down; see NSPopUpButtonCell. Space and the arrow keys open it while it
/// has the keyboard.
class PLIX_EXPORT NSPopUpButton : public NSButton {
    PLIX_CLASS(NSPopUpButton, NSButton);

public:
    bool init();
    bool init(Rect frame);
    bool init(Rect frame, bool pullsDown);
    bool init(NSCoder&);

    static Class const* cellClass();
    Class const* ownCellClass() const override { return cellClass(); }

    // Those of the cell; see NSPopUpButtonCell.
    NSMenu* menu() const override;
    void setMenu(Ref<NSMenu> const&) override;
    bool pullsDown() const;
    void setPullsDown(bool);
    bool autoenablesItems() const;
    void setAutoenablesItems(bool);

    // Its items. A title that is there already is moved to the new place.
    void addItemWithTitle(std::string_view);
    void addItemsWithTitles(std::vector<std::string> const&);
    void insertItemWithTitle(std::string_view, long index);
    void removeItemWithTitle(std::string_view);
    void removeItemAtIndex(long index);
    void removeAllItems();
    std::vector<Ref<NSMenuItem>> const& itemArray() const;
    long numberOfItems() const;
    long indexOfItem(NSMenuItem const*) const;
    long indexOfItemWithTitle(std::string_view) const;
    long indexOfItemWithTag(long tag) const;
    long indexOfItemWithRepresentedObject(ObjectValue const&) const;
    NSMenuItem* itemAtIndex(long index) const;
    NSMenuItem* itemWithTitle(std::string_view) const;
    NSMenuItem* lastItem() const;
    std::vector<std::string> itemTitles() const;
    std::string itemTitleAtIndex(long index) const;

    // The chosen one; null, -1 or "" where there is none.
    NSMenuItem* selectedItem() const;
    long indexOfSelectedItem() const;
    std::string titleOfSelectedItem() const;
    void selectItem(NSMenuItem*);
    void selectItemAtIndex(long index);
    void selectItemWithTitle(std::string_view);
    void setTitle(std::string_view) override;
    void synchronizeTitleAndSelectedItem();
    long selectedTag() const override;

    // NSView:
    void keyDown(NSEvent&) override;
    void rightMouseDown(NSEvent&) override;
    bool performKeyEquivalent(NSEvent&) override;

private:
    NSPopUpButtonCell* popUpCell() const;
};

}

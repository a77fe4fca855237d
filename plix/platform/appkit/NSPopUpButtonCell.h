#pragma once

#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSMenuItem.h>

#include <vector>

namespace plix {

/// Where the arrow of a pop-up button without border is.
enum NSPopUpArrowPosition : int { NSPopUpNoArrow = 0, NSPopUpArrowAtCenter = 1, NSPopUpArrowAtBottom = 2 };

/// A button that shows a menu: of choices, one of which is selected and gives the title, or one that pulls down and whose first
/// item is the title. The wheel changes nothing. Choosing an item sends its action, or the cell's where it has none.
class PLIX_EXPORT NSPopUpButtonCell : public NSButtonCell {
    PLIX_CLASS(NSPopUpButtonCell, NSButtonCell);

public:
    NSPopUpButtonCell();
    ~NSPopUpButtonCell() override;
    bool init();
    /// With one item of that title, unless it is empty.
    bool init(std::string_view title, bool pullsDown);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    NSMenu* menu() const;
    /// Selects the first item of a menu of choices where nothing of it is selected.
    virtual void setMenu(Ref<NSMenu> const&);
    bool pullsDown() const { return m_pullsDown; }
    virtual void setPullsDown(bool);
    bool autoenablesItems() const;
    void setAutoenablesItems(bool);
    NSPopUpArrowPosition arrowPosition() const { return m_arrowPosition; }
    void setArrowPosition(NSPopUpArrowPosition);
    /// Whether the selected item has a check mark. True at first.
    bool altersStateOfSelectedItem() const { return m_altersState; }
    void setAltersStateOfSelectedItem(bool);
    NSRectEdge preferredEdge() const { return m_preferredEdge; }
    void setPreferredEdge(NSRectEdge edge) { m_preferredEdge = edge; }

    // Items. An item of a title that is there already takes the other's place.
    virtual void addItemWithTitle(std::string_view);
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
    long indexOfItemWithTarget(NSObject const* target, Selector action) const;
    /// Null outside.
    NSMenuItem* itemAtIndex(long index) const;
    NSMenuItem* itemWithTitle(std::string_view) const;
    NSMenuItem* lastItem() const;
    std::vector<std::string> itemTitles() const;
    std::string itemTitleAtIndex(long index) const;

    // Selection. Null, -1 or a title that is not there clears it.
    NSMenuItem* selectedItem() const;
    long indexOfSelectedItem() const;
    std::string titleOfSelectedItem() const;
    virtual void selectItem(NSMenuItem*);
    /// Raises NSRangeException beyond the last item.
    void selectItemAtIndex(long index);
    void selectItemWithTitle(std::string_view);
    /// Adds an item of that title where there is none.
    void setTitle(std::string_view) override;
    void synchronizeTitleAndSelectedItem();

    /// Shows the menu, follows mouse and keyboard, and does what choosing an item does.
    virtual void attachPopUpWithFrame(Rect frame, NSView& controlView, NSEvent*);
    void dismissPopUp();

    // NSCell:
    ObjectValue const& objectValue() const override;
    /// The number is the index of the selected item.
    void setObjectValue(ObjectValue) override;
    std::string const& stringValue() const override { return title(); }
    int intValue() const override { return static_cast<int>(indexOfSelectedItem()); }
    void setIntValue(int value) override { setObjectValue(value); }
    bool trackMouse(NSEvent&, Rect frame, NSView& controlView, bool untilMouseUp) override;
    void performClick(NSObject* sender) override;
    void setNextState() override { }
    Size cellSizeForBounds(Rect bounds) const override;
    void drawBezelWithFrame(Rect frame, NSView& controlView) override;
    NSMenu* menuForEvent(NSEvent&, Rect, NSView&) override { return nullptr; }

protected:
    CellInsets contentInsets() const override;
    void copyStateTo(NSObject& fresh) const override;

private:
    void watchMenu();
    void itemsChanged();
    void showTitle();
    void choose(NSMenuItem&);

    Ref<NSMenu> m_menu;
    Weak<NSMenuItem> m_selectedItem;
    mutable ObjectValue m_indexValue;
    NSPopUpArrowPosition m_arrowPosition { NSPopUpArrowAtCenter };
    NSRectEdge m_preferredEdge { NSMinYEdge };
    bool m_pullsDown { false };
    bool m_altersState { true };
    bool m_isEmpty { true };
};

}

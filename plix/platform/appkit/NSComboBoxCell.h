#pragma once

#include <plix/platform/appkit/NSComboBoxDataSource.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/base/HookSource.h>

#include <functional>
#include <vector>

namespace plix {

/// A text field's cell with a button that shows a list to choose from. Items are the cell's own, or come from a data source. The
/// wheel changes nothing while the list is closed.
class PLIX_EXPORT NSComboBoxCell : public NSTextFieldCell {
    PLIX_CLASS(NSComboBoxCell, NSTextFieldCell);

public:
    NSComboBoxCell();
    ~NSComboBoxCell() override;
    bool init();
    bool init(std::string_view text);
    /// With its own items.
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // The list's looks.
    bool hasVerticalScroller() const { return m_hasVerticalScroller; }
    void setHasVerticalScroller(bool has) { m_hasVerticalScroller = has; }
    Size intercellSpacing() const { return m_intercellSpacing; }
    void setIntercellSpacing(Size);
    float itemHeight() const { return m_itemHeight; }
    /// Less than 1 counts as 1.
    void setItemHeight(float);
    long numberOfVisibleItems() const { return m_visibleItems; }
    void setNumberOfVisibleItems(long);
    bool isButtonBordered() const { return m_isButtonBordered; }
    void setButtonBordered(bool);
    /// Whether what is typed is completed to an item that begins so.
    bool completes() const { return m_completes; }
    void setCompletes(bool completes) { m_completes = completes; }

    // A data source.
    bool usesDataSource() const { return m_usesDataSource; }
    void setUsesDataSource(bool);
    template <typename T> void setDataSource(Ref<T> const& source)
    {
        takeDataSource(HookSource::pack<NSComboBoxCellDataSource>(source));
    }
    void setDataSource(std::nullptr_t) { takeDataSource(HookSource {}); }
    void takeDataSource(HookSource const&);
    void reloadData();
    void noteNumberOfItemsChanged() { reloadData(); }

    // The own items. These raise std::logic_error while a data source is used, and NSRangeException for indexes outside.
    void addItemWithObjectValue(ObjectValue);
    void addItemsWithObjectValues(std::vector<ObjectValue> const&);
    void insertItemWithObjectValue(ObjectValue, long index);
    /// The first that is equal; nothing where there is none.
    void removeItemWithObjectValue(ObjectValue const&);
    void removeItemAtIndex(long index);
    void removeAllItems();
    std::vector<ObjectValue> const& objectValues() const;
    long indexOfItemWithObjectValue(ObjectValue const&) const;
    void selectItemWithObjectValue(ObjectValue const&);
    ObjectValue objectValueOfSelectedItem() const;

    // Whichever there are.
    long numberOfItems() const;
    ObjectValue itemObjectValueAtIndex(long index) const;
    /// As the list shows it.
    std::string textOfItem(long index) const;
    /// The selection of the list: it does not change the text. -1 for none.
    long indexOfSelectedItem() const { return m_selected; }
    virtual void selectItemAtIndex(long index);
    void deselectItemAtIndex(long index);
    /// Which item has the text, or -1.
    long indexOfItemWithText(std::string_view) const;
    std::optional<std::string> completedString(std::string_view typed) const;
    void scrollItemAtIndexToTop(long index);
    void scrollItemAtIndexToVisible(long index);

    // The list.
    /// Shows it below the cell and follows mouse and keyboard; the event is the press that opened it, or null. What is chosen
    /// becomes the cell's value, then its action is sent.
    virtual void popUpList(Rect frame, NSView& controlView, NSEvent*);
    bool isListOpen() const;
    /// In the control view's coordinates.
    virtual Rect buttonRectForBounds(Rect bounds) const;

    // NSCell:
    bool reactsToPointer() const override { return true; }
    Rect drawingRectForBounds(Rect bounds) const override;
    Size cellSizeForBounds(Rect bounds) const override;
    void drawWithFrame(Rect frame, NSView& controlView) override;
    void drawInteriorWithFrame(Rect frame, NSView& controlView) override;
    /// A press on the button opens the list.
    bool trackMouse(NSEvent&, Rect frame, NSView& controlView, bool untilMouseUp) override;
    void resetCursorRect(Rect frame, NSView& controlView) override;

protected:
    void copyStateTo(NSObject& fresh) const override;

private:
    friend class NSComboBox;

    struct Source {
        std::function<long()> count;
        std::function<ObjectValue(long)> value;
        std::function<long(std::string_view)> indexOf;
        std::function<std::optional<std::string>(std::string_view)> complete;
    };

    void askCellSource();
    void requireOwnItems(char const* operation) const;
    void tell(char const* name, Hook<void(NSNotification const&)> NSComboBoxDelegate::*hook);
    void choose(long index);

    std::vector<ObjectValue> m_items;
    Source m_source;
    NSComboBoxCellDataSource m_cellSource;
    Size m_intercellSpacing { 3, 2 };
    float m_itemHeight { 17 };
    long m_visibleItems { 5 };
    long m_selected { -1 };
    long m_firstShown { 0 };
    bool m_hasVerticalScroller { true };
    bool m_usesDataSource { false };
    bool m_isButtonBordered { true };
    bool m_completes { false };
    bool m_isButtonPressed { false };
    /// While what is given is the text's room alone.
    bool m_drawsInterior { false };
};

}

#pragma once

#include <plix/platform/appkit/NSComboBoxDataSource.h>
#include <plix/platform/appkit/NSTextField.h>

#include <vector>

namespace plix {

class NSComboBoxCell;

/// A text field with a list of what may be entered; see NSComboBoxCell. The down arrow opens the list, and the button does.
class PLIX_EXPORT NSComboBox : public NSTextField {
    PLIX_CLASS(NSComboBox, NSTextField);

public:
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);

    static Class const* cellClass();
    Class const* ownCellClass() const override { return cellClass(); }

    // Those of the cell.
    long numberOfVisibleItems() const;
    void setNumberOfVisibleItems(long);
    float itemHeight() const;
    void setItemHeight(float);
    bool hasVerticalScroller() const;
    void setHasVerticalScroller(bool);
    bool completes() const;
    void setCompletes(bool);
    bool usesDataSource() const;
    void setUsesDataSource(bool);
    void reloadData();
    void noteNumberOfItemsChanged() { reloadData(); }
    void addItemWithObjectValue(ObjectValue);
    void addItemsWithObjectValues(std::vector<ObjectValue> const&);
    void insertItemWithObjectValue(ObjectValue, long index);
    void removeItemWithObjectValue(ObjectValue const&);
    void removeItemAtIndex(long index);
    void removeAllItems();
    std::vector<ObjectValue> const& objectValues() const;
    long numberOfItems() const;
    ObjectValue itemObjectValueAtIndex(long index) const;
    long indexOfItemWithObjectValue(ObjectValue const&) const;
    long indexOfSelectedItem() const;
    void selectItemAtIndex(long index);
    void deselectItemAtIndex(long index);
    void selectItemWithObjectValue(ObjectValue const&);
    ObjectValue objectValueOfSelectedItem() const;
    void scrollItemAtIndexToVisible(long index);
    void scrollItemAtIndexToTop(long index);

    /// Held weakly.
    template <typename T> void setDataSource(Ref<T> const& source)
    {
        takeDataSource(HookSource::pack<NSComboBoxDataSource>(source));
    }
    void setDataSource(std::nullptr_t) { takeDataSource(HookSource {}); }
    void takeDataSource(HookSource const&);
    template <typename T> void setDelegate(Ref<T> const& delegate)
    {
        takeHooks(HookSource::pack<NSControlTextEditingDelegate, NSComboBoxDelegate>(delegate));
    }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    void takeHooks(HookSource const&) override;
    NSComboBoxDelegate const& comboDelegateHooks() const { return m_comboHooks; }

    // NSTextField:
    void textDidBeginEditing(NSNotification const&) override;
    void textDidChange(NSNotification const&) override;
    bool textViewDoCommandBySelector(NSTextView&, Selector) override;
    void mouseDown(NSEvent&) override;

private:
    NSComboBoxCell& comboCell() const;
    void completeTyped(NSText& editor);

    NSComboBoxDelegate m_comboHooks;
    NSComboBoxDataSource m_dataSource;
    std::string m_typedBefore;
    bool m_isCompleting { false };
};

}

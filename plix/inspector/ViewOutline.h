#pragma once

#include <plix/inspector/view_fields.h>
#include <plix/platform/base/Class.h>

#include <cstdint>
#include <functional>
#include <map>

namespace plix {

class NSCell;
class NSOutlineView;
class NSScrollView;
class NSTableColumn;
struct NSNotification;

/// An outline of views. It holds what was said of them, not the views.
class ViewOutline : public NSObject {
    PLIX_CLASS(ViewOutline, NSObject);

public:
    ViewOutline();
    ~ViewOutline() override;
    bool init();

    NSScrollView& scrollView() const { return *m_scrollView; }
    NSOutlineView& outline() const { return *m_outline; }
    ViewNode const& tree() const { return m_tree; }
    /// What is expanded and selected stays so where it is still there. A node without an identifier is an empty tree.
    void setTree(ViewNode);
    /// 0 where nothing is selected.
    std::uint64_t selectedView() const;
    /// Expands what is above it. Does nothing for a view that is not in the tree, and is not told to the function below.
    void selectView(std::uint64_t);
    /// Called when a person selects another line; 0 for none.
    void setSelected(std::function<void(std::uint64_t)> selected) { m_selected = std::move(selected); }

    // NSOutlineViewDataSource, NSOutlineViewDelegate:
    long numberOfChildrenOfItem(NSOutlineView&, NSObject*);
    Ref<NSObject> child(NSOutlineView&, long index, NSObject*);
    bool isItemExpandable(NSOutlineView&, NSObject*);
    ObjectValue objectValueForTableColumn(NSOutlineView&, NSTableColumn&, NSObject*);
    void willDisplayCell(NSOutlineView&, NSCell&, NSTableColumn&, NSObject*);
    void outlineViewSelectionDidChange(NSNotification const&);

private:
    class Item;
    Ref<Item> itemOf(ViewNode const&, std::map<std::uint64_t, Ref<Item>>& items) const;

    Ref<NSScrollView> m_scrollView;
    Ref<NSOutlineView> m_outline;
    ViewNode m_tree;
    Ref<Item> m_top;
    std::map<std::uint64_t, Ref<Item>> m_items;
    std::function<void(std::uint64_t)> m_selected;
    bool m_isQuiet { false };
};

}

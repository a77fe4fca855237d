#pragma once

#include <plix/platform/appkit/NSOutlineViewDataSource.h>
#include <plix/platform/appkit/NSOutlineViewDelegate.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/outline_tree.h>

namespace plix {

class NSButtonCell;

/// A table of items that have items below them: those that can be expanded have a triangle in the outline column, whose cells are
/// moved in by the item's level. Items are any objects, told apart by identity, and held while they are known; a null item is the
/// top. What is expanded stays so through reloads as long as the item is there.
class PLIX_EXPORT NSOutlineView : public NSTableView {
    PLIX_CLASS(NSOutlineView, NSTableView);

public:
    NSOutlineView();
    ~NSOutlineView() override;
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    template <typename T> void setDataSource(Ref<T> const& source)
    {
        takeDataSource(HookSource::pack<NSOutlineViewDataSource>(source));
    }
    void setDataSource(std::nullptr_t) { takeDataSource(HookSource {}); }
    void takeDataSource(HookSource const&) override;
    void setOutlineDataSourceHooks(NSOutlineViewDataSource);
    NSOutlineViewDataSource const& outlineDataSourceHooks() const { return m_sourceHooks; }

    template <typename T> void setDelegate(Ref<T> const& delegate)
    {
        takeHooks(HookSource::pack<NSOutlineViewDelegate, NSControlTextEditingDelegate>(delegate));
    }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    void takeHooks(HookSource const&) override;
    void setOutlineDelegateHooks(NSOutlineViewDelegate);
    NSOutlineViewDelegate const& outlineDelegateHooks() const { return m_hooks; }

    // Items and rows.
    NSObject* itemAtRow(long row) const override;
    /// -1 for an item that is not seen.
    long rowForItem(NSObject*) const;
    /// 0 for the topmost items, -1 outside.
    long levelForRow(long row) const;
    long levelForItem(NSObject*) const;
    /// Null for the topmost items.
    NSObject* parentForItem(NSObject*) const;
    bool isExpandable(NSObject* item) const;
    bool isItemExpanded(NSObject const* item) const { return m_tree.isExpanded(item); }

    // Expanding. The delegate may refuse.
    virtual void expandItem(NSObject* item);
    /// With all below it. Ends at a million items, so that an endless tree does end.
    virtual void expandItem(NSObject* item, bool expandChildren);
    virtual void collapseItem(NSObject* item);
    /// With all below it, so that expanding it again shows its children only.
    virtual void collapseItem(NSObject* item, bool collapseChildren);

    void reloadData() override;
    /// The item looks different, or has other children. Null is everything.
    virtual void reloadItem(NSObject* item, bool reloadChildren);
    void reloadItem(NSObject* item) { reloadItem(item, false); }

    // The outline column.
    /// The first column where none was set, or it is no longer there.
    NSTableColumn* outlineTableColumn() const;
    virtual void setOutlineTableColumn(NSTableColumn*);
    float indentationPerLevel() const { return m_indentationPerLevel; }
    void setIndentationPerLevel(float);
    /// Whether triangles are drawn, and can be clicked.
    bool drawsIndentationMarkers() const { return m_drawsMarkers; }
    void setDrawsIndentationMarkers(bool);
    /// Where an item's triangle is; the zero rectangle for rows without one.
    Rect frameOfOutlineCellAtRow(long row) const;
    /// The room for a triangle in front of the text, whether there is one or not.
    static constexpr float markerWidth() { return 16; }

    // Drops.
    /// For the data source while it validates a drop: where it goes instead.
    void setDropItem(NSObject* item, long dropChildIndex);
    /// Asked when a drag ends or leaves: whether what it opened by resting there is to be closed. Here: where nothing was dropped.
    virtual bool shouldCollapseAutoExpandedItemsForDeposited(bool deposited) { return !deposited; }

    // NSTableView:
    Rect frameOfCellAtColumn(long column, long row) const override;
    void drawRow(long row, Rect clipRect) override;
    void moveLeft(NSObject* sender) override;
    void moveRight(NSObject* sender) override;
    void removeTableColumn(NSTableColumn&) override;

    // Commands of the keyboard: with all below.
    void expandAllBelowSelection(NSObject* sender);
    void collapseAllBelowSelection(NSObject* sender);

protected:
    // NSTableView:
    long countOfRows() override;
    ObjectValue objectValueForCell(NSTableColumn&, long row) override;
    void takeObjectValue(ObjectValue, NSTableColumn&, long row) override;
    void tellWillDisplayCell(NSCell&, NSTableColumn&, long row) override;
    bool mayEdit(NSTableColumn&, long row) override;
    bool mayChangeSelection() override;
    bool maySelectRow(long row) override;
    std::optional<std::string> typeSelectString(NSTableColumn&, long row) override;
    bool canWriteRows() const override;
    bool writeRows(NSIndexSet const&, NSPasteboard&) override;
    unsigned validateDropAt(NSDraggingInfo&, RowDropPlace&) override;
    bool acceptDropAt(NSDraggingInfo&, RowDropPlace) override;
    void dragMovedTo(RowDropPlace, NSDraggingInfo&) override;
    void dragLeft(bool wasDropped) override;
    float dropMarkerOffset(RowDropPlace) const override;
    void tellSelectionChanged() override;
    void tellSelectionIsChanging() override;
    void tellColumnMoved(NSNotification const&) override;
    void tellColumnResized(NSNotification const&) override;
    bool trackRowDecoration(NSEvent&, long row) override;
    void tellHeaderPressed(NSTableColumn&) override;
    void tellHeaderClicked(NSTableColumn&) override;
    void tellHeaderDragged(NSTableColumn&) override;
    bool maySelectColumn(NSTableColumn&) override;
    bool hasCellToolTips() const override;
    std::string toolTipForCell(NSCell&, Rect&, NSTableColumn&, long row, Point mouse) override;

private:
    struct DropTarget {
        Ref<NSObject> item;
        long childIndex { NSOutlineViewDropOnItemIndex };
    };

    OutlineSource source();
    float indentationOfLevel(long level) const;
    void tellItem(char const* name, Hook<void(NSNotification const&)> const&, NSObject& item);
    bool openOne(NSObject& item);
    bool closeOne(NSObject& item);
    void rowsCame(long row, long count);
    void rowsWent(long row, long count);
    void drawMarker(long row, NSObject& item);
    DropTarget dropTargetAt(RowDropPlace, float x) const;
    RowDropPlace placeOfDrop(DropTarget const&) const;
    std::vector<std::pair<long, Ref<NSObject>>> selectedItems() const;
    void selectItemsAgain(std::vector<std::pair<long, Ref<NSObject>>> const&);

    /// Asking for a row's item may be the first time that it is reached.
    mutable OutlineTree m_tree;
    NSOutlineViewDataSource m_sourceHooks;
    NSOutlineViewDelegate m_hooks;
    Weak<NSTableColumn> m_outlineColumn;
    Ref<NSButtonCell> m_markerCell;
    Weak<NSObject> m_pressedItem;
    float m_indentationPerLevel { 16 };
    bool m_drawsMarkers { true };
    bool m_isReloading { false };
    std::optional<DropTarget> m_wantedDrop;
    DropTarget m_drop;
    Ref<NSObject> m_restedOn;
    double m_restsSince { 0 };
    std::vector<Ref<NSObject>> m_autoExpanded;
};

// Posted with the outline as object.
inline constexpr char const* NSOutlineViewSelectionDidChangeNotification = "NSOutlineViewSelectionDidChangeNotification";
inline constexpr char const* NSOutlineViewSelectionIsChangingNotification = "NSOutlineViewSelectionIsChangingNotification";
inline constexpr char const* NSOutlineViewColumnDidMoveNotification = "NSOutlineViewColumnDidMoveNotification";
inline constexpr char const* NSOutlineViewColumnDidResizeNotification = "NSOutlineViewColumnDidResizeNotification";
// With the item as "NSObject" in the user info.
inline constexpr char const* NSOutlineViewItemWillExpandNotification = "NSOutlineViewItemWillExpandNotification";
inline constexpr char const* NSOutlineViewItemDidExpandNotification = "NSOutlineViewItemDidExpandNotification";
inline constexpr char const* NSOutlineViewItemWillCollapseNotification = "NSOutlineViewItemWillCollapseNotification";
inline constexpr char const* NSOutlineViewItemDidCollapseNotification = "NSOutlineViewItemDidCollapseNotification";

}

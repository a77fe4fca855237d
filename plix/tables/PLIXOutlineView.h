#pragma once

#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/tables/PLIXOutlineViewDelegate.h>
#include <plix/tables/StyledTable.h>

#include <vector>

namespace plix {

extern template class PLIX_EXPORT StyledTable<NSOutlineView>;

/// An outline with the library's looks and keys, which StyledTable describes. Its selection may follow the indentation of rows, its
/// disclosure images are "expanded" and "collapsed" unless the delegate has others, and it turns grey as a whole while it is
/// disabled.
class PLIX_EXPORT PLIXOutlineView : public StyledTable<NSOutlineView> {
    PLIX_CLASS(PLIXOutlineView, StyledTable<NSOutlineView>);

public:
    PLIXOutlineView();
    ~PLIXOutlineView() override;
    bool init();
    bool init(Rect frame);
    /// From an interface file, unlike one made in code, it collapses after a successful drop what the drag has expanded.
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    template <typename T> void setDelegate(Ref<T> const& delegate)
    {
        takeHooks(HookSource::pack<NSOutlineViewDelegate, NSControlTextEditingDelegate, PLIXOutlineViewDelegate>(delegate));
    }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    /// Hooks without an object behind them, such as lambdas.
    void setOutlineDelegateHooks(PLIXOutlineViewDelegate);

    /// What shouldCollapseAutoExpandedItemsForDeposited() answers after a drop, and after one that failed or was cancelled.
    void setShouldCollapseAutoExpandedItemsForDeposits(bool collapses) { m_shouldCollapseForDeposits = collapses; }
    void setShouldCollapseAutoExpandedItemsForFailedDeposits(bool collapses) { m_shouldCollapseForFailedDeposits = collapses; }
    /// Whether items have disclosure images, and clicks are taken as they come, where the delegate does not decide. Plain stores
    /// without redisplay.
    bool showsIndentationMarker() const { return m_showsIndentationMarker; }
    void setShowsIndentationMarker(bool shows) { m_showsIndentationMarker = shows; }
    /// Whether the highlight of a selected row begins where its content does. A plain store without redisplay.
    bool highlightFollowsIndentation() const { return m_highlightFollowsIndentation; }
    void setHighlightFollowsIndentation(bool follows) { m_highlightFollowsIndentation = follows; }

    /// Keeps the colours of the columns' text field cells, and whether the scroll view's scrollers are enabled.
    void saveState();
    /// Disabling saves the state, then makes text and background grey and the scrollers disabled; enabling brings the saved state
    /// back. Nothing where it is so already.
    void setEnabled(bool) override;
    /// Lays out as tile() does, and logs the number of rows; for hunting down faults.
    void tile2();
    /// For outlines that are their own delegate; does nothing.
    void willDisplayOutlineCell(NSOutlineView&, NSCell&, NSTableColumn&, NSObject* /*item*/) { }

    // NSResponder, NSView:
    /// While it is enabled.
    bool acceptsFirstResponder() const override;
    /// Nothing while it is disabled. A click on an item without disclosure image counts 20 points farther right.
    void mouseDown(NSEvent&) override;
    /// Selects the row under the pointer, unless it is selected, before the menu is shown.
    void rightMouseDown(NSEvent&) override;
    void drawRect(Rect) override;

    // NSTableView, NSOutlineView:
    void takeHooks(HookSource const&) override;
    void drawRow(long row, Rect clipRect) override;
    void editColumn(long column, long row, NSEvent*, bool select) override;
    bool shouldCollapseAutoExpandedItemsForDeposited(bool deposited) override;

    // StyledTable:
    /// Ignored also for the only column. The outline column's place is taken by column 0, or 1 where that is the one hidden.
    void hideColumn(long column) override;

protected:
    void tellReturnKey() override;
    void tellDeleteBackward() override;
    void tellArrowKeyChangedSelection(NSNotification const&) override;
    Ref<NSImage> customHighlightImage(long row) override;
    int highlightIndentation(long row) override;
    HighlightImage dropHighlightImage(long row) override;
    FirstColumn firstColumn() const override;
    void selectForMenu(long row) override;

private:
    bool showsMarkerForItem(NSObject* item);
    Ref<NSImage> indicatorForItem(NSObject* item);
    void drawIndicator(NSImage const&, long row) const;
    void enableScrollers(bool areEnabled);

    PLIXOutlineViewDelegate m_hooks;
    std::vector<Ref<NSColor>> m_saveTextColors;
    std::vector<Ref<NSColor>> m_saveBackgroundColors;
    bool m_saveVerticalScrollerEnabled { false };
    bool m_saveHorizontalScrollerEnabled { false };
    bool m_shouldCollapseForDeposits { false };
    bool m_shouldCollapseForFailedDeposits { true };
    bool m_showsIndentationMarker { true };
    bool m_highlightFollowsIndentation { true };
};

}

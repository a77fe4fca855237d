#pragma once

#include <plix/platform/appkit/NSView.h>

namespace plix {

class NSTableColumn;
class NSTableView;

/// The headers of a table's columns, in the table's horizontal coordinates. A click on one tells the table; its right edge is
/// dragged to resize the column, the header itself to move it.
class PLIX_EXPORT NSTableHeaderView : public NSView {
    PLIX_CLASS(NSTableHeaderView, NSView);

public:
    NSTableHeaderView();
    ~NSTableHeaderView() override;
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
    /// In points.
    static float standardHeight();

    /// Null while no table has it.
    NSTableView* tableView() const { return m_tableView; }
    /// For the table that takes it or lets it go.
    virtual void setTableView(NSTableView* table) { m_tableView = table; }

    /// In the header's coordinates; the zero rectangle outside.
    virtual Rect headerRectOfColumn(long column) const;
    virtual long columnAtPoint(Point) const;
    /// While a column is moved: its index, and how far from its place it is shown. -1 and 0 otherwise.
    long draggedColumn() const { return m_draggedColumn; }
    float draggedDistance() const { return m_draggedDistance; }
    /// -1 while none is being resized.
    long resizedColumn() const { return m_resizedColumn; }
    /// Told by the table after its columns, their widths or their order changed.
    void columnsChanged();

    /// Whether a right click offers a menu that hides and shows columns, where the view has no menu of its own. False at first. The
    /// last column that is seen can't be hidden so.
    bool offersColumnMenu() const { return m_offersColumnMenu; }
    void setOffersColumnMenu(bool offers) { m_offersColumnMenu = offers; }

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    bool mouseDownCanMoveWindow() const override { return false; }
    void drawRect(Rect) override;
    void resetCursorRects() override;
    void mouseDown(NSEvent&) override;
    NSMenu* menuForEvent(NSEvent&) override;

private:
    long dividerAt(float x) const;
    void drawHeader(long column, Rect);
    void resizeColumn(NSEvent& press, long column);
    void pressColumn(NSEvent& press, long column);
    void dragColumn(NSEvent& press, NSTableColumn&);
    void setPressedColumn(NSTableColumn*);

    NSTableView* m_tableView { nullptr };
    Ref<NSMenu> m_columnMenu;
    Weak<NSTableColumn> m_pressedColumn;
    std::vector<NSToolTipTag> m_toolTips;
    long m_draggedColumn { -1 };
    long m_resizedColumn { -1 };
    float m_draggedDistance { 0 };
    bool m_offersColumnMenu { false };
};

/// What fills the corner beside the header, above the vertical scroller.
class PLIX_EXPORT NSTableCornerView : public NSView {
    PLIX_CLASS(NSTableCornerView, NSView);

public:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    bool mouseDownCanMoveWindow() const override { return false; }
    void drawRect(Rect) override;
};

}

#pragma once

#include <plix/platform/appkit/LongDocument.h>
#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/NSControlTextEditingDelegate.h>
#include <plix/platform/appkit/NSTableViewDataSource.h>
#include <plix/platform/appkit/NSTableViewDelegate.h>
#include <plix/platform/appkit/ScrollHeader.h>
#include <plix/platform/appkit/TypeAhead.h>
#include <plix/platform/appkit/column_layout.h>
#include <plix/platform/appkit/row_layout.h>
#include <plix/platform/appkit/row_selection.h>
#include <plix/platform/base/HookSource.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace plix {

class NSTableColumn;
class FieldEditing;
class NSClipView;
class NSTableHeaderView;
class NSTextView;
struct ControlLook;

/// Which lines are drawn between cells.
enum NSTableViewGridLineStyle : unsigned {
    NSTableViewGridNone = 0,
    NSTableViewSolidVerticalGridLineMask = 1,
    NSTableViewSolidHorizontalGridLineMask = 2,
};

/// Rows and columns of values, each drawn by its column's cell when it comes into view: the work for a frame depends on the rows
/// that are visible, not on the rows there are. Belongs into a scroll view, which also shows its header. Flipped; row 0 is at the
/// top. Rectangles are in the table's coordinates. Indexes of rows and columns outside the table are ignored, or answered with
/// -1, null or the zero rectangle.
///
/// Very many rows are shown a stretch at a time: y = 0 is the top of that stretch, which moves along as the table is scrolled, so
/// that rectangles of rows near those in view are exact however many there are. Keep rows, not rectangles, across scrolling.
///
/// Values come from a data source, decisions from a delegate; both are held weakly, and may reload, close or let go of the table
/// in whatever they are asked.
class PLIX_EXPORT NSTableView : public NSControl, public ScrollHeader, public LongDocument {
    PLIX_CLASS(NSTableView, NSControl);

public:
    NSTableView();
    ~NSTableView() override;
    bool init();
    /// With a header, rows of 16 points, 3 x 2 points between the cells, single selection that may be empty.
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    static Class const* cellClass();
    Class const* ownCellClass() const override { return cellClass(); }

    // --- data source and delegate ---

    template <typename T> void setDataSource(Ref<T> const& source)
    {
        takeDataSource(HookSource::pack<NSTableViewDataSource>(source));
    }
    void setDataSource(std::nullptr_t) { takeDataSource(HookSource {}); }
    virtual void takeDataSource(HookSource const&);
    /// Hooks without an object behind them, such as lambdas.
    void setDataSourceHooks(NSTableViewDataSource);
    NSObject* dataSource() const { return m_dataSource.object(); }
    NSTableViewDataSource const& dataSourceHooks() const { return m_dataSourceHooks; }

    /// Takes those about editing text too.
    template <typename T> void setDelegate(Ref<T> const& delegate)
    {
        takeHooks(HookSource::pack<NSTableViewDelegate, NSControlTextEditingDelegate>(delegate));
    }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    virtual void takeHooks(HookSource const&);
    void setDelegateHooks(NSTableViewDelegate);
    NSObject* delegate() const { return m_delegate.object(); }
    NSTableViewDelegate const& delegateHooks() const { return m_delegateHooks; }

    /// Everything may have changed. Selection and scroll position stay as far as there are rows for them.
    virtual void reloadData();
    /// The number of rows may have changed; rows that were there are as they were.
    virtual void noteNumberOfRowsChanged();

    // --- columns ---

    // Columns from left to right, which the table holds.
    std::vector<Ref<NSTableColumn>> const& tableColumns() const { return m_columns; }
    long numberOfColumns() const { return static_cast<long>(m_columns.size()); }
    virtual void addTableColumn(NSTableColumn&);
    virtual void removeTableColumn(NSTableColumn&);
    /// Moves a column to another place; those between make room.
    virtual void moveColumn(long column, long toColumn);
    /// The first column with an equal identifier; -1 or null where there is none.
    long columnWithIdentifier(ObjectValue const& identifier) const;
    NSTableColumn* tableColumnWithIdentifier(ObjectValue const& identifier) const;
    /// -1 for another table's column.
    long columnWithTableColumn(NSTableColumn const&) const;
    bool allowsColumnReordering() const { return m_flags.allowsColumnReordering; }
    void setAllowsColumnReordering(bool);
    bool allowsColumnResizing() const { return m_flags.allowsColumnResizing; }
    void setAllowsColumnResizing(bool);
    bool allowsColumnSelection() const { return m_flags.allowsColumnSelection; }
    void setAllowsColumnSelection(bool);
    NSTableViewColumnAutoresizingStyle columnAutoresizingStyle() const { return m_columnAutoresizingStyle; }
    void setColumnAutoresizingStyle(NSTableViewColumnAutoresizingStyle);
    /// The same as uniform or last-column-only resizing.
    bool autoresizesAllColumnsToFit() const;
    void setAutoresizesAllColumnsToFit(bool);
    /// Makes the columns together as wide as the scroll view shows.
    void sizeToFit() override;
    virtual void sizeLastColumnToFit();

    // What stands above the columns.
    NSView* headerView() const override;
    NSTableHeaderView* tableHeaderView() const { return m_headerView.get(); }
    /// Null for a table without header.
    virtual void setHeaderView(Ref<NSTableHeaderView> const&);
    NSView* cornerView() const override;
    virtual void setCornerView(Ref<NSView> const&);
    /// Shown in the column's header, at its right end.
    NSImage* indicatorImageInTableColumn(NSTableColumn const&) const;
    virtual void setIndicatorImage(Ref<NSImage> const&, NSTableColumn&);
    /// The column whose header looks chosen, as that of the column that rows are sorted by. Null for none.
    NSTableColumn* highlightedTableColumn() const { return m_highlightedColumn.get(); }
    void setHighlightedTableColumn(NSTableColumn*);

    // --- looks ---

    float rowHeight() const { return m_rows.rowHeight; }
    /// Without the space between rows. What is no positive number leaves it as it is.
    virtual void setRowHeight(float);
    Size intercellSpacing() const { return m_intercellSpacing; }
    virtual void setIntercellSpacing(Size);
    NSColor* backgroundColor() const { return m_backgroundColor.get(); }
    void setBackgroundColor(Ref<NSColor> const&);
    bool usesAlternatingRowBackgroundColors() const { return m_flags.usesAlternatingRowBackgroundColors; }
    void setUsesAlternatingRowBackgroundColors(bool);
    unsigned gridStyleMask() const { return m_gridStyleMask; }
    void setGridStyleMask(unsigned);
    NSColor* gridColor() const { return m_gridColor.get(); }
    void setGridColor(Ref<NSColor> const&);

    // --- geometry ---

    /// Asked of the data source at reloadData() and noteNumberOfRowsChanged().
    virtual long numberOfRows() const;
    /// Height and width with the space around the cells.
    Rect rectOfColumn(long column) const;
    virtual Rect rectOfRow(long row) const;
    NSRange rowsInRect(Rect) const;
    /// The columns that a rectangle touches, hidden ones between them included.
    NSRange columnsInRect(Rect) const;
    long rowAtPoint(Point) const;
    long columnAtPoint(Point) const;
    virtual Rect frameOfCellAtColumn(long column, long row) const;
    void scrollRowToVisible(long row);
    void scrollColumnToVisible(long column);
    /// Sets the table's and the header's size by columns, rows and the room in the scroll view.
    virtual void tile();

    // --- selection ---

    // What may be selected, and what is.
    bool allowsMultipleSelection() const { return m_flags.allowsMultipleSelection; }
    void setAllowsMultipleSelection(bool);
    bool allowsEmptySelection() const { return m_flags.allowsEmptySelection; }
    void setAllowsEmptySelection(bool);
    NSIndexSet const& selectedRowIndexes() const { return m_selection.rows; }
    /// Neither this nor the others that programs call ask the delegate; a change is posted as
    /// NSTableViewSelectionDidChangeNotification.
    virtual void selectRowIndexes(NSIndexSet const&, bool byExtendingSelection);
    void selectRow(long row, bool byExtendingSelection);
    void deselectRow(long row);
    /// The row that was selected last, or another selected one; -1 for none.
    long selectedRow() const;
    bool isRowSelected(long row) const { return m_selection.rows.containsIndex(row); }
    long numberOfSelectedRows() const { return m_selection.rows.count(); }
    NSIndexSet const& selectedColumnIndexes() const { return m_selectedColumns; }
    virtual void selectColumnIndexes(NSIndexSet const&, bool byExtendingSelection);
    void selectColumn(long column, bool byExtendingSelection);
    void deselectColumn(long column);
    long selectedColumn() const;
    bool isColumnSelected(long column) const { return m_selectedColumns.containsIndex(column); }
    long numberOfSelectedColumns() const { return m_selectedColumns.count(); }
    void selectAll(NSObject* sender);
    void deselectAll(NSObject* sender);

    // --- clicks ---

    /// Where the last click was; -1 outside. Valid while the action is sent.
    long clickedRow() const { return m_clickedRow; }
    long clickedColumn() const { return m_clickedColumn; }
    /// Sent to the target at a double click on what is not edited.
    Selector doubleAction() const { return m_doubleAction; }
    void setDoubleAction(Selector);
    using DoubleActionFunction = std::function<void(NSTableView&)>;
    /// Called in the double action's place; null for none.
    void setDoubleActionFunction(DoubleActionFunction);

    // --- editing in place ---

    /// The cell that is edited; -1 for none.
    long editedRow() const { return m_editedRow; }
    long editedColumn() const { return m_editedColumn; }
    /// Puts the field editor into a cell of a selected row, with all of its text selected or the caret where the event is.
    virtual void editColumn(long column, long row, NSEvent*, bool select);

    // --- dragging ---

    // Whether a drag may begin so, and with these rows.
    bool verticalMotionCanBeginDrag() const { return m_flags.verticalMotionCanBeginDrag; }
    void setVerticalMotionCanBeginDrag(bool);
    virtual bool canDragRowsWithIndexes(NSIndexSet const&, Point mouseDownPoint);
    /// What is shown under the pointer; `offset` takes the distance of the image's centre from it.
    virtual Ref<NSImage> dragImageForRowsWithIndexes(
        NSIndexSet const&, std::vector<Ref<NSTableColumn>> const& tableColumns, NSEvent&, Point& offset);
    virtual Ref<NSImage> dragImageForRows(std::vector<long> const& rows, NSEvent&, Point& dragImageOffset);
    void setDraggingSourceOperationMask(unsigned mask, bool forLocal);
    /// For the data source while it validates a drop: where it goes instead. Row -1 with NSTableViewDropOn is the whole table.
    void setDropRow(long row, NSTableViewDropOperation);

    // --- columns kept in the user's defaults ---

    std::string const& autosaveName() const { return m_autosaveName; }
    /// Restores what is saved under the name where autosaveTableColumns() is on.
    void setAutosaveName(std::string);
    bool autosaveTableColumns() const { return m_flags.autosaveTableColumns; }
    void setAutosaveTableColumns(bool);

    // --- drawing, in this order; `clipRect` is what is dirty ---

    // The parts of drawRect().
    virtual void drawBackgroundInClipRect(Rect clipRect);
    virtual void highlightSelectionInClipRect(Rect clipRect);
    virtual void drawGridInClipRect(Rect clipRect);
    virtual void drawRow(long row, Rect clipRect);
    /// -1 is the whole table.
    virtual void _drawDropHighlightOnRow(long row);
    virtual void _drawDropHighlightBetweenUpperRow(long upperRow, long lowerRow, float offset);
    /// What the cells of selected rows are filled with; null leaves the row's highlight to be seen.
    virtual Ref<NSColor> _highlightColorForCell(NSCell&);
    /// The cell with the row's value in it, as it is drawn. Null outside.
    virtual NSCell* preparedCellAtColumn(long column, long row);
    /// Whether the table has the keyboard, or an editor in it does, and its window takes it.
    ControlLook selectionLook() const;
    /// The pictures and text of these rows, as far as they are in view, in their place: the rectangle is where. Null where none is.
    Ref<NSImage> imageOfRows(NSIndexSet const& rows, Rect& place);

    // --- outlines ---

    /// Null in a table that is no outline.
    virtual NSObject* itemAtRow(long /*row*/) const { return nullptr; }

    // --- commands of the keyboard ---

    // What the keys do.
    void moveUp(NSObject* sender);
    void moveDown(NSObject* sender);
    void moveUpAndModifySelection(NSObject* sender);
    void moveDownAndModifySelection(NSObject* sender);
    void pageUp(NSObject* sender);
    void pageDown(NSObject* sender);
    void pageUpAndModifySelection(NSObject* sender);
    void pageDownAndModifySelection(NSObject* sender);
    void moveToBeginningOfDocument(NSObject* sender);
    void moveToEndOfDocument(NSObject* sender);
    void moveToBeginningOfDocumentAndModifySelection(NSObject* sender);
    void moveToEndOfDocumentAndModifySelection(NSObject* sender);
    virtual void moveLeft(NSObject* sender);
    virtual void moveRight(NSObject* sender);
    virtual void cancelOperation(NSObject* sender);
    virtual void insertNewline(NSObject* sender);
    void insertTab(NSObject* sender);
    void insertBacktab(NSObject* sender);

    // NSResponder, NSView, NSControl:
    void insertText(std::string_view) override;
    void keyDown(NSEvent&) override;
    void mouseDown(NSEvent&) override;
    bool isOpaque() const override;
    void drawRect(Rect) override;
    void setFrameSize(Size) override;
    void resizeWithOldSuperviewSize(Size) override;
    void viewDidMoveToSuperview() override;
    bool becomeFirstResponder() override;
    bool resignFirstResponder() override;
    void updateCell(NSCell&) override;
    /// Also places the tool tips of the cells that are seen, where the delegate has some.
    void resetCursorRects() override;
    void setEnabled(bool) override;
    NSCell* selectedCell() const override;
    bool abortEditing() override;
    void validateEditing() override;
    NSMenu* menuForEvent(NSEvent&) override;
    void viewWillMoveToWindow(NSWindow*) override;
    unsigned draggingSourceOperationMaskForLocal(bool isLocal) override;
    unsigned draggingEntered(NSDraggingInfo&) override;
    unsigned draggingUpdated(NSDraggingInfo&) override;
    void draggingExited(NSDraggingInfo*) override;
    bool prepareForDragOperation(NSDraggingInfo&) override;
    bool performDragOperation(NSDraggingInfo&) override;
    void concludeDragOperation(NSDraggingInfo*) override;

    // ScrollHeader, LongDocument: see above and there.
    double documentLength() const override;
    double documentOffset() const override;
    void scrollDocumentTo(double place) override;
    void documentScrolled() override;

    // As the delegate of the editor in a cell:
    virtual bool textShouldBeginEditing(NSText&);
    virtual bool textShouldEndEditing(NSText&);
    virtual void textDidBeginEditing(NSNotification const&);
    virtual void textDidEndEditing(NSNotification const&);
    virtual void textDidChange(NSNotification const&);
    virtual bool shouldChangeTextInRange(NSTextView&, NSRange, std::string_view replacement);
    virtual bool textViewDoCommandBySelector(NSTextView&, Selector);

    /// What the data source has for a row in this column, nil where it has none; not kept.
    virtual ObjectValue objectValueForCell(NSTableColumn&, long row);

    // For columns and headers:
    void columnLooksChanged(NSTableColumn&);
    void columnWidthChanged(NSTableColumn&, float oldWidth);
    void columnLayoutChanged(NSTableColumn&);
    /// A click on a header, after the mouse was released over it.
    void headerClicked(NSTableColumn&, NSEvent&);
    void headerPressed(NSTableColumn&);
    void headerDragged(NSTableColumn&);

protected:
    // What outlines answer from items instead of row numbers. Each asks the data source or delegate, and answers what holds where
    // that has no such hook.
    virtual long countOfRows();
    virtual void takeObjectValue(ObjectValue, NSTableColumn&, long row);
    virtual void tellWillDisplayCell(NSCell&, NSTableColumn&, long row);
    virtual bool mayEdit(NSTableColumn&, long row);
    virtual bool mayChangeSelection();
    virtual bool maySelectRow(long row);
    virtual std::optional<std::string> typeSelectString(NSTableColumn&, long row);
    virtual bool writeRows(NSIndexSet const&, NSPasteboard&);
    virtual unsigned validateDropAt(NSDraggingInfo&, RowDropPlace&);
    virtual bool acceptDropAt(NSDraggingInfo&, RowDropPlace);
    /// Told where a drag is now; outlines open what it rests on.
    virtual void dragMovedTo(RowDropPlace, NSDraggingInfo&) { }
    virtual void dragLeft(bool /*wasDropped*/) { }
    /// How far a drop marker above a row is moved in.
    virtual float dropMarkerOffset(RowDropPlace) const { return 0; }
    virtual bool maySelectColumn(NSTableColumn&);
    virtual bool hasCellToolTips() const;
    virtual std::string toolTipForCell(NSCell&, Rect&, NSTableColumn&, long row, Point mouse);
    virtual void tellHeaderPressed(NSTableColumn&);
    virtual void tellHeaderClicked(NSTableColumn&);
    virtual void tellHeaderDragged(NSTableColumn&);
    virtual void tellSelectionChanged();
    virtual void tellSelectionIsChanging();
    virtual void tellColumnMoved(NSNotification const&);
    virtual void tellColumnResized(NSNotification const&);
    /// Called where the click is in what belongs to the row but not to its cells; true where that took it.
    virtual bool trackRowDecoration(NSEvent&, long /*row*/) { return false; }
    /// Whether a drag of rows may begin: a data source has the hook for it.
    virtual bool canWriteRows() const;

    /// What a person's change goes through: the delegate is asked, and told.
    void changeSelection(RowSelection const&);
    /// Rows moved away under a selection that follows them.
    void replaceSelectionQuietly(RowSelection);
    RowSelection const& rowSelection() const { return m_selection; }
    RowLayout const& rowLayout() const { return m_rows; }
    void markRows(NSRange);
    void markRowsFrom(long row);

private:
    struct Flags {
        bool allowsColumnReordering : 1 = true;
        bool allowsColumnResizing : 1 = true;
        bool allowsColumnSelection : 1 = false;
        bool allowsMultipleSelection : 1 = false;
        bool allowsEmptySelection : 1 = true;
        bool usesAlternatingRowBackgroundColors : 1 = false;
        bool verticalMotionCanBeginDrag : 1 = true;
        bool autosaveTableColumns : 1 = false;
        bool isTiling : 1 = false;
        bool isTileNeeded : 1 = false;
        bool isRestoringColumns : 1 = false;
        bool hasRowCount : 1 = false;
        bool isMovingStretch : 1 = false;
    };

    std::vector<float> const& columnEdges() const;
    float columnsWidth() const { return static_cast<float>(m_columnsWidth); }
    double widthWithSpace(NSTableColumn const&) const;
    void measureColumns();
    float roomForColumns() const;
    void fitColumns(float room);
    void columnsChanged();
    NSTableColumn* columnAt(long) const;
    void setUpLooks();
    void updateRowCount();
    long firstRowInView() const;
    void prepareCell(NSCell&, NSTableColumn&, long row);
    void markSelectionChanges(NSIndexSet const& before);
    void setSelection(RowSelection);
    void moveSelection(long distance, SelectionChange);
    void moveSelectionTo(long row, long step, SelectionChange);
    long rowsInPage() const;
    void selectByClick(NSEvent&, long row);
    bool trackCell(NSEvent&, long column, long row);
    void trackSelection(NSEvent&, long row, bool isPendingCollapse);
    bool beginDrag(NSEvent& press, NSEvent& drag, long row);
    bool sendDoubleAction();
    bool beginEditing(long column, long row, NSEvent*, bool select);
    bool canEdit(long column, long row);
    struct CellPlace {
        long column { 0 };
        long row { 0 };
    };
    std::optional<CellPlace> cellToEditAfter(int movement, long column, long row);
    void goOnEditingAfter(int movement, long column, long row);
    void forgetEdit();
    void placeEditor();
    FieldEditing fieldEditing() const;
    void setDropPlace(std::optional<RowDropPlace>);
    unsigned proposeDrop(NSDraggingInfo&);
    void scrollForDrag(Point);
    void markDropPlace();
    void saveColumns();
    void restoreColumns();
    RowSelectionRules selectionRules() const;
    void passKeyOn();
    std::string toolTipAt(long column, long row);
    void moveStretch(long firstRow);
    NSClipView* clipView() const;
    bool typesSelectionOf(std::string_view wanted, long row);

    std::vector<Ref<NSTableColumn>> m_columns;
    mutable std::vector<float> m_columnEdges;
    /// Kept up to date without looking at all columns.
    double m_columnsWidth { 0 };
    Ref<NSTableHeaderView> m_headerView;
    Ref<NSView> m_cornerView;
    std::vector<std::pair<Weak<NSTableColumn>, Ref<NSImage>>> m_indicatorImages;
    Weak<NSTableColumn> m_highlightedColumn;
    HookSource m_dataSource;
    HookSource m_delegate;
    NSTableViewDataSource m_dataSourceHooks;
    NSTableViewDelegate m_delegateHooks;
    Ref<NSColor> m_backgroundColor;
    Ref<NSColor> m_gridColor;
    mutable RowLayout m_rows;
    Size m_intercellSpacing { 3, 2 };
    RowSelection m_selection;
    NSIndexSet m_selectedColumns;
    long m_clickedRow { -1 };
    long m_clickedColumn { -1 };
    Selector m_doubleAction;
    DoubleActionFunction m_doubleActionFunction;
    long m_editedRow { -1 };
    long m_editedColumn { -1 };
    Ref<NSCell> m_editedCell;
    Ref<NSTableColumn> m_editedTableColumn;
    NSControlTextEditingDelegate m_editingHooks;
    TypeAhead m_typeAhead;
    std::vector<NSToolTipTag> m_toolTips;
    std::optional<RowDropPlace> m_dropPlace;
    std::optional<RowDropPlace> m_wantedDropPlace;
    std::string m_autosaveName;
    unsigned m_gridStyleMask { NSTableViewGridNone };
    unsigned m_localDragMask { NSDragOperationEvery };
    unsigned m_foreignDragMask { 0 };
    NSTableViewColumnAutoresizingStyle m_columnAutoresizingStyle { NSTableViewLastColumnOnlyAutoresizingStyle };
    Flags m_flags;
};

// Posted with the table as object. A moved column's notification has "NSOldColumn" and "NSNewColumn" in its user info, a resized
// one's "NSTableColumn" and "NSOldWidth".
inline constexpr char const* NSTableViewSelectionDidChangeNotification = "NSTableViewSelectionDidChangeNotification";
inline constexpr char const* NSTableViewSelectionIsChangingNotification = "NSTableViewSelectionIsChangingNotification";
inline constexpr char const* NSTableViewColumnDidMoveNotification = "NSTableViewColumnDidMoveNotification";
inline constexpr char const* NSTableViewColumnDidResizeNotification = "NSTableViewColumnDidResizeNotification";

}

#pragma once

#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/export.h>
#include <plix/platform/graphics/geometry.h>
#include <plix/tables/HighlightGradient.h>
#include <plix/tables/SelectedTexts.h>
#include <plix/tables/highlight_drawing.h>
#include <plix/tables/row_highlight.h>

#include <cstdint>
#include <string>
#include <vector>

namespace plix {

class NSCell;
class NSColor;
class NSEvent;
class NSImage;
class NSMenu;
class NSTableColumn;
class NSTableView;
class Selector;
struct NSNotification;

/// What the library's table and its outline have in common, each above the platform's class of its kind: selected rows in a shape
/// and with a gradient, drop highlights and markers, columns that are taken out and put back, Return and Delete for the delegate,
/// right clicks that select. Made only as PLIXTableView and PLIXOutlineView.
template <typename Platform> class PLIX_EXPORT StyledTable : public Platform {
public:
    ~StyledTable() override;
    bool init();
    /// With a header of the library's class.
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // --- highlight ---

    /// The shape of selected rows, see PLIXHighlightStyle; any number is kept. A plain store without redisplay.
    std::uint32_t highlightStyle() const { return m_highlightStyle; }
    void setHighlightStyle(std::uint32_t style) { m_highlightStyle = style; }
    /// The gradient of selected rows for the height of rows now; kept, and made anew after userDefaultsDidChange().
    Ref<NSImage> highlightGradientImage();
    /// The height of rows that it was made for, in whole points; -1 where the next one is made anew.
    int lastHighlightGradientRowHeight() const { return m_gradient.lastRowHeight(); }
    /// Told when the application becomes active: the user may have chosen another highlight colour.
    void userDefaultsDidChange(NSNotification const&);
    /// 1 from when a drag image of rows is asked for until it begins to move.
    std::uint8_t inDragPrep() const { return m_inDragPrep; }

    // --- columns that are taken out ---

    /// Takes a column out of the view, without its indicator image, and keeps it. Ignores an index outside.
    virtual void hideColumn(long column);
    void hideColumnWithIdentifier(ObjectValue const& identifier);
    /// In the order in which they were hidden.
    std::vector<Ref<NSTableColumn>> const& hiddenTableColumns() const { return m_hiddenTableColumns; }
    /// The first that was hidden; null for none, and for nil.
    NSTableColumn* hiddenTableColumnWithIdentifier(ObjectValue const& identifier) const;
    /// Puts a hidden column back as the last one.
    void showColumnWithIdentifier(ObjectValue const& identifier);

    /// What the keys Backspace and Delete do: the delegate is told.
    void deleteBackward(NSObject* sender);

    // NSResponder, NSView:
    void doCommandBySelector(Selector) override;
    void keyDown(NSEvent&) override;
    /// A click with the control key selects before its menu is shown.
    NSMenu* menuForEvent(NSEvent&) override;
    /// False while the application does not run. While it is true, each question has the rows counted anew.
    bool inLiveResize() const override;
    void viewDidEndLiveResize() override;
    void draggedImageBeganAt(NSImage*, Point) override;
    void draggedImage(NSImage*, Point endedAt, unsigned operation) override;

    // NSTableView:
    Ref<NSImage> dragImageForRowsWithIndexes(
        NSIndexSet const&, std::vector<Ref<NSTableColumn>> const&, NSEvent&, Point& offset) override;
    Ref<NSImage> dragImageForRows(std::vector<long> const& rows, NSEvent&, Point& dragImageOffset) override;
    /// Null: the row's highlight is to be seen behind its cells.
    Ref<NSColor> _highlightColorForCell(NSCell&) override;
    void highlightSelectionInClipRect(Rect) override;
    /// Every cell of the row, wherever the clip is.
    void drawRow(long row, Rect clipRect) override;
    void _drawDropHighlightOnRow(long row) override;
    void _drawDropHighlightBetweenUpperRow(long upperRow, long lowerRow, float offset) override;

protected:
    StyledTable();

    // What the two kinds answer otherwise.
    virtual void tellReturnKey() = 0;
    virtual void tellDeleteBackward() = 0;
    virtual void tellArrowKeyChangedSelection(NSNotification const&) = 0;
    virtual Ref<NSImage> customHighlightImage(long row) = 0;
    virtual int highlightIndentation(long /*row*/) { return 0; }
    virtual HighlightImage dropHighlightImage(long row) = 0;
    /// Whether the first column's cells begin where the highlight does.
    virtual FirstColumn firstColumn() const { return FirstColumn::plain; }
    /// Selects the row of a right click, which is inside the table.
    virtual void selectForMenu(long row) = 0;

    /// For their rightMouseDown().
    void selectAndShowMenu(NSEvent&);

private:
    void setUp();
    void installHeader();
    void keepTextsOfSeenRows();
    void drawSelectedRow(long row);
    void drawCellOfRow(long column, long row, ColumnPlace);
    HighlightPaint highlightPaint();

    HighlightPainter m_painter;
    HighlightGradient m_gradient;
    SelectedTexts m_selectedTexts;
    std::vector<Ref<NSTableColumn>> m_hiddenTableColumns;
    std::uint32_t m_highlightStyle { PLIXHighlightRectangle };
    std::uint8_t m_inDragPrep { 0 };
};

}

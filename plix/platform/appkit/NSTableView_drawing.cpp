#include <plix/platform/appkit/NSTableView.h>

#include <plix/platform/appkit/NSActionCell.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>

#include <algorithm>
#include <cmath>

namespace plix {

ControlLook NSTableView::selectionLook() const
{
    auto look = Theme::lookOfView(*this);
    look.isEnabled = isEnabled();
    auto const* ownWindow = window();
    look.isFocused = ownWindow && (ownWindow->firstResponder() == this || m_editedCell);
    look.isWindowActive = look.isWindowActive && look.isFocused;
    return look;
}

// Hooks called on the way may let go of the table, change its rows, or close its window: everything is asked for anew after them.
void NSTableView::drawRect(Rect rect)
{
    Ref<NSTableView> const protector(this);
    drawBackgroundInClipRect(rect);
    highlightSelectionInClipRect(rect);
    drawGridInClipRect(rect);
    auto const rows = rowsInRect(rect);
    for (long row = rows.location; row < rows.end() && row < numberOfRows(); ++row) {
        if (needsToDrawRect(rectOfRow(row)))
            drawRow(row, rect);
    }
    if (!m_dropPlace)
        return;
    auto const place = *m_dropPlace;
    if (place.isOnRow || place.row < 0)
        _drawDropHighlightOnRow(place.row);
    else
        _drawDropHighlightBetweenUpperRow(place.row - 1, place.row, dropMarkerOffset(place));
}

void NSTableView::drawBackgroundInClipRect(Rect clipRect)
{
    auto const& theme = Theme::current();
    if (!m_flags.usesAlternatingRowBackgroundColors) {
        if (m_backgroundColor)
            theme.fill(clipRect, *m_backgroundColor);
        return;
    }
    auto const colors = NSColor::controlAlternatingRowBackgroundColors();
    // Stripes go on below the last row.
    double const pitch = m_rows.pitch();
    auto const last = static_cast<long>(std::floor(static_cast<double>(clipRect.maxY()) / pitch));
    for (auto row = static_cast<long>(std::floor(static_cast<double>(clipRect.y) / pitch)); row <= last; ++row) {
        Rect const stripe { clipRect.x, m_rows.top(m_rows.firstRow + row), clipRect.width, m_rows.pitch() };
        theme.fill(NSIntersectionRect(stripe, clipRect), *colors[(m_rows.firstRow + row) % 2 == 0 ? 0 : 1]);
    }
}

void NSTableView::highlightSelectionInClipRect(Rect clipRect)
{
    auto const& theme = Theme::current();
    auto const color = theme.selectionColor(selectionLook());
    auto const rows = rowsInRect(clipRect);
    for (long row = rows.location; row < rows.end(); ++row) {
        if (isRowSelected(row))
            theme.fill(NSIntersectionRect(rectOfRow(row), clipRect), *color);
    }
    for (auto const& columns : m_selectedColumns.ranges()) {
        for (long column = columns.location; column < columns.end(); ++column)
            theme.fill(NSIntersectionRect(rectOfColumn(column), clipRect), *color);
    }
}

void NSTableView::drawGridInClipRect(Rect clipRect)
{
    if (m_gridStyleMask == NSTableViewGridNone || !m_gridColor)
        return;
    auto const& theme = Theme::current();
    auto const rows = rowsInRect(clipRect);
    if (m_gridStyleMask & NSTableViewSolidHorizontalGridLineMask) {
        for (long row = rows.location; row < rows.end(); ++row)
            theme.fill({ clipRect.x, m_rows.top(row + 1) - 1, clipRect.width, 1 }, *m_gridColor);
    }
    if (m_gridStyleMask & NSTableViewSolidVerticalGridLineMask) {
        auto const columns = columnsInRect(clipRect);
        for (long column = columns.location; column < columns.end(); ++column)
            theme.fill({ rectOfColumn(column).maxX() - 1, clipRect.y, 1, clipRect.height }, *m_gridColor);
    }
}

void NSTableView::prepareCell(NSCell& cell, NSTableColumn& column, long row)
{
    auto value = objectValueForCell(column, row);
    cell.setObjectValue(std::move(value));
    tellWillDisplayCell(cell, column, row);
}

// What the hooks are told with may be all that holds the column and its cell.
NSCell* NSTableView::preparedCellAtColumn(long column, long row)
{
    Ref<NSTableColumn> const tableColumn(columnAt(column));
    if (!tableColumn || row < 0 || row >= numberOfRows())
        return nullptr;
    Ref<NSCell> const cell(tableColumn->dataCellForRow(row));
    if (!cell)
        return nullptr;
    cell->setHighlighted(false);
    prepareCell(*cell, *tableColumn, row);
    cell->setHighlighted(isRowSelected(row) || isColumnSelected(column));
    bool const isStillThere = tableColumn->tableView() == this && row < numberOfRows();
    return isStillThere && tableColumn->dataCellForRow(row) == cell.get() ? cell.get() : nullptr;
}

void NSTableView::drawRow(long row, Rect clipRect)
{
    Ref<NSTableView> const protector(this);
    auto const columns = columnsInRect(clipRect);
    for (long column = columns.location; column < columns.end() && column < numberOfColumns(); ++column) {
        auto const frame = frameOfCellAtColumn(column, row);
        if (column == m_editedColumn && row == m_editedRow) {
            // One that follows the mouse shows what it is now, not the row's value.
            Ref<NSCell> const followed(m_editedCell || frame.isEmpty() ? nullptr : columnAt(column)->dataCellForRow(row));
            if (followed)
                followed->drawWithFrame(frame, *this);
            continue;
        }
        Ref<NSCell> const cell = frame.isEmpty() ? nullptr : preparedCellAtColumn(column, row);
        if (!cell)
            continue;
        if (cell->isHighlighted()) {
            if (auto const color = _highlightColorForCell(*cell))
                Theme::current().fill(frame, *color);
        }
        // In a table that takes no clicks, cells look as if they took none.
        bool const wasEnabled = cell->isEnabled();
        if (!isEnabled())
            cell->setEnabled(false);
        cell->drawWithFrame(frame, *this);
        cell->setEnabled(wasEnabled);
        cell->setHighlighted(false);
    }
}

Ref<NSColor> NSTableView::_highlightColorForCell(NSCell&)
{
    return Theme::current().selectionColor(selectionLook());
}

void NSTableView::_drawDropHighlightOnRow(long row)
{
    auto const& theme = Theme::current();
    if (row < 0)
        theme.drawTableDropHighlight(visibleRect());
    else if (row < numberOfRows())
        theme.drawRowDropHighlight(rectOfRow(row));
}

void NSTableView::_drawDropHighlightBetweenUpperRow(long upperRow, long lowerRow, float offset)
{
    float y = 1;
    if (lowerRow > 0)
        y = lowerRow < numberOfRows() ? m_rows.top(lowerRow) : m_rows.top(upperRow + 1) - 1;
    auto const visible = visibleRect();
    Theme::current().drawDropMarker(visible.x + offset, visible.maxX(), y);
}

}

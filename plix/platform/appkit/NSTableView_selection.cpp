#include <plix/platform/appkit/NSTableView.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/appkit/NSWindow.h>

#include <algorithm>
#include <utility>

namespace plix {

namespace {

constexpr float sidewaysStep = 20;

}

void NSTableView::setAllowsMultipleSelection(bool allows)
{
    m_flags.allowsMultipleSelection = allows;
}

void NSTableView::setAllowsEmptySelection(bool allows)
{
    m_flags.allowsEmptySelection = allows;
    if (!allows && m_selection.rows.isEmpty() && numberOfRows() > 0)
        selectRow(0, false);
}

RowSelectionRules NSTableView::selectionRules() const
{
    return { m_flags.allowsMultipleSelection, m_flags.allowsEmptySelection };
}

// Of the rows whose selection changed only those in view are looked at.
void NSTableView::markSelectionChanges(NSIndexSet const& before)
{
    auto const seen = rowsInRect(visibleRect());
    for (long row = seen.location; row < seen.end(); ++row) {
        if (before.containsIndex(row) != m_selection.rows.containsIndex(row))
            markRows({ row, 1 });
    }
}

void NSTableView::setSelection(RowSelection selection)
{
    Ref<NSTableView> const protector(this);
    bool const hadColumns = !m_selectedColumns.isEmpty();
    bool const isOther = selection.rows != m_selection.rows || (hadColumns && !selection.rows.isEmpty());
    auto const before = std::exchange(m_selection, std::move(selection));
    if (!isOther)
        return;
    if (hadColumns && !m_selection.rows.isEmpty()) {
        m_selectedColumns.removeAllIndexes();
        setNeedsDisplay(true);
    }
    markSelectionChanges(before.rows);
    tellSelectionChanged();
}

void NSTableView::replaceSelectionQuietly(RowSelection selection)
{
    m_selection = std::move(selection);
}

void NSTableView::changeSelection(RowSelection const& wanted)
{
    Ref<NSTableView> const protector(this);
    if (wanted.rows == m_selection.rows) {
        setSelection(wanted);
        return;
    }
    if (!mayChangeSelection())
        return;
    auto selection = selectionWithinRows(wanted, numberOfRows());
    auto added = selection.rows;
    added.removeIndexes(m_selection.rows);
    for (long row = added.isEmpty() ? NSNotFound : added.firstIndex(); row != NSNotFound; row = added.indexGreaterThanIndex(row)) {
        if (!maySelectRow(row))
            selection.rows.removeIndex(row);
    }
    // A refusal of all that was wanted keeps what there is.
    if (selection.rows.isEmpty() && !wanted.rows.isEmpty())
        return;
    setSelection(selectionWithinRows(std::move(selection), numberOfRows()));
}

void NSTableView::selectRowIndexes(NSIndexSet const& rows, bool byExtendingSelection)
{
    auto selection = m_selection;
    auto added = selectionWithinRows({ rows, -1, -1 }, numberOfRows()).rows;
    if (!m_flags.allowsMultipleSelection && added.count() > 1)
        added = NSIndexSet::indexSetWithIndex(added.lastIndex());
    if (!byExtendingSelection || !m_flags.allowsMultipleSelection)
        selection.rows.removeAllIndexes();
    selection.rows.addIndexes(added);
    if (selection.rows.isEmpty() && !m_flags.allowsEmptySelection)
        return;
    selection.lead = added.isEmpty() ? (selection.rows.isEmpty() ? -1 : selection.rows.lastIndex()) : added.lastIndex();
    selection.anchor = added.isEmpty() ? selection.lead : added.firstIndex();
    setSelection(std::move(selection));
}

void NSTableView::selectRow(long row, bool byExtendingSelection)
{
    if (row >= 0 && row < numberOfRows())
        selectRowIndexes(NSIndexSet::indexSetWithIndex(row), byExtendingSelection);
}

void NSTableView::deselectRow(long row)
{
    if (!isRowSelected(row) || (!m_flags.allowsEmptySelection && m_selection.rows.count() == 1))
        return;
    auto selection = m_selection;
    selection.rows.removeIndex(row);
    if (selection.lead == row)
        selection.lead = selection.rows.isEmpty() ? -1 : selection.rows.lastIndex();
    setSelection(std::move(selection));
}

long NSTableView::selectedRow() const
{
    if (m_selection.rows.isEmpty())
        return -1;
    return isRowSelected(m_selection.lead) ? m_selection.lead : m_selection.rows.lastIndex();
}

void NSTableView::selectColumnIndexes(NSIndexSet const& columns, bool byExtendingSelection)
{
    Ref<NSTableView> const protector(this);
    auto selected = byExtendingSelection && m_flags.allowsMultipleSelection ? m_selectedColumns : NSIndexSet();
    selected.addIndexes(selectionWithinRows({ columns, -1, -1 }, numberOfColumns()).rows);
    if (selected.isEmpty() && !m_flags.allowsEmptySelection)
        return;
    if (selected == m_selectedColumns)
        return;
    m_selectedColumns = std::move(selected);
    if (!m_selectedColumns.isEmpty())
        m_selection = {};
    setNeedsDisplay(true);
    if (m_headerView)
        m_headerView->setNeedsDisplay(true);
    tellSelectionChanged();
}

void NSTableView::selectColumn(long column, bool byExtendingSelection)
{
    if (column >= 0 && column < numberOfColumns())
        selectColumnIndexes(NSIndexSet::indexSetWithIndex(column), byExtendingSelection);
}

void NSTableView::deselectColumn(long column)
{
    if (!isColumnSelected(column) || (!m_flags.allowsEmptySelection && m_selectedColumns.count() == 1))
        return;
    auto columns = m_selectedColumns;
    columns.removeIndex(column);
    selectColumnIndexes(columns, false);
}

long NSTableView::selectedColumn() const
{
    return m_selectedColumns.isEmpty() ? -1 : m_selectedColumns.lastIndex();
}

void NSTableView::selectAll(NSObject*)
{
    if (!m_flags.allowsMultipleSelection || numberOfRows() == 0)
        return;
    auto selection = m_selection;
    selection.rows = NSIndexSet::indexSetWithIndexesInRange({ 0, numberOfRows() });
    if (selection.lead < 0)
        selection.anchor = selection.lead = 0;
    changeSelection(selection);
}

void NSTableView::deselectAll(NSObject*)
{
    if (!m_flags.allowsEmptySelection)
        return;
    if (!m_selectedColumns.isEmpty())
        selectColumnIndexes({}, false);
    else
        changeSelection({});
}

void NSTableView::headerClicked(NSTableColumn& column, NSEvent& event)
{
    Ref<NSTableView> const protector(this);
    Ref<NSTableColumn> const kept(column);
    tellHeaderClicked(column);
    long const index = columnWithTableColumn(column);
    if (!m_flags.allowsColumnSelection || index < 0)
        return;
    if (!maySelectColumn(column) || !mayChangeSelection())
        return;
    auto const change = event.hasShortcutModifier()     ? SelectionChange::toggle
        : (event.modifierFlags() & NSShiftKeyMask) != 0 ? SelectionChange::extend
                                                        : SelectionChange::replace;
    RowSelection const before { m_selectedColumns, selectedColumn(), selectedColumn() };
    selectColumnIndexes(selectionAfterChange(before, index, change, selectionRules()).rows, false);
}

// MARK: keyboard

long NSTableView::rowsInPage() const
{
    auto const visible = visibleRect();
    return std::max(1L, static_cast<long>(visible.height / m_rows.pitch()) - 1);
}

void NSTableView::moveSelection(long distance, SelectionChange change)
{
    if (auto const row = rowAfterMove(m_selection, distance, numberOfRows()))
        moveSelectionTo(*row, distance > 0 ? 1 : -1, change);
}

// Rows that may not be selected are stepped over.
void NSTableView::moveSelectionTo(long row, long step, SelectionChange change)
{
    Ref<NSTableView> const protector(this);
    while (row >= 0 && row < numberOfRows() && !isRowSelected(row) && !maySelectRow(row))
        row += step;
    if (row < 0 || row >= numberOfRows())
        return;
    changeSelection(selectionAfterChange(m_selection, row, change, selectionRules()));
    scrollRowToVisible(row);
}

void NSTableView::moveUp(NSObject*)
{
    moveSelection(-1, SelectionChange::replace);
}

void NSTableView::moveDown(NSObject*)
{
    moveSelection(1, SelectionChange::replace);
}

void NSTableView::moveUpAndModifySelection(NSObject*)
{
    moveSelection(-1, SelectionChange::extend);
}

void NSTableView::moveDownAndModifySelection(NSObject*)
{
    moveSelection(1, SelectionChange::extend);
}

void NSTableView::pageUp(NSObject*)
{
    moveSelection(-rowsInPage(), SelectionChange::replace);
}

void NSTableView::pageDown(NSObject*)
{
    moveSelection(rowsInPage(), SelectionChange::replace);
}

void NSTableView::pageUpAndModifySelection(NSObject*)
{
    moveSelection(-rowsInPage(), SelectionChange::extend);
}

void NSTableView::pageDownAndModifySelection(NSObject*)
{
    moveSelection(rowsInPage(), SelectionChange::extend);
}

void NSTableView::moveToBeginningOfDocument(NSObject*)
{
    moveSelectionTo(0, 1, SelectionChange::replace);
}

void NSTableView::moveToEndOfDocument(NSObject*)
{
    moveSelectionTo(numberOfRows() - 1, -1, SelectionChange::replace);
}

void NSTableView::moveToBeginningOfDocumentAndModifySelection(NSObject*)
{
    moveSelectionTo(0, 1, SelectionChange::extend);
}

void NSTableView::moveToEndOfDocumentAndModifySelection(NSObject*)
{
    moveSelectionTo(numberOfRows() - 1, -1, SelectionChange::extend);
}

// Sideways the columns move.
void NSTableView::moveLeft(NSObject*)
{
    if (auto* clip = clipView())
        clip->scrollTo({ clip->bounds().x - sidewaysStep, clip->bounds().y });
}

void NSTableView::moveRight(NSObject*)
{
    if (auto* clip = clipView())
        clip->scrollTo({ clip->bounds().x + sidewaysStep, clip->bounds().y });
}

void NSTableView::insertTab(NSObject* sender)
{
    if (auto* ownWindow = window())
        ownWindow->selectNextKeyView(sender);
}

void NSTableView::insertBacktab(NSObject* sender)
{
    if (auto* ownWindow = window())
        ownWindow->selectPreviousKeyView(sender);
}

// Return opens what is selected where the host wants that, else it edits.
void NSTableView::insertNewline(NSObject*)
{
    Ref<NSTableView> const protector(this);
    long const row = selectedRow();
    m_clickedRow = row;
    m_clickedColumn = -1;
    if (row >= 0 && sendDoubleAction())
        return;
    for (long column = 0; column < numberOfColumns(); ++column) {
        if (canEdit(column, row)) {
            editColumn(column, row, nullptr, true);
            return;
        }
    }
    passKeyOn();
}

// The window's buttons may want it.
void NSTableView::passKeyOn()
{
    if (Ref<NSEvent> const key(NSApp ? NSApp->currentEvent() : nullptr); key && key->type() == NSKeyDown)
        Base::keyDown(*key);
}

void NSTableView::keyDown(NSEvent& event)
{
    if (!isEnabled())
        return;
    interpretKeyEvents({ Ref<NSEvent>(event) });
}

bool NSTableView::becomeFirstResponder()
{
    setNeedsDisplay(true);
    return true;
}

bool NSTableView::resignFirstResponder()
{
    m_typeAhead.clear();
    setNeedsDisplay(true);
    return true;
}

// For a menu's actions the click counts.
NSMenu* NSTableView::menuForEvent(NSEvent& event)
{
    auto const point = convertPointFromView(event.locationInWindow(), nullptr);
    m_clickedRow = rowAtPoint(point);
    m_clickedColumn = columnAtPoint(point);
    return Base::menuForEvent(event);
}

}

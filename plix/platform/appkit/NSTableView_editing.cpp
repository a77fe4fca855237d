#include <plix/platform/appkit/NSTableView.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/field_editing.h>
#include <plix/platform/foundation/NSNotification.h>

#include <algorithm>
#include <utility>

namespace plix {

// What is edited is a copy of the column's cell, which goes on drawing the other rows meanwhile.
NSCell* NSTableView::selectedCell() const
{
    return m_editedCell ? m_editedCell.get() : Base::selectedCell();
}

void NSTableView::setEnabled(bool isEnabled)
{
    if (isEnabled == this->isEnabled())
        return;
    Ref<NSTableView> const protector(this);
    if (!isEnabled)
        abortEditing();
    Base::setEnabled(isEnabled);
    if (m_headerView)
        m_headerView->columnsChanged();
}

bool NSTableView::canEdit(long column, long row)
{
    Ref<NSTableColumn> const tableColumn(columnAt(column));
    if (!tableColumn || row < 0 || row >= numberOfRows() || !tableColumn->isEditable() || tableColumn->isHidden() || !isEnabled())
        return false;
    auto const* cell = tableColumn->dataCellForRow(row);
    return cell && cell->type() == NSTextCellType && dynamic_cast<NSTextFieldCell const*>(cell) && cell->isEditable()
        && cell->isEnabled() && mayEdit(*tableColumn, row);
}

void NSTableView::editColumn(long column, long row, NSEvent* event, bool select)
{
    Ref<NSTableView> const protector(this);
    Ref<NSEvent> const kept(event);
    if (m_editedCell) {
        Ref<NSWindow> const ownWindow(window());
        if (!ownWindow || !ownWindow->makeFirstResponder(this))
            return;
    }
    if (canEdit(column, row))
        beginEditing(column, row, event, select);
}

bool NSTableView::beginEditing(long column, long row, NSEvent* event, bool select)
{
    Ref<NSWindow> const ownWindow(window());
    Ref<NSTableColumn> const tableColumn(columnAt(column));
    scrollRowToVisible(row);
    scrollColumnToVisible(column);
    Ref<NSCell> const prepared(preparedCellAtColumn(column, row));
    auto* editor = ownWindow ? dynamic_cast<NSText*>(ownWindow->fieldEditor(true, this)) : nullptr;
    if (!prepared || !editor)
        return false;
    auto const cell = prepared->copy();
    prepared->setHighlighted(false);
    cell->setHighlighted(false);
    m_editedCell = cell;
    m_editedTableColumn = tableColumn;
    m_editedRow = row;
    m_editedColumn = column;
    auto const frame = frameOfCellAtColumn(column, row);
    if (event && !select)
        cell->editWithFrame(frame, *this, *editor, this, *event);
    else
        cell->selectWithFrame(frame, *this, *editor, this, 0, NSNotFound);
    if (!cell->isBeingEdited() && m_editedCell == cell)
        forgetEdit();
    return cell->isBeingEdited();
}

void NSTableView::forgetEdit()
{
    m_editedCell = nullptr;
    m_editedTableColumn = nullptr;
    m_editedRow = m_editedColumn = -1;
}

// Rows and columns that move take the editor with them.
void NSTableView::placeEditor()
{
    Ref<NSText> const editor(currentEditor());
    auto* clip = editor ? editor->superview() : nullptr;
    if (!m_editedCell || !clip || clip->superview() != this)
        return;
    m_editedColumn = columnWithTableColumn(*m_editedTableColumn);
    Rect const room = m_editedCell->titleRectForBounds(frameOfCellAtColumn(m_editedColumn, m_editedRow));
    clip->setFrame(room);
    if (auto* view = dynamic_cast<NSTextView*>(editor.get()))
        view->setMinSize(room.size());
    editor->setFrameSize({ std::max(room.width, editor->frame().width), room.height });
}

bool NSTableView::abortEditing()
{
    Ref<NSTableView> const protector(this);
    Ref<NSCell> const edited = m_editedCell;
    if (!edited)
        return false;
    Ref<NSWindow> const ownWindow(window());
    Ref<NSText> const editor(currentEditor());
    if (editor)
        edited->endEditing(*editor);
    forgetEdit();
    // The keyboard was the editor's.
    if (ownWindow && (!ownWindow->firstResponder() || ownWindow->firstResponder() == ownWindow.get()) && isEnabled())
        ownWindow->makeFirstResponder(this);
    return true;
}

void NSTableView::validateEditing()
{
    if (Ref<NSText> const editor(currentEditor()); editor && m_editedCell)
        takeEditedText(*m_editedCell, *editor);
}

void NSTableView::viewWillMoveToWindow(NSWindow* newWindow)
{
    if (newWindow != window())
        abortEditing();
    Base::viewWillMoveToWindow(newWindow);
}

// MARK: the editor's delegate

FieldEditing NSTableView::fieldEditing() const
{
    return { const_cast<NSTableView&>(*this), *m_editedCell, m_editingHooks };
}

bool NSTableView::textShouldBeginEditing(NSText& editor)
{
    return !m_editedCell || fieldEditing().mayBegin(editor);
}

bool NSTableView::textShouldEndEditing(NSText& editor)
{
    return !m_editedCell || fieldEditing().mayEnd(editor);
}

bool NSTableView::shouldChangeTextInRange(NSTextView& editor, NSRange range, std::string_view replacement)
{
    return !m_editedCell || fieldEditing().mayChange(editor, range, replacement);
}

bool NSTableView::textViewDoCommandBySelector(NSTextView& editor, Selector command)
{
    return m_editedCell && fieldEditing().takesCommand(editor, command);
}

void NSTableView::textDidBeginEditing(NSNotification const&)
{
    if (Ref<NSText> const editor(currentEditor()); editor && m_editedCell)
        fieldEditing().tellBegin(*editor);
}

void NSTableView::textDidChange(NSNotification const&)
{
    if (Ref<NSText> const editor(currentEditor()); editor && m_editedCell)
        fieldEditing().tellChange(*editor);
}

void NSTableView::textDidEndEditing(NSNotification const& notification)
{
    Ref<NSTableView> const protector(this);
    Ref<NSText> const editor(currentEditor());
    Ref<NSCell> const edited = m_editedCell;
    Ref<NSTableColumn> const column = m_editedTableColumn;
    if (!editor || !edited)
        return;
    auto const found = notification.userInfo.find("NSTextMovement");
    int const movement = found == notification.userInfo.end() ? int { NSOtherTextMovement } : found->second.intValue();
    auto const row = m_editedRow;
    bool const isChanged = editor->string() != edited->editingStringValue();
    validateEditing();
    edited->endEditing(*editor);
    forgetEdit();
    FieldEditing(*this, *edited, m_editingHooks).tellEnd(*editor, movement);
    if (isChanged && column->tableView() == this && row < numberOfRows())
        takeObjectValue(edited->objectValue(), *column, row);
    markRows({ row, 1 });
    goOnEditingAfter(movement, columnWithTableColumn(*column), row);
}

// Return goes to the row below, Tab to the next cell that can be edited, on through the rows; otherwise the table has the keyboard.
void NSTableView::goOnEditingAfter(int movement, long column, long row)
{
    Ref<NSWindow> const ownWindow(window());
    // Somebody may have given the keyboard away meanwhile.
    bool const isFree = ownWindow && (!ownWindow->firstResponder() || ownWindow->firstResponder() == ownWindow.get());
    if (!isFree || movement == NSOtherTextMovement)
        return;
    ownWindow->makeFirstResponder(this);
    auto const next = cellToEditAfter(movement, column, row);
    if (!next || m_editedCell)
        return;
    if (!isRowSelected(next->row)) {
        changeSelection(selectionAfterChange(m_selection, next->row, SelectionChange::replace, selectionRules()));
        if (!isRowSelected(next->row))
            return;
    }
    editColumn(next->column, next->row, nullptr, true);
}

std::optional<NSTableView::CellPlace> NSTableView::cellToEditAfter(int movement, long column, long row)
{
    if (column < 0)
        return std::nullopt;
    if (movement == NSReturnTextMovement)
        return row + 1 < numberOfRows() && canEdit(column, row + 1) ? std::optional<CellPlace>({ column, row + 1 }) : std::nullopt;
    if (movement != NSTabTextMovement && movement != NSBacktabTextMovement)
        return std::nullopt;
    long const step = movement == NSTabTextMovement ? 1 : -1;
    // Past a row without anything to edit it stops.
    for (long looked = 0; looked < 2 * numberOfColumns(); ++looked) {
        column += step;
        if (column >= numberOfColumns() || column < 0) {
            row += step;
            column = step > 0 ? 0 : numberOfColumns() - 1;
        }
        if (row < 0 || row >= numberOfRows())
            return std::nullopt;
        if (canEdit(column, row))
            return CellPlace { column, row };
    }
    return std::nullopt;
}

// Escape: what was there before stays.
void NSTableView::cancelOperation(NSObject*)
{
    if (!abortEditing())
        passKeyOn();
}

}

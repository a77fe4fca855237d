#include <plix/platform/appkit/NSTableView.h>

#include <plix/platform/appkit/NSActionCell.h>
#include <plix/platform/appkit/NSComboBoxCell.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/base/case_folding.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/graphics/NSAttributedString.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace plix {

namespace {

/// The pointer moves this far, in points, before a press becomes a drag of rows.
constexpr float dragThreshold = 4;
constexpr NSTimeInterval autoscrollPeriod = 0.05;
/// Typing looks no further than this many rows, so that a key never takes long.
constexpr long mostRowsSearched = 1000000;

SelectionChange changeForClick(NSEvent const& event)
{
    if (event.modifierFlags() & NSShiftKeyMask)
        return SelectionChange::extend;
    return event.hasShortcutModifier() ? SelectionChange::toggle : SelectionChange::replace;
}

// Autoscrolling goes on while the pointer rests outside: periodic events keep it alive.
class PeriodicEvents {
public:
    PeriodicEvents() { NSEvent::startPeriodicEventsAfterDelay(autoscrollPeriod, autoscrollPeriod); }
    ~PeriodicEvents() { NSEvent::stopPeriodicEvents(); }
    PeriodicEvents(PeriodicEvents const&) = delete;
    PeriodicEvents& operator=(PeriodicEvents const&) = delete;
};

}

void NSTableView::setDoubleAction(Selector action)
{
    m_doubleAction = action;
}

void NSTableView::setDoubleActionFunction(DoubleActionFunction function)
{
    m_doubleActionFunction = std::move(function);
}

bool NSTableView::sendDoubleAction()
{
    if (m_doubleActionFunction) {
        auto const function = m_doubleActionFunction; // the call may set another
        function(*this);
        return true;
    }
    return m_doubleAction && sendAction(m_doubleAction, target());
}

void NSTableView::mouseDown(NSEvent& event)
{
    if (!isEnabled())
        return;
    Ref<NSTableView> const protector(this);
    Ref<NSEvent> const kept(event);
    auto const point = convertPointFromView(event.locationInWindow(), nullptr);
    m_clickedRow = rowAtPoint(point);
    m_clickedColumn = columnAtPoint(point);
    m_typeAhead.clear();
    if (Ref<NSWindow> const ownWindow(window()); ownWindow && ownWindow->firstResponder() != this) {
        // An edit that is not to be ended keeps the keyboard.
        if (!ownWindow->makeFirstResponder(this) || !window())
            return;
    }
    long const row = m_clickedRow;
    long const column = m_clickedColumn;
    if (row < 0) {
        if (!(event.modifierFlags() & NSShiftKeyMask) && !event.hasShortcutModifier())
            deselectAll(this);
        trackSelection(event, row, false);
        return;
    }
    if (trackRowDecoration(event, row))
        return;
    if (event.clickCount() == 2) {
        if (canEdit(column, row) && isRowSelected(row) && !m_doubleAction && !m_doubleActionFunction) {
            editColumn(column, row, &event, false);
            return;
        }
        if (sendDoubleAction())
            return;
    }
    selectByClick(event, row);
}

void NSTableView::selectByClick(NSEvent& event, long row)
{
    long const column = m_clickedColumn;
    bool const isPlain = changeForClick(event) == SelectionChange::replace;
    // A click into what can be clicked acts at once, and leaves a larger selection alone.
    if (isPlain && trackCell(event, column, row))
        return;
    // A press on one of several selected rows may begin to drag them all; only the release selects the one.
    bool const isPendingCollapse = isPlain && canWriteRows() && isRowSelected(row) && m_selection.rows.count() > 1;
    if (!isPendingCollapse)
        changeSelection(selectionAfterChange(m_selection, row, changeForClick(event), selectionRules()));
    trackSelection(event, row, isPendingCollapse);
}

// Text is selected and edited, pictures are looked at; what is left are buttons of some kind, also in a combo box.
static bool isButtonAtPoint(NSCell const& cell, Rect frame, Point point)
{
    if (auto const* combo = dynamic_cast<NSComboBoxCell const*>(&cell))
        return NSPointInRect(point, combo->buttonRectForBounds(frame));
    return dynamic_cast<NSActionCell const*>(&cell) && !dynamic_cast<NSTextFieldCell const*>(&cell);
}

bool NSTableView::trackCell(NSEvent& event, long column, long row)
{
    auto* tableColumn = columnAt(column);
    if (!tableColumn || event.clickCount() > 1)
        return false;
    Ref<NSTableColumn> const keptColumn(tableColumn);
    Ref<NSCell> const cell(preparedCellAtColumn(column, row));
    auto const frame = frameOfCellAtColumn(column, row);
    auto const point = convertPointFromView(event.locationInWindow(), nullptr);
    if (!cell || !mouseInRect(point, frame) || !cell->isEnabled() || !isButtonAtPoint(*cell, frame, point)
        || !tableColumn->isEditable() || !mayEdit(*tableColumn, row))
        return false;
    cell->setHighlighted(false);
    auto const before = cell->objectValue();
    if (dynamic_cast<NSComboBoxCell*>(cell.get())) {
        // Rows are drawn with the column's own cell while the list is open.
        Ref<NSCell> const opened(cell->copy());
        opened->setControlView(this);
        if (opened->trackMouse(event, frame, *this, opened->ownPrefersTrackingUntilMouseUp()) && opened->objectValue() != before
            && keptColumn->tableView() == this && row < numberOfRows())
            takeObjectValue(opened->objectValue(), *keptColumn, row);
        setNeedsDisplayInRect(frame);
        return true;
    }
    cell->setControlView(this);
    // Scrolling or reloading while the mouse is held must not move the value to another row.
    m_editedRow = row;
    m_editedColumn = column;
    cell->highlight(true, frame, *this);
    bool const isDone = cell->trackMouse(event, frame, *this, cell->ownPrefersTrackingUntilMouseUp());
    cell->highlight(false, frame, *this);
    m_editedRow = m_editedColumn = -1;
    setNeedsDisplayInRect(frame);
    if (isDone && keptColumn->tableView() == this && row < numberOfRows())
        takeObjectValue(cell->objectValue(), *keptColumn, row);
    return true;
}

// Follows the mouse until it is released: rows are dragged out, or the selection goes with the pointer.
void NSTableView::trackSelection(NSEvent& press, long row, bool isPendingCollapse)
{
    auto const start = convertPointFromView(press.locationInWindow(), nullptr);
    bool dragsRows = row >= 0 && canWriteRows() && isRowSelected(row);
    bool hasMoved = false;
    PeriodicEvents const periodicEvents;
    Ref<NSEvent> lastDrag;
    for (;;) {
        Ref<NSWindow> const ownWindow(window());
        if (!ownWindow)
            return;
        auto const event = ownWindow->nextEventMatchingMask(NSLeftMouseUpMask | NSLeftMouseDraggedMask | NSPeriodicMask);
        if (!event || event->type() == NSLeftMouseUp)
            break;
        if (event->type() == NSLeftMouseDragged)
            lastDrag = event;
        if (!lastDrag || !isEnabled())
            continue;
        auto const point = convertPointFromView(lastDrag->locationInWindow(), nullptr);
        float const dx = std::abs(point.x - start.x);
        float const dy = std::abs(point.y - start.y);
        if (!hasMoved && dx < dragThreshold && dy < dragThreshold)
            continue;
        hasMoved = true;
        if (dragsRows && (m_flags.verticalMotionCanBeginDrag || dx > dy)) {
            NSEvent::stopPeriodicEvents();
            if (beginDrag(press, *lastDrag, row))
                return;
            dragsRows = false;
        }
        autoscroll(*lastDrag);
        long const count = numberOfRows();
        if (count == 0 || row < 0)
            continue;
        auto const now = convertPointFromView(lastDrag->locationInWindow(), nullptr);
        long const lastInStretch = std::min(count, m_rows.firstRow + m_rows.rowsInStretch()) - 1;
        long const target = now.y < 0 ? m_rows.firstRow : now.y >= m_rows.stretchHeight() ? lastInStretch : m_rows.rowAt(now.y);
        if (target < 0 || (target == m_selection.lead && !isPendingCollapse))
            continue;
        if (std::exchange(isPendingCollapse, false))
            changeSelection(selectionAfterChange(m_selection, row, SelectionChange::replace, selectionRules()));
        auto const change = m_flags.allowsMultipleSelection ? SelectionChange::extend : SelectionChange::replace;
        auto const wanted = selectionAfterChange(m_selection, target, change, selectionRules());
        if (wanted.rows == m_selection.rows)
            m_selection.lead = target;
        else {
            changeSelection(wanted);
            tellSelectionIsChanging();
        }
    }
    if (isPendingCollapse && row < numberOfRows())
        changeSelection(selectionAfterChange(m_selection, row, SelectionChange::replace, selectionRules()));
    if (auto* actionCell = cell(); actionCell && isEnabled()) {
        actionCell->setControlView(this);
        actionCell->sendAction();
    }
}

// MARK: tool tips

void NSTableView::resetCursorRects()
{
    for (auto const tag : std::exchange(m_toolTips, {}))
        removeToolTip(tag);
    if (!hasCellToolTips())
        return;
    auto const seen = visibleRect();
    auto const rows = rowsInRect(seen);
    auto const columns = columnsInRect(seen);
    for (long row = rows.location; row < rows.end(); ++row) {
        for (long column = columns.location; column < columns.end(); ++column) {
            auto const rect = NSIntersectionRect(frameOfCellAtColumn(column, row), seen);
            if (!rect.isEmpty())
                m_toolTips.push_back(addToolTipRect(rect, [this, column, row] { return toolTipAt(column, row); }));
        }
    }
}

std::string NSTableView::toolTipAt(long column, long row)
{
    Ref<NSTableView> const protector(this);
    Ref<NSCell> const cell(preparedCellAtColumn(column, row));
    Ref<NSTableColumn> const tableColumn(columnAt(column));
    auto const* ownWindow = window();
    if (!cell || !tableColumn || !ownWindow)
        return {};
    cell->setHighlighted(false);
    auto rect = frameOfCellAtColumn(column, row);
    return toolTipForCell(
        *cell, rect, *tableColumn, row, convertPointFromView(ownWindow->mouseLocationOutsideOfEventStream(), nullptr));
}

// MARK: letters

std::optional<std::string> NSTableView::typeSelectString(NSTableColumn& column, long row)
{
    if (m_delegateHooks.typeSelectStringForTableColumn)
        return m_delegateHooks.typeSelectStringForTableColumn(*this, column, row);
    auto value = objectValueForCell(column, row);
    if (value.isNil() || (value.isObject() && !dynamic_cast<NSAttributedString*>(value.object())))
        return std::nullopt;
    auto* cell = column.dataCellForRow(row);
    if (!cell || !dynamic_cast<NSTextFieldCell*>(cell))
        return std::nullopt;
    cell->setObjectValue(std::move(value));
    return cell->stringValue();
}

bool NSTableView::typesSelectionOf(std::string_view wanted, long row)
{
    for (long column = 0; column < numberOfColumns(); ++column) {
        Ref<NSTableColumn> const tableColumn(columnAt(column));
        if (tableColumn->isHidden())
            continue;
        auto const text = typeSelectString(*tableColumn, row);
        if (text && !text->empty())
            return foldedPrefixLength(*text, wanted) != std::string_view::npos && maySelectRow(row);
    }
    return false;
}

// Letters typed one after the other look for a row that begins with them; one letter again and again goes from row to row.
void NSTableView::insertText(std::string_view text)
{
    Ref<NSTableView> const protector(this);
    if (m_typeAhead.isEmpty() && text == " ")
        return;
    m_typeAhead.add(text, clock().uptime());
    auto const wanted = m_typeAhead.typed();
    long searched = 0;
    bool isFound = false;
    long const row = m_typeAhead.find(numberOfRows(), selectedRow(), [&](long candidate) {
        isFound = candidate < numberOfRows() && typesSelectionOf(wanted, candidate);
        return isFound || ++searched >= mostRowsSearched;
    });
    if (!isFound)
        return;
    changeSelection(selectionAfterChange(m_selection, row, SelectionChange::replace, selectionRules()));
    scrollRowToVisible(row);
}

}

#include <plix/platform/appkit/NSTableHeaderView.h>

#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderCell.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/column_layout.h>
#include <plix/platform/appkit/tracking_wait.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace plix {

namespace {

/// This close to a divider, in points, a press resizes the column before it.
constexpr float dividerReach = 4;
/// The pointer moves this far before a press becomes a drag of the column.
constexpr float dragThreshold = 4;

}

PLIX_DESCRIBE(NSTableHeaderView)
{
}

PLIX_DESCRIBE(NSTableCornerView)
{
}

NSTableHeaderView::NSTableHeaderView() = default;
NSTableHeaderView::~NSTableHeaderView() = default;

bool NSTableHeaderView::init()
{
    return NSTableHeaderView::init(Rect {});
}

bool NSTableHeaderView::init(Rect frame)
{
    return Base::init(frame);
}

bool NSTableHeaderView::init(NSCoder& coder)
{
    return Base::init(coder);
}

float NSTableHeaderView::standardHeight()
{
    return Theme::headerHeight();
}

Rect NSTableHeaderView::headerRectOfColumn(long column) const
{
    if (!m_tableView || column < 0 || column >= m_tableView->numberOfColumns())
        return {};
    auto const rect = m_tableView->rectOfColumn(column);
    return { rect.x, 0, rect.width, bounds().height };
}

long NSTableHeaderView::columnAtPoint(Point point) const
{
    return m_tableView && mouseInRect(point, bounds()) ? m_tableView->columnAtPoint({ point.x, 0 }) : -1;
}

void NSTableHeaderView::columnsChanged()
{
    setNeedsDisplay(true);
    if (auto* ownWindow = window())
        ownWindow->invalidateCursorRectsForView(*this);
}

// MARK: drawing

void NSTableHeaderView::drawHeader(long column, Rect rect)
{
    Ref<NSTableColumn> const tableColumn(m_tableView->tableColumns()[static_cast<std::size_t>(column)]);
    Ref<NSCell> const cell(tableColumn->headerCell());
    if (!cell || rect.width <= 0)
        return;
    bool const isChosen = m_tableView->highlightedTableColumn() == tableColumn.get() || m_tableView->isColumnSelected(column);
    if (auto* headerCell = dynamic_cast<NSTableHeaderCell*>(cell.get())) {
        headerCell->setIndicatorImage(m_tableView->indicatorImageInTableColumn(*tableColumn));
        headerCell->setChosen(isChosen);
    }
    cell->setEnabled(m_tableView->isEnabled());
    cell->setHighlighted(m_pressedColumn.get() == tableColumn.get());
    cell->drawWithFrame(rect, *this);
    cell->setHighlighted(false);
}

void NSTableHeaderView::drawRect(Rect dirty)
{
    Ref<NSTableHeaderView> const protector(this);
    auto const& theme = Theme::current();
    theme.drawHeaderBackground({ dirty.x, 0, dirty.width, bounds().height });
    if (!m_tableView)
        return;
    auto const columns = m_tableView->columnsInRect(dirty);
    for (long column = columns.location; column < columns.end() && column < m_tableView->numberOfColumns(); ++column) {
        if (column != m_draggedColumn)
            drawHeader(column, headerRectOfColumn(column));
    }
    if (m_draggedColumn < 0 || m_draggedColumn >= m_tableView->numberOfColumns())
        return;
    auto rect = headerRectOfColumn(m_draggedColumn);
    rect.x += m_draggedDistance;
    drawHeader(m_draggedColumn, rect);
    theme.drawHeaderDivider({ rect.x - 1, rect.y, 1, rect.height });
}

void NSTableCornerView::drawRect(Rect dirty)
{
    Theme::current().drawHeaderBackground({ dirty.x, 0, dirty.width, bounds().height });
}

// MARK: dividers

// The column whose right edge is there; of several at one place, as columns without width have them, the last that can grow.
long NSTableHeaderView::dividerAt(float x) const
{
    if (!m_tableView || !m_tableView->allowsColumnResizing())
        return -1;
    auto const near = m_tableView->columnsInRect({ x - dividerReach - 1, 0, 2 * dividerReach + 2, 1 });
    long found = -1;
    float least = dividerReach;
    for (long column = near.location; column < near.end(); ++column) {
        auto const& tableColumn = *m_tableView->tableColumns()[static_cast<std::size_t>(column)];
        float const distance = std::abs(x - headerRectOfColumn(column).maxX());
        if (tableColumn.isHidden() || (tableColumn.resizingMask() & NSTableColumnUserResizingMask) == 0 || distance > least)
            continue;
        found = column;
        least = distance;
    }
    return found;
}

void NSTableHeaderView::resetCursorRects()
{
    for (auto const tag : std::exchange(m_toolTips, {}))
        removeToolTip(tag);
    if (!m_tableView)
        return;
    bool const canResize = m_tableView->allowsColumnResizing() && m_tableView->isEnabled();
    auto const seen = visibleRect();
    auto const columns = m_tableView->columnsInRect(NSInsetRect(seen, -dividerReach, 0));
    for (long column = columns.location; column < columns.end(); ++column) {
        auto const& tableColumn = *m_tableView->tableColumns()[static_cast<std::size_t>(column)];
        auto const tipRect = NSIntersectionRect(headerRectOfColumn(column), seen);
        if (!tableColumn.headerToolTip().empty() && !tipRect.isEmpty())
            m_toolTips.push_back(addToolTipRect(tipRect, [tip = tableColumn.headerToolTip()] { return tip; }));
        if (!canResize || tableColumn.isHidden() || (tableColumn.resizingMask() & NSTableColumnUserResizingMask) == 0)
            continue;
        auto const rect = headerRectOfColumn(column);
        addCursorRect(NSIntersectionRect({ rect.maxX() - dividerReach, 0, 2 * dividerReach, rect.height }, seen),
            NSCursor::resizeLeftRightCursor());
    }
}

// MARK: mouse

void NSTableHeaderView::mouseDown(NSEvent& event)
{
    if (!m_tableView || !m_tableView->isEnabled())
        return;
    Ref<NSTableHeaderView> const protector(this);
    Ref<NSTableView> const table(m_tableView);
    auto const point = convertPointFromView(event.locationInWindow(), nullptr);
    if (long const divider = dividerAt(point.x); divider >= 0)
        resizeColumn(event, divider);
    else if (long const column = columnAtPoint(point); column >= 0)
        pressColumn(event, column);
}

void NSTableHeaderView::resizeColumn(NSEvent& press, long column)
{
    Ref<NSTableColumn> const resized(m_tableView->tableColumns()[static_cast<std::size_t>(column)]);
    float const start = convertPointFromView(press.locationInWindow(), nullptr).x;
    float const width = resized->width();
    m_resizedColumn = column;
    for (Ref<NSWindow> ownWindow(window()); ownWindow; ownWindow = Ref<NSWindow>(window())) {
        auto const event = ownWindow->nextEventMatchingMask(NSLeftMouseUpMask | NSLeftMouseDraggedMask);
        if (!event || event->type() == NSLeftMouseUp || !m_tableView || resized->tableView() != m_tableView)
            break;
        float const x = convertPointFromView(event->locationInWindow(), nullptr).x;
        resized->setWidth(std::round(width + x - start));
    }
    m_resizedColumn = -1;
}

void NSTableHeaderView::setPressedColumn(NSTableColumn* column)
{
    if (m_pressedColumn.get() == column)
        return;
    m_pressedColumn = Weak<NSTableColumn>(column);
    setNeedsDisplay(true);
}

void NSTableHeaderView::pressColumn(NSEvent& press, long column)
{
    Ref<NSTableView> const table(m_tableView);
    Ref<NSTableColumn> const pressed(table->tableColumns()[static_cast<std::size_t>(column)]);
    Ref<NSEvent> const kept(press);
    auto const start = convertPointFromView(press.locationInWindow(), nullptr);
    setPressedColumn(pressed.get());
    table->headerPressed(*pressed);
    bool isInside = true;
    for (;;) {
        Ref<NSWindow> const ownWindow(window());
        auto const event = ownWindow ? ownWindow->nextEventMatchingMask(NSLeftMouseUpMask | NSLeftMouseDraggedMask) : nullptr;
        if (!event || m_tableView != table.get() || pressed->tableView() != table.get()) {
            isInside = false;
            break;
        }
        auto const point = convertPointFromView(event->locationInWindow(), nullptr);
        isInside = mouseInRect(point, headerRectOfColumn(table->columnWithTableColumn(*pressed))) && !isAbandoned(*event);
        if (event->type() == NSLeftMouseUp)
            break;
        if (table->allowsColumnReordering() && std::abs(point.x - start.x) >= dragThreshold) {
            dragColumn(press, *pressed);
            setPressedColumn(nullptr);
            return;
        }
        setPressedColumn(isInside ? pressed.get() : nullptr);
    }
    setPressedColumn(nullptr);
    if (isInside)
        table->headerClicked(*pressed, press);
}

// The header follows the pointer; the columns change places when it is let go.
void NSTableHeaderView::dragColumn(NSEvent& press, NSTableColumn& dragged)
{
    Ref<NSTableView> const table(m_tableView);
    Ref<NSTableColumn> const column(dragged);
    float const start = convertPointFromView(press.locationInWindow(), nullptr).x;
    bool isDone = false;
    while (!isDone) {
        Ref<NSWindow> const ownWindow(window());
        auto const event
            = ownWindow ? ownWindow->nextEventMatchingMask(NSLeftMouseUpMask | NSLeftMouseDraggedMask | NSKeyDownMask) : nullptr;
        bool const isCancelled = event && event->type() == NSKeyDown && event->character() == NSEscapeCharacter;
        if (!event || isCancelled || isAbandoned(*event) || m_tableView != table.get() || column->tableView() != table.get())
            break;
        if (event->type() == NSKeyDown)
            continue;
        isDone = event->type() == NSLeftMouseUp;
        table->autoscroll(*event);
        m_draggedColumn = table->columnWithTableColumn(*column);
        m_draggedDistance = convertPointFromView(event->locationInWindow(), nullptr).x - start;
        setNeedsDisplay(true);
    }
    float const distance = std::exchange(m_draggedDistance, 0);
    m_draggedColumn = -1;
    setNeedsDisplay(true);
    if (!isDone)
        return;
    long const from = table->columnWithTableColumn(*column);
    std::vector<float> edges;
    for (long i = 0; i < table->numberOfColumns(); ++i)
        edges.push_back(table->rectOfColumn(i).x);
    edges.push_back(table->numberOfColumns() > 0 ? table->rectOfColumn(table->numberOfColumns() - 1).maxX() : 0);
    long const to = columnPlaceForDrag(edges, from, table->rectOfColumn(from).midX() + distance);
    table->moveColumn(from, to);
    table->headerDragged(*column);
}

// MARK: menu

NSMenu* NSTableHeaderView::menuForEvent(NSEvent& event)
{
    if (auto* own = Base::menuForEvent(event); own || !m_offersColumnMenu || !m_tableView)
        return own;
    m_columnMenu = make<NSMenu>("");
    m_columnMenu->setAutoenablesItems(false);
    long const shown = std::ranges::count_if(m_tableView->tableColumns(), [](auto const& column) { return !column->isHidden(); });
    for (auto const& column : m_tableView->tableColumns()) {
        auto const title = column->headerCell() ? column->headerCell()->stringValue() : std::string();
        if (title.empty())
            continue;
        auto const item = m_columnMenu->addItemWithTitle(title, {}, "");
        item->setState(column->isHidden() ? NSOffState : NSOnState);
        item->setEnabled(column->isHidden() || shown > 1);
        item->setActionFunction(column, [column = Weak<NSTableColumn>(*column)](NSObject*) {
            if (column)
                column->setHidden(!column->isHidden());
        });
    }
    return m_columnMenu->numberOfItems() > 0 ? m_columnMenu.get() : nullptr;
}

}

#include <plix/platform/appkit/NSOutlineView.h>

#include <plix/platform/appkit/NSDraggingInfo.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSNotificationCenter.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace plix {

namespace {

/// A drag that rests on a closed item this long, in seconds, opens it.
constexpr double springDelay = 0.6;

void post(NSNotification const& told, char const* name, Hook<void(NSNotification const&)> const& hook)
{
    NSNotification const notification { name, told.object, told.userInfo };
    hook(notification);
    NSNotificationCenter::defaultCenter().postNotification(notification);
}

}

long NSOutlineView::countOfRows()
{
    return m_tree.numberOfRows();
}

ObjectValue NSOutlineView::objectValueForCell(NSTableColumn& column, long row)
{
    if (m_sourceHooks.objectValueForTableColumn) {
        Ref<NSObject> const item(itemAtRow(row));
        return m_sourceHooks.objectValueForTableColumn(*this, column, item.get());
    }
    return m_sourceHooks.objectValueForTableColumnAndRow(*this, column, row);
}

void NSOutlineView::takeObjectValue(ObjectValue value, NSTableColumn& column, long row)
{
    Ref<NSObject> const item(itemAtRow(row));
    m_sourceHooks.setObjectValue(*this, std::move(value), column, item.get());
}

void NSOutlineView::tellWillDisplayCell(NSCell& cell, NSTableColumn& column, long row)
{
    m_hooks.willDisplayCellAtRow(*this, cell, column, row);
    if (!m_hooks.willDisplayCell)
        return;
    Ref<NSObject> const item(itemAtRow(row));
    m_hooks.willDisplayCell(*this, cell, column, item.get());
}

bool NSOutlineView::mayEdit(NSTableColumn& column, long row)
{
    Ref<NSObject> const item(itemAtRow(row));
    return !m_hooks.shouldEditTableColumn || m_hooks.shouldEditTableColumn(*this, column, item.get());
}

bool NSOutlineView::mayChangeSelection()
{
    return !m_hooks.selectionShouldChangeInOutlineView || m_hooks.selectionShouldChangeInOutlineView(*this);
}

bool NSOutlineView::maySelectRow(long row)
{
    if (!m_hooks.shouldSelectItem)
        return true;
    Ref<NSObject> const item(itemAtRow(row));
    return m_hooks.shouldSelectItem(*this, item.get());
}

std::optional<std::string> NSOutlineView::typeSelectString(NSTableColumn& column, long row)
{
    if (!m_hooks.typeSelectStringForTableColumn)
        return Base::typeSelectString(column, row);
    Ref<NSObject> const item(itemAtRow(row));
    return m_hooks.typeSelectStringForTableColumn(*this, column, item.get());
}

void NSOutlineView::tellSelectionChanged()
{
    post({ {}, this, {} }, NSOutlineViewSelectionDidChangeNotification, m_hooks.outlineViewSelectionDidChange);
}

void NSOutlineView::tellSelectionIsChanging()
{
    post({ {}, this, {} }, NSOutlineViewSelectionIsChangingNotification, m_hooks.outlineViewSelectionIsChanging);
}

void NSOutlineView::tellColumnMoved(NSNotification const& notification)
{
    post(notification, NSOutlineViewColumnDidMoveNotification, m_hooks.outlineViewColumnDidMove);
}

void NSOutlineView::tellColumnResized(NSNotification const& notification)
{
    post(notification, NSOutlineViewColumnDidResizeNotification, m_hooks.outlineViewColumnDidResize);
}

void NSOutlineView::tellHeaderPressed(NSTableColumn& column)
{
    m_hooks.mouseDownInHeaderOfTableColumn(*this, column);
}

void NSOutlineView::tellHeaderClicked(NSTableColumn& column)
{
    m_hooks.didClickTableColumn(*this, column);
}

void NSOutlineView::tellHeaderDragged(NSTableColumn& column)
{
    m_hooks.didDragTableColumn(*this, column);
}

bool NSOutlineView::maySelectColumn(NSTableColumn& column)
{
    return !m_hooks.shouldSelectTableColumn || m_hooks.shouldSelectTableColumn(*this, column);
}

bool NSOutlineView::hasCellToolTips() const
{
    return static_cast<bool>(m_hooks.toolTipForCell);
}

std::string NSOutlineView::toolTipForCell(NSCell& cell, Rect& rect, NSTableColumn& column, long row, Point mouse)
{
    Ref<NSObject> const item(itemAtRow(row));
    return m_hooks.toolTipForCell(*this, cell, rect, column, item.get(), mouse);
}

// MARK: dragging items out

bool NSOutlineView::canWriteRows() const
{
    return static_cast<bool>(m_sourceHooks.writeItems);
}

bool NSOutlineView::writeRows(NSIndexSet const& rows, NSPasteboard& pasteboard)
{
    std::vector<Ref<NSObject>> items;
    for (long const row : rows.indexes()) {
        if (auto* item = itemAtRow(row))
            items.emplace_back(item);
    }
    return !items.empty() && m_sourceHooks.writeItems(*this, items, pasteboard);
}

// MARK: drops

void NSOutlineView::setDropItem(NSObject* item, long dropChildIndex)
{
    m_wantedDrop = DropTarget { Ref<NSObject>(item), std::max(dropChildIndex, NSOutlineViewDropOnItemIndex) };
}

// In the gap below the last row of an item the pointer's place sideways says to which of the levels that end there the drop goes.
NSOutlineView::DropTarget NSOutlineView::dropTargetAt(RowDropPlace place, float x) const
{
    if (place.isOnRow)
        return { Ref<NSObject>(itemAtRow(place.row)), NSOutlineViewDropOnItemIndex };
    if (place.row <= 0)
        return { nullptr, 0 };
    Ref<NSObject> above(itemAtRow(place.row - 1));
    if (!above)
        return {};
    if (m_tree.numberOfRowsBelow(above.get()) > 0)
        return { above, 0 };
    long const deepest = levelForRow(place.row - 1);
    long const shallowest = std::max(0L, levelForRow(place.row));
    auto const* column = outlineTableColumn();
    float const start = column ? rectOfColumn(columnWithTableColumn(*column)).x + markerWidth() : 0;
    float const step = std::max(1.F, m_indentationPerLevel);
    auto const pointed = static_cast<long>(std::floor(std::clamp((x - start) / step, -1.F, 100000.F)));
    for (long level = deepest; level > std::clamp(pointed, std::min(shallowest, deepest), deepest); --level)
        above = Ref<NSObject>(m_tree.parentOf(above.get()));
    return { Ref<NSObject>(m_tree.parentOf(above.get())), m_tree.indexInParent(above.get()) + 1 };
}

// The way back, for targets that the data source chose.
RowDropPlace NSOutlineView::placeOfDrop(DropTarget const& target) const
{
    long const row = target.item ? m_tree.rowForItem(target.item.get()) : -1;
    if (target.childIndex == NSOutlineViewDropOnItemIndex || (target.item && (row < 0 || !m_tree.isExpanded(target.item.get()))))
        return { row, true };
    // Behind all that is below the children before.
    long const level = target.item ? levelForRow(row) + 1 : 0;
    long place = row + 1;
    for (long passed = 0; place < numberOfRows() && levelForRow(place) >= level; ++passed) {
        if (passed >= target.childIndex)
            break;
        place += 1 + m_tree.numberOfRowsBelow(itemAtRow(place));
    }
    return { std::min(place, numberOfRows()), false };
}

unsigned NSOutlineView::validateDropAt(NSDraggingInfo& info, RowDropPlace& place)
{
    if (!m_sourceHooks.validateDrop)
        return 0;
    m_drop = dropTargetAt(place, convertPointFromView(info.draggingLocation(), nullptr).x);
    m_wantedDrop.reset();
    auto const target = m_drop;
    auto const operation = m_sourceHooks.validateDrop(*this, info, target.item.get(), target.childIndex);
    if (auto const wanted = std::exchange(m_wantedDrop, std::nullopt)) {
        m_drop = *wanted;
        place = placeOfDrop(m_drop);
    }
    return operation;
}

bool NSOutlineView::acceptDropAt(NSDraggingInfo& info, RowDropPlace)
{
    auto const target = std::exchange(m_drop, {});
    return m_sourceHooks.acceptDrop(*this, info, target.item.get(), target.childIndex);
}

float NSOutlineView::dropMarkerOffset(RowDropPlace) const
{
    auto const* column = outlineTableColumn();
    float const x = column ? rectOfColumn(columnWithTableColumn(*column)).x : 0;
    return x + indentationOfLevel(m_drop.item ? m_tree.levelForItem(m_drop.item.get()) + 1 : 0);
}

// Told again and again while the pointer rests.
void NSOutlineView::dragMovedTo(RowDropPlace place, NSDraggingInfo& info)
{
    auto const row = rowAtPoint(convertPointFromView(info.draggingLocation(), nullptr));
    Ref<NSObject> const item(place.isOnRow ? itemAtRow(row) : nullptr);
    if (item != m_restedOn) {
        m_restedOn = item;
        m_restsSince = clock().uptime();
        return;
    }
    if (!item || clock().uptime() - m_restsSince < springDelay || m_tree.isExpanded(item.get()))
        return;
    m_restsSince = clock().uptime();
    expandItem(item.get());
    if (m_tree.isExpanded(item.get()))
        m_autoExpanded.push_back(item);
}

void NSOutlineView::dragLeft(bool wasDropped)
{
    Ref<NSOutlineView> const protector(this);
    m_restedOn = nullptr;
    m_drop = {};
    auto const opened = std::exchange(m_autoExpanded, {});
    if (opened.empty() || !shouldCollapseAutoExpandedItemsForDeposited(wasDropped))
        return;
    for (auto item = opened.rbegin(); item != opened.rend(); ++item)
        collapseItem(item->get());
}

}

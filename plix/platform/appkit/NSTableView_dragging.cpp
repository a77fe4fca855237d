#include <plix/platform/appkit/NSTableView.h>

#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSDraggingInfo.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace plix {

namespace {

/// A drag this close to the upper or lower edge of what is seen scrolls, in points.
constexpr float scrollMargin = 12;

}

void NSTableView::setVerticalMotionCanBeginDrag(bool can)
{
    m_flags.verticalMotionCanBeginDrag = can;
}

void NSTableView::setDraggingSourceOperationMask(unsigned mask, bool forLocal)
{
    (forLocal ? m_localDragMask : m_foreignDragMask) = mask;
}

unsigned NSTableView::draggingSourceOperationMaskForLocal(bool isLocal)
{
    return isLocal ? m_localDragMask : m_foreignDragMask;
}

// MARK: rows as a source

bool NSTableView::canWriteRows() const
{
    return static_cast<bool>(m_dataSourceHooks.writeRowsWithIndexes);
}

bool NSTableView::writeRows(NSIndexSet const& rows, NSPasteboard& pasteboard)
{
    return m_dataSourceHooks.writeRowsWithIndexes && m_dataSourceHooks.writeRowsWithIndexes(*this, rows, pasteboard);
}

bool NSTableView::canDragRowsWithIndexes(NSIndexSet const&, Point)
{
    return true;
}

Ref<NSImage> NSTableView::imageOfRows(NSIndexSet const& rows, Rect& place)
{
    Ref<NSTableView> const protector(this);
    auto const visible = visibleRect();
    auto const seen = rowsInRect(visible);
    place = {};
    for (long row = seen.location; row < seen.end(); ++row) {
        if (rows.containsIndex(row))
            place = NSUnionRect(place, NSIntersectionRect(rectOfRow(row), visible));
    }
    if (place.isEmpty())
        return nullptr;
    auto const image = make<NSImage>(place.size());
    image->setFlipped(true);
    FocusLock const focus(image);
    NSGraphicsContext::currentContext()->translateBy(-place.x, -place.y);
    for (long row = seen.location; row < seen.end() && row < numberOfRows(); ++row) {
        if (rows.containsIndex(row))
            drawRow(row, place);
    }
    return image;
}

Ref<NSImage> NSTableView::dragImageForRowsWithIndexes(
    NSIndexSet const& rows, std::vector<Ref<NSTableColumn>> const&, NSEvent& event, Point& offset)
{
    Rect place;
    auto const image = imageOfRows(rows, place);
    auto const pointer = convertPointFromView(event.locationInWindow(), nullptr);
    offset = { place.midX() - pointer.x, place.midY() - pointer.y };
    return image;
}

Ref<NSImage> NSTableView::dragImageForRows(std::vector<long> const& rows, NSEvent& event, Point& dragImageOffset)
{
    NSIndexSet indexes;
    for (long const row : rows)
        indexes.addIndex(row);
    Rect place;
    auto const image = imageOfRows(indexes, place);
    auto const pointer = convertPointFromView(event.locationInWindow(), nullptr);
    dragImageOffset = { place.midX() - pointer.x, place.midY() - pointer.y };
    return image;
}

bool NSTableView::beginDrag(NSEvent& press, NSEvent& drag, long row)
{
    Ref<NSTableView> const protector(this);
    auto const start = convertPointFromView(press.locationInWindow(), nullptr);
    auto const rows = isRowSelected(row) ? m_selection.rows : NSIndexSet::indexSetWithIndex(row);
    if (!canDragRowsWithIndexes(rows, start))
        return false;
    Ref<NSPasteboard> const pasteboard(NSPasteboard::pasteboardWithName(NSDragPboard));
    pasteboard->declareTypes({});
    if (!writeRows(rows, *pasteboard) || !window())
        return false;
    Point offset;
    auto const image = dragImageForRowsWithIndexes(rows, m_columns, press, offset);
    auto const size = image ? image->size() : Size {};
    auto const now = convertPointFromView(drag.locationInWindow(), nullptr);
    // The image's lower left corner, which in a flipped view is where y is greatest.
    Point const at { start.x + offset.x - size.width / 2, start.y + offset.y + size.height / 2 };
    dragImage(image.get(), at, { now.x - start.x, start.y - now.y }, drag, *pasteboard, *this, true);
    return true;
}

// MARK: rows as a destination

void NSTableView::setDropRow(long row, NSTableViewDropOperation operation)
{
    m_wantedDropPlace = RowDropPlace { std::clamp(row, -1L, numberOfRows()), operation == NSTableViewDropOn };
}

unsigned NSTableView::validateDropAt(NSDraggingInfo& info, RowDropPlace& place)
{
    if (!m_dataSourceHooks.validateDrop)
        return NSDragOperationNone;
    m_wantedDropPlace = place;
    auto const operation
        = m_dataSourceHooks.validateDrop(*this, info, place.row, place.isOnRow ? NSTableViewDropOn : NSTableViewDropAbove);
    place = std::exchange(m_wantedDropPlace, std::nullopt).value_or(place);
    return operation;
}

bool NSTableView::acceptDropAt(NSDraggingInfo& info, RowDropPlace place)
{
    return m_dataSourceHooks.acceptDrop
        && m_dataSourceHooks.acceptDrop(*this, info, place.row, place.isOnRow ? NSTableViewDropOn : NSTableViewDropAbove);
}

void NSTableView::markDropPlace()
{
    if (!m_dropPlace)
        return;
    if (m_dropPlace->row < 0) {
        setNeedsDisplayInRect(visibleRect());
        return;
    }
    long const first = std::max(0L, m_dropPlace->row - 1);
    float const top = m_rows.top(first) - 4;
    setNeedsDisplayInRect({ 0, top, bounds().width, m_rows.top(m_dropPlace->row + 1) + 4 - top });
}

void NSTableView::setDropPlace(std::optional<RowDropPlace> place)
{
    if (m_dropPlace == place)
        return;
    markDropPlace();
    m_dropPlace = place;
    markDropPlace();
}

void NSTableView::scrollForDrag(Point point)
{
    auto const visible = visibleRect();
    if (visible.isEmpty())
        return;
    if (point.y < visible.y + scrollMargin)
        scrollRectToVisible({ visible.x, visible.y - m_rows.pitch(), 1, 1 });
    else if (point.y > visible.maxY() - scrollMargin)
        scrollRectToVisible({ visible.x, visible.maxY() + m_rows.pitch() - 1, 1, 1 });
}

unsigned NSTableView::proposeDrop(NSDraggingInfo& info)
{
    Ref<NSTableView> const protector(this);
    if (!isEnabled()) {
        setDropPlace(std::nullopt);
        return NSDragOperationNone;
    }
    auto place = dropPlaceAt(convertPointFromView(info.draggingLocation(), nullptr).y, m_rows);
    auto const operation = validateDropAt(info, place);
    setDropPlace(operation == NSDragOperationNone ? std::nullopt : std::optional(place));
    dragMovedTo(place, info);
    return operation;
}

unsigned NSTableView::draggingEntered(NSDraggingInfo& info)
{
    return proposeDrop(info);
}

unsigned NSTableView::draggingUpdated(NSDraggingInfo& info)
{
    scrollForDrag(convertPointFromView(info.draggingLocation(), nullptr));
    return proposeDrop(info);
}

void NSTableView::draggingExited(NSDraggingInfo*)
{
    Ref<NSTableView> const protector(this);
    setDropPlace(std::nullopt);
    dragLeft(false);
}

bool NSTableView::prepareForDragOperation(NSDraggingInfo&)
{
    return m_dropPlace.has_value();
}

bool NSTableView::performDragOperation(NSDraggingInfo& info)
{
    Ref<NSTableView> const protector(this);
    if (!m_dropPlace)
        return false;
    auto const place = *m_dropPlace;
    setDropPlace(std::nullopt);
    bool const isTaken = acceptDropAt(info, place);
    dragLeft(isTaken);
    return isTaken;
}

void NSTableView::concludeDragOperation(NSDraggingInfo*)
{
    setDropPlace(std::nullopt);
}

}

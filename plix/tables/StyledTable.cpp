#include <plix/tables/StyledTable.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/system/identity.h>
#include <plix/tables/PLIXNSTableHeaderView.h>
#include <plix/tables/data_sources.h>
#include <plix/tables/row_cells.h>
#include <plix/tables/table_view_additions.h>

#include <algorithm>

namespace plix {

namespace {

enum Key : char32_t { enterKey = 3, backspaceKey = 8, returnKey = 13, deleteKey = 127, upKey = 0xF700, downKey = 0xF701 };

constexpr std::uint32_t lastVersionWithoutPreparedCells = 0x104F;

}

// MARK: life

template <typename Platform> StyledTable<Platform>::StyledTable() = default;

template <typename Platform> StyledTable<Platform>::~StyledTable()
{
    NSNotificationCenter::defaultCenter().removeObserver(*this);
}

template <typename Platform> bool StyledTable<Platform>::init()
{
    if (!Platform::init())
        return false;
    setUp();
    return true;
}

template <typename Platform> bool StyledTable<Platform>::init(Rect frame)
{
    if (!Platform::init(frame))
        return false;
    setUp();
    installHeader();
    return true;
}

template <typename Platform> bool StyledTable<Platform>::init(NSCoder& coder)
{
    if (!Platform::init(coder))
        return false;
    setUp();
    coder.read(
        "highlightStyle", [&](ObjectValue const& value) { m_highlightStyle = static_cast<std::uint32_t>(value.integerValue()); });
    auto const hidden = coder.decodeObjectForKey("hiddenTableColumns");
    if (auto const* columns = hidden.array()) {
        for (auto const& value : *columns) {
            if (auto const column = value.as<NSTableColumn>())
                m_hiddenTableColumns.push_back(column);
        }
    }
    installHeader();
    return true;
}

template <typename Platform> void StyledTable<Platform>::encodeWithCoder(NSCoder& coder) const
{
    Platform::encodeWithCoder(coder);
    coder.encodeInt(m_highlightStyle, "highlightStyle");
    coder.encodeObject(ObjectValue::Array(m_hiddenTableColumns.begin(), m_hiddenTableColumns.end()), "hiddenTableColumns");
}

template <typename Platform> void StyledTable<Platform>::setUp()
{
    NSNotificationCenter::defaultCenter().addObserver(
        *this, &StyledTable::userDefaultsDidChange, NSApplicationDidBecomeActiveNotification, NSApp.get());
}

template <typename Platform> void StyledTable<Platform>::installHeader()
{
    auto const* header = this->headerView();
    this->setHeaderView(make<PLIXNSTableHeaderView>(header ? header->frame() : Rect {}));
}

template <typename Platform> void StyledTable<Platform>::userDefaultsDidChange(NSNotification const&)
{
    m_gradient.invalidate();
}

// MARK: columns

template <typename Platform> void StyledTable<Platform>::hideColumn(long index)
{
    if (index < 0 || index >= this->numberOfColumns())
        return;
    Ref<StyledTable> const protector(this);
    Ref<NSTableColumn> const column = this->tableColumns()[static_cast<std::size_t>(index)];
    this->setIndicatorImage(nullptr, *column);
    m_hiddenTableColumns.push_back(column);
    this->removeTableColumn(*column);
}

template <typename Platform> void StyledTable<Platform>::hideColumnWithIdentifier(ObjectValue const& identifier)
{
    hideColumn(this->columnWithIdentifier(identifier));
}

template <typename Platform>
NSTableColumn* StyledTable<Platform>::hiddenTableColumnWithIdentifier(ObjectValue const& identifier) const
{
    if (identifier.isNil())
        return nullptr;
    auto const found = std::find_if(m_hiddenTableColumns.begin(), m_hiddenTableColumns.end(),
        [&](auto const& column) { return column->identifier() == identifier; });
    return found == m_hiddenTableColumns.end() ? nullptr : found->get();
}

template <typename Platform> void StyledTable<Platform>::showColumnWithIdentifier(ObjectValue const& identifier)
{
    Ref<StyledTable> const protector(this);
    Ref<NSTableColumn> const column = hiddenTableColumnWithIdentifier(identifier);
    if (!column)
        return;
    this->addTableColumn(*column);
    std::erase(m_hiddenTableColumns, column);
}

// MARK: mouse and keys

template <typename Platform> void StyledTable<Platform>::selectAndShowMenu(NSEvent& event)
{
    Ref<StyledTable> const protector(this);
    Ref<NSEvent> const kept(event);
    long const row = this->rowAtPoint(this->convertPointFromView(event.locationInWindow(), nullptr));
    if (row >= 0)
        selectForMenu(row);
    if (Ref<NSMenu> const menu = this->menu())
        menu->update();
    Platform::rightMouseDown(event);
}

template <typename Platform> NSMenu* StyledTable<Platform>::menuForEvent(NSEvent& event)
{
    bool const isControlClick
        = event.type() == NSLeftMouseDown && (event.modifierFlags() & NSControlKeyMask) && event.clickCount() == 1;
    Ref<StyledTable> const protector(this);
    if (isControlClick)
        this->mouseDown(event);
    return Platform::menuForEvent(event);
}

template <typename Platform> void StyledTable<Platform>::keyDown(NSEvent& event)
{
    Ref<StyledTable> const protector(this);
    switch (event.character()) {
    case returnKey:
    case enterKey:
        tellReturnKey();
        return;
    case backspaceKey:
    case deleteKey:
        tellDeleteBackward();
        return;
    case upKey:
    case downKey: {
        long const before = this->selectedRow();
        Platform::keyDown(event);
        if (this->selectedRow() != before)
            tellArrowKeyChangedSelection({ NSTableViewSelectionIsChangingNotification, protector, {} });
        return;
    }
    default:
        Platform::keyDown(event);
    }
}

template <typename Platform> void StyledTable<Platform>::deleteBackward(NSObject*)
{
    Ref<StyledTable> const protector(this);
    tellDeleteBackward();
}

// Offered along the responder chain from here, with the view as argument.
template <typename Platform> void StyledTable<Platform>::doCommandBySelector(Selector selector)
{
    this->tryToPerform(selector, this);
}

// MARK: live resize

template <typename Platform> bool StyledTable<Platform>::inLiveResize() const
{
    if (!NSApp || !NSApp->isRunning() || !Platform::inLiveResize())
        return false;
    auto& self = const_cast<StyledTable&>(*this);
    Ref<StyledTable> const protector(self);
    self.Platform::noteNumberOfRowsChanged();
    return Platform::inLiveResize();
}

template <typename Platform> void StyledTable<Platform>::viewDidEndLiveResize()
{
    Ref<StyledTable> const protector(this);
    Platform::noteNumberOfRowsChanged();
    Platform::viewDidEndLiveResize();
}

// MARK: drag images

template <typename Platform>
Ref<NSImage> StyledTable<Platform>::dragImageForRowsWithIndexes(
    NSIndexSet const& rows, std::vector<Ref<NSTableColumn>> const& columns, NSEvent& event, Point& offset)
{
    m_inDragPrep = 1;
    return Platform::dragImageForRowsWithIndexes(rows, columns, event, offset);
}

template <typename Platform>
Ref<NSImage> StyledTable<Platform>::dragImageForRows(std::vector<long> const& rows, NSEvent& event, Point& dragImageOffset)
{
    m_inDragPrep = 1;
    return Platform::dragImageForRows(rows, event, dragImageOffset);
}

// The platform's own are not called, which is meant.
template <typename Platform> void StyledTable<Platform>::draggedImageBeganAt(NSImage*, Point)
{
    m_inDragPrep = 0;
}

template <typename Platform> void StyledTable<Platform>::draggedImage(NSImage*, Point, unsigned)
{
    m_inDragPrep = 0;
}

// MARK: drawing

template <typename Platform> Ref<NSColor> StyledTable<Platform>::_highlightColorForCell(NSCell&)
{
    return nullptr;
}

template <typename Platform> Ref<NSImage> StyledTable<Platform>::highlightGradientImage()
{
    using Orientation = HighlightGradient::Orientation;
    return m_gradient.imageForRowHeight(this->rowHeight(), this->isFlipped() ? Orientation::flipped : Orientation::unflipped);
}

template <typename Platform> HighlightPaint StyledTable<Platform>::highlightPaint()
{
    return m_painter.paintFor(selectionComponents(*this));
}

// Rows outside what is dirty would not be seen.
template <typename Platform> void StyledTable<Platform>::highlightSelectionInClipRect(Rect clipRect)
{
    Ref<StyledTable> const protector(this);
    keepTextsOfSeenRows();
    auto const rows = this->rowsInRect(clipRect);
    long row = this->selectedRowIndexes().indexGreaterThanIndex(rows.location - 1);
    while (row != NSNotFound && row < rows.end()) {
        drawSelectedRow(row);
        row = this->selectedRowIndexes().indexGreaterThanIndex(row);
    }
}

// And as many again, for scrolling to and fro.
template <typename Platform> void StyledTable<Platform>::keepTextsOfSeenRows()
{
    auto const seenCells = this->rowsInRect(this->visibleRect()).length * this->numberOfColumns();
    m_selectedTexts.keepAtMost(static_cast<std::size_t>(2 * seenCells));
}

template <typename Platform> void StyledTable<Platform>::drawSelectedRow(long row)
{
    auto const image = customHighlightImage(row);
    auto const plan = rowHighlight(
        this->rectOfRow(row), m_highlightStyle, image ? HighlightImage::custom : HighlightImage::none, highlightIndentation(row));
    if (image) {
        m_painter.drawRowImage(plan, *image);
        return;
    }
    auto paint = highlightPaint();
    if (selectionShouldDrawGradient(*this))
        paint.gradient = highlightGradientImage();
    m_painter.drawRow(plan, paint);
}

template <typename Platform> void StyledTable<Platform>::_drawDropHighlightOnRow(long row)
{
    Ref<StyledTable> const protector(this);
    if (row < 0) {
        if (auto const* clipView = this->superview())
            drawDropFrame(clipView->bounds(), highlightPaint());
        return;
    }
    if (row >= this->numberOfRows())
        return;
    auto const rect = dropHighlightRect(this->rectOfRow(row), dropHighlightImage(row));
    drawDropHighlight(rect, highlightPaint(), this->isRowSelected(row) ? DropTarget::selected : DropTarget::unselected);
}

template <typename Platform>
void StyledTable<Platform>::_drawDropHighlightBetweenUpperRow(long upperRow, long lowerRow, float offset)
{
    auto const* clipView = this->superview();
    InsertionPlace const place { upperRow, lowerRow, this->numberOfRows(), this->rectOfRow(upperRow), this->rectOfRow(lowerRow),
        clipView ? clipView->bounds() : Rect {} };
    drawInsertionMarker(insertionMarker(place, offset), highlightPaint());
}

// Hooks may change rows and columns under way.
template <typename Platform> void StyledTable<Platform>::drawRow(long row, Rect)
{
    Ref<StyledTable> const protector(this);
    auto const isSeen = [this](long column) { return !this->tableColumns()[static_cast<std::size_t>(column)]->isHidden(); };
    long seenBefore = 0;
    for (long column = 0; column < this->numberOfColumns() && row < this->numberOfRows(); ++column) {
        if (!isSeen(column))
            continue;
        long next = column + 1;
        while (next < this->numberOfColumns() && !isSeen(next))
            ++next;
        drawCellOfRow(column, row, columnPlace(seenBefore, seenBefore + (next < this->numberOfColumns() ? 2 : 1)));
        ++seenBefore;
    }
}

template <typename Platform> void StyledTable<Platform>::drawCellOfRow(long index, long row, ColumnPlace place)
{
    Ref<NSTableColumn> const column = this->tableColumns()[static_cast<std::size_t>(index)];
    Ref<NSCell> cell(column->dataCellForRow(row));
    if (!cell)
        return;
    cell->setHighlighted(false);
    auto frame = this->frameOfCellAtColumn(index, row);
    bool const isText = dynamic_cast<NSTextFieldCell*>(cell.get());
    if (isText)
        frame = textRoom(frame, m_highlightStyle, place, firstColumn());
    if (hasDataSource(*this))
        cell->setObjectValue(this->objectValueForCell(*column, row));
    this->tellWillDisplayCell(*cell, *column, row);
    if (PLIXSystemVersion() > lastVersionWithoutPreparedCells) {
        cell = this->preparedCellAtColumn(index, row);
        if (!cell)
            return;
    }
    if (isText && index == this->editedColumn() && row == this->editedRow())
        cell->setObjectValue(""); // the editor shows it
    DressedCell const dressed(*cell, this->isRowSelected(row) ? RowState::selected : RowState::unselected, m_selectedTexts);
    cell->drawWithFrame(frame, *this);
}

template class StyledTable<NSTableView>;
template class StyledTable<NSOutlineView>;

}

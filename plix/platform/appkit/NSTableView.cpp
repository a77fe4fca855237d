#include <plix/platform/appkit/NSTableView.h>

#include <plix/platform/appkit/NSActionCell.h>
#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/appkit/NSTextDelegate.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>
#include <utility>

namespace plix {

namespace {

bool boolOr(NSCoder& coder, std::string_view key, bool otherwise)
{
    return coder.containsValueForKey(key) ? coder.decodeBoolForKey(key) : otherwise;
}

}

PLIX_DESCRIBE(NSTableView)
{
    description.action("moveUp:", &NSTableView::moveUp)
        .action("moveDown:", &NSTableView::moveDown)
        .action("moveUpAndModifySelection:", &NSTableView::moveUpAndModifySelection)
        .action("moveDownAndModifySelection:", &NSTableView::moveDownAndModifySelection)
        .action("pageUp:", &NSTableView::pageUp)
        .action("pageDown:", &NSTableView::pageDown)
        .action("pageUpAndModifySelection:", &NSTableView::pageUpAndModifySelection)
        .action("pageDownAndModifySelection:", &NSTableView::pageDownAndModifySelection)
        .action("moveToBeginningOfLine:", &NSTableView::moveToBeginningOfDocument)
        .action("moveToEndOfLine:", &NSTableView::moveToEndOfDocument)
        .action("moveToBeginningOfLineAndModifySelection:", &NSTableView::moveToBeginningOfDocumentAndModifySelection)
        .action("moveToEndOfLineAndModifySelection:", &NSTableView::moveToEndOfDocumentAndModifySelection)
        .action("moveToBeginningOfDocument:", &NSTableView::moveToBeginningOfDocument)
        .action("moveToEndOfDocument:", &NSTableView::moveToEndOfDocument)
        .action("moveToBeginningOfDocumentAndModifySelection:", &NSTableView::moveToBeginningOfDocumentAndModifySelection)
        .action("moveToEndOfDocumentAndModifySelection:", &NSTableView::moveToEndOfDocumentAndModifySelection)
        .action("insertNewline:", &NSTableView::insertNewline)
        .action("insertTab:", &NSTableView::insertTab)
        .action("insertBacktab:", &NSTableView::insertBacktab)
        .action("selectAll:", &NSTableView::selectAll)
        .action("deselectAll:", &NSTableView::deselectAll)
        .action("moveLeft:", &NSTableView::moveLeft)
        .action("moveRight:", &NSTableView::moveRight)
        .action("cancelOperation:", &NSTableView::cancelOperation)
        .fillsHooks<NSTextViewDelegate>()
        .hookOutlet("dataSource", &NSTableView::takeDataSource)
        .hookOutlet("delegate", &NSTableView::takeHooks);
}

NSTableView::NSTableView() = default;

NSTableView::~NSTableView()
{
    for (auto const& column : m_columns)
        column->setTableView(nullptr);
    if (m_headerView)
        m_headerView->setTableView(nullptr);
}

Class const* NSTableView::cellClass()
{
    return &NSActionCell::staticClass();
}

bool NSTableView::init()
{
    return NSTableView::init(Rect {});
}

bool NSTableView::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    setUpLooks();
    return true;
}

void NSTableView::setUpLooks()
{
    m_backgroundColor = NSColor::controlBackgroundColor();
    m_gridColor = NSColor::gridColor();
    m_headerView = make<NSTableHeaderView>(Rect { 0, 0, frame().width, NSTableHeaderView::standardHeight() });
    m_headerView->setTableView(this);
    m_cornerView = make<NSTableCornerView>(Rect { 0, 0, NSTableHeaderView::standardHeight(), NSTableHeaderView::standardHeight() });
}

bool NSTableView::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    setUpLooks();
    coder.read("rowHeight", [this](auto const& value) { setRowHeight(value.floatValue()); });
    Size spacing = m_intercellSpacing;
    coder.read("intercellSpacingWidth", [&](auto const& value) { spacing.width = value.floatValue(); });
    coder.read("intercellSpacingHeight", [&](auto const& value) { spacing.height = value.floatValue(); });
    setIntercellSpacing(spacing);
    if (auto const color = coder.decodeForKey<NSColor>("backgroundColor"))
        m_backgroundColor = color;
    if (auto const color = coder.decodeForKey<NSColor>("gridColor"))
        m_gridColor = color;
    m_gridStyleMask = static_cast<unsigned>(coder.decodeIntForKey("gridStyleMask"));
    m_flags.allowsColumnReordering = boolOr(coder, "columnReordering", m_flags.allowsColumnReordering);
    m_flags.allowsColumnResizing = boolOr(coder, "columnResizing", m_flags.allowsColumnResizing);
    m_flags.allowsColumnSelection = boolOr(coder, "columnSelection", m_flags.allowsColumnSelection);
    m_flags.allowsMultipleSelection = boolOr(coder, "multipleSelection", m_flags.allowsMultipleSelection);
    m_flags.allowsEmptySelection = boolOr(coder, "emptySelection", m_flags.allowsEmptySelection);
    m_flags.usesAlternatingRowBackgroundColors
        = boolOr(coder, "alternatingRowBackgroundColors", m_flags.usesAlternatingRowBackgroundColors);
    m_flags.verticalMotionCanBeginDrag = boolOr(coder, "verticalMotionCanBeginDrag", m_flags.verticalMotionCanBeginDrag);
    coder.read("columnAutoresizingStyle", [this](auto const& value) {
        auto const style = static_cast<unsigned>(value.intValue());
        if (style <= NSTableViewFirstColumnOnlyAutoresizingStyle)
            m_columnAutoresizingStyle = static_cast<NSTableViewColumnAutoresizingStyle>(style);
    });
    if (coder.containsValueForKey("headerView"))
        setHeaderView(coder.decodeForKey<NSTableHeaderView>("headerView"));
    if (coder.containsValueForKey("cornerView"))
        setCornerView(coder.decodeForKey<NSView>("cornerView"));
    auto const columns = coder.decodeObjectForKey("tableColumns");
    for (auto const& value : columns.array() ? *columns.array() : ObjectValue::Array {}) {
        if (auto const column = value.as<NSTableColumn>())
            addTableColumn(*column);
    }
    m_flags.autosaveTableColumns = coder.decodeBoolForKey("autosaveTableColumns");
    setAutosaveName(coder.decodeStringForKey("autosaveName"));
    return true;
}

void NSTableView::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeDouble(static_cast<double>(rowHeight()), "rowHeight");
    coder.encodeDouble(static_cast<double>(m_intercellSpacing.width), "intercellSpacingWidth");
    coder.encodeDouble(static_cast<double>(m_intercellSpacing.height), "intercellSpacingHeight");
    coder.encodeObject(m_backgroundColor, "backgroundColor");
    coder.encodeObject(m_gridColor, "gridColor");
    coder.encodeInt(m_gridStyleMask, "gridStyleMask");
    coder.encodeBool(m_flags.allowsColumnReordering, "columnReordering");
    coder.encodeBool(m_flags.allowsColumnResizing, "columnResizing");
    coder.encodeBool(m_flags.allowsColumnSelection, "columnSelection");
    coder.encodeBool(m_flags.allowsMultipleSelection, "multipleSelection");
    coder.encodeBool(m_flags.allowsEmptySelection, "emptySelection");
    coder.encodeBool(m_flags.usesAlternatingRowBackgroundColors, "alternatingRowBackgroundColors");
    coder.encodeBool(m_flags.verticalMotionCanBeginDrag, "verticalMotionCanBeginDrag");
    coder.encodeInt(m_columnAutoresizingStyle, "columnAutoresizingStyle");
    coder.encodeObject(m_headerView, "headerView");
    coder.encodeObject(m_cornerView, "cornerView");
    coder.encodeObject(ObjectValue::Array(m_columns.begin(), m_columns.end()), "tableColumns");
    coder.encodeBool(m_flags.autosaveTableColumns, "autosaveTableColumns");
    coder.encodeObject(m_autosaveName, "autosaveName");
}

// MARK: data source and delegate

void NSTableView::takeDataSource(HookSource const& source)
{
    m_dataSource = source;
    m_dataSourceHooks = source.hooks<NSTableViewDataSource>();
    reloadData();
}

void NSTableView::setDataSourceHooks(NSTableViewDataSource hooks)
{
    m_dataSource = {};
    m_dataSourceHooks = std::move(hooks);
    reloadData();
}

void NSTableView::takeHooks(HookSource const& source)
{
    m_delegate = source;
    m_delegateHooks = source.hooks<NSTableViewDelegate>();
    m_editingHooks = source.hooks<NSControlTextEditingDelegate>();
    setNeedsDisplay(true);
    if (auto* ownWindow = window())
        ownWindow->invalidateCursorRectsForView(*this);
}

void NSTableView::setDelegateHooks(NSTableViewDelegate hooks)
{
    m_delegate = {};
    m_delegateHooks = std::move(hooks);
    setNeedsDisplay(true);
    if (auto* ownWindow = window())
        ownWindow->invalidateCursorRectsForView(*this);
}

void NSTableView::reloadData()
{
    Ref<NSTableView> const protector(this);
    abortEditing();
    updateRowCount();
    tile();
    setNeedsDisplay(true);
}

void NSTableView::noteNumberOfRowsChanged()
{
    Ref<NSTableView> const protector(this);
    long const before = m_flags.hasRowCount ? m_rows.numberOfRows : 0;
    updateRowCount();
    tile();
    if (before != m_rows.numberOfRows)
        markRowsFrom(std::min(before, m_rows.numberOfRows));
}

long NSTableView::numberOfRows() const
{
    if (!m_flags.hasRowCount)
        const_cast<NSTableView*>(this)->updateRowCount();
    return m_rows.numberOfRows;
}

void NSTableView::updateRowCount()
{
    // Set first: the hook may ask for the count.
    m_flags.hasRowCount = true;
    long const count = std::max(0L, countOfRows());
    m_rows.numberOfRows = count;
    auto const* clip = clipView();
    long const seen = clip ? m_rows.rowAt(clip->bounds().y) : -1;
    moveStretch(m_rows.firstRowShowing(seen < 0 ? std::min(m_rows.firstRow, std::max(0L, count - 1)) : seen));
    if (m_editedRow >= count)
        abortEditing();
    auto selection = selectionWithinRows(m_selection, count);
    if (selection == m_selection)
        return;
    bool const isOtherSelection = selection.rows != m_selection.rows;
    m_selection = std::move(selection);
    if (isOtherSelection)
        tellSelectionChanged();
}

long NSTableView::countOfRows()
{
    return m_dataSourceHooks.numberOfRowsInTableView ? m_dataSourceHooks.numberOfRowsInTableView(*this) : 0;
}

ObjectValue NSTableView::objectValueForCell(NSTableColumn& column, long row)
{
    return m_dataSourceHooks.objectValueForTableColumn(*this, column, row);
}

void NSTableView::takeObjectValue(ObjectValue value, NSTableColumn& column, long row)
{
    if (m_dataSourceHooks.setObjectValue)
        m_dataSourceHooks.setObjectValue(*this, std::move(value), column, row);
}

// MARK: looks

void NSTableView::setRowHeight(float height)
{
    if (!(height > 0) || height == m_rows.rowHeight || height > 100000)
        return;
    long const seen = firstRowInView();
    m_rows.rowHeight = height;
    moveStretch(m_rows.firstRowShowing(seen));
    tile();
    placeEditor();
    setNeedsDisplay(true);
}

void NSTableView::setIntercellSpacing(Size spacing)
{
    bool const isUsable = spacing.width >= 0 && spacing.height >= 0 && spacing.width < 100000 && spacing.height < 100000;
    if (!isUsable || m_intercellSpacing == spacing)
        return;
    long const seen = firstRowInView();
    m_intercellSpacing = spacing;
    m_rows.spacing = spacing.height;
    moveStretch(m_rows.firstRowShowing(seen));
    measureColumns();
    columnsChanged();
}

void NSTableView::setBackgroundColor(Ref<NSColor> const& color)
{
    if (m_backgroundColor == color)
        return;
    m_backgroundColor = color;
    setNeedsDisplay(true);
}

void NSTableView::setUsesAlternatingRowBackgroundColors(bool uses)
{
    if (m_flags.usesAlternatingRowBackgroundColors == uses)
        return;
    m_flags.usesAlternatingRowBackgroundColors = uses;
    setNeedsDisplay(true);
}

void NSTableView::setGridStyleMask(unsigned mask)
{
    if (m_gridStyleMask == mask)
        return;
    m_gridStyleMask = mask;
    setNeedsDisplay(true);
}

void NSTableView::setGridColor(Ref<NSColor> const& color)
{
    if (m_gridColor == color)
        return;
    m_gridColor = color;
    setNeedsDisplay(true);
}

bool NSTableView::isOpaque() const
{
    return m_backgroundColor && m_backgroundColor->alphaComponent() == 1;
}

// Cells of columns are drawn with their rows; only the table's own tells of target, action and whether it is enabled.
void NSTableView::updateCell(NSCell& cell)
{
    if (&cell == this->cell())
        setNeedsDisplay(true);
}

// MARK: delegate, asked and told

void NSTableView::tellWillDisplayCell(NSCell& cell, NSTableColumn& column, long row)
{
    m_delegateHooks.willDisplayCell(*this, cell, column, row);
}

bool NSTableView::mayEdit(NSTableColumn& column, long row)
{
    return !m_delegateHooks.shouldEditTableColumn || m_delegateHooks.shouldEditTableColumn(*this, column, row);
}

bool NSTableView::mayChangeSelection()
{
    return !m_delegateHooks.selectionShouldChangeInTableView || m_delegateHooks.selectionShouldChangeInTableView(*this);
}

bool NSTableView::maySelectRow(long row)
{
    return !m_delegateHooks.shouldSelectRow || m_delegateHooks.shouldSelectRow(*this, row);
}

void NSTableView::tellSelectionChanged()
{
    NSNotification const notification { NSTableViewSelectionDidChangeNotification, this, {} };
    if (m_delegateHooks.tableViewSelectionDidChange)
        m_delegateHooks.tableViewSelectionDidChange(notification);
    NSNotificationCenter::defaultCenter().postNotification(notification);
}

void NSTableView::tellSelectionIsChanging()
{
    NSNotification const notification { NSTableViewSelectionIsChangingNotification, this, {} };
    if (m_delegateHooks.tableViewSelectionIsChanging)
        m_delegateHooks.tableViewSelectionIsChanging(notification);
    NSNotificationCenter::defaultCenter().postNotification(notification);
}

void NSTableView::tellColumnMoved(NSNotification const& notification)
{
    if (m_delegateHooks.tableViewColumnDidMove)
        m_delegateHooks.tableViewColumnDidMove(notification);
    NSNotificationCenter::defaultCenter().postNotification(notification);
}

void NSTableView::tellColumnResized(NSNotification const& notification)
{
    if (m_delegateHooks.tableViewColumnDidResize)
        m_delegateHooks.tableViewColumnDidResize(notification);
    NSNotificationCenter::defaultCenter().postNotification(notification);
}

bool NSTableView::hasCellToolTips() const
{
    return static_cast<bool>(m_delegateHooks.toolTipForCell);
}

std::string NSTableView::toolTipForCell(NSCell& cell, Rect& rect, NSTableColumn& column, long row, Point mouse)
{
    return m_delegateHooks.toolTipForCell(*this, cell, rect, column, row, mouse);
}

bool NSTableView::maySelectColumn(NSTableColumn& column)
{
    return !m_delegateHooks.shouldSelectTableColumn || m_delegateHooks.shouldSelectTableColumn(*this, column);
}

void NSTableView::tellHeaderPressed(NSTableColumn& column)
{
    m_delegateHooks.mouseDownInHeaderOfTableColumn(*this, column);
}

void NSTableView::tellHeaderClicked(NSTableColumn& column)
{
    m_delegateHooks.didClickTableColumn(*this, column);
}

void NSTableView::tellHeaderDragged(NSTableColumn& column)
{
    m_delegateHooks.didDragTableColumn(*this, column);
}

void NSTableView::headerPressed(NSTableColumn& column)
{
    tellHeaderPressed(column);
}

void NSTableView::headerDragged(NSTableColumn& column)
{
    tellHeaderDragged(column);
}

}

#include <plix/platform/appkit/NSOutlineView.h>

#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTextDelegate.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/appkit/tracking_wait.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSColor.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace plix {

namespace {

/// Expanding with all below stops here.
constexpr long mostExpandedAtOnce = 1000000;
/// Of so many selected rows the items are remembered over a reload; of more, the rows.
constexpr long mostItemsSelectedAgain = 1000;

}

PLIX_DESCRIBE(NSOutlineView)
{
    description.action("moveWordRight:", &NSOutlineView::expandAllBelowSelection)
        .action("moveWordLeft:", &NSOutlineView::collapseAllBelowSelection)
        .fillsHooks<NSTextViewDelegate>()
        .hookOutlet("dataSource", &NSOutlineView::takeDataSource)
        .hookOutlet("delegate", &NSOutlineView::takeHooks);
}

NSOutlineView::NSOutlineView() = default;
NSOutlineView::~NSOutlineView() = default;

bool NSOutlineView::init()
{
    return NSOutlineView::init(Rect {});
}

bool NSOutlineView::init(Rect frame)
{
    m_tree.setSource(source());
    return Base::init(frame);
}

bool NSOutlineView::init(NSCoder& coder)
{
    m_tree.setSource(source());
    if (!Base::init(coder))
        return false;
    coder.read("indentationPerLevel", [this](auto const& value) { setIndentationPerLevel(value.floatValue()); });
    coder.read("drawsIndentationMarkers", [this](auto const& value) { m_drawsMarkers = value.boolValue(); });
    if (coder.containsValueForKey("outlineTableColumn"))
        setOutlineTableColumn(coder.decodeForKey<NSTableColumn>("outlineTableColumn").get());
    return true;
}

void NSOutlineView::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeDouble(static_cast<double>(m_indentationPerLevel), "indentationPerLevel");
    coder.encodeBool(m_drawsMarkers, "drawsIndentationMarkers");
    coder.encodeObject(Ref<NSTableColumn>(outlineTableColumn()), "outlineTableColumn");
}

OutlineSource NSOutlineView::source()
{
    return { [this](NSObject* item) { return m_sourceHooks.numberOfChildrenOfItem(*this, item); },
        [this](NSObject* item, long index) { return m_sourceHooks.child(*this, index, item); } };
}

void NSOutlineView::takeDataSource(HookSource const& source)
{
    m_sourceHooks = source.hooks<NSOutlineViewDataSource>();
    Base::takeDataSource(source);
}

void NSOutlineView::setOutlineDataSourceHooks(NSOutlineViewDataSource hooks)
{
    m_sourceHooks = std::move(hooks);
    Base::takeDataSource({});
}

void NSOutlineView::takeHooks(HookSource const& source)
{
    m_hooks = source.hooks<NSOutlineViewDelegate>();
    Base::takeHooks(source);
}

void NSOutlineView::setOutlineDelegateHooks(NSOutlineViewDelegate hooks)
{
    m_hooks = std::move(hooks);
    Base::takeHooks({});
}

// MARK: items and rows

NSObject* NSOutlineView::itemAtRow(long row) const
{
    return m_tree.itemAtRow(row);
}

long NSOutlineView::rowForItem(NSObject* item) const
{
    return m_tree.rowForItem(item);
}

long NSOutlineView::levelForRow(long row) const
{
    return m_tree.levelForRow(row);
}

long NSOutlineView::levelForItem(NSObject* item) const
{
    return m_tree.levelForItem(item);
}

NSObject* NSOutlineView::parentForItem(NSObject* item) const
{
    return m_tree.parentOf(item);
}

bool NSOutlineView::isExpandable(NSObject* item) const
{
    return item && m_sourceHooks.isItemExpandable(const_cast<NSOutlineView&>(*this), item);
}

// MARK: expanding

void NSOutlineView::tellItem(char const* name, Hook<void(NSNotification const&)> const& hook, NSObject& item)
{
    NSNotification const notification { name, this, { { "NSObject", Ref<NSObject>(item) } } };
    hook(notification);
    NSNotificationCenter::defaultCenter().postNotification(notification);
}

bool NSOutlineView::openOne(NSObject& item)
{
    Ref<NSObject> const kept(item);
    if (m_tree.isExpanded(&item) || !isExpandable(&item))
        return false;
    if (m_hooks.shouldExpandItem && !m_hooks.shouldExpandItem(*this, &item))
        return false;
    tellItem(NSOutlineViewItemWillExpandNotification, m_hooks.outlineViewItemWillExpand, item);
    // Also where it has no children: those may come.
    long const added = m_tree.expand(&item);
    if (!m_tree.isExpanded(&item))
        return false;
    rowsCame(m_tree.rowForItem(&item), added);
    tellItem(NSOutlineViewItemDidExpandNotification, m_hooks.outlineViewItemDidExpand, item);
    return true;
}

bool NSOutlineView::closeOne(NSObject& item)
{
    Ref<NSObject> const kept(item);
    if (!m_tree.isExpanded(&item))
        return false;
    if (m_hooks.shouldCollapseItem && !m_hooks.shouldCollapseItem(*this, &item))
        return false;
    tellItem(NSOutlineViewItemWillCollapseNotification, m_hooks.outlineViewItemWillCollapse, item);
    long const row = m_tree.rowForItem(&item);
    rowsWent(row, m_tree.collapse(&item));
    tellItem(NSOutlineViewItemDidCollapseNotification, m_hooks.outlineViewItemDidCollapse, item);
    return true;
}

// Rows came into being below one.
void NSOutlineView::rowsCame(long row, long count)
{
    if (row < 0)
        return;
    if (count > 0) {
        abortEditing();
        auto selection = rowSelection();
        selection.rows.shiftIndexesStartingAtIndex(row + 1, count);
        for (long* place : { &selection.anchor, &selection.lead }) {
            if (*place > row)
                *place += count;
        }
        replaceSelectionQuietly(std::move(selection));
        noteNumberOfRowsChanged();
    }
    markRowsFrom(row);
}

void NSOutlineView::rowsWent(long row, long count)
{
    if (row < 0)
        return;
    if (count > 0) {
        abortEditing();
        auto selection = rowSelection();
        bool const hadSelected = selection.rows.intersectsIndexesInRange({ row + 1, count });
        selection.rows.shiftIndexesStartingAtIndex(row + 1 + count, -count);
        for (long* place : { &selection.anchor, &selection.lead })
            *place = *place > row + count ? *place - count : std::min(*place, row);
        // What was chosen in there is gone: the item stands for it, where it may.
        if (hadSelected && selection.rows.isEmpty() && maySelectRow(row))
            selection = { NSIndexSet::indexSetWithIndex(row), row, row };
        replaceSelectionQuietly(std::move(selection));
        noteNumberOfRowsChanged();
        if (hadSelected)
            tellSelectionChanged();
    }
    markRowsFrom(row);
}

void NSOutlineView::expandItem(NSObject* item)
{
    expandItem(item, false);
}

void NSOutlineView::expandItem(NSObject* item, bool expandChildren)
{
    Ref<NSOutlineView> const protector(this);
    Ref<NSObject> const kept(item);
    if (item)
        openOne(*item);
    if (!expandChildren)
        return;
    long opened = 0;
    // Rows come to be below each one that is opened; going on by row meets them all.
    long const first = item ? rowForItem(item) + 1 : 0;
    long const level = item ? levelForItem(item) : -1;
    if (item && first == 0)
        return;
    for (long row = first; row < numberOfRows() && levelForRow(row) > level && opened < mostExpandedAtOnce; ++row) {
        Ref<NSObject> const below(itemAtRow(row));
        if (below && openOne(*below))
            ++opened;
    }
}

void NSOutlineView::collapseItem(NSObject* item)
{
    collapseItem(item, false);
}

void NSOutlineView::collapseItem(NSObject* item, bool collapseChildren)
{
    Ref<NSOutlineView> const protector(this);
    Ref<NSObject> const kept(item);
    if (collapseChildren) {
        // From below, so that each is closed before what it is in.
        long const first = item ? rowForItem(item) + 1 : 0;
        long const end = item ? first + m_tree.numberOfRowsBelow(item) : numberOfRows();
        for (long row = end - 1; row >= first; --row) {
            if (row >= numberOfRows() || levelForRow(row + 1) <= levelForRow(row))
                continue;
            if (Ref<NSObject> const below(itemAtRow(row)); below)
                closeOne(*below);
        }
    }
    if (item)
        closeOne(*item);
}

// MARK: reloading

std::vector<std::pair<long, Ref<NSObject>>> NSOutlineView::selectedItems() const
{
    std::vector<std::pair<long, Ref<NSObject>>> items;
    if (numberOfSelectedRows() <= mostItemsSelectedAgain) {
        for (long const row : selectedRowIndexes().indexes())
            items.emplace_back(row, Ref<NSObject>(m_tree.itemAtRow(row)));
    }
    return items;
}

void NSOutlineView::selectItemsAgain(std::vector<std::pair<long, Ref<NSObject>>> const& items)
{
    NSIndexSet rows;
    bool isElsewhere = false;
    for (auto const& [row, item] : items) {
        long const now = m_tree.itemAtRow(row) == item.get() ? row : m_tree.rowForItem(item.get());
        isElsewhere = isElsewhere || now != row;
        if (now >= 0)
            rows.addIndex(now);
    }
    if (!isElsewhere)
        return;
    auto selection = rowSelection();
    long const last = rows.isEmpty() ? -1 : rows.lastIndex();
    bool const isSmaller = rows.count() < selection.rows.count();
    selection = { rows, last, last };
    replaceSelectionQuietly(std::move(selection));
    if (isSmaller)
        tellSelectionChanged();
}

void NSOutlineView::reloadData()
{
    Ref<NSOutlineView> const protector(this);
    if (m_isReloading)
        return;
    m_isReloading = true;
    auto const items = selectedItems();
    m_tree.reload();
    m_isReloading = false;
    selectItemsAgain(items);
    Base::reloadData();
}

void NSOutlineView::reloadItem(NSObject* item, bool reloadChildren)
{
    Ref<NSOutlineView> const protector(this);
    Ref<NSObject> const kept(item);
    if (!item) {
        reloadData();
        return;
    }
    if (reloadChildren && !m_isReloading) {
        m_isReloading = true;
        auto const items = selectedItems();
        abortEditing();
        m_tree.reloadChildrenOf(item);
        m_isReloading = false;
        selectItemsAgain(items);
        noteNumberOfRowsChanged();
    }
    if (long const row = rowForItem(item); row >= 0)
        reloadChildren ? markRowsFrom(row) : markRows({ row, 1 });
}

// MARK: the outline column

NSTableColumn* NSOutlineView::outlineTableColumn() const
{
    if (m_outlineColumn && m_outlineColumn->tableView() == this)
        return m_outlineColumn.get();
    return numberOfColumns() > 0 ? tableColumns().front().get() : nullptr;
}

void NSOutlineView::setOutlineTableColumn(NSTableColumn* column)
{
    if (outlineTableColumn() == column && m_outlineColumn)
        return;
    m_outlineColumn = Weak<NSTableColumn>(column);
    setNeedsDisplay(true);
}

void NSOutlineView::removeTableColumn(NSTableColumn& column)
{
    if (m_outlineColumn.get() == &column)
        m_outlineColumn = nullptr;
    Base::removeTableColumn(column);
}

void NSOutlineView::setIndentationPerLevel(float width)
{
    if (!(width >= 0) || width > 1000 || m_indentationPerLevel == width)
        return;
    m_indentationPerLevel = width;
    setNeedsDisplay(true);
}

void NSOutlineView::setDrawsIndentationMarkers(bool draws)
{
    if (m_drawsMarkers == draws)
        return;
    m_drawsMarkers = draws;
    setNeedsDisplay(true);
}

float NSOutlineView::indentationOfLevel(long level) const
{
    return static_cast<float>(std::max(0L, level)) * m_indentationPerLevel + markerWidth();
}

Rect NSOutlineView::frameOfCellAtColumn(long column, long row) const
{
    auto frame = Base::frameOfCellAtColumn(column, row);
    if (frame.isEmpty() || tableColumns()[static_cast<std::size_t>(column)].get() != outlineTableColumn())
        return frame;
    float const indentation = std::min(indentationOfLevel(levelForRow(row)), frame.width);
    return { frame.x + indentation, frame.y, frame.width - indentation, frame.height };
}

Rect NSOutlineView::frameOfOutlineCellAtRow(long row) const
{
    auto const* column = outlineTableColumn();
    Ref<NSObject> const item(itemAtRow(row));
    if (!column || !m_drawsMarkers || !item || !isExpandable(item.get()))
        return {};
    auto const whole = Base::frameOfCellAtColumn(columnWithTableColumn(*column), row);
    float const x = whole.x + static_cast<float>(levelForRow(row)) * m_indentationPerLevel;
    if (whole.isEmpty() || x + markerWidth() > whole.maxX())
        return {};
    return { x, whole.y, markerWidth(), whole.height };
}

// MARK: drawing

void NSOutlineView::drawMarker(long row, NSObject& item)
{
    Ref<NSTableColumn> const column(outlineTableColumn());
    auto const rect = frameOfOutlineCellAtRow(row);
    if (rect.isEmpty() || !column)
        return;
    if (m_hooks.willDisplayOutlineCell) {
        if (!m_markerCell) {
            m_markerCell = make<NSButtonCell>("");
            m_markerCell->setBezelStyle(NSDisclosureBezelStyle);
        }
        m_markerCell->setState(m_tree.isExpanded(&item) ? NSOnState : NSOffState);
        m_hooks.willDisplayOutlineCell(*this, *m_markerCell, *column, &item);
    }
    auto const& theme = Theme::current();
    auto const look = selectionLook();
    bool const isOpen = m_tree.isExpanded(&item);
    if (m_pressedItem.get() == &item)
        theme.drawDisclosureTriangle(rect, isOpen, *theme.color(ThemeRole::headerText));
    else if (isRowSelected(row) && look.isFocused && look.isWindowActive)
        theme.drawDisclosureTriangle(rect, isOpen, *theme.selectionTextColor(look));
    else
        theme.drawDisclosureTriangle(rect, isOpen, look);
}

void NSOutlineView::drawRow(long row, Rect clipRect)
{
    Ref<NSOutlineView> const protector(this);
    if (Ref<NSObject> const item(itemAtRow(row)); item)
        drawMarker(row, *item);
    Base::drawRow(row, clipRect);
}

// MARK: mouse and keyboard

bool NSOutlineView::trackRowDecoration(NSEvent& event, long row)
{
    auto const rect = frameOfOutlineCellAtRow(row);
    auto const isInside
        = [&](NSEvent const& moved) { return mouseInRect(convertPointFromView(moved.locationInWindow(), nullptr), rect); };
    Ref<NSObject> const item(itemAtRow(row));
    if (!item || rect.isEmpty() || !isInside(event))
        return false;
    bool const isWithAll = (event.modifierFlags() & NSAlternateKeyMask) != 0;
    bool isPressed = true;
    while (true) {
        m_pressedItem = isPressed ? Weak<NSObject>(item) : Weak<NSObject>();
        setNeedsDisplayInRect(rect);
        Ref<NSWindow> const ownWindow(window());
        auto const next = ownWindow ? ownWindow->nextEventMatchingMask(NSLeftMouseUpMask | NSLeftMouseDraggedMask) : nullptr;
        isPressed = next && isInside(*next) && !isAbandoned(*next);
        if (!next || next->type() == NSLeftMouseUp)
            break;
    }
    m_pressedItem = nullptr;
    setNeedsDisplayInRect(rect);
    if (isPressed)
        m_tree.isExpanded(item.get()) ? collapseItem(item.get(), isWithAll) : expandItem(item.get(), isWithAll);
    return true;
}

void NSOutlineView::moveRight(NSObject* sender)
{
    Ref<NSObject> const item(itemAtRow(selectedRow()));
    if (!item)
        Base::moveRight(sender);
    else if (m_tree.numberOfRowsBelow(item.get()) > 0)
        moveDown(sender);
    else if (isExpandable(item.get()))
        expandItem(item.get());
}

void NSOutlineView::moveLeft(NSObject* sender)
{
    Ref<NSOutlineView> const protector(this);
    Ref<NSObject> const item(itemAtRow(selectedRow()));
    if (!item) {
        Base::moveLeft(sender);
        return;
    }
    if (m_tree.isExpanded(item.get())) {
        collapseItem(item.get());
        return;
    }
    long const parent = m_tree.rowForItem(m_tree.parentOf(item.get()));
    if (parent < 0 || !maySelectRow(parent))
        return;
    changeSelection({ NSIndexSet::indexSetWithIndex(parent), parent, parent });
    scrollRowToVisible(parent);
}

void NSOutlineView::expandAllBelowSelection(NSObject*)
{
    if (Ref<NSObject> const item(itemAtRow(selectedRow())); item)
        expandItem(item.get(), true);
}

void NSOutlineView::collapseAllBelowSelection(NSObject*)
{
    if (Ref<NSObject> const item(itemAtRow(selectedRow())); item)
        collapseItem(item.get(), true);
}

}

#include <plix/tables/PLIXOutlineView.h>

#include <plix/drawing/focused_image.h>
#include <plix/drawing/geometry_helpers.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSText.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/tables/disclosure_plan.h>

#include <array>
#include <cstdint>
#include <cstdio>

namespace plix {

namespace {

constexpr float clickShift = 20.0F;
constexpr float disabledText = 0.5F;
constexpr float disabledBackground = 0.94F;

template <typename Visit> void forEachTextCell(NSTableView const& table, Visit const& visit)
{
    for (auto const& column : table.tableColumns()) {
        if (auto* cell = dynamic_cast<NSTextFieldCell*>(column->dataCell()))
            visit(*cell);
    }
}

}

PLIX_DESCRIBE(PLIXOutlineView)
{
    description.action("deleteBackward:", &PLIXOutlineView::deleteBackward);
}

PLIXOutlineView::PLIXOutlineView() = default;
PLIXOutlineView::~PLIXOutlineView() = default;

bool PLIXOutlineView::init()
{
    return Base::init();
}

bool PLIXOutlineView::init(Rect frame)
{
    return Base::init(frame);
}

bool PLIXOutlineView::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    m_shouldCollapseForDeposits = true;
    coder.read("shouldCollapseAutoExpandedItemsForDeposits",
        [&](ObjectValue const& value) { m_shouldCollapseForDeposits = value.boolValue(); });
    coder.read("shouldCollapseAutoExpandedItemsForFailedDeposits",
        [&](ObjectValue const& value) { m_shouldCollapseForFailedDeposits = value.boolValue(); });
    coder.read("showsIndentationMarker", [&](ObjectValue const& value) { m_showsIndentationMarker = value.boolValue(); });
    coder.read("highlightFollowsIndentation", [&](ObjectValue const& value) { m_highlightFollowsIndentation = value.boolValue(); });
    return true;
}

void PLIXOutlineView::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeBool(m_shouldCollapseForDeposits, "shouldCollapseAutoExpandedItemsForDeposits");
    coder.encodeBool(m_shouldCollapseForFailedDeposits, "shouldCollapseAutoExpandedItemsForFailedDeposits");
    coder.encodeBool(m_showsIndentationMarker, "showsIndentationMarker");
    coder.encodeBool(m_highlightFollowsIndentation, "highlightFollowsIndentation");
}

// MARK: hooks

void PLIXOutlineView::takeHooks(HookSource const& source)
{
    m_hooks = source.hooks<PLIXOutlineViewDelegate>();
    Base::takeHooks(source);
}

void PLIXOutlineView::setOutlineDelegateHooks(PLIXOutlineViewDelegate hooks)
{
    Base::setOutlineDelegateHooks(hooks);
    m_hooks = std::move(hooks);
}

void PLIXOutlineView::tellReturnKey()
{
    if (m_hooks.returnKey)
        m_hooks.returnKey(*this, *this);
}

void PLIXOutlineView::tellDeleteBackward()
{
    if (m_hooks.deleteBackward)
        m_hooks.deleteBackward(*this, *this);
}

// The notification has the table's name, which is meant.
void PLIXOutlineView::tellArrowKeyChangedSelection(NSNotification const& notification)
{
    if (outlineDelegateHooks().outlineViewSelectionIsChanging)
        outlineDelegateHooks().outlineViewSelectionIsChanging(notification);
}

Ref<NSImage> PLIXOutlineView::customHighlightImage(long row)
{
    return m_hooks.customHighlightImageForItem ? m_hooks.customHighlightImageForItem(*this, itemAtRow(row)) : nullptr;
}

// Asked, and not looked at; that is meant.
HighlightImage PLIXOutlineView::dropHighlightImage(long row)
{
    customHighlightImage(row);
    return HighlightImage::none;
}

int PLIXOutlineView::highlightIndentation(long row)
{
    if (!m_highlightFollowsIndentation)
        return 0;
    auto const kind = isExpandable(itemAtRow(row)) ? RowItem::expandable : RowItem::leaf;
    return plix::highlightIndentation(levelForRow(row), indentationPerLevel(), kind);
}

FirstColumn PLIXOutlineView::firstColumn() const
{
    bool const isOutlineColumn = numberOfColumns() > 0 && tableColumns().front().get() == outlineTableColumn();
    return isOutlineColumn ? FirstColumn::indented : FirstColumn::plain;
}

bool PLIXOutlineView::showsMarkerForItem(NSObject* item)
{
    if (m_hooks.shouldShowIndentationMarkerForItem)
        return m_hooks.shouldShowIndentationMarkerForItem(*this, item);
    return m_showsIndentationMarker;
}

bool PLIXOutlineView::shouldCollapseAutoExpandedItemsForDeposited(bool deposited)
{
    return deposited ? m_shouldCollapseForDeposits : m_shouldCollapseForFailedDeposits;
}

// MARK: columns

void PLIXOutlineView::hideColumn(long index)
{
    if (index < 0 || index >= numberOfColumns() || numberOfColumns() < 2)
        return;
    Ref<PLIXOutlineView> const protector(this);
    if (tableColumns()[static_cast<std::size_t>(index)].get() == outlineTableColumn())
        setOutlineTableColumn(tableColumns()[index == 0 ? 1 : 0].get());
    Base::hideColumn(index);
}

void PLIXOutlineView::tile2()
{
    auto const address = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(this)); // the low half is enough
    std::array<char, 64> line {};
    std::snprintf(line.data(), line.size(), "numberOfRows:  %i (%x)", static_cast<int>(numberOfRows()), address);
    NSLog(line.data());
    NSOutlineView::tile();
}

// MARK: mouse and keys

bool PLIXOutlineView::acceptsFirstResponder() const
{
    return isEnabled();
}

void PLIXOutlineView::mouseDown(NSEvent& event)
{
    if (!isEnabled())
        return;
    Ref<PLIXOutlineView> const protector(this);
    Ref<NSObject> const item(itemAtRow(rowAtPoint(convertPointFromView(event.locationInWindow(), nullptr))));
    Ref<NSEvent> press(event);
    if (item && !showsMarkerForItem(item.get())) {
        auto place = event.locationInWindow();
        place.x += clickShift;
        press = NSEvent::mouseEventWithType(event.type(), place, event.modifierFlags(), event.timestamp(), event.windowNumber(),
            event.context(), event.eventNumber(), event.clickCount(), event.pressure());
    }
    Base::mouseDown(*press);
}

void PLIXOutlineView::rightMouseDown(NSEvent& event)
{
    selectAndShowMenu(event);
}

void PLIXOutlineView::selectForMenu(long row)
{
    if (!isRowSelected(row))
        selectRow(row, false);
    display();
}

// So that the highlight is seen through the editor.
void PLIXOutlineView::editColumn(long column, long row, NSEvent* event, bool select)
{
    Ref<PLIXOutlineView> const protector(this);
    if (auto* ownWindow = window()) {
        if (auto* editor = dynamic_cast<NSText*>(ownWindow->fieldEditor(true, this)))
            editor->setDrawsBackground(false);
    }
    Base::editColumn(column, row, event, select);
}

// MARK: state

void PLIXOutlineView::saveState()
{
    m_saveTextColors.clear();
    m_saveBackgroundColors.clear();
    forEachTextCell(*this, [&](NSTextFieldCell& cell) {
        m_saveTextColors.emplace_back(cell.textColor());
        m_saveBackgroundColors.emplace_back(cell.backgroundColor());
    });
    auto const* scrollView = enclosingScrollView();
    if (scrollView && scrollView->hasVerticalScroller())
        m_saveVerticalScrollerEnabled = scrollView->verticalScroller()->isEnabled();
    if (scrollView && scrollView->hasHorizontalScroller())
        m_saveHorizontalScrollerEnabled = scrollView->horizontalScroller()->isEnabled();
}

void PLIXOutlineView::setEnabled(bool isEnabled)
{
    if (isEnabled == this->isEnabled())
        return;
    Ref<PLIXOutlineView> const protector(this);
    Base::setEnabled(isEnabled);
    if (!isEnabled)
        saveState();
    auto const gray = NSColor::colorWithCalibratedWhite(disabledText, 1);
    auto const paper = NSColor::colorWithCalibratedWhite(disabledBackground, 1);
    std::size_t place = 0;
    forEachTextCell(*this, [&](NSTextFieldCell& cell) {
        auto const saved = place++;
        bool const isSaved = saved < m_saveTextColors.size();
        if (auto const color = !isEnabled ? gray : isSaved ? m_saveTextColors[saved] : nullptr)
            cell.setTextColor(color);
        if (auto const color = !isEnabled ? paper : isSaved ? m_saveBackgroundColors[saved] : nullptr)
            cell.setBackgroundColor(color);
    });
    enableScrollers(isEnabled);
    setNeedsDisplay(true);
}

void PLIXOutlineView::enableScrollers(bool areEnabled)
{
    auto const* scrollView = enclosingScrollView();
    if (scrollView && scrollView->hasVerticalScroller())
        scrollView->verticalScroller()->setEnabled(areEnabled && m_saveVerticalScrollerEnabled);
    if (scrollView && scrollView->hasHorizontalScroller())
        scrollView->horizontalScroller()->setEnabled(areEnabled && m_saveHorizontalScrollerEnabled);
}

// MARK: drawing

void PLIXOutlineView::drawRect(Rect rect)
{
    Ref<PLIXOutlineView> const protector(this);
    if (m_hooks.willDrawRect)
        m_hooks.willDrawRect(*this, rect);
    Base::drawRect(rect);
}

void PLIXOutlineView::drawRow(long row, Rect clipRect)
{
    Ref<PLIXOutlineView> const protector(this);
    Ref<NSObject> const item(itemAtRow(row));
    if (m_hooks.willDrawItem)
        m_hooks.willDrawItem(*this, item.get(), rectOfRow(row));
    if (showsMarkerForItem(item.get()) && item && isExpandable(item.get())) {
        if (auto const indicator = indicatorForItem(item.get()))
            drawIndicator(*indicator, row);
    }
    Base::drawRow(row, clipRect);
}

Ref<NSImage> PLIXOutlineView::indicatorForItem(NSObject* item)
{
    if (isItemExpanded(item))
        return m_hooks.expandedIndicatorForItem ? m_hooks.expandedIndicatorForItem(*this, item) : NSImage::imageNamed("expanded");
    return m_hooks.collapsedIndicatorForItem ? m_hooks.collapsedIndicatorForItem(*this, item) : NSImage::imageNamed("collapsed");
}

void PLIXOutlineView::drawIndicator(NSImage const& image, long row) const
{
    drawUpright(image, rectWith(disclosureOrigin(frameOfCellAtColumn(0, row), image.size()), image.size()));
}

}

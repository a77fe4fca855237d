#include <plix/platform/appkit/NSTableView.h>

#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>
#include <map>
#include <utility>

namespace plix {

// MARK: columns

void NSTableView::addTableColumn(NSTableColumn& column)
{
    if (column.tableView() == this)
        return;
    Ref<NSTableColumn> const kept(column);
    if (auto* other = column.tableView())
        other->removeTableColumn(column);
    m_columns.push_back(kept);
    column.setTableView(this);
    m_columnsWidth += widthWithSpace(column);
    columnsChanged();
}

void NSTableView::removeTableColumn(NSTableColumn& column)
{
    long const index = columnWithTableColumn(column);
    if (index < 0)
        return;
    Ref<NSTableColumn> const kept(column);
    abortEditing();
    m_columns.erase(m_columns.begin() + index);
    m_selectedColumns.shiftIndexesStartingAtIndex(index + 1, -1);
    column.setTableView(nullptr);
    // Sums of widths leave rests behind.
    m_columnsWidth = m_columns.empty() ? 0 : m_columnsWidth - widthWithSpace(column);
    columnsChanged();
}

void NSTableView::moveColumn(long column, long toColumn)
{
    long const count = numberOfColumns();
    if (column < 0 || column >= count || toColumn < 0 || toColumn >= count || column == toColumn)
        return;
    Ref<NSTableView> const protector(this);
    abortEditing();
    auto moved = m_columns[static_cast<std::size_t>(column)];
    bool const wasSelected = m_selectedColumns.containsIndex(column);
    m_columns.erase(m_columns.begin() + column);
    m_columns.insert(m_columns.begin() + toColumn, moved);
    m_selectedColumns.shiftIndexesStartingAtIndex(column + 1, -1);
    m_selectedColumns.shiftIndexesStartingAtIndex(toColumn, 1);
    if (wasSelected)
        m_selectedColumns.addIndex(toColumn);
    columnsChanged();
    tellColumnMoved(
        { NSTableViewColumnDidMoveNotification, protector, { { "NSOldColumn", column }, { "NSNewColumn", toColumn } } });
}

long NSTableView::columnWithTableColumn(NSTableColumn const& column) const
{
    if (column.tableView() != this)
        return -1;
    auto const place = std::ranges::find_if(m_columns, [&](auto const& each) { return each.get() == &column; });
    return place == m_columns.end() ? -1 : place - m_columns.begin();
}

NSTableColumn* NSTableView::columnAt(long column) const
{
    return column < 0 || column >= numberOfColumns() ? nullptr : m_columns[static_cast<std::size_t>(column)].get();
}

long NSTableView::columnWithIdentifier(ObjectValue const& identifier) const
{
    auto const place = std::ranges::find_if(m_columns, [&](auto const& column) { return column->identifier() == identifier; });
    return place == m_columns.end() ? -1 : place - m_columns.begin();
}

NSTableColumn* NSTableView::tableColumnWithIdentifier(ObjectValue const& identifier) const
{
    return columnAt(columnWithIdentifier(identifier));
}

void NSTableView::columnsChanged()
{
    m_columnEdges.clear();
    tile();
    placeEditor();
    setNeedsDisplay(true);
    if (m_headerView)
        m_headerView->columnsChanged();
    saveColumns();
}

void NSTableView::columnLayoutChanged(NSTableColumn&)
{
    measureColumns();
    columnsChanged();
}

void NSTableView::columnLooksChanged(NSTableColumn&)
{
    setNeedsDisplay(true);
    if (m_headerView)
        m_headerView->columnsChanged();
}

double NSTableView::widthWithSpace(NSTableColumn const& column) const
{
    return column.isHidden() ? 0 : static_cast<double>(column.width()) + static_cast<double>(m_intercellSpacing.width);
}

void NSTableView::measureColumns()
{
    m_columnsWidth = 0;
    for (auto const& column : m_columns)
        m_columnsWidth += widthWithSpace(*column);
}

void NSTableView::columnWidthChanged(NSTableColumn& column, float oldWidth)
{
    Ref<NSTableView> const protector(this);
    if (!column.isHidden())
        m_columnsWidth += static_cast<double>(column.width()) - static_cast<double>(oldWidth);
    columnsChanged();
    tellColumnResized(
        { NSTableViewColumnDidResizeNotification, protector, { { "NSTableColumn", Ref(column) }, { "NSOldWidth", oldWidth } } });
}

void NSTableView::setAllowsColumnReordering(bool allows)
{
    m_flags.allowsColumnReordering = allows;
}

void NSTableView::setAllowsColumnResizing(bool allows)
{
    if (m_flags.allowsColumnResizing == allows)
        return;
    m_flags.allowsColumnResizing = allows;
    if (m_headerView)
        m_headerView->columnsChanged();
}

void NSTableView::setAllowsColumnSelection(bool allows)
{
    m_flags.allowsColumnSelection = allows;
}

void NSTableView::setColumnAutoresizingStyle(NSTableViewColumnAutoresizingStyle style)
{
    m_columnAutoresizingStyle = style;
}

bool NSTableView::autoresizesAllColumnsToFit() const
{
    return m_columnAutoresizingStyle == NSTableViewUniformColumnAutoresizingStyle;
}

void NSTableView::setAutoresizesAllColumnsToFit(bool all)
{
    m_columnAutoresizingStyle = all ? NSTableViewUniformColumnAutoresizingStyle : NSTableViewLastColumnOnlyAutoresizingStyle;
}

// MARK: header

NSView* NSTableView::headerView() const
{
    return m_headerView.get();
}

NSView* NSTableView::cornerView() const
{
    return m_cornerView.get();
}

void NSTableView::setHeaderView(Ref<NSTableHeaderView> const& header)
{
    if (m_headerView == header)
        return;
    if (m_headerView)
        m_headerView->setTableView(nullptr);
    m_headerView = header;
    if (m_headerView)
        m_headerView->setTableView(this);
    if (auto* scrollView = enclosingScrollView())
        scrollView->tile();
    tile();
}

void NSTableView::setCornerView(Ref<NSView> const& corner)
{
    if (m_cornerView == corner)
        return;
    m_cornerView = corner;
    if (auto* scrollView = enclosingScrollView())
        scrollView->tile();
}

NSImage* NSTableView::indicatorImageInTableColumn(NSTableColumn const& column) const
{
    auto const place = std::ranges::find_if(m_indicatorImages, [&](auto const& entry) { return entry.first.get() == &column; });
    return place == m_indicatorImages.end() ? nullptr : place->second.get();
}

void NSTableView::setIndicatorImage(Ref<NSImage> const& image, NSTableColumn& column)
{
    std::erase_if(m_indicatorImages, [&](auto const& entry) { return !entry.first || entry.first.get() == &column; });
    if (image)
        m_indicatorImages.emplace_back(Weak<NSTableColumn>(column), image);
    if (m_headerView)
        m_headerView->setNeedsDisplay(true);
}

void NSTableView::setHighlightedTableColumn(NSTableColumn* column)
{
    if (m_highlightedColumn.get() == column)
        return;
    m_highlightedColumn = Weak<NSTableColumn>(column);
    if (m_headerView)
        m_headerView->setNeedsDisplay(true);
}

// MARK: columns kept in the user's defaults

namespace {

constexpr char const* defaultsPrefix = "NSTableView Columns ";

}

void NSTableView::setAutosaveName(std::string name)
{
    if (m_autosaveName == name)
        return;
    m_autosaveName = std::move(name);
    restoreColumns();
}

void NSTableView::setAutosaveTableColumns(bool saves)
{
    if (m_flags.autosaveTableColumns == saves)
        return;
    m_flags.autosaveTableColumns = saves;
    restoreColumns();
}

void NSTableView::saveColumns()
{
    if (!m_flags.autosaveTableColumns || m_autosaveName.empty() || m_flags.isRestoringColumns)
        return;
    ObjectValue::Array saved;
    for (auto const& column : m_columns) {
        saved.push_back(ObjectValue::Dictionary {
            { "Identifier", column->identifier().description() },
            { "Width", column->width() },
            { "Hidden", column->isHidden() },
        });
    }
    NSUserDefaults::standardUserDefaults().setObject(std::move(saved), defaultsPrefix + m_autosaveName);
}

// Saved columns come first, in their saved order; those that nobody saved keep theirs behind them.
void NSTableView::restoreColumns()
{
    if (!m_flags.autosaveTableColumns || m_autosaveName.empty())
        return;
    auto const saved = NSUserDefaults::standardUserDefaults().arrayForKey(defaultsPrefix + m_autosaveName);
    if (!saved)
        return;
    Ref<NSTableView> const protector(this);
    m_flags.isRestoringColumns = true;
    long place = 0;
    for (auto const& entry : *saved) {
        auto const* values = entry.dictionary();
        auto const identifier = values ? values->find("Identifier") : ObjectValue::Dictionary::const_iterator {};
        if (!values || identifier == values->end())
            continue;
        auto const found = std::ranges::find_if(
            m_columns, [&](auto const& column) { return column->identifier().description() == identifier->second.description(); });
        if (found == m_columns.end() || found - m_columns.begin() < place)
            continue;
        Ref<NSTableColumn> const column = *found;
        moveColumn(found - m_columns.begin(), place++);
        if (auto const width = values->find("Width"); width != values->end() && width->second.isNumber())
            column->setWidth(width->second.floatValue());
        if (auto const hidden = values->find("Hidden"); hidden != values->end())
            column->setHidden(hidden->second.boolValue());
    }
    m_flags.isRestoringColumns = false;
}

}

#include <plix/platform/appkit/NSTableView.h>

#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderView.h>

#include <algorithm>
#include <cmath>

namespace plix {

// MARK: columns

// The left edges of all columns and the right edge of the last.
std::vector<float> const& NSTableView::columnEdges() const
{
    if (m_columnEdges.empty()) {
        double x = 0;
        m_columnEdges.reserve(m_columns.size() + 1);
        m_columnEdges.push_back(0);
        for (auto const& column : m_columns) {
            x += widthWithSpace(*column);
            m_columnEdges.push_back(static_cast<float>(x));
        }
    }
    return m_columnEdges;
}

Rect NSTableView::rectOfColumn(long column) const
{
    if (column < 0 || column >= numberOfColumns())
        return {};
    auto const& edges = columnEdges();
    auto const index = static_cast<std::size_t>(column);
    return { edges[index], 0, edges[index + 1] - edges[index], std::max(bounds().height, m_rows.stretchHeight()) };
}

Rect NSTableView::rectOfRow(long row) const
{
    if (row < 0 || row >= numberOfRows())
        return {};
    return { 0, m_rows.top(row), std::max(bounds().width, columnsWidth()), m_rows.pitch() };
}

NSRange NSTableView::rowsInRect(Rect rect) const
{
    numberOfRows();
    return rect.width > 0 ? m_rows.rowsIn(rect.y, rect.height) : NSRange {};
}

NSRange NSTableView::columnsInRect(Rect rect) const
{
    auto const& edges = columnEdges();
    float const start = std::max(rect.x, 0.F);
    float const end = std::min(rect.x + rect.width, edges.back());
    if (!(start < end))
        return {};
    // The first column that ends right of the start, and the last that begins left of the end.
    long const first = std::upper_bound(edges.begin() + 1, edges.end(), start) - (edges.begin() + 1);
    long const last = std::lower_bound(edges.begin(), edges.end(), end) - edges.begin();
    return { first, last - first };
}

long NSTableView::rowAtPoint(Point point) const
{
    if (!(point.x >= 0) || point.x >= std::max(bounds().width, columnsWidth()))
        return -1;
    numberOfRows();
    return m_rows.rowAt(point.y);
}

long NSTableView::columnAtPoint(Point point) const
{
    auto const& edges = columnEdges();
    if (!(point.x >= 0) || point.x >= edges.back())
        return -1;
    return std::upper_bound(edges.begin() + 1, edges.end(), point.x) - (edges.begin() + 1);
}

// Half of the space on each side, in whole points so that cells stay crisp.
Rect NSTableView::frameOfCellAtColumn(long column, long row) const
{
    auto const* tableColumn = columnAt(column);
    if (!tableColumn || row < 0 || row >= numberOfRows())
        return {};
    float const x = columnEdges()[static_cast<std::size_t>(column)] + std::floor(m_intercellSpacing.width / 2);
    float const y = m_rows.top(row) + std::floor(m_rows.spacing / 2);
    return { x, y, tableColumn->isHidden() ? 0 : tableColumn->width(), m_rows.rowHeight };
}

// MARK: scrolling

void NSTableView::scrollRowToVisible(long row)
{
    if (row < 0 || row >= numberOfRows())
        return;
    double const top = static_cast<double>(row) * static_cast<double>(m_rows.pitch());
    auto const* clip = clipView();
    if (clip && (row < m_rows.firstRow || row >= m_rows.firstRow + m_rows.rowsInStretch())) {
        bool const isBelow = row >= m_rows.firstRow;
        scrollDocumentTo(isBelow ? top + static_cast<double>(m_rows.pitch() - clip->bounds().height) : top);
        return;
    }
    auto const visible = visibleRect();
    scrollRectToVisible({ visible.x, m_rows.top(row), std::min(visible.width, 1.F), m_rows.pitch() });
}

void NSTableView::scrollColumnToVisible(long column)
{
    if (column < 0 || column >= numberOfColumns())
        return;
    auto const rect = rectOfColumn(column);
    auto const visible = visibleRect();
    scrollRectToVisible({ rect.x, visible.y, rect.width, std::min(visible.height, 1.F) });
}

NSClipView* NSTableView::clipView() const
{
    return dynamic_cast<NSClipView*>(superview());
}

long NSTableView::firstRowInView() const
{
    auto const* clip = clipView();
    return std::max(0L, clip ? m_rows.rowAt(clip->bounds().y) : -1L);
}

double NSTableView::documentLength() const
{
    numberOfRows();
    return m_rows.totalHeight();
}

double NSTableView::documentOffset() const
{
    return m_rows.offset();
}

// What is in view stays in view: the clip view moves along.
void NSTableView::moveStretch(long firstRow)
{
    long const rows = m_rows.firstRow - firstRow;
    if (rows == 0 || m_flags.isMovingStretch)
        return;
    m_flags.isMovingStretch = true;
    m_rows.firstRow = firstRow;
    if (auto* clip = clipView()) {
        float const distance = static_cast<float>(static_cast<double>(rows) * static_cast<double>(m_rows.pitch()));
        clip->scrollToPoint({ clip->bounds().x, clip->bounds().y + distance });
    }
    placeEditor();
    setNeedsDisplay(true);
    m_flags.isMovingStretch = false;
}

void NSTableView::documentScrolled()
{
    moveStretch(m_rows.firstRowShowing(firstRowInView()));
}

void NSTableView::scrollDocumentTo(double place)
{
    Ref<NSTableView> const protector(this);
    Ref<NSClipView> const clip(clipView());
    if (!clip || std::isnan(place))
        return;
    double const most = std::max(0.0, documentLength() - static_cast<double>(clip->bounds().height));
    place = std::clamp(place, 0.0, most);
    moveStretch(m_rows.firstRowShowing(static_cast<long>(place / static_cast<double>(m_rows.pitch()))));
    clip->scrollToPoint({ clip->bounds().x, static_cast<float>(place - m_rows.offset()) });
    if (auto* scrollView = enclosingScrollView())
        scrollView->reflectScrolledClipView(*clip);
}

// MARK: layout

// Setting the frame may have the scroll view show or hide scrollers, which changes the room: then once more.
void NSTableView::tile()
{
    m_flags.isTileNeeded = true;
    if (m_flags.isTiling)
        return;
    m_flags.isTiling = true;
    numberOfRows();
    for (int pass = 0; pass < 3 && m_flags.isTileNeeded; ++pass) {
        m_flags.isTileNeeded = false;
        Size size { columnsWidth(), m_rows.stretchHeight() };
        if (auto const* clip = clipView()) {
            size.width = std::max(size.width, clip->bounds().width);
            size.height = std::max(size.height, clip->bounds().height);
        }
        Base::setFrameSize(size);
        if (m_headerView)
            m_headerView->setFrameSize({ size.width, m_headerView->frame().height });
    }
    m_flags.isTiling = false;
}

// Whatever size is wanted, the columns and rows decide.
void NSTableView::setFrameSize(Size size)
{
    Base::setFrameSize(size);
    tile();
}

void NSTableView::viewDidMoveToSuperview()
{
    Base::viewDidMoveToSuperview();
    tile();
}

float NSTableView::roomForColumns() const
{
    auto const* clip = clipView();
    return clip ? clip->bounds().width : bounds().width;
}

void NSTableView::resizeWithOldSuperviewSize(Size oldSize)
{
    Ref<NSTableView> const protector(this);
    float const room = roomForColumns();
    // Columns that left room free, or were wider than the view, were so for a reason.
    if (m_columnAutoresizingStyle != NSTableViewNoColumnAutoresizing && std::abs(columnsWidth() - oldSize.width) < 1)
        fitColumns(room);
    tile();
}

void NSTableView::fitColumns(float room)
{
    std::vector<ColumnMeasure> measures;
    std::vector<Ref<NSTableColumn>> shown;
    for (auto const& column : m_columns) {
        if (column->isHidden())
            continue;
        room -= m_intercellSpacing.width;
        shown.push_back(column);
        measures.push_back({ column->width(), column->minWidth(), column->maxWidth(),
            (column->resizingMask() & NSTableColumnAutoresizingMask) != 0 });
    }
    auto const style = m_columnAutoresizingStyle == NSTableViewNoColumnAutoresizing ? NSTableViewUniformColumnAutoresizingStyle
                                                                                    : m_columnAutoresizingStyle;
    auto const widths = columnWidthsFittingRoom(measures, room, style);
    for (std::size_t i = 0; i < shown.size(); ++i)
        shown[i]->setWidth(widths[i]);
}

void NSTableView::sizeToFit()
{
    fitColumns(roomForColumns());
    tile();
}

void NSTableView::sizeLastColumnToFit()
{
    auto const last = std::ranges::find_if(
        m_columns.rbegin(), m_columns.rend(), [](auto const& column) { return column->isResizable() && !column->isHidden(); });
    if (last == m_columns.rend())
        return;
    Ref<NSTableColumn> const column = *last;
    column->setWidth(column->width() + roomForColumns() - columnsWidth());
    tile();
}

// MARK: dirty rows

void NSTableView::markRows(NSRange rows)
{
    auto const seen = NSIntersectionRange(rows, rowsInRect(visibleRect()));
    if (seen.length <= 0)
        return;
    auto const top = m_rows.top(seen.location);
    setNeedsDisplayInRect({ 0, top, bounds().width, m_rows.top(seen.end()) - top });
}

void NSTableView::markRowsFrom(long row)
{
    float const top = m_rows.top(row);
    setNeedsDisplayInRect({ 0, top, bounds().width, std::max(0.F, bounds().height - top) });
}

}

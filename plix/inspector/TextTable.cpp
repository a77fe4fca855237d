#include <plix/inspector/TextTable.h>

#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/graphics/NSFont.h>

namespace plix {

namespace {

constexpr float rowHeight = 17;

}

Ref<NSTableColumn> addTextColumn(NSTableView& table, TextColumn wanted)
{
    auto const column = make<NSTableColumn>(ObjectValue(wanted.identifier));
    column->headerCell()->setStringValue(wanted.title);
    column->setEditable(false);
    column->setWidth(wanted.width);
    column->dataCell()->setFont(NSFont::systemFontOfSize(NSFont::smallSystemFontSize()));
    column->dataCell()->setLineBreakMode(NSLineBreakByTruncatingTail);
    table.addTableColumn(*column);
    return column;
}

Ref<NSScrollView> makeScrollView(NSTableView& table)
{
    table.setRowHeight(rowHeight);
    table.setColumnAutoresizingStyle(NSTableViewLastColumnOnlyAutoresizingStyle);
    auto scrollView = make<NSScrollView>(Rect { 0, 0, 400, 100 });
    scrollView->setHasVerticalScroller(true);
    scrollView->setAutohidesScrollers(true);
    scrollView->setBorderType(NSBezelBorder);
    scrollView->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    scrollView->setDocumentView(Ref<NSView>(&table));
    return scrollView;
}

PLIX_DESCRIBE(TextTable)
{
}

TextTable::TextTable() = default;
TextTable::~TextTable() = default;

bool TextTable::init(std::span<TextColumn const> columns)
{
    m_table = make<NSTableView>(Rect { 0, 0, 400, 100 });
    for (auto const& column : columns)
        addTextColumn(*m_table, column);
    m_scrollView = makeScrollView(*m_table);
    m_table->setDataSource(Ref<TextTable>(this));
    return true;
}

void TextTable::setRows(Rows rows)
{
    if (rows == m_rows)
        return;
    auto const lastBefore = static_cast<long>(m_rows.size()) - 1;
    bool const showedLast = lastBefore < 0 || NSIntersectsRect(m_table->rectOfRow(lastBefore), m_table->visibleRect());
    m_rows = std::move(rows);
    m_table->reloadData();
    auto const last = static_cast<long>(m_rows.size()) - 1;
    if (m_followsLastRow && showedLast && last >= 0)
        m_table->scrollRowToVisible(last);
}

ObjectValue TextTable::objectValueForTableColumn(NSTableView& table, NSTableColumn& column, long row) const
{
    auto const place = static_cast<std::size_t>(table.columnWithTableColumn(column));
    auto const& texts = m_rows.at(static_cast<std::size_t>(row));
    return place < texts.size() ? ObjectValue(texts[place]) : ObjectValue();
}

}

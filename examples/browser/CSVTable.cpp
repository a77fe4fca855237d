#include "CSVTable.h"

#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/tables/PLIXTableView.h>
#include <plix/tables/table_column_additions.h>

#include <algorithm>

namespace browser {

using namespace plix;

namespace {

constexpr float leastWidth = 40;
constexpr float greatestWidth = 220;

}

PLIX_DESCRIBE(CSVTable)
{
}

CSVTable::CSVTable() = default;
CSVTable::~CSVTable() = default;

bool CSVTable::init()
{
    m_scrollView = make<NSScrollView>(Rect { 0, 0, 300, 180 });
    m_scrollView->setHasVerticalScroller(true);
    m_scrollView->setHasHorizontalScroller(true);
    m_scrollView->setAutohidesScrollers(true);
    m_scrollView->setBorderType(NSLineBorder);
    m_table = make<PLIXTableView>(rectWith({}, m_scrollView->contentSize()));
    m_table->setRowHeight(16);
    m_table->setUsesAlternatingRowBackgroundColors(true);
    m_table->setColumnAutoresizingStyle(NSTableViewNoColumnAutoresizing);
    m_table->setDataSource(Ref<CSVTable>(this));
    m_scrollView->setDocumentView(m_table);
    return true;
}

void CSVTable::setRows(std::vector<std::vector<std::string>> rows)
{
    while (!m_table->tableColumns().empty())
        m_table->removeTableColumn(*m_table->tableColumns().back());
    std::vector<std::string> headers;
    std::size_t columns = 0;
    for (auto const& row : rows)
        columns = std::max(columns, row.size());
    if (!rows.empty()) {
        headers = std::move(rows.front());
        rows.erase(rows.begin());
    }
    headers.resize(columns);
    m_rows = std::move(rows);
    for (std::size_t index = 0; index < columns; ++index) {
        auto const column = make<NSTableColumn>(ObjectValue(static_cast<long>(index)));
        column->headerCell()->setStringValue(headers[index]);
        column->setEditable(false);
        column->setMinWidth(leastWidth);
        column->dataCell()->setFont(NSFont::systemFontOfSize(NSFont::smallSystemFontSize()));
        column->dataCell()->setLineBreakMode(NSLineBreakByTruncatingTail);
        m_table->addTableColumn(*column);
    }
    m_table->reloadData();
    for (auto const& column : m_table->tableColumns()) {
        column->sizeToFit();
        float const header = column->width();
        sizeToFitData(*column);
        column->setWidth(std::clamp(std::max(header, column->width()), leastWidth, greatestWidth));
    }
    m_table->scrollPoint({});
}

long CSVTable::numberOfRowsInTableView(NSTableView&)
{
    return static_cast<long>(m_rows.size());
}

ObjectValue CSVTable::objectValueForTableColumn(NSTableView&, NSTableColumn& column, long row)
{
    auto const& fields = m_rows.at(static_cast<std::size_t>(row));
    auto const index = static_cast<std::size_t>(column.identifier().integerValue());
    return index < fields.size() ? ObjectValue(fields[index]) : ObjectValue("");
}

}

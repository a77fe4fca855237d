#include <plix/tables/table_column_additions.h>

#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/tables/CellWidths.h>
#include <plix/tables/column_plan.h>

#include <algorithm>

namespace plix {

namespace {

bool hasDataSource(NSTableView const& table)
{
    return table.dataSource() || table.dataSourceHooks().objectValueForTableColumn;
}

// The data source may change the number of rows under way.
float widestValue(NSTableView& table, NSTableColumn& column, CellWidths& widths)
{
    float widest = column.minWidth();
    for (long row = 0; row < table.numberOfRows(); ++row)
        widest = std::max(widest, widths.widthOf(table.objectValueForCell(column, row)));
    return widest;
}

}

float dataWidth(NSTableColumn& column)
{
    Ref<NSTableColumn> const keptColumn(column);
    Ref<NSTableView> const table(column.tableView());
    Ref<NSCell> const cell(column.dataCell());
    if (!table || !hasDataSource(*table) || !cell)
        return column.minWidth();
    CellWidths widths(*cell);
    return widthForData(widestValue(*table, column, widths), DataColumn::plain);
}

void sizeToFitData(NSTableColumn& column)
{
    Ref<NSTableColumn> const kept(column);
    column.setWidth(std::min(dataWidth(column), column.maxWidth()));
}

}

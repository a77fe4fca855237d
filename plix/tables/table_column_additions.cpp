#include <plix/tables/table_column_additions.h>

#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/tables/CellWidths.h>
#include <plix/tables/column_plan.h>
#include <plix/tables/data_sources.h>

#include <algorithm>

namespace plix {

namespace {

/// Asked as a table: an outline's own form of the question is not for everybody.
ObjectValue valueInRow(NSTableView& table, NSTableColumn& column, long row)
{
    return table.objectValueForCell(column, row);
}

// The data source may change the number of rows under way.
float widestValue(NSTableView& table, NSTableColumn& column, CellWidths& widths)
{
    float widest = column.minWidth();
    for (long row = 0; row < table.numberOfRows(); ++row)
        widest = std::max(widest, widths.widthOf(valueInRow(table, column, row)));
    return widest;
}

float widestValueInOutline(NSOutlineView& outline, NSTableColumn& column, CellWidths& widths)
{
    float widest = column.minWidth();
    for (long row = 0; row < outline.numberOfRows(); ++row) {
        float const width = widths.widthOf(valueInRow(outline, column, row));
        float const indentation = outline.indentationPerLevel() * static_cast<float>(outline.levelForRow(row));
        widest = widestInOutline(widest, indentation, width);
    }
    return widest;
}

}

float dataWidth(NSTableColumn& column)
{
    Ref<NSTableColumn> const keptColumn(column);
    Ref<NSTableView> const table(column.tableView());
    Ref<NSCell> const cell(column.dataCell());
    auto* outline = dynamic_cast<NSOutlineView*>(table.get());
    if (!table || !cell || !(outline ? hasDataSource(*outline) : hasDataSource(*table)))
        return column.minWidth();
    CellWidths widths(*cell);
    if (outline) {
        float const widest = widestValueInOutline(*outline, column, widths);
        return widthForData(widest, outline->outlineTableColumn() == &column ? DataColumn::outline : DataColumn::plain);
    }
    return widthForData(widestValue(*table, column, widths), DataColumn::plain);
}

void sizeToFitData(NSTableColumn& column)
{
    Ref<NSTableColumn> const kept(column);
    column.setWidth(std::min(dataWidth(column), column.maxWidth()));
}

}

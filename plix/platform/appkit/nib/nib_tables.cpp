#include <plix/platform/appkit/nib/NibReading.h>
#include <plix/platform/appkit/nib/nib_kinds.h>

#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableView.h>

namespace plix {

namespace {

constexpr NibWord columnStyles[] = {
    { "none", NSTableViewNoColumnAutoresizing },
    { "uniform", NSTableViewUniformColumnAutoresizingStyle },
    { "sequential", NSTableViewSequentialColumnAutoresizingStyle },
    { "reverseSequential", NSTableViewReverseSequentialColumnAutoresizingStyle },
    { "lastColumnOnly", NSTableViewLastColumnOnlyAutoresizingStyle },
    { "firstColumnOnly", NSTableViewFirstColumnOnlyAutoresizingStyle },
};
constexpr NibWord gridLines[]
    = { { "vertical", NSTableViewSolidVerticalGridLineMask }, { "horizontal", NSTableViewSolidHorizontalGridLineMask } };
constexpr NibWord columnResizing[]
    = { { "resizeWithTable", NSTableColumnAutoresizingMask }, { "userResizable", NSTableColumnUserResizingMask } };

}

void readNibTableView(NibReading& reading)
{
    reading.number("rowHeight", "rowHeight");
    if (auto const spacing = reading.sizeValue("intercellSpacing")) {
        reading.set("intercellSpacingWidth", spacing->width);
        reading.set("intercellSpacingHeight", spacing->height);
    }
    reading.color("backgroundColor", "backgroundColor");
    reading.color("gridColor", "gridColor");
    reading.mask("gridStyleMask", "gridStyleMask", gridLines);
    for (auto const* flag : { "columnReordering", "columnResizing", "columnSelection", "multipleSelection", "emptySelection",
             "alternatingRowBackgroundColors", "verticalMotionCanBeginDrag" })
        reading.flag(flag, flag);
    reading.choice("columnAutoresizingStyle", "columnAutoresizingStyle", columnStyles);
    reading.flag("autosaveColumns", "autosaveTableColumns");
    reading.code("autosaveName", "autosaveName");
    reading.objects("tableColumns", "tableColumns", "NSTableColumn");
    if (reading.has("headerView"))
        reading.reference("headerView", "headerView", "NSTableHeaderView");
    else
        reading.set("headerView", ObjectValue());
}

void readNibOutlineView(NibReading& reading)
{
    reading.number("indentationPerLevel", "indentationPerLevel");
    reading.reference("outlineTableColumn", "outlineTableColumn", "NSTableColumn");
}

void readNibTableColumn(NibReading& reading)
{
    reading.code("identifier", "identifier");
    reading.number("minWidth", "minWidth");
    reading.number("maxWidth", "maxWidth");
    reading.number("width", "width");
    reading.flag("editable", "editable");
    reading.flag("hidden", "hidden");
    reading.text("headerToolTip", "headerToolTip");
    reading.mask("resizingMask", "resizingMask", columnResizing);
    reading.object("headerCell", "headerCell", "NSCell");
    reading.object("dataCell", "dataCell", "NSCell");
}

}

#pragma once

#include <plix/platform/appkit/NSOutlineView.h>

namespace plix {

// Whether there is somebody to ask for values.

inline bool hasDataSource(NSTableView const& table)
{
    return table.dataSource() || table.dataSourceHooks().objectValueForTableColumn;
}

inline bool hasDataSource(NSOutlineView const& outline)
{
    auto const& hooks = outline.outlineDataSourceHooks();
    return outline.dataSource() || hooks.objectValueForTableColumn || hooks.objectValueForTableColumnAndRow;
}

}

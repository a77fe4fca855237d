#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/base/NSIndexSet.h>
#include <plix/platform/base/ObjectValue.h>

namespace plix {

class NSTableColumn;
class NSTableView;

/// Whether something is dropped on a row or above it.
enum NSTableViewDropOperation : int { NSTableViewDropOn = 0, NSTableViewDropAbove = 1 };

/// Where a table gets its rows from. Rows and their values are asked for when they are drawn, not kept.
struct NSTableViewDataSource {
    // How many rows there are, and the value of a row in a column.
    Hook<long(NSTableView&)> numberOfRowsInTableView;
    Hook<ObjectValue(NSTableView&, NSTableColumn&, long row)> objectValueForTableColumn;
    /// A value that was edited in place, or clicked into a cell that can be clicked.
    Hook<void(NSTableView&, ObjectValue, NSTableColumn&, long row)> setObjectValue;
    /// Rows shall be dragged out: puts them on the pasteboard, or answers false.
    Hook<bool(NSTableView&, NSIndexSet const&, NSPasteboard&)> writeRowsWithIndexes;
    /// What a drop there would do, as drag operations; may place it elsewhere by setDropRow().
    Hook<unsigned(NSTableView&, NSDraggingInfo&, long row, NSTableViewDropOperation)> validateDrop;
    Hook<bool(NSTableView&, NSDraggingInfo&, long row, NSTableViewDropOperation)> acceptDrop;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(numberOfRowsInTableView);
        PLIX_FILL_HOOK(objectValueForTableColumn);
        PLIX_FILL_HOOK(setObjectValue);
        PLIX_FILL_HOOK(writeRowsWithIndexes);
        PLIX_FILL_HOOK(validateDrop);
        PLIX_FILL_HOOK(acceptDrop);
    }
};

}

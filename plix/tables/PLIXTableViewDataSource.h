#pragma once

#include <plix/platform/appkit/NSTableViewDataSource.h>
#include <plix/platform/base/Hook.h>

namespace plix {

/// What a PLIXTableView asks its data source beyond what any table does.
struct PLIXTableViewDataSource : NSTableViewDataSource {
    /// Never called: that it is there makes right clicks ask shouldSelectRow, and leave rows alone that are selected already.
    Hook<bool(NSTableView&, long row)> tableviewShouldSelectRow;
    /// Whether a right click selects the row; asked only where the hook above is there.
    Hook<bool(NSTableView&, long row)> shouldSelectRow;

    template <typename Host> void fillFrom(Host& host)
    {
        NSTableViewDataSource::fillFrom(host);
        PLIX_FILL_HOOK(tableviewShouldSelectRow);
        PLIX_FILL_HOOK(shouldSelectRow);
    }
};

}

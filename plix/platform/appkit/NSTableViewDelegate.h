#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/graphics/geometry.h>

#include <optional>
#include <string>

namespace plix {

class NSCell;
class NSTableColumn;
class NSTableView;

/// What a table asks and tells its delegate.
struct NSTableViewDelegate {
    /// A cell has its value and is about to be drawn.
    Hook<void(NSTableView&, NSCell&, NSTableColumn&, long row)> willDisplayCell;
    Hook<bool(NSTableView&, NSTableColumn&, long row)> shouldEditTableColumn;
    /// False keeps the selection as it is when a person wants to change it.
    Hook<bool(NSTableView&)> selectionShouldChangeInTableView;
    Hook<bool(NSTableView&, long row)> shouldSelectRow;
    Hook<bool(NSTableView&, NSTableColumn&)> shouldSelectTableColumn;
    Hook<void(NSTableView&, NSTableColumn&)> mouseDownInHeaderOfTableColumn;
    Hook<void(NSTableView&, NSTableColumn&)> didClickTableColumn;
    Hook<void(NSTableView&, NSTableColumn&)> didDragTableColumn;
    /// Asked when the pointer rests on a cell; empty for none. The rectangle is the cell's frame.
    Hook<std::string(NSTableView&, NSCell&, Rect&, NSTableColumn&, long row, Point mouse)> toolTipForCell;
    /// What typing letters looks for in a row; without it the text of the first column that has any.
    Hook<std::optional<std::string>(NSTableView&, NSTableColumn&, long row)> typeSelectStringForTableColumn;

    // Told with the notification of the like name.
    Hook<void(NSNotification const&)> tableViewSelectionDidChange;
    /// While the mouse still changes it.
    Hook<void(NSNotification const&)> tableViewSelectionIsChanging;
    Hook<void(NSNotification const&)> tableViewColumnDidMove;
    Hook<void(NSNotification const&)> tableViewColumnDidResize;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(willDisplayCell);
        PLIX_FILL_HOOK(shouldEditTableColumn);
        PLIX_FILL_HOOK(selectionShouldChangeInTableView);
        PLIX_FILL_HOOK(shouldSelectRow);
        PLIX_FILL_HOOK(shouldSelectTableColumn);
        PLIX_FILL_HOOK(mouseDownInHeaderOfTableColumn);
        PLIX_FILL_HOOK(didClickTableColumn);
        PLIX_FILL_HOOK(didDragTableColumn);
        PLIX_FILL_HOOK(toolTipForCell);
        PLIX_FILL_HOOK(typeSelectStringForTableColumn);
        PLIX_FILL_HOOK(tableViewSelectionDidChange);
        PLIX_FILL_HOOK(tableViewSelectionIsChanging);
        PLIX_FILL_HOOK(tableViewColumnDidMove);
        PLIX_FILL_HOOK(tableViewColumnDidResize);
    }
};

}

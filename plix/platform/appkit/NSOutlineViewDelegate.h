#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/graphics/geometry.h>

#include <optional>
#include <string>

namespace plix {

class NSCell;
class NSOutlineView;
class NSTableColumn;
class NSTableView;

/// What an outline asks and tells its delegate.
struct NSOutlineViewDelegate {
    /// A cell has its value and is about to be drawn. The table's form is told first, where the delegate has it.
    Hook<void(NSOutlineView&, NSCell&, NSTableColumn&, NSObject* item)> willDisplayCell;
    Hook<void(NSTableView&, NSCell&, NSTableColumn&, long row)> willDisplayCellAtRow;
    /// The triangle in front of an item that can be expanded is about to be drawn.
    Hook<void(NSOutlineView&, NSCell&, NSTableColumn&, NSObject* item)> willDisplayOutlineCell;
    Hook<bool(NSOutlineView&, NSTableColumn&, NSObject* item)> shouldEditTableColumn;
    Hook<bool(NSOutlineView&)> selectionShouldChangeInOutlineView;
    Hook<bool(NSOutlineView&, NSObject* item)> shouldSelectItem;
    Hook<bool(NSOutlineView&, NSTableColumn&)> shouldSelectTableColumn;
    Hook<bool(NSOutlineView&, NSObject* item)> shouldExpandItem;
    Hook<bool(NSOutlineView&, NSObject* item)> shouldCollapseItem;
    Hook<void(NSOutlineView&, NSTableColumn&)> mouseDownInHeaderOfTableColumn;
    Hook<void(NSOutlineView&, NSTableColumn&)> didClickTableColumn;
    Hook<void(NSOutlineView&, NSTableColumn&)> didDragTableColumn;
    /// What typing letters looks for in an item.
    Hook<std::optional<std::string>(NSOutlineView&, NSTableColumn&, NSObject* item)> typeSelectStringForTableColumn;

    /// Asked when the pointer rests on a cell; empty for none. The rectangle is the cell's frame.
    Hook<std::string(NSOutlineView&, NSCell&, Rect&, NSTableColumn&, NSObject* item, Point mouse)> toolTipForCell;

    // Told with the notification of the like name.
    Hook<void(NSNotification const&)> outlineViewSelectionDidChange;
    Hook<void(NSNotification const&)> outlineViewSelectionIsChanging;
    Hook<void(NSNotification const&)> outlineViewColumnDidMove;
    Hook<void(NSNotification const&)> outlineViewColumnDidResize;
    // With the item as "NSObject" in the user info.
    Hook<void(NSNotification const&)> outlineViewItemWillExpand;
    Hook<void(NSNotification const&)> outlineViewItemDidExpand;
    Hook<void(NSNotification const&)> outlineViewItemWillCollapse;
    Hook<void(NSNotification const&)> outlineViewItemDidCollapse;

    template <typename Host> void fillFrom(Host& host)
    {
        fillWillDisplayCell(host);
        PLIX_FILL_HOOK(willDisplayOutlineCell);
        PLIX_FILL_HOOK(shouldEditTableColumn);
        PLIX_FILL_HOOK(selectionShouldChangeInOutlineView);
        PLIX_FILL_HOOK(shouldSelectItem);
        PLIX_FILL_HOOK(shouldSelectTableColumn);
        PLIX_FILL_HOOK(shouldExpandItem);
        PLIX_FILL_HOOK(shouldCollapseItem);
        PLIX_FILL_HOOK(mouseDownInHeaderOfTableColumn);
        PLIX_FILL_HOOK(didClickTableColumn);
        PLIX_FILL_HOOK(didDragTableColumn);
        PLIX_FILL_HOOK(typeSelectStringForTableColumn);
        PLIX_FILL_HOOK(toolTipForCell);
        PLIX_FILL_HOOK(outlineViewSelectionDidChange);
        PLIX_FILL_HOOK(outlineViewSelectionIsChanging);
        PLIX_FILL_HOOK(outlineViewColumnDidMove);
        PLIX_FILL_HOOK(outlineViewColumnDidResize);
        PLIX_FILL_HOOK(outlineViewItemWillExpand);
        PLIX_FILL_HOOK(outlineViewItemDidExpand);
        PLIX_FILL_HOOK(outlineViewItemWillCollapse);
        PLIX_FILL_HOOK(outlineViewItemDidCollapse);
    }

private:
    template <typename Host> void fillWillDisplayCell(Host& host)
    {
        constexpr bool hasTableForm = requires(NSTableView & table, NSCell & cell, NSTableColumn & column, long row)
        {
            host.willDisplayCell(table, cell, column, row);
        };
        constexpr bool hasOwnForm = requires(NSOutlineView & outline, NSCell & cell, NSTableColumn & column, NSObject * item)
        {
            host.willDisplayCell(outline, cell, column, item);
        };
        if constexpr (hasTableForm) {
            willDisplayCellAtRow.bind(host, [](Host& told, NSTableView& table, NSCell& cell, NSTableColumn& column, long row) {
                told.willDisplayCell(table, cell, column, row);
            });
        }
        if constexpr (hasOwnForm || !hasTableForm)
            PLIX_FILL_HOOK(willDisplayCell);
    }
};

}

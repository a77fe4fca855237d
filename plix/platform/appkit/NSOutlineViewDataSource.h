#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/base/ObjectValue.h>

#include <vector>

namespace plix {

class NSDraggingInfo;
class NSOutlineView;
class NSTableColumn;
class NSTableView;

/// The place of a drop that goes onto an item, not between its children.
inline constexpr long NSOutlineViewDropOnItemIndex = -1;

/// Where an outline gets its items from. A null item stands for the top. Children are asked for when they come into view, and are
/// then kept until they are reloaded.
struct NSOutlineViewDataSource {
    // The tree, and the value of an item in a column.
    Hook<long(NSOutlineView&, NSObject* item)> numberOfChildrenOfItem;
    Hook<Ref<NSObject>(NSOutlineView&, long index, NSObject* item)> child;
    Hook<bool(NSOutlineView&, NSObject* item)> isItemExpandable;
    Hook<ObjectValue(NSOutlineView&, NSTableColumn&, NSObject* item)> objectValueForTableColumn;
    /// The table's form, for a data source that has only this.
    Hook<ObjectValue(NSTableView&, NSTableColumn&, long row)> objectValueForTableColumnAndRow;
    Hook<void(NSOutlineView&, ObjectValue, NSTableColumn&, NSObject* item)> setObjectValue;
    Hook<bool(NSOutlineView&, std::vector<Ref<NSObject>> const& items, NSPasteboard&)> writeItems;
    /// What a drop there would do, as drag operations; may place it elsewhere by setDropItem().
    Hook<unsigned(NSOutlineView&, NSDraggingInfo&, NSObject* item, long childIndex)> validateDrop;
    Hook<bool(NSOutlineView&, NSDraggingInfo&, NSObject* item, long childIndex)> acceptDrop;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(numberOfChildrenOfItem);
        PLIX_FILL_HOOK(child);
        PLIX_FILL_HOOK(isItemExpandable);
        fillObjectValue(host);
        PLIX_FILL_HOOK(setObjectValue);
        PLIX_FILL_HOOK(writeItems);
        PLIX_FILL_HOOK(validateDrop);
        PLIX_FILL_HOOK(acceptDrop);
    }

private:
    template <typename Host> void fillObjectValue(Host& host)
    {
        constexpr bool hasTableForm = requires(NSTableView & table, NSTableColumn & column, long row)
        {
            host.objectValueForTableColumn(table, column, row);
        };
        constexpr bool hasOwnForm = requires(NSOutlineView & outline, NSTableColumn & column, NSObject * item)
        {
            host.objectValueForTableColumn(outline, column, item);
        };
        if constexpr (hasTableForm) {
            objectValueForTableColumnAndRow.bind(host, [](Host& source, NSTableView& table, NSTableColumn& column, long row) {
                return ObjectValue(source.objectValueForTableColumn(table, column, row));
            });
        }
        if constexpr (hasOwnForm || !hasTableForm)
            PLIX_FILL_HOOK(objectValueForTableColumn);
    }
};

}

#pragma once

#include <plix/platform/appkit/NSOutlineViewDelegate.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/graphics/Forward.h>

namespace plix {

class NSObject;
class NSTableView;

/// What a PLIXOutlineView asks and tells its delegate beyond what any outline does.
struct PLIXOutlineViewDelegate : NSOutlineViewDelegate {
    /// Before anything is drawn. The table's hook is used here too.
    Hook<void(NSTableView&, Rect)> willDrawRect;
    /// Before a row's cells are drawn.
    Hook<void(NSOutlineView&, NSObject* item, Rect row)> willDrawItem;
    /// Drawn in a selected row's highlight in place of colour and edge; null for the usual one. Asked for drop targets too, where
    /// the answer does not count.
    Hook<Ref<NSImage>(NSTableView&, NSObject* item)> customHighlightImageForItem;
    /// Whether the item has a disclosure image, and clicks on it are taken as they come; else they are moved onto the row.
    Hook<bool(NSOutlineView&, NSObject* item)> shouldShowIndentationMarkerForItem;
    /// The disclosure images in place of those named "expanded" and "collapsed"; null draws none.
    Hook<Ref<NSImage>(NSOutlineView&, NSObject* item)> expandedIndicatorForItem;
    Hook<Ref<NSImage>(NSOutlineView&, NSObject* item)> collapsedIndicatorForItem;
    /// Return or Enter was pressed.
    Hook<void(NSOutlineView&, NSOutlineView& sender)> returnKey;
    /// Backspace or Delete was pressed.
    Hook<void(NSOutlineView&, NSOutlineView& sender)> deleteBackward;

    template <typename Host> void fillFrom(Host& host)
    {
        NSOutlineViewDelegate::fillFrom(host);
        PLIX_FILL_HOOK(willDrawRect);
        PLIX_FILL_HOOK(willDrawItem);
        PLIX_FILL_HOOK(customHighlightImageForItem);
        PLIX_FILL_HOOK(shouldShowIndentationMarkerForItem);
        PLIX_FILL_HOOK(expandedIndicatorForItem);
        PLIX_FILL_HOOK(collapsedIndicatorForItem);
        PLIX_FILL_HOOK(returnKey);
        PLIX_FILL_HOOK(deleteBackward);
    }
};

}

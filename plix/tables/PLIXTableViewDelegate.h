#pragma once

#include <plix/platform/appkit/NSTableViewDelegate.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/graphics/Forward.h>

namespace plix {

class NSObject;

/// What a PLIXTableView asks and tells its delegate beyond what any table does.
struct PLIXTableViewDelegate : NSTableViewDelegate {
    /// Before anything is drawn.
    Hook<void(NSTableView&, Rect)> willDrawRect;
    /// Drawn in a selected row's highlight in place of colour and edge; null for the usual one.
    Hook<Ref<NSImage>(NSTableView&, long row)> customHighlightImageForRow;
    /// Where it answers an image, a drop target is outlined as the whole row. In tables the item is null.
    Hook<Ref<NSImage>(NSTableView&, NSObject* item)> customHighlightImageForItem;
    /// Return or Enter was pressed.
    Hook<void(NSTableView&, NSTableView& sender)> returnKey;
    /// Backspace or Delete was pressed.
    Hook<void(NSTableView&, NSTableView& sender)> deleteBackward;

    template <typename Host> void fillFrom(Host& host)
    {
        NSTableViewDelegate::fillFrom(host);
        PLIX_FILL_HOOK(willDrawRect);
        PLIX_FILL_HOOK(customHighlightImageForRow);
        PLIX_FILL_HOOK(customHighlightImageForItem);
        PLIX_FILL_HOOK(returnKey);
        PLIX_FILL_HOOK(deleteBackward);
    }
};

}

#pragma once

#include <plix/platform/appkit/NSTabViewDelegate.h>
#include <plix/platform/base/Hook.h>

namespace plix {

/// What a PLIXTabView tells its delegate beyond what any tab view does.
struct PLIXTabViewDelegate : NSTabViewDelegate {
    /// Behind didSelectTabViewItem: the window has its new size, and the new pane is in its place. Told whenever a selection was
    /// asked for, also of the item that is selected already and of one that was refused; null where null was asked for.
    Hook<void(NSTabView&, NSTabViewItem*)> reallyDidSelectTabViewItem;

    template <typename Host> void fillFrom(Host& host)
    {
        NSTabViewDelegate::fillFrom(host);
        PLIX_FILL_HOOK(reallyDidSelectTabViewItem);
    }
};

}

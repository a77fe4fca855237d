#pragma once

#include <plix/platform/base/Hook.h>

namespace plix {

class NSTabView;
class NSTabViewItem;

/// What a tab view asks and tells its delegate.
struct NSTabViewDelegate {
    /// False leaves the selection as it is.
    Hook<bool(NSTabView&, NSTabViewItem&)> shouldSelectTabViewItem;
    Hook<void(NSTabView&, NSTabViewItem&)> willSelectTabViewItem;
    Hook<void(NSTabView&, NSTabViewItem&)> didSelectTabViewItem;
    Hook<void(NSTabView&)> tabViewDidChangeNumberOfTabViewItems;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(shouldSelectTabViewItem);
        PLIX_FILL_HOOK(willSelectTabViewItem);
        PLIX_FILL_HOOK(didSelectTabViewItem);
        PLIX_FILL_HOOK(tabViewDidChangeNumberOfTabViewItems);
    }
};

}

#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Hook.h>

namespace plix {

/// What a menu asks and tells its delegate.
struct NSMenuDelegate {
    /// Before the menu is shown or looked through for a key: its items may be changed.
    Hook<void(NSMenu&)> menuNeedsUpdate;
    Hook<void(NSMenu&)> menuWillOpen;
    Hook<void(NSMenu&)> menuDidClose;
    /// Null where none is.
    Hook<void(NSMenu&, NSMenuItem*)> willHighlightItem;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(menuNeedsUpdate);
        PLIX_FILL_HOOK(menuWillOpen);
        PLIX_FILL_HOOK(menuDidClose);
        PLIX_FILL_HOOK(willHighlightItem);
    }
};

}

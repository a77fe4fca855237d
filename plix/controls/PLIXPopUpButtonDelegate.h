#pragma once

#include <plix/platform/base/Hook.h>

namespace plix {

class NSMenu;
class PLIXPopUpButton;

/// What a PLIXPopUpButton tells its delegate.
struct PLIXPopUpButtonDelegate {
    /// Before the menu is shown; it may be changed.
    Hook<void(PLIXPopUpButton&, NSMenu&)> willDisplayMenu;

    template <typename Host> void fillFrom(Host& host) { PLIX_FILL_HOOK(willDisplayMenu); }
};

}

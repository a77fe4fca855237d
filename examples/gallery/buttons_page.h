#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

class NSView;

}

namespace gallery {

/// Every type and bezel of buttons, check boxes, radio buttons, pop-ups and pull-downs in all their states.
plix::Ref<plix::NSView> makeButtonsPage();
/// Open menus: with marks, keys, submenus and what is lit, and one that scrolls.
plix::Ref<plix::NSView> makeMenusPage();

}

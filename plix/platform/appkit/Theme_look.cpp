#include <plix/platform/appkit/Theme.h>

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindow.h>

namespace plix {

ControlLook Theme::lookOfView(NSView const& view)
{
    ControlLook look;
    look.isWindowActive = view.looksActive();
    if (auto const* window = view.window())
        look.isFocused = window->firstResponder() == &view;
    return look;
}

}

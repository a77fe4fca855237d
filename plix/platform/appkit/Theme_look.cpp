#include <plix/platform/appkit/Theme.h>

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindow.h>

namespace plix {

ControlLook Theme::lookOfView(NSView const& view)
{
    ControlLook look;
    if (auto const* window = view.window()) {
        auto const* sheet = window->attachedSheet();
        look.isWindowActive = window->isKeyWindow() || (sheet && sheet->isKeyWindow());
        look.isFocused = window->firstResponder() == &view;
    }
    return look;
}

}

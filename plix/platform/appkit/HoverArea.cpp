#include <plix/platform/appkit/HoverArea.h>

#include <plix/platform/appkit/NSWindow.h>

#include <utility>

namespace plix {

bool HoverArea::follow(NSView& view)
{
    end(view);
    auto const* window = view.window();
    if (!window)
        return false;
    Point const pointer = view.convertPointFromView(window->mouseLocationOutsideOfEventStream(), nullptr);
    bool const isInside = view.mouseInRect(pointer, view.bounds());
    m_tag = view.addTrackingRect(view.bounds(), &view, nullptr, isInside);
    return isInside;
}

void HoverArea::end(NSView& view)
{
    if (m_tag)
        view.removeTrackingRect(std::exchange(m_tag, 0));
}

}

#include <plix/platform/host/window_placement.h>

#include <algorithm>

namespace plix {

namespace {

float area(Rect rect)
{
    return rect.isEmpty() ? 0 : rect.width * rect.height;
}

float squaredDistance(Point point, Rect rect)
{
    auto const dx = std::max({ rect.x - point.x, point.x - rect.maxX(), 0.0F });
    auto const dy = std::max({ rect.y - point.y, point.y - rect.maxY(), 0.0F });
    return dx * dx + dy * dy;
}

/// Unlike std::clamp this may be asked with low above high; then low wins.
float between(float value, float low, float high)
{
    return std::max(low, std::min(value, high));
}

}

std::size_t screenIndexForPoint(Point point, std::span<HostScreen const> screens)
{
    std::size_t best = 0;
    for (std::size_t index = 0; index < screens.size(); ++index) {
        if (NSPointInRect(point, screens[index].frame))
            return index;
        if (squaredDistance(point, screens[index].frame) < squaredDistance(point, screens[best].frame))
            best = index;
    }
    return best;
}

std::size_t screenIndexForRect(Rect rect, std::span<HostScreen const> screens)
{
    std::size_t best = 0;
    float bestArea = 0;
    for (std::size_t index = 0; index < screens.size(); ++index) {
        auto const shown = area(NSIntersectionRect(rect, screens[index].frame));
        if (shown > bestArea) {
            best = index;
            bestArea = shown;
        }
    }
    return bestArea > 0 ? best : screenIndexForPoint({ rect.midX(), rect.midY() }, screens);
}

Rect popupRectOnScreen(Rect popup, std::span<HostScreen const> screens)
{
    if (screens.empty())
        return popup;
    auto const visible = screens[screenIndexForRect(popup, screens)].visibleFrame;
    auto const x = between(popup.x, visible.x, visible.maxX() - popup.width);
    auto const top = std::min(visible.maxY(), std::max(popup.maxY(), visible.y + popup.height));
    return { x, top - popup.height, popup.width, popup.height };
}

Rect frameBackOnScreen(Rect frame, std::span<HostScreen const> screens, float graspable)
{
    if (screens.empty())
        return frame;
    auto const visible = screens[screenIndexForRect(frame, screens)].visibleFrame;
    auto const needed = std::min(graspable, frame.width);
    auto const x = between(frame.x, visible.x - frame.width + needed, visible.maxX() - needed);
    auto const top = std::min(visible.maxY(), std::max(frame.maxY(), visible.y + std::min(graspable, frame.height)));
    return { x, top - frame.height, frame.width, frame.height };
}

}

#include <plix/platform/appkit/combo_layout.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr float border = 1;

}

Rect comboListFrame(Rect field, ComboListShape const& shape, Rect screen)
{
    float const below = std::max(0.F, field.y - screen.y);
    float const above = std::max(0.F, screen.maxY() - field.maxY());
    long const wanted = std::max(1L, std::min(shape.itemCount, std::max(1L, shape.visibleItems)));
    auto const heightOf = [&](long items) { return static_cast<float>(items) * shape.itemHeight + 2 * border; };
    bool const goesBelow = heightOf(wanted) <= below || below >= above;
    float const room = goesBelow ? below : above;
    long const fitting = std::max(1L, static_cast<long>((room - 2 * border) / std::max(1.F, shape.itemHeight)));
    float const height = heightOf(std::min(wanted, fitting));
    float const width = std::min(field.width, screen.width);
    float const x = std::clamp(field.x, screen.x, std::max(screen.x, screen.maxX() - width));
    return { x, goesBelow ? field.y - height : field.maxY(), width, height };
}

Rect comboButtonRect(Rect bounds, float width)
{
    width = std::clamp(width, 0.F, std::max(0.F, bounds.width));
    return { bounds.maxX() - width, bounds.y, width, bounds.height };
}

long comboItemAfterStep(long current, long step, long itemCount)
{
    if (itemCount <= 0)
        return -1;
    if (current < 0)
        return step > 0 ? std::min(step, itemCount) - 1 : itemCount - 1;
    return std::clamp(current + step, 0L, itemCount - 1);
}

}

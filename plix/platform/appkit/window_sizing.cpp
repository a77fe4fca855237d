#include <plix/platform/appkit/window_sizing.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

float inIncrements(float proposed, float now, float increment)
{
    return increment > 1 ? now + std::trunc((proposed - now) / increment) * increment : proposed;
}

}

Size resizedWindowSize(Size proposed, Size now, Size aspectRatio, Size increments)
{
    if (aspectRatio.width > 0 && aspectRatio.height > 0)
        return { proposed.width, std::round(proposed.width * aspectRatio.height / aspectRatio.width) };
    return { inIncrements(proposed.width, now.width, increments.width),
        inIncrements(proposed.height, now.height, increments.height) };
}

Point sheetOrigin(Size sheet, Point edge, float screenBottom)
{
    return { std::round(edge.x - sheet.width * 0.5F), std::max(std::round(edge.y - sheet.height), screenBottom) };
}

Rect slidingSheetRect(Rect sheet, float share)
{
    float const height = std::clamp(std::round(sheet.height * share), 1.0F, std::max(sheet.height, 1.0F));
    return { sheet.x, sheet.maxY() - height, sheet.width, height };
}

}

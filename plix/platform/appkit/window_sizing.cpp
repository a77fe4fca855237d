#include <plix/platform/appkit/window_sizing.h>

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

}

#include <plix/windows/alert_plan.h>

#include <algorithm>

namespace plix {

namespace {

constexpr float titleRoom = 14.0F;
/// Taller texts are cut there.
constexpr float mostTextHeight = 1000.0F;
constexpr float sheetGrowth = 5.0F;

}

AlertButtonFrames alertButtonsWithTitle(AlertButtonFrames frames, std::size_t index, Size fitted)
{
    auto& button = frames.at(index);
    float const widthBefore = button.width;
    button.width = fitted.width + titleRoom;
    button.height = fitted.height;
    float const growth = button.width - widthBefore;
    for (auto moved = index; moved < frames.size(); ++moved)
        frames[moved].x -= growth;
    return frames;
}

Size alertTextBounds(float fieldWidth)
{
    return { fieldWidth, mostTextHeight };
}

float alertTextHeight(float measuredHeight)
{
    return std::min(measuredHeight, mostTextHeight);
}

Rect alertFrameForTextHeight(Rect windowFrame, float fieldHeight, float fieldHeightBefore)
{
    windowFrame.height = fieldHeight - fieldHeightBefore + windowFrame.height;
    return windowFrame;
}

Rect alertFrameForSheet(Rect windowFrame)
{
    windowFrame.height += sheetGrowth;
    return windowFrame;
}

}

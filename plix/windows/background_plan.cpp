#include <plix/windows/background_plan.h>

namespace plix {

namespace {

constexpr float indicatorRightMargin = 5.0F;
constexpr float indicatorBottomMargin = 6.0F;
constexpr float stripHeight = 2.0F;

}

std::vector<BackgroundPiece> backgroundPlan(int mode, Size background, float patternHeight)
{
    float const width = background.width;
    float const half = background.height * 0.5F;
    Rect const upperHalf { 0, half, width, half };
    if (mode == PLIXBackgroundUpperHalf)
        return { { upperHalf, { 0, 0, width, patternHeight } } };
    if (mode != PLIXBackgroundHalves)
        return {};
    if (half > patternHeight)
        return { { { 0, background.height - patternHeight, width, patternHeight }, { 0, 0, width, patternHeight } } };

    std::vector<BackgroundPiece> pieces { { upperHalf, { 0, patternHeight - half, width, half } } };
    if (patternHeight > half)
        pieces.push_back({ { 0, half, width, stripHeight }, { 0, 0, width, patternHeight - half }, true });
    if (patternHeight >= background.height)
        pieces.push_back({ { 0, 0, width, half }, { 0, 0, width, half } });
    return pieces;
}

Rect resizeIndicatorFrame(Rect contentBounds, Size image)
{
    return { contentBounds.x + contentBounds.width - (image.width + indicatorRightMargin), indicatorBottomMargin, image.width,
        image.height };
}

Point resizeIndicatorOrigin(Rect contentFrame, float indicatorWidth)
{
    return { contentFrame.x + contentFrame.width - (indicatorRightMargin + indicatorWidth),
        contentFrame.y + indicatorBottomMargin };
}

Rect frameWithTopVisible(Rect frame, Rect visibleFrame)
{
    return NSOffsetRect(frame, 0, visibleFrame.maxY() - frame.maxY());
}

}

#include <plix/controls/tab_window_fit.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr float labelGap = 2.0F;

/// The smallest rectangle around all frames; unlike a union, empty ones count.
Rect extentOf(std::span<Rect const> frames)
{
    float minX = frames.front().x;
    float minY = frames.front().y;
    float maxX = minX;
    float maxY = minY;
    for (auto const& frame : frames) {
        minX = std::min(minX, frame.x);
        minY = std::min(minY, frame.y);
        maxX = std::max(maxX, frame.maxX());
        maxY = std::max(maxY, frame.maxY());
    }
    return { minX, minY, maxX - minX, maxY - minY };
}

float movedByHalf(float start, float growth)
{
    return static_cast<float>(static_cast<double>(start) + static_cast<double>(growth) * -0.5);
}

}

PaneFit windowFrameFittingPane(Rect window, Size tabView, Size contentRect, std::span<Rect const> subviews)
{
    if (subviews.empty())
        return { window, {} };
    Rect const extent = extentOf(subviews);
    float const newHeight = (tabView.height - contentRect.height) + extent.height + 35.0F;
    float const growth = newHeight - tabView.height;
    window.y -= growth;
    window.height += growth;
    return { window, { 0, 20.0F - extent.y } };
}

PaneFit windowFrameFittingPaneXY(Rect window, Size tabView, Size contentRect, std::span<Rect const> subviews)
{
    if (subviews.empty())
        return { window, {} };
    Rect const extent = extentOf(subviews);
    float const dh = (tabView.height - contentRect.height) + extent.height + 34.0F - tabView.height;
    float const dw = (tabView.width - contentRect.width) + extent.width + 40.0F - tabView.width;
    window.y -= dh;
    window.x = movedByHalf(window.x, dw);
    window.height += dh;
    window.width += dw;
    return { window, { 20.0F - extent.x, 18.0F - extent.y } };
}

Rect windowFrameFittingCustomView(Rect window, Size contentRect, Size customView, unsigned long windowResizeMode)
{
    float const dw = customView.width - contentRect.width;
    float const dh = customView.height - contentRect.height;
    window.width += dw;
    window.height += dh;
    if (windowResizeMode & PLIXWindowKeepsTop)
        window.y -= dh;
    else if (windowResizeMode & PLIXWindowGrowsBothWaysVertically)
        window.y = movedByHalf(window.y, dh);
    if (windowResizeMode & PLIXWindowKeepsRight)
        window.x -= dw;
    else if (windowResizeMode & PLIXWindowGrowsBothWaysHorizontally)
        window.x = movedByHalf(window.x, dw);
    return NSIntegralRect(window);
}

Size tabLabelSize(Size textLabel)
{
    return { textLabel.width + textLabel.height + labelGap, textLabel.height };
}

TabLabelPlan tabLabelPlan(Rect label, float imageHeight)
{
    Rect image { label.x, label.y + 1.0F, label.height, label.height };
    if (label.height > imageHeight) {
        double const slack = static_cast<double>(label.height - imageHeight) * 0.5;
        image.x = static_cast<float>(std::trunc(static_cast<double>(label.x) + slack));
        image.y = static_cast<float>(std::trunc(slack + static_cast<double>(label.y)) + 1);
        image.width = imageHeight;
        image.height = imageHeight;
    }
    return { image, NSOffsetRect(label, image.width + labelGap, 0) };
}

}

#pragma once

#include <plix/platform/graphics/geometry.h>
#include <plix/platform/host/HostWindow.h>

#include <optional>
#include <string_view>

namespace plix {

/// How the window system's coordinates (device pixels from the upper left corner of everything, y downwards) and the platform's
/// (points, y upwards from the main screen's lower left corner) translate into each other.
struct ScreenSpace {
    float scale { 1 }; ///< device pixels a point
    PixelRect mainScreen;

    Point pointAtPixel(int x, int y) const;
    Rect rectFromPixels(PixelRect) const;
    /// Sides are rounded to whole pixels, so that neighbours stay neighbours.
    PixelRect pixelsFromRect(Rect) const;
    friend bool operator==(ScreenSpace const&, ScreenSpace const&) = default;
};

/// A rectangle of window pixels as the content's points with y upwards.
Rect contentRectFromPixels(PixelRect, int contentHeightInPixels, float scale);

/// What of a rectangle lies in a window of the size; empty sides are 0.
PixelRect clippedToSize(PixelRect, int width, int height);

/// Device pixels a point: what the environment says, else the desktop's text resolution against 96 dots an inch, else 1. Values
/// that are no number or outside 0.5 to 8 do not count.
float chosenScale(std::optional<std::string_view> environment, std::optional<std::string_view> desktopDotsPerInch);

}

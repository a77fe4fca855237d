#include <plix/platform/host/desktop/screen_space.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace plix {

namespace {

constexpr float s_smallestScale = 0.5F;
constexpr float s_largestScale = 8;
constexpr float s_dotsPerInchAtScaleOne = 96;

int rounded(float value)
{
    return static_cast<int>(std::lround(std::clamp(value, -1e6F, 1e6F)));
}

std::optional<float> scaleFromText(std::optional<std::string_view> text, float unit)
{
    float value = 0;
    if (!text || std::from_chars(text->data(), text->data() + text->size(), value).ec != std::errc {})
        return {};
    auto const scale = value / unit;
    if (!(scale >= s_smallestScale && scale <= s_largestScale))
        return {};
    return scale;
}

}

Point ScreenSpace::pointAtPixel(int x, int y) const
{
    auto const bottom = mainScreen.y + mainScreen.height;
    return { static_cast<float>(x - mainScreen.x) / scale, static_cast<float>(bottom - y) / scale };
}

Rect ScreenSpace::rectFromPixels(PixelRect pixels) const
{
    auto const lowerLeft = pointAtPixel(pixels.x, pixels.y + pixels.height);
    return { lowerLeft.x, lowerLeft.y, static_cast<float>(pixels.width) / scale, static_cast<float>(pixels.height) / scale };
}

PixelRect ScreenSpace::pixelsFromRect(Rect rect) const
{
    auto const left = rounded(rect.x * scale);
    auto const right = rounded(rect.maxX() * scale);
    auto const up = rounded(rect.maxY() * scale);
    auto const down = rounded(rect.y * scale);
    return { left + mainScreen.x, mainScreen.y + mainScreen.height - up, right - left, up - down };
}

Rect contentRectFromPixels(PixelRect pixels, int contentHeightInPixels, float scale)
{
    return ScreenSpace { scale, { 0, 0, 0, contentHeightInPixels } }.rectFromPixels(pixels);
}

PixelRect clippedToSize(PixelRect rect, int width, int height)
{
    auto const left = std::clamp(rect.x, 0, width);
    auto const top = std::clamp(rect.y, 0, height);
    auto const right = std::clamp(rect.x + std::max(rect.width, 0), left, width);
    auto const bottom = std::clamp(rect.y + std::max(rect.height, 0), top, height);
    return { left, top, right - left, bottom - top };
}

float chosenScale(std::optional<std::string_view> environment, std::optional<std::string_view> desktopDotsPerInch)
{
    if (auto const scale = scaleFromText(environment, 1))
        return *scale;
    return scaleFromText(desktopDotsPerInch, s_dotsPerInchAtScaleOne).value_or(1);
}

}

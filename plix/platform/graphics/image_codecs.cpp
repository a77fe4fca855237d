#include <plix/platform/graphics/image_codecs.h>

#include <plix/platform/graphics/NSBitmapImageRep.h>

#include <cmath>

namespace plix {

namespace {

struct Format {
    bool (*isMine)(FileBytes);
    std::vector<DecodedImage> (*decode)(FileBytes);
};

constexpr Format formats[] {
    { isPNG, decodePNG },
    { isJPEG, decodeJPEG },
    { isTIFF, decodeTIFF },
    { isGIF, decodeGIF },
    { isBMP, decodeBMP },
};

constexpr double dotsPerMetreAtOne = 72 / 0.0254;
constexpr int largestScale = 4;
constexpr int largestSide = INT16_MAX;

}

std::vector<DecodedImage> decodeImages(FileBytes bytes)
{
    for (auto const& format : formats) {
        if (format.isMine(bytes))
            return format.decode(bytes);
    }
    return {};
}

bool isAcceptableSize(std::int64_t width, std::int64_t height)
{
    return width > 0 && height > 0 && width <= largestSide && height <= largestSide && isAcceptablePixelCount(width * height);
}

bool isAcceptablePixelCount(std::int64_t count)
{
    return count <= NSBitmapImageRep::maximumPixels;
}

float pixelsPerPointFromResolution(double dotsPerMetre)
{
    double const times = dotsPerMetre / dotsPerMetreAtOne;
    double const whole = std::round(times);
    bool const isWhole = whole >= 1 && whole <= largestScale && std::abs(times - whole) < 0.01;
    return isWhole ? static_cast<float>(whole) : 1;
}

}

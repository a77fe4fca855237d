#include <plix/platform/appkit/image_layout.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

// Fractions of the free room that lie left of the image, and above it.
struct Shares {
    float left;
    float above;
};

Shares sharesOf(NSImageAlignment alignment)
{
    switch (alignment) {
    case NSImageAlignTop:
        return { 0.5F, 0 };
    case NSImageAlignTopLeft:
        return { 0, 0 };
    case NSImageAlignTopRight:
        return { 1, 0 };
    case NSImageAlignLeft:
        return { 0, 0.5F };
    case NSImageAlignBottom:
        return { 0.5F, 1 };
    case NSImageAlignBottomLeft:
        return { 0, 1 };
    case NSImageAlignBottomRight:
        return { 1, 1 };
    case NSImageAlignRight:
        return { 1, 0.5F };
    case NSImageAlignCenter:
        break;
    }
    return { 0.5F, 0.5F };
}

}

Rect alignedImageRect(Rect area, Size image, NSImageScaling scaling, NSImageAlignment alignment)
{
    if (!(image.width > 0) || !(image.height > 0) || !(area.width > 0) || !(area.height > 0))
        return { area.x, area.y, 0, 0 };
    if (scaling == NSScaleToFit)
        return area;
    if (scaling == NSScaleProportionally) {
        float const scale = std::min({ 1.F, area.width / image.width, area.height / image.height });
        if (scale < 1)
            image = { std::max(1.F, std::round(image.width * scale)), std::max(1.F, std::round(image.height * scale)) };
    }
    auto const shares = sharesOf(alignment);
    return { area.x + std::floor((area.width - image.width) * shares.left),
        area.y + std::floor((area.height - image.height) * shares.above), image.width, image.height };
}

float imageFrameThickness(NSImageFrameStyle style)
{
    switch (style) {
    case NSImageFrameNone:
        return 0;
    case NSImageFramePhoto:
        return 3;
    case NSImageFrameGrayBezel:
    case NSImageFrameGroove:
        return 2;
    case NSImageFrameButton:
        return 4;
    }
    return 0;
}

}

#include <plix/drawing/image_plans.h>

#include <plix/drawing/geometry_helpers.h>

#include <cmath>

namespace plix {

double shrinkFactor(Size image, Size target)
{
    double factor = 1;
    if (image.width > target.width)
        factor = target.width / image.width;
    if (image.height > target.height) {
        // The wrong way round, so always true: the height taking precedence over the width is meant.
        if (factor < image.height / target.height)
            factor = target.height / image.height;
    }
    return factor;
}

Size shrunkSize(Size image, double factor)
{
    return { static_cast<float>(std::trunc(image.width * factor)), static_cast<float>(std::trunc(image.height * factor)) };
}

std::array<ImagePiece, 9> nineSlicePlan(Size image, Size target)
{
    float const w = std::trunc(image.width / 3.0F);
    float const h = std::trunc(image.height / 3.0F);
    // Columns are taken from the left, the top row from the top: what thirds leave over, in columns on the right and rows below the
    // top, is meant to be left out.
    float const top = image.height - h;
    float const right = 2 * w;
    float const targetTop = target.height - h;
    float const targetRight = target.width - w;
    float const wide = target.width - 2 * w;
    float const high = target.height - 2 * h;
    return { {
        { { 0, top, w, h }, { 0, targetTop, w, h } },
        { { w, top, w, h }, { w, targetTop, wide, h } },
        { { right, top, w, h }, { targetRight, targetTop, w, h } },
        { { 0, h, w, h }, { 0, h, w, high } },
        { { w, h, w, h }, { w, h, wide, high } },
        { { right, h, w, h }, { targetRight, h, w, high } },
        { { 0, 0, w, h }, { 0, 0, w, h } },
        { { w, 0, w, h }, { w, 0, wide, h } },
        { { right, 0, w, h }, { targetRight, 0, w, h } },
    } };
}

Rect compositionRect(Size image, Size canvas)
{
    Rect const ground = PLIXMakeRectWithSize(canvas);
    Rect const fitted = PLIXScaleRectToRect(PLIXMakeRectWithSize(image), ground);
    return PLIXNormalizedRect(PLIXRectCenterOnRect(fitted, ground));
}

}

#include <plix/platform/appkit/view_geometry.h>

#include <algorithm>
#include <numbers>

namespace plix {

Span resizedSpan(Span span, float oldSuperLength, float newSuperLength, SpanFlexibility flexible)
{
    int const parts = flexible.minMargin + flexible.length + flexible.maxMargin;
    float const change = newSuperLength - oldSuperLength;
    if (parts == 0 || change == 0)
        return span;
    if (!flexible.length)
        return { span.start + (flexible.minMargin ? change / static_cast<float>(parts) : 0), span.length };
    float const lengthChange = std::max(change / static_cast<float>(parts), -span.length);
    int const margins = parts - 1;
    if (margins == 0)
        return { span.start, span.length + lengthChange };
    float const marginChange = (change - lengthChange) / static_cast<float>(margins);
    return { span.start + (flexible.minMargin ? marginChange : 0), span.length + lengthChange };
}

Rect resizedFrame(Rect frame, Size oldSuperSize, Size newSuperSize, unsigned mask)
{
    auto const has = [mask](NSAutoresizingMask bit) { return (mask & bit) != 0; };
    auto const x = resizedSpan({ frame.x, frame.width }, oldSuperSize.width, newSuperSize.width,
        { has(NSViewMinXMargin), has(NSViewWidthSizable), has(NSViewMaxXMargin) });
    auto const y = resizedSpan({ frame.y, frame.height }, oldSuperSize.height, newSuperSize.height,
        { has(NSViewMinYMargin), has(NSViewHeightSizable), has(NSViewMaxYMargin) });
    return { x.start, y.start, x.length, y.length };
}

Rect frameEnclosing(Rect const* subviewFrames, long count, Rect frame, Point boundsOrigin)
{
    Rect enclosing = subviewFrames[0];
    for (long i = 1; i < count; ++i) {
        Rect const next = subviewFrames[i];
        if (enclosing.x > next.x) {
            enclosing.width += enclosing.x - next.x;
            enclosing.x = next.x;
        }
        if (enclosing.y > next.y) {
            enclosing.height += enclosing.y - next.y;
            enclosing.y = next.y;
        }
        if (next.maxX() > enclosing.maxX())
            enclosing.width = next.maxX() - enclosing.x;
        if (next.maxY() > enclosing.maxY())
            enclosing.height = next.maxY() - enclosing.y;
    }
    return { frame.x + (enclosing.x - boundsOrigin.x), frame.y + (enclosing.y - boundsOrigin.y), enclosing.width,
        enclosing.height };
}

AffineTransform transformToSuperview(ViewPlacement const& view)
{
    double const scaleX = view.bounds.width != 0 ? double { view.frame.width } / view.bounds.width : 1;
    double const scaleY = view.bounds.height != 0 ? double { view.frame.height } / view.bounds.height : 1;
    bool const mirrors = view.isFlipped != view.isSuperviewFlipped;
    AffineTransform inFrame { scaleX, 0, 0, mirrors ? -scaleY : scaleY, -view.bounds.x * scaleX,
        mirrors ? view.frame.height + view.bounds.y * scaleY : -view.bounds.y * scaleY };
    if (view.rotation != 0)
        inFrame = concatenated(inFrame, AffineTransform::rotation(double { view.rotation } * std::numbers::pi / 180));
    return concatenated(inFrame, AffineTransform::translation(view.frame.x, view.frame.y));
}

}

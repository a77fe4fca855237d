#include <plix/drawing/bezier_path_additions.h>

namespace plix {

Ref<NSBezierPath> bezierPathWithRoundedRect(Rect rect, float cornerRadius)
{
    return bezierPathWithRoundedRect(rect, cornerRadius, PLIXRoundAllSides);
}

Ref<NSBezierPath> bezierPathWithRoundedRect(Rect rect, float cornerRadius, unsigned roundingStyle)
{
    return make<NSBezierPath>(roundedRectOutline(rect, cornerRadius, roundingStyle));
}

}

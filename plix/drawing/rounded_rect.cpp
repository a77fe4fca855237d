#include <plix/drawing/rounded_rect.h>

#include <algorithm>

namespace plix {

namespace {

struct Corner {
    unsigned sides;
    Point vertex;
    Point center;
    float startAngle;
    float endAngle;
};

}

PathGeometry roundedRectOutline(Rect r, float cornerRadius, unsigned roundingStyle)
{
    float const radius = std::min(cornerRadius, std::min(r.width, r.height) * 0.5F);
    float const left = r.x + radius;
    float const right = r.x + r.width - radius;
    float const bottom = r.y + radius;
    float const top = r.y + r.height - radius;
    Corner const corners[] {
        { PLIXRoundMinXSide | PLIXRoundMinYSide, { r.x, r.y }, { left, bottom }, 180, 270 },
        { PLIXRoundMaxXSide | PLIXRoundMinYSide, { r.x + r.width, r.y }, { right, bottom }, 270, 0 },
        { PLIXRoundMaxXSide | PLIXRoundMaxYSide, { r.x + r.width, r.y + r.height }, { right, top }, 0, 90 },
        { PLIXRoundMinXSide | PLIXRoundMaxYSide, { r.x, r.y + r.height }, { left, top }, 90, 180 },
    };
    PathGeometry outline;
    for (auto const& corner : corners) {
        if ((roundingStyle & corner.sides) == corner.sides)
            outline.appendArc(corner.center, radius, corner.startAngle, corner.endAngle, ArcDirection::counterClockwise);
        else
            outline.lineTo(corner.vertex);
    }
    outline.close();
    return outline;
}

}

#include <plix/controls/segment_separators.h>

#include <cmath>

namespace plix {

std::optional<Rect> segmentSeparator(long segment, long segmentCount, long selectedSegment, Rect segmentFrame)
{
    if (segment >= segmentCount - 1 || segment == selectedSegment || segment == selectedSegment - 1)
        return std::nullopt;
    return Rect { segmentFrame.x + segmentFrame.width, segmentFrame.y, 1.0F, segmentFrame.height };
}

Point centredImageOrigin(Size bounds, Size image)
{
    auto const centred = [](float room, float size) {
        return static_cast<float>(std::trunc((static_cast<double>(room) - static_cast<double>(size)) * 0.5));
    };
    return { centred(bounds.width, image.width), centred(bounds.height, image.height) };
}

}

#include <plix/platform/appkit/segment_layout.h>

#include <algorithm>
#include <cmath>

namespace plix {

std::vector<float> segmentWidths(std::vector<SegmentWidth> const& segments, float length)
{
    std::vector<float> widths;
    float total = 0;
    float flexible = 0;
    for (auto const& segment : segments) {
        bool const isFixed = segment.fixed > 0;
        widths.push_back(isFixed ? segment.fixed : std::ceil(std::max(0.F, segment.content)));
        total += widths.back();
        flexible += isFixed ? 0 : 1;
    }
    // Point by point, so that nothing is lost to rounding.
    float missing = std::floor(length) - total;
    for (std::size_t i = 0; i < segments.size() && flexible > 0; ++i) {
        if (segments[i].fixed > 0)
            continue;
        float const share = std::max(std::floor(missing / flexible), -widths[i]);
        widths[i] += share;
        missing -= share;
        --flexible;
    }
    // What flexible segments cannot give is taken from the last ones.
    for (std::size_t i = segments.size(); i-- > 0 && missing < 0;) {
        float const cut = std::min(widths[i], -missing);
        widths[i] -= cut;
        missing += cut;
    }
    return widths;
}

}

#include <plix/platform/graphics/NSMutableParagraphStyle.h>

#include <algorithm>

namespace plix {

namespace {

bool isBefore(NSTextTab const& a, NSTextTab const& b)
{
    return a.location < b.location;
}

}

PLIX_DESCRIBE(NSMutableParagraphStyle)
{
}

void NSMutableParagraphStyle::setTabStops(std::vector<NSTextTab> stops)
{
    std::stable_sort(stops.begin(), stops.end(), isBefore);
    m_layout.tabStops = std::move(stops);
}

void NSMutableParagraphStyle::addTabStop(NSTextTab stop)
{
    auto& stops = m_layout.tabStops;
    stops.insert(std::upper_bound(stops.begin(), stops.end(), stop, isBefore), stop);
}

void NSMutableParagraphStyle::removeTabStop(NSTextTab stop)
{
    std::erase(m_layout.tabStops, stop);
}

}

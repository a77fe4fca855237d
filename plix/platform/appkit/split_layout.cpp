#include <plix/platform/appkit/split_layout.h>

#include <algorithm>
#include <cmath>

namespace plix {

std::vector<SplitPane> splitPanesFilling(std::vector<SplitPane> panes, float viewLength, float dividerThickness)
{
    if (panes.empty())
        return panes;
    float const dividers = dividerThickness * static_cast<float>(panes.size() - 1);
    float const room = std::max(0.F, viewLength - dividers);
    double whole = 0;
    double shown = 0;
    for (auto const& pane : panes) {
        whole += pane.shownLength();
        shown += pane.isCollapsed ? 0 : 1;
    }
    double before = 0;
    float begin = 0;
    double counted = 0;
    for (auto& pane : panes) {
        if (pane.isCollapsed)
            continue;
        before += pane.length;
        ++counted;
        double const share = whole > 0 ? before / whole : counted / shown;
        float const end = counted == shown ? room : static_cast<float>(std::round(share * room));
        pane.length = end - begin;
        begin = end;
    }
    return panes;
}

std::vector<float> splitPaneStarts(std::vector<SplitPane> const& panes, float dividerThickness)
{
    std::vector<float> starts;
    float start = 0;
    for (auto const& pane : panes) {
        starts.push_back(start);
        start += pane.shownLength() + dividerThickness;
    }
    return starts;
}

SplitRange splitRange(std::vector<SplitPane> const& panes, std::size_t divider, float dividerThickness)
{
    auto const starts = splitPaneStarts(panes, dividerThickness);
    float const end = starts[divider + 1] + panes[divider + 1].shownLength();
    return { starts[divider], end - dividerThickness };
}

std::vector<SplitPane> splitPanesDragged(
    std::vector<SplitPane> panes, std::size_t divider, float position, float dividerThickness, SplitLimits const& limits)
{
    auto const range = splitRange(panes, divider, dividerThickness);
    auto& before = panes[divider];
    auto& behind = panes[divider + 1];
    float const room = range.highest - range.lowest;
    float const lowest = std::clamp(limits.allowed.lowest, range.lowest, std::max(range.lowest, range.highest));
    float const highest = std::clamp(limits.allowed.highest, lowest, std::max(lowest, range.highest));
    if (!(position >= range.lowest))
        position = range.lowest;
    before.isCollapsed = limits.canCollapseBefore && position <= range.lowest + (lowest - range.lowest) / 2;
    behind.isCollapsed
        = !before.isCollapsed && limits.canCollapseBehind && position >= range.highest - (range.highest - highest) / 2;
    if (before.isCollapsed) {
        behind.length = room;
    } else if (behind.isCollapsed) {
        before.length = room;
    } else {
        before.length = std::round(std::clamp(position, lowest, highest)) - range.lowest;
        behind.length = room - before.length;
    }
    return panes;
}

}

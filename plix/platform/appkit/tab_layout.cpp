#include <plix/platform/appkit/tab_layout.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace plix {

namespace {

constexpr float sideMargin = 10;
/// From the border to the content, on the sides without tabs.
constexpr float borderMargin = 3;
constexpr float farMargin = sideMargin + borderMargin;
constexpr float stripStart = 5;
constexpr float stripToContent = 4;

struct StripMetrics {
    float thickness;
    float padding;
    float overflowWidth;
};

StripMetrics stripMetrics(NSControlSize size)
{
    switch (size) {
    case NSSmallControlSize:
        return { 20, 10, 24 };
    case NSMiniControlSize:
        return { 17, 8, 20 };
    default:
        return { 24, 12, 28 };
    }
}

/// The margins as they are with tabs at the top.
struct Chrome {
    float top;
    float side;
    float bottom;
};

Chrome chromeOf(NSTabViewType type, NSControlSize size)
{
    switch (type) {
    case NSNoTabsBezelBorder:
        return { sideMargin - borderMargin, sideMargin, farMargin };
    case NSNoTabsLineBorder:
        return { 1, 1, 1 };
    case NSNoTabsNoBorder:
        return { 0, 0, 0 };
    default:
        return { stripStart + stripMetrics(size).thickness + stripToContent, sideMargin, farMargin };
    }
}

bool isUpright(NSTabViewType type)
{
    return type != NSLeftTabsBezelBorder && type != NSRightTabsBezelBorder;
}

Rect inset(Rect rect, float left, float top, float right, float bottom)
{
    return { rect.x + left, rect.y + top, std::max(0.F, rect.width - left - right), std::max(0.F, rect.height - top - bottom) };
}

/// The layout with tabs at the top, for bounds at (0, 0).
TabViewLayout uprightLayout(Size size, NSTabViewType type, NSControlSize controlSize)
{
    Rect const bounds = rectWith({}, size);
    auto const chrome = chromeOf(type, controlSize);
    TabViewLayout layout;
    layout.content = inset(bounds, chrome.side, chrome.top, chrome.side, chrome.bottom);
    if (type == NSNoTabsNoBorder)
        return layout;
    if (type == NSNoTabsLineBorder) {
        layout.box = bounds;
        return layout;
    }
    float top = chrome.top - borderMargin;
    if (hasTabs(type)) {
        float const thickness = stripMetrics(controlSize).thickness;
        layout.strip = { chrome.side, stripStart, layout.content.width, thickness };
        top = stripStart + std::floor(thickness / 2);
    }
    float const side = chrome.side - borderMargin;
    layout.box = inset(bounds, side, top, side, sideMargin);
    return layout;
}

/// From upright coordinates to the view's: which edge of the bounds is the top.
AffineTransform turned(Rect bounds, NSTabViewType type)
{
    double const x = static_cast<double>(bounds.x);
    double const y = static_cast<double>(bounds.y);
    switch (type) {
    case NSLeftTabsBezelBorder:
        return { 0, 1, 1, 0, x, y };
    case NSRightTabsBezelBorder:
        return { 0, 1, -1, 0, static_cast<double>(bounds.maxX()), y };
    case NSBottomTabsBezelBorder:
        return { 1, 0, 0, -1, x, static_cast<double>(bounds.maxY()) };
    default:
        return AffineTransform::translation(x, y);
    }
}

float sumOf(std::span<TabLength const> lengths, float TabLength::*which)
{
    return std::accumulate(
        lengths.begin(), lengths.end(), 0.F, [which](float sum, TabLength const& each) { return sum + each.*which; });
}

/// As long as they want to be, or with the longest cut off at one common length, in whole points.
std::vector<float> fitted(std::span<TabLength const> lengths, float room)
{
    float shortest = 0;
    float longest = 0;
    for (auto const& each : lengths)
        longest = std::max(longest, each.full);
    auto const at = [](TabLength const& each, float limit) { return std::min(each.full, std::max(each.least, limit)); };
    auto const total = [&](float limit) {
        return std::accumulate(
            lengths.begin(), lengths.end(), 0.F, [&](float sum, TabLength const& each) { return sum + at(each, limit); });
    };
    if (total(longest) <= room) {
        shortest = longest;
    } else {
        // Whole limits: the greatest that fits.
        float beyond = std::ceil(longest);
        while (beyond - shortest > 1) {
            float const middle = std::floor((shortest + beyond) / 2);
            (total(middle) <= room ? shortest : beyond) = middle;
        }
    }
    std::vector<float> widths;
    float rest = room - total(shortest);
    for (auto const& each : lengths) {
        float width = at(each, shortest);
        // What is left goes to the first of those that are cut off.
        if (rest >= 1 && width < each.full && width >= shortest) {
            ++width;
            --rest;
        }
        widths.push_back(width);
    }
    return widths;
}

/// Which tabs are shown beside the button for the others.
std::vector<std::size_t> shownTabs(std::span<TabLength const> lengths, float room, long selected)
{
    bool const hasSelected = selected >= 0 && selected < static_cast<long>(lengths.size());
    auto const kept = static_cast<std::size_t>(hasSelected ? selected : 0);
    std::vector<std::size_t> shown;
    float used = hasSelected ? lengths[kept].least : 0;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        bool const isKept = hasSelected && i == kept;
        if (!isKept && used + lengths[i].least > room)
            break;
        used += isKept ? 0 : lengths[i].least;
        shown.push_back(i);
    }
    if (hasSelected && (shown.empty() || shown.back() < kept))
        shown.push_back(kept);
    return shown;
}

}

bool hasTabs(NSTabViewType type)
{
    return type >= NSTopTabsBezelBorder && type <= NSRightTabsBezelBorder;
}

TabViewLayout tabViewLayout(Rect bounds, NSTabViewType type, NSControlSize size)
{
    Size const upright = isUpright(type) ? bounds.size() : Size { bounds.height, bounds.width };
    auto layout = uprightLayout(upright, type, size);
    auto const turn = turned(bounds, type);
    for (auto* const part : { &layout.box, &layout.strip, &layout.content })
        *part = *part == Rect {} ? *part : turn.boundsOf(*part);
    return layout;
}

Size tabViewChrome(NSTabViewType type, NSControlSize size)
{
    auto const chrome = chromeOf(type, size);
    Size const taken { 2 * chrome.side, chrome.top + chrome.bottom };
    return isUpright(type) ? taken : Size { taken.height, taken.width };
}

TabStripSpace tabStripSpace(TabViewLayout const& layout, NSTabViewType type)
{
    Rect const strip = layout.strip;
    auto const x = static_cast<double>(strip.x);
    auto const y = static_cast<double>(strip.y);
    switch (type) {
    case NSLeftTabsBezelBorder:
        return { { 0, -1, 1, 0, x, static_cast<double>(strip.maxY()) }, { strip.height, strip.width } };
    case NSRightTabsBezelBorder:
        return { { 0, 1, -1, 0, static_cast<double>(strip.maxX()), y }, { strip.height, strip.width } };
    default:
        return { AffineTransform::translation(x, y), strip.size() };
    }
}

TabStripPlan tabStripPlan(
    std::span<TabLength const> lengths, Size strip, long selected, NSTabViewType type, NSControlSize controlSize)
{
    TabStripPlan plan;
    plan.tabs.resize(lengths.size());
    if (lengths.empty())
        return plan;
    float room = strip.width;
    std::vector<std::size_t> shown(lengths.size());
    std::iota(shown.begin(), shown.end(), std::size_t { 0 });
    bool const overflows = sumOf(lengths, &TabLength::least) > room;
    if (overflows) {
        room = std::max(0.F, room - stripMetrics(controlSize).overflowWidth);
        shown = shownTabs(lengths, room, selected);
    }
    std::vector<TabLength> wanted;
    for (auto const index : shown)
        wanted.push_back(lengths[index]);
    // One that is alone gives way in any case.
    if (wanted.size() == 1)
        wanted.front().least = std::min(wanted.front().least, room);
    auto const widths = fitted(wanted, room);
    float const total = std::accumulate(widths.begin(), widths.end(), 0.F);
    float const whole = overflows ? total + strip.width - room : total;
    float x = std::max(0.F, std::floor((strip.width - whole) / 2));
    plan.track = { x, 0, whole, strip.height };
    for (std::size_t i = 0; i < shown.size(); ++i) {
        plan.tabs[shown[i]] = { x, 0, widths[i], strip.height };
        x += widths[i];
    }
    if (overflows)
        plan.overflow = { x, 0, strip.width - room, strip.height };
    if (type == NSLeftTabsBezelBorder) {
        auto const turnBack = [&](Rect& rect) { rect.x = rect.isEmpty() ? 0 : strip.width - rect.maxX(); };
        std::ranges::for_each(plan.tabs, turnBack);
        turnBack(plan.overflow);
        turnBack(plan.track);
    }
    return plan;
}

float tabPadding(NSControlSize size)
{
    return stripMetrics(size).padding;
}

Rect tabLabelRect(Rect tab, Size label, NSControlSize size)
{
    float const width = std::clamp(label.width, 0.F, std::max(0.F, tab.width - 2 * tabPadding(size)));
    return { tab.x + std::floor((tab.width - width) / 2), tab.y + std::floor((tab.height - label.height) / 2), width,
        label.height };
}

}

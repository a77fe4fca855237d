#include <plix/windows/date_plans.h>

#include <algorithm>

namespace plix {

namespace {

constexpr float panelMargin = 12.0F;
constexpr float panelEdge = 10.0F;
constexpr float labelGap = 1.0F;
constexpr float buttonOverhang = 5.0F;

std::size_t positionOfFirst(std::string_view format, std::string_view letters)
{
    return std::min(format.find_first_of(letters), format.size());
}

}

DatePanelLayout datePanelLayout(DatePanelSizes const& sizes, DateEntryKind kind)
{
    float const labelDrop = kind == DateEntryKind::picker ? 7.0F : 2.0F;
    DatePanelLayout layout;
    layout.content = { panelMargin + sizes.fromLabel.width + labelGap + sizes.entry.width + panelMargin + sizes.toLabel.width
            + labelGap + sizes.entry.width + panelMargin,
        panelEdge + sizes.entry.height + panelMargin + sizes.button.height + panelEdge };
    float const top = layout.content.height - panelEdge;
    layout.fromLabel = { panelMargin, top - sizes.fromLabel.height - labelDrop };
    layout.fromEntry = { layout.fromLabel.x + sizes.fromLabel.width + labelGap, top - sizes.entry.height };
    layout.toLabel = { layout.fromEntry.x + sizes.entry.width + panelMargin, top - sizes.toLabel.height - labelDrop };
    layout.toEntry = { layout.toLabel.x + sizes.toLabel.width + labelGap, top - sizes.entry.height };
    layout.button = { layout.content.width - panelMargin - sizes.button.width + buttonOverhang, panelEdge };
    return layout;
}

std::optional<DateFieldOrder> dateFieldOrder(std::string_view format)
{
    using enum DatePart;
    auto const m = positionOfFirst(format, "bBm");
    auto const d = positionOfFirst(format, "de");
    auto const y = positionOfFirst(format, "yY");
    if (m > d && d < y)
        return m >= y ? DateFieldOrder { day, year, month } : DateFieldOrder { day, month, year };
    if (m < d && m < y)
        return d >= y ? DateFieldOrder { month, year, day } : DateFieldOrder { month, day, year };
    if (d <= y || m <= y)
        return std::nullopt;
    return m >= d ? DateFieldOrder { year, day, month } : DateFieldOrder { year, month, day };
}

DateFieldPositions dateFieldPositions(DateFieldOrder const& order)
{
    using enum DatePart;
    if (order[2] == year)
        return { { 99, 157, 215 }, { 132, 190 }, { 92, 150, 207 } };
    if (order[1] == year)
        return { { 99, 157, 225 }, { 132, 200 }, { 92, 149, 218 } };
    return { { 99, 167, 225 }, { 142, 200 }, { 91, 160, 218 } };
}

}

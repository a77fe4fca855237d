#include <plix/platform/appkit/column_layout.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace plix {

namespace {

float clampedWidth(ColumnMeasure const& column, float width)
{
    return std::max(column.minWidth, std::min(width, column.maxWidth));
}

// Gives one column as much of the difference as its limits allow; answers what is left.
float giveTo(ColumnMeasure const& column, float& width, float difference)
{
    float const changed = clampedWidth(column, width + difference);
    float const taken = changed - width;
    // A width outside its limits moves back into them only in the direction that is asked for.
    if ((difference > 0) != (taken > 0))
        return difference;
    width = changed;
    return difference - taken;
}

std::vector<std::size_t> orderOfColumns(std::span<ColumnMeasure const> columns, NSTableViewColumnAutoresizingStyle style)
{
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].isResizable)
            order.push_back(i);
    }
    if (style == NSTableViewSequentialColumnAutoresizingStyle || style == NSTableViewLastColumnOnlyAutoresizingStyle)
        std::ranges::reverse(order);
    bool const isOneOnly
        = style == NSTableViewLastColumnOnlyAutoresizingStyle || style == NSTableViewFirstColumnOnlyAutoresizingStyle;
    if (isOneOnly && order.size() > 1)
        order.resize(1);
    return order;
}

void giveEqualShares(
    std::span<ColumnMeasure const> columns, std::vector<std::size_t> open, std::vector<float>& widths, float difference)
{
    while (!open.empty() && std::abs(difference) >= 1) {
        float const share = std::trunc(difference / static_cast<float>(open.size()));
        std::vector<std::size_t> stillOpen;
        float left = 0;
        for (std::size_t i = 0; i < open.size(); ++i) {
            // Where the shares are less than a point, the first columns get one each.
            float const part
                = share != 0 ? share : std::copysign(static_cast<float>(i) < std::abs(difference) ? 1.F : 0.F, difference);
            if (part == 0)
                continue;
            float const rest = giveTo(columns[open[i]], widths[open[i]], part);
            left += part - rest;
            if (rest == 0)
                stillOpen.push_back(open[i]);
        }
        if (left == 0)
            return;
        difference -= left;
        open = std::move(stillOpen);
    }
    for (auto const index : open) {
        if (difference == 0)
            return;
        difference = giveTo(columns[index], widths[index], difference);
    }
}

}

std::vector<float> columnWidthsFittingRoom(
    std::span<ColumnMeasure const> columns, float room, NSTableViewColumnAutoresizingStyle style)
{
    std::vector<float> widths;
    float total = 0;
    for (auto const& column : columns) {
        widths.push_back(column.width);
        total += column.width;
    }
    float difference = room - total;
    if (style == NSTableViewNoColumnAutoresizing || difference == 0 || !std::isfinite(difference))
        return widths;
    auto const order = orderOfColumns(columns, style);
    if (style == NSTableViewUniformColumnAutoresizingStyle) {
        giveEqualShares(columns, order, widths, difference);
        return widths;
    }
    for (auto const index : order) {
        if (difference == 0)
            break;
        difference = giveTo(columns[index], widths[index], difference);
    }
    return widths;
}

long columnPlaceForDrag(std::span<float const> edges, long draggedColumn, float center)
{
    long place = 0;
    for (long column = 0; column + 1 < static_cast<long>(edges.size()); ++column) {
        if (column == draggedColumn)
            continue;
        auto const index = static_cast<std::size_t>(column);
        if ((edges[index] + edges[index + 1]) / 2 < center)
            ++place;
    }
    return place;
}

}

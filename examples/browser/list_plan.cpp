#include "list_plan.h"

#include <algorithm>
#include <cmath>

namespace browser {

namespace {

constexpr float margin = 8;
constexpr float gap = 6;
constexpr float sizeWidth = 96;
constexpr float leastNameWidth = 40;

}

Rect ListPlan::rowRect(long row) const
{
    return { 0, static_cast<float>(row) * rowHeight, width, rowHeight };
}

std::optional<long> ListPlan::rowAt(float y) const
{
    auto const row = static_cast<long>(std::floor(y / rowHeight));
    return row >= 0 && row < rowCount ? std::optional(row) : std::nullopt;
}

ListPlan::Rows ListPlan::rowsIn(Rect rect) const
{
    if (rect.isEmpty())
        return {};
    long const first = std::clamp(static_cast<long>(std::floor(rect.y / rowHeight)), 0L, rowCount);
    long const end = std::clamp(static_cast<long>(std::ceil(rect.maxY() / rowHeight)), first, rowCount);
    return { first, end - first };
}

long ListPlan::rowsOnPage(float visibleHeight) const
{
    return std::max(1L, static_cast<long>(visibleHeight / rowHeight) - 1);
}

ColumnPlan columnPlan(Rect row, float iconSize)
{
    ColumnPlan plan;
    plan.icon = { row.x + margin, row.y + std::floor((row.height - iconSize) / 2), iconSize, iconSize };
    float const nameStart = plan.icon.maxX() + gap;
    float const sizeStart = std::max(row.maxX() - margin - sizeWidth, nameStart + leastNameWidth + gap);
    plan.name = { nameStart, row.y, sizeStart - gap - nameStart, row.height };
    plan.size = { sizeStart, row.y, sizeWidth, row.height };
    return plan;
}

std::optional<long> movedSelection(std::optional<long> selection, ListMove move, ListPlan const& plan, float visibleHeight)
{
    if (plan.rowCount == 0)
        return {};
    long const last = plan.rowCount - 1;
    bool const isBackwards = move == ListMove::up || move == ListMove::pageUp;
    if (move == ListMove::first || (!selection && !isBackwards && move != ListMove::last))
        return 0;
    if (move == ListMove::last || !selection)
        return last;
    long const distance = move == ListMove::up || move == ListMove::down ? 1 : plan.rowsOnPage(visibleHeight);
    return std::clamp(*selection + (isBackwards ? -distance : distance), 0L, last);
}

std::string const& TypeSelect::type(std::string_view letters, double time)
{
    if (!isTyping(time))
        m_typed.clear();
    m_lastTime = time;
    return m_typed.append(letters);
}

}

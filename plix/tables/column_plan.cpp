#include <plix/tables/column_plan.h>

#include <cmath>

namespace plix {

namespace {

constexpr float dividerReach = 10.0F;

}

std::optional<long> dividerNear(float x, std::span<float const> rightEdges)
{
    std::optional<long> best;
    float bestDistance = dividerReach;
    for (std::size_t i = 0; i < rightEdges.size(); ++i) {
        float const distance = std::fabs(x - rightEdges[i]);
        if (distance < bestDistance) {
            bestDistance = distance;
            best = static_cast<long>(i);
        }
    }
    return best;
}

float widestInOutline(float widest, float indentation, float width)
{
    return widest < indentation + width ? width : widest;
}

float widthForData(float widest, DataColumn column)
{
    double width = static_cast<double>(widest) * 1.1;
    if (column == DataColumn::outline)
        width
            = static_cast<double>(static_cast<float>(width) + 16.0F); // rounded to single precision first, as the plain one is not
    return std::isfinite(width) ? static_cast<float>(std::trunc(width)) + 4.0F : 4.0F;
}

}

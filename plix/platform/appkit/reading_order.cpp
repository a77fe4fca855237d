#include <plix/platform/appkit/reading_order.h>

#include <algorithm>
#include <numeric>

namespace plix {

std::vector<std::size_t> readingOrder(std::span<Rect const> rects, bool isFlipped)
{
    // Measured downwards in both cases.
    auto const top = [&](std::size_t i) { return isFlipped ? rects[i].y : -rects[i].maxY(); };
    auto const middle = [&](std::size_t i) { return isFlipped ? rects[i].midY() : -rects[i].midY(); };
    std::vector<std::size_t> order(rects.size());
    std::iota(order.begin(), order.end(), std::size_t { 0 });
    std::ranges::stable_sort(order, {}, top);
    for (auto row = order.begin(); row != order.end();) {
        float const rowEnd = top(*row) + rects[*row].height;
        auto const next = std::stable_partition(row + 1, order.end(), [&](std::size_t i) { return middle(i) < rowEnd; });
        std::stable_sort(row, next, [&](std::size_t a, std::size_t b) { return rects[a].x < rects[b].x; });
        row = next;
    }
    return order;
}

}

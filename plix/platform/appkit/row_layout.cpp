#include <plix/platform/appkit/row_layout.h>

#include <algorithm>
#include <cmath>

namespace plix {

float RowLayout::pitch() const
{
    float const distance = rowHeight + spacing;
    return distance >= 1 ? distance : 1;
}

// In double precision, so that only the result is rounded.
float RowLayout::top(long row) const
{
    return static_cast<float>(static_cast<double>(row - firstRow) * static_cast<double>(pitch()));
}

long RowLayout::rowsInStretch() const
{
    return std::min(numberOfRows, static_cast<long>(longestStretch / static_cast<double>(pitch())));
}

float RowLayout::stretchHeight() const
{
    return static_cast<float>(static_cast<double>(rowsInStretch()) * static_cast<double>(pitch()));
}

long RowLayout::rowAt(float y) const
{
    long const end = firstRow + rowsInStretch();
    if (!(y >= 0) || firstRow >= end || y >= top(end))
        return -1;
    long row = std::min(firstRow + static_cast<long>(static_cast<double>(y) / static_cast<double>(pitch())), end - 1);
    // The quotient and the rounded tops may disagree by one.
    while (row > firstRow && y < top(row))
        --row;
    while (row + 1 < end && y >= top(row + 1))
        ++row;
    return row;
}

NSRange RowLayout::rowsIn(float y, float height) const
{
    float const start = std::max(y, 0.F);
    float const end = std::min(y + height, stretchHeight());
    if (!(height > 0) || !(start < end))
        return {};
    long const first = rowAt(start);
    long const last = std::max(first, rowAt(std::nextafter(end, start)));
    return { first, last - first + 1 };
}

long RowLayout::firstRowShowing(long row) const
{
    long const length = rowsInStretch();
    long const last = numberOfRows - length;
    long const start = std::clamp(firstRow, 0L, last);
    bool const isFarFromStart = row >= start + length / 4 || start == 0;
    bool const isFarFromEnd = row < start + length - length / 4 || start == last;
    if (isFarFromStart && isFarFromEnd && row >= start)
        return start;
    return std::clamp(row - length / 2, 0L, last);
}

RowDropPlace dropPlaceAt(float y, RowLayout const& layout)
{
    if (layout.numberOfRows <= 0 || !(y >= 0))
        return { 0, false };
    long const row = layout.rowAt(y);
    if (row < 0)
        return { layout.numberOfRows, false };
    float const inside = y - layout.top(row);
    float const quarter = layout.pitch() / 4;
    if (inside < quarter)
        return { row, false };
    if (inside >= layout.pitch() - quarter)
        return { row + 1, false };
    return { row, true };
}

}

#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace plix {

/// The column whose right edge a click at x means: the nearest that is less than 10 points away, the leftmost of equally near ones.
std::optional<long> dividerNear(float x, std::span<float const> rightEdges);

/// The widest so far after one more value of an outline, indented by its level. Whether it is wider is asked with the indentation,
/// but its width is kept without: it may be less than the widest before.
float widestInOutline(float widest, float indentation, float width);

enum class DataColumn { plain, outline };

/// A column's width for its widest value: a tenth more, whole points, four points of air; the outline column has room for the
/// disclosure triangle too. A value that is not a number counts as 0.
float widthForData(float widest, DataColumn);

}

#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace plix {

/// The column whose right edge a click at x means: the nearest that is less than 10 points away, the leftmost of equally near ones.
std::optional<long> dividerNear(float x, std::span<float const> rightEdges);

enum class DataColumn { plain, outline };

/// A column's width for its widest value: a tenth more, whole points, four points of air; the outline column has room for the
/// disclosure triangle too. A value that is not a number counts as 0.
float widthForData(float widest, DataColumn);

}

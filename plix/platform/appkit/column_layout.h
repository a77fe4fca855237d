#pragma once

#include <plix/platform/base/export.h>

#include <span>
#include <vector>

namespace plix {

enum NSTableViewColumnAutoresizingStyle : unsigned {
    NSTableViewNoColumnAutoresizing = 0,
    NSTableViewUniformColumnAutoresizingStyle = 1,
    NSTableViewSequentialColumnAutoresizingStyle = 2,
    NSTableViewReverseSequentialColumnAutoresizingStyle = 3,
    NSTableViewLastColumnOnlyAutoresizingStyle = 4,
    NSTableViewFirstColumnOnlyAutoresizingStyle = 5,
};

struct ColumnMeasure {
    float width { 0 };
    float minWidth { 0 };
    float maxWidth { 0 };
    /// Whether it may change with the table's size.
    bool isResizable { true };
};

/// The columns' widths when they are to take `room` points in all: what is left over or missing goes to the columns that the
/// style names, each within its limits, in whole points as far as the room is. Uniform: equal shares; sequential: the last column
/// first, then the one before it; reverse: from the first on.
PLIX_EXPORT std::vector<float> columnWidthsFittingRoom(
    std::span<ColumnMeasure const>, float room, NSTableViewColumnAutoresizingStyle);

/// The place that a dragged column takes: before the first other column whose middle lies right of the dragged column's middle.
/// `edges` are the left edges of all columns and the right edge of the last; `center` is where the dragged column's middle is now.
PLIX_EXPORT long columnPlaceForDrag(std::span<float const> edges, long draggedColumn, float center);

}

#pragma once

#include <plix/platform/base/NSRange.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

/// Rows of one height below each other, in flipped coordinates. A row's rectangle takes in the space between rows, half of it on
/// either side of what is in the row.
///
/// Views count in 32-bit floats, which cannot tell a point from the next beyond some millions. So a view shows a stretch of the
/// rows only, from `firstRow` on; y = 0 is its top. All that has few enough rows is one stretch. Places in the whole are doubles.
struct PLIX_EXPORT RowLayout {
    long numberOfRows { 0 };
    float rowHeight { 16 };
    float spacing { 2 };
    /// Where the stretch begins.
    long firstRow { 0 };

    /// No stretch is higher than this: floats tell quarters of points apart up to here.
    static constexpr double longestStretch = 4194304;

    /// From one row to the next; at least one point.
    float pitch() const;
    /// In the view. Rows outside the stretch lie above 0 or below its height.
    float top(long row) const;
    long rowsInStretch() const;
    float stretchHeight() const;
    /// Of all rows.
    double totalHeight() const { return static_cast<double>(numberOfRows) * static_cast<double>(pitch()); }
    /// Of the stretch in the whole.
    double offset() const { return static_cast<double>(firstRow) * static_cast<double>(pitch()); }
    /// -1 outside the rows.
    long rowAt(float y) const;
    /// The rows that a part of the view touches; {0, 0} where there are none.
    NSRange rowsIn(float y, float height) const;
    /// Where the stretch is to begin for this row to be seen: as it is while the row lies well inside it, else around the row.
    long firstRowShowing(long row) const;
};

/// Where something dropped at y would go: on a row, or above a row (as many as there are rows: below the last). Row -1 that is on
/// a row is the whole table.
struct RowDropPlace {
    long row { 0 };
    bool isOnRow { false };
    friend bool operator==(RowDropPlace const&, RowDropPlace const&) = default;
};

/// The middle half of a row is the row itself, the quarters at its ends are the gaps; below all rows is below the last.
PLIX_EXPORT RowDropPlace dropPlaceAt(float y, RowLayout const&);

}

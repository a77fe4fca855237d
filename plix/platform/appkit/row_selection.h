#pragma once

#include <plix/platform/base/NSIndexSet.h>

#include <optional>

namespace plix {

/// Which rows are selected, and where the keyboard and Shift go on from.
struct RowSelection {
    NSIndexSet rows;
    /// Where a range begins; -1 for none.
    long anchor { -1 };
    /// Where the last change happened; -1 for none.
    long lead { -1 };
    friend bool operator==(RowSelection const&, RowSelection const&) = default;
};

struct RowSelectionRules {
    bool allowsMultiple { false };
    bool allowsEmpty { true };
};

enum class SelectionChange {
    replace, ///< that row alone
    extend, ///< the range from the anchor, in place of the range that was chosen from there before
    toggle, ///< in or out by itself
};

/// After a click, or a move of the keyboard, onto a row. Without multiple selection every change replaces, but toggling the one
/// selected row empties where that is allowed.
PLIX_EXPORT RowSelection selectionAfterChange(RowSelection const&, long row, SelectionChange, RowSelectionRules);

/// Where the keyboard goes from here: `distance` rows on, kept within the rows; with nothing selected to the first row (down) or
/// the last (up). Nothing in a table without rows.
PLIX_EXPORT std::optional<long> rowAfterMove(RowSelection const&, long distance, long numberOfRows);

/// The selection without rows that are there no more.
PLIX_EXPORT RowSelection selectionWithinRows(RowSelection, long numberOfRows);

}

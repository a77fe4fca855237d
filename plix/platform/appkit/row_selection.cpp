#include <plix/platform/appkit/row_selection.h>

#include <algorithm>

namespace plix {

namespace {

NSRange rangeBetween(long a, long b)
{
    return { std::min(a, b), std::max(a, b) - std::min(a, b) + 1 };
}

}

RowSelection selectionAfterChange(RowSelection const& old, long row, SelectionChange change, RowSelectionRules rules)
{
    RowSelection selection = old;
    selection.lead = row;
    if (change == SelectionChange::toggle && old.rows.containsIndex(row)) {
        if (old.rows.count() > 1 || rules.allowsEmpty)
            selection.rows.removeIndex(row);
        selection.anchor = row;
        return selection;
    }
    if (!rules.allowsMultiple || change == SelectionChange::replace || (change == SelectionChange::extend && old.anchor < 0)) {
        selection.rows = NSIndexSet::indexSetWithIndex(row);
        selection.anchor = row;
        return selection;
    }
    if (change == SelectionChange::toggle) {
        selection.rows.addIndex(row);
        selection.anchor = row;
        return selection;
    }
    if (old.lead >= 0)
        selection.rows.removeIndexesInRange(rangeBetween(old.anchor, old.lead));
    selection.rows.addIndexesInRange(rangeBetween(old.anchor, row));
    return selection;
}

std::optional<long> rowAfterMove(RowSelection const& selection, long distance, long numberOfRows)
{
    if (numberOfRows <= 0)
        return std::nullopt;
    if (selection.rows.isEmpty() || selection.lead < 0)
        return distance > 0 ? 0 : numberOfRows - 1;
    long const lead = std::min(selection.lead, numberOfRows - 1);
    return std::clamp(lead + std::clamp(distance, -numberOfRows, numberOfRows), 0L, numberOfRows - 1);
}

RowSelection selectionWithinRows(RowSelection selection, long numberOfRows)
{
    long const last = selection.rows.isEmpty() ? -1 : selection.rows.lastIndex();
    if (last >= numberOfRows)
        selection.rows.removeIndexesInRange({ numberOfRows, last - numberOfRows + 1 });
    if (selection.anchor >= numberOfRows)
        selection.anchor = -1;
    if (selection.lead >= numberOfRows)
        selection.lead = selection.rows.isEmpty() ? -1 : selection.rows.lastIndex();
    return selection;
}

}

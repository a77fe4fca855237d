#pragma once

#include <plix/tables/row_highlight.h>
#include <plix/tables/selection_colors.h>

namespace plix {

class NSImage;

/// Carries the plans of row_highlight.h out in the current context, whose coordinates are the table's.

/// What selected rows of a view are painted in now.
struct HighlightPaint {
    ColorComponents fill;
    ColorComponents edge;
    /// In the fill's place; null for none.
    NSImage const* gradient { nullptr };
};

/// The edge first, so that the fill covers its inner half.
void drawRowHighlight(RowHighlight const&, HighlightPaint const&);
/// A custom image stretched over the highlight, and nothing else.
void drawRowImage(RowHighlight const&, NSImage const&);

enum class DropTarget { unselected, selected };
/// Leaves the default line width of paths at 2 points, for the process.
void drawDropHighlight(Rect, HighlightPaint const&, DropTarget);
/// Around all that is visible of a view.
void drawDropFrame(Rect bounds, HighlightPaint const&);
/// Leaves the default line width of paths at 2 points, for the process.
void drawInsertionMarker(InsertionMarker const&, HighlightPaint const&);

}

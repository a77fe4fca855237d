#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/Forward.h>
#include <plix/tables/row_highlight.h>
#include <plix/tables/selection_colors.h>

#include <optional>

namespace plix {

/// Carries the plans of row_highlight.h out in the current context, whose coordinates are the table's.

/// What selected rows of a view are painted in now.
struct HighlightPaint {
    Ref<NSColor> fill;
    Ref<NSColor> edge;
    /// In the fill's place; null for none.
    Ref<NSImage> gradient;
};

/// Draws the highlights of rows that are much alike: keeps the outline of the last one.
class PLIX_EXPORT HighlightPainter {
public:
    HighlightPainter();
    ~HighlightPainter();

    /// The colours for this fill; the same objects as long as that stays.
    HighlightPaint const& paintFor(ColorComponents const& fill);

    /// The edge first, so that the fill covers its inner half.
    void drawRow(RowHighlight const&, HighlightPaint const&);
    /// A custom image stretched over the highlight, and nothing else.
    void drawRowImage(RowHighlight const&, NSImage const&);

private:
    NSBezierPath& outlineAtOrigin(RowHighlight const&);

    ColorComponents m_fill;
    HighlightPaint m_paint;
    Size m_size;
    std::optional<float> m_cornerRadius;
    Ref<NSBezierPath> m_outline;
};

enum class DropTarget { unselected, selected };
/// Leaves the default line width of paths at 2 points, for the process.
PLIX_EXPORT void drawDropHighlight(Rect, HighlightPaint const&, DropTarget);
/// Around all that is visible of a view.
PLIX_EXPORT void drawDropFrame(Rect bounds, HighlightPaint const&);
/// Leaves the default line width of paths at 2 points, for the process.
PLIX_EXPORT void drawInsertionMarker(InsertionMarker const&, HighlightPaint const&);

}

#pragma once

#include <plix/platform/graphics/geometry.h>

#include <cstdint>
#include <optional>

namespace plix {

/// Where the selection, drop targets and drop markers of tables and outlines are drawn. Rectangles are in the view's coordinates.

/// The shape of a selected row; any other value is a rectangle.
enum PLIXHighlightStyle : std::uint32_t {
    PLIXHighlightRectangle = 0,
    PLIXHighlightCapsule = 1,
    PLIXHighlightRounded = 2,
};

/// Whether the delegate has an image for a selected row.
enum class HighlightImage { none, custom };

/// The shape of a selected row's highlight.
struct RowHighlight {
    Rect rect;
    /// nil for a plain rectangle.
    std::optional<float> cornerRadius;
    friend bool operator==(RowHighlight const&, RowHighlight const&) = default;
};

/// A custom image fills the row's whole rectangle; the drawn highlight keeps half a point from each side and ends one point
/// earlier. The indentation, which is 0 in tables, moves the start.
PLIX_EXPORT RowHighlight rowHighlight(Rect rowRect, std::uint32_t style, HighlightImage, int indentation);

/// Whether the row's item can be opened.
enum class RowItem { leaf, expandable };

/// How far the highlight of an outline's row starts from the left: a leaf below the top level also skips a disclosure triangle's
/// width.
PLIX_EXPORT int highlightIndentation(long level, float indentationPerLevel, RowItem);

/// In points.
inline constexpr float dropHighlightCornerRadius = 3.0F;
/// The outline of a row that takes a drop; a table's custom image makes it the whole row.
PLIX_EXPORT Rect dropHighlightRect(Rect rowRect, HighlightImage);

/// The marker between two rows: a ring before a line.
struct InsertionMarker {
    Point lineStart;
    Point lineEnd;
    Rect ring;
    friend bool operator==(InsertionMarker const&, InsertionMarker const&) = default;
};

/// What the marker is placed by: rectangles of the rows on its two sides, of which only those that exist are looked at.
struct InsertionPlace {
    long upperRow { -1 };
    long lowerRow { 0 };
    long numberOfRows { 0 };
    Rect upperRect;
    Rect lowerRect;
    Rect superviewBounds;
};

/// For rows that are no neighbours in the table everything but the offset counts as zero.
PLIX_EXPORT InsertionMarker insertionMarker(InsertionPlace const&, float offset);

/// Where a column is in the table, for the ends of a highlight.
enum class ColumnPlace { only, first, middle, last };
/// The place of a column that is so many columns from the left.
PLIX_EXPORT ColumnPlace columnPlace(long column, long numberOfColumns);
/// Whether the first column is moved in by its item's place in a tree.
enum class FirstColumn { plain, indented };

/// The cell's frame with room for the highlight's rounded ends; an indented first column needs none at its start.
PLIX_EXPORT Rect textRoom(Rect cellFrame, std::uint32_t style, ColumnPlace, FirstColumn);

/// Where the message of an empty table stands; nothing where it is taller than what is visible. `textHeight` is the message's
/// height at emptyMessageWidth().
PLIX_EXPORT float emptyMessageWidth(Rect superviewFrame);
PLIX_EXPORT std::optional<Rect> emptyMessageRect(Rect superviewFrame, Rect superviewBounds, float textHeight);

}

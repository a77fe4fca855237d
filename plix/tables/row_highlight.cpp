#include <plix/tables/row_highlight.h>

#include <plix/drawing/geometry_helpers.h>

namespace plix {

namespace {

constexpr float ringSize = 6.0F;
constexpr int disclosureWidth = 16;
constexpr float messageMargin = 10.0F;

/// The row beside which the marker's line runs, and the line's height.
struct MarkerLine {
    Rect reference;
    float y { 0 };
};

MarkerLine markerLine(InsertionPlace const& place)
{
    if (place.upperRow < 0 && place.lowerRow == 0) {
        Rect const bounds = NSInsetRect(place.superviewBounds, 1.0F, 1.0F);
        return { bounds, bounds.y };
    }
    if (place.upperRow >= 0 && place.upperRow < place.lowerRow && place.lowerRow < place.numberOfRows) {
        Rect const row = NSInsetRect(place.lowerRect, 1.0F, 0.0F); // not inset upwards: the line stands on the row's very edge
        return { row, row.y };
    }
    if (place.upperRow == place.numberOfRows - 1 && place.lowerRow == place.numberOfRows) {
        Rect const row = NSInsetRect(place.upperRect, 1.0F, 1.0F);
        return { row, row.maxY() };
    }
    return {};
}

}

RowHighlight rowHighlight(Rect rowRect, std::uint32_t style, HighlightImage image, int indentation)
{
    Rect rect = rowRect;
    if (image == HighlightImage::none) {
        rect = NSInsetRect(rowRect, 0.5F, 0.5F);
        rect.height -= 1.0F;
    }
    rect.x += static_cast<float>(indentation);
    rect.width -= static_cast<float>(indentation);
    if (style == PLIXHighlightCapsule)
        return { rect, 0.5F * rect.height };
    if (style == PLIXHighlightRounded)
        return { rect, 0.2F * rect.height };
    return { rect, std::nullopt };
}

int highlightIndentation(long level, float indentationPerLevel, RowItem item)
{
    int const indentation = static_cast<int>(static_cast<float>(level) * indentationPerLevel);
    return item == RowItem::leaf && level != 0 ? indentation + disclosureWidth : indentation;
}

Rect dropHighlightRect(Rect rowRect, HighlightImage image)
{
    if (image == HighlightImage::custom)
        return rowRect;
    Rect rect = NSInsetRect(rowRect, 1.0F, 1.0F);
    rect.height -= 1.0F;
    return rect;
}

InsertionMarker insertionMarker(InsertionPlace const& place, float offset)
{
    auto const [reference, y] = markerLine(place);
    float const x = reference.x + offset;
    return { { x, y }, { reference.maxX(), y }, { x - ringSize, y - ringSize / 2, ringSize, ringSize } };
}

ColumnPlace columnPlace(long column, long numberOfColumns)
{
    if (column == 0)
        return numberOfColumns == 1 ? ColumnPlace::only : ColumnPlace::first;
    return column == numberOfColumns - 1 ? ColumnPlace::last : ColumnPlace::middle;
}

Rect textRoom(Rect cellFrame, std::uint32_t style, ColumnPlace place, FirstColumn first)
{
    if (style != PLIXHighlightCapsule && style != PLIXHighlightRounded)
        return cellFrame;
    auto const room = static_cast<float>(static_cast<int>(cellFrame.height * 0.25F));
    bool const isFirst = place == ColumnPlace::first || place == ColumnPlace::only;
    bool const isLast = place == ColumnPlace::last || place == ColumnPlace::only;
    if (isFirst && first == FirstColumn::plain) {
        cellFrame.x += room;
        cellFrame.width -= room;
    }
    if (isLast)
        cellFrame.width -= room;
    return cellFrame;
}

float emptyMessageWidth(Rect superviewFrame)
{
    return superviewFrame.width - 2 * messageMargin;
}

std::optional<Rect> emptyMessageRect(Rect superviewFrame, Rect superviewBounds, float textHeight)
{
    if (textHeight > superviewFrame.height)
        return std::nullopt;
    return PLIXRectCenterOnRect({ messageMargin, 0, emptyMessageWidth(superviewFrame), textHeight }, superviewBounds);
}

}

#pragma once

#include <plix/platform/base/NSRange.h>
#include <plix/platform/graphics/attribute_names.h>
#include <plix/platform/graphics/geometry.h>

#include <memory>
#include <vector>

namespace plix {

class NSAttributedString;

/// One line of laid out text. y grows downwards from the layout's top.
struct TextLine {
    NSRange range; ///< its characters, a line end included, in UTF-16 units
    Rect fragment; ///< from one edge of the layout to the other, as high as the line
    Rect used; ///< the part with characters in it
    float baseline { 0 }; ///< its y
};

/// A place between two characters that a point is at.
struct TextPosition {
    long index { 0 }; ///< the character under the point, in UTF-16 units
    bool isTrailing { false }; ///< in the half of the character where the text goes on
    long insertionIndex { 0 }; ///< where a click puts the caret
    bool isInsideText { false }; ///< the point lies on a character
};

/// Attributed text laid out in lines of a given width, paragraph by paragraph: what an edit has not touched stays laid out, and
/// only paragraphs that are looked at are kept shaped. Coordinates are points from the layout's upper left corner, y downwards. A
/// width of 1e6 or more does not wrap. One that is not a number or below 0 counts as 0, where each line holds what cannot be broken
/// further. There is always at least one line.
class TextLayout {
public:
    TextLayout();
    ~TextLayout();
    TextLayout(TextLayout const&) = delete;
    TextLayout& operator=(TextLayout const&) = delete;

    /// The string is not kept alive: it must live until the next call, or null is set. Null lays out no text.
    void setString(NSAttributedString const*);
    /// The string that was set has been edited: the range as it is now, and how much longer the text has become.
    void stringEdited(NSRange range, long changeInLength);
    void setWidth(float);
    float width() const { return m_width; }
    /// Kept free at both ends of each line.
    void setLineFragmentPadding(float);
    /// How the empty line behind a final line end, or in an empty text, is set. Without them it is set as the text before it.
    void setTypingAttributes(Attributes const&);

    bool isEmpty() const;
    /// Nothing where there is no text; the padding is part of it. The empty line behind a final line end counts.
    Rect usedRect();
    /// The same of the lines that lie wholly within a height.
    Rect usedRectWithin(float height);
    /// How many lines lie wholly within it.
    long linesWithin(float height);

    long numberOfLines();
    TextLine line(long index);
    /// The line that holds the character; a position at the end belongs to the last line.
    long lineOfIndex(long index);
    /// The nearest line.
    long lineAtY(float y);

    TextPosition positionAt(Point);
    /// One point wide, where the caret stands before this character; at the end of a wrapped line it belongs to the next one.
    Rect caretRect(long index);
    /// For each line the parts that a selection covers, up to the edge where it goes on in the next or comes from the one before.
    std::vector<Rect> selectionRects(NSRange);
    /// For each line the parts that the characters cover.
    std::vector<Rect> rectsOfRange(NSRange);
    /// The caret's next stop to the left (-1) or right (1) as it is seen, which in mixed directions is not always the next index.
    long indexMovedVisually(long index, int direction);

    enum class Part : unsigned char { backgroundsAndText, backgrounds, text };
    /// Draws in the current context what of it is inside the clip. The origin is the layout's upper left corner in a flipped
    /// context, and the point that is `height` below it in an unflipped one.
    void draw(Point origin, float height, Part = Part::backgroundsAndText);
    /// The same for the lines from first up to, without, last.
    void drawLines(long first, long last, Point origin, float height, Part = Part::backgroundsAndText);

private:
    struct Body;
    std::unique_ptr<Body> m_body;
    float m_width { 1e7F };
};

}

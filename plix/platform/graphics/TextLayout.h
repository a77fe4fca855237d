#pragma once

#include <plix/platform/base/NSRange.h>
#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/geometry.h>

#include <memory>
#include <vector>

namespace plix {

class NSAttributedString;
class TextParagraph;

/// One line of laid out text. y grows downwards from the layout's top.
struct TextLine {
    NSRange range; ///< its characters, a line end included, in UTF-16 units
    Rect fragment; ///< from one margin to the other, as high as the line
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
/// width that is not finite or beyond 1e6 does not wrap; one that is not a number or below 0 counts as 0, where each line holds
/// what cannot be broken further.
class TextLayout {
public:
    TextLayout();
    ~TextLayout();

    /// Keeps what it needs of the string, which must not change before the next call.
    void setString(NSAttributedString const&);
    /// The string is what was set before with an edit done: the range as it is now, and how much longer it has become.
    void stringEdited(NSAttributedString const&, NSRange range, long changeInLength);
    void setWidth(float);
    float width() const { return m_width; }
    /// Kept free at both ends of each line.
    void setLineFragmentPadding(float);

    bool isEmpty() const { return m_length == 0; }
    /// Nothing where there is no text; the padding is part of it. The empty line behind a final line end counts.
    Rect usedRect();
    /// The same of the lines that lie wholly within a height.
    Rect usedRectWithin(float height);

    long numberOfLines();
    TextLine line(long index);
    /// The line that holds the character; a position at the end belongs to the last line.
    long lineOfIndex(long index);
    /// The nearest line.
    long lineAtY(float y);

    TextPosition positionAt(Point);
    /// One point wide, where the caret stands before this character; at the end of a wrapped line it belongs to the next one.
    Rect caretRect(long index);
    /// For each line the parts that a selection covers, from margin to margin where it includes a line end.
    std::vector<Rect> selectionRects(NSRange);
    /// For each line the parts that the characters cover.
    std::vector<Rect> rectsOfRange(NSRange);
    /// The caret's next stop to the left (-1) or right (1) as it is seen, which in mixed directions is not always the next index.
    long indexMovedVisually(long index, int direction);

    enum class Part : unsigned char { backgroundsAndText, backgrounds, text };
    /// Draws in the current context. The origin is the layout's upper left corner in a flipped context, and the point that is
    /// `height` below it in an unflipped one (use usedRect().height where nothing else is meant).
    void draw(Point origin, float height, Part = Part::backgroundsAndText);
    /// The same for the lines from first up to, without, last.
    void drawLines(long first, long last, Point origin, float height, Part = Part::backgroundsAndText);

private:
    struct Body;
    void place();
    TextParagraph& shaped(std::size_t paragraph);
    std::size_t paragraphOfLine(long line, long& lineInParagraph);
    std::size_t paragraphOfIndex(long index);

    std::unique_ptr<Body> m_body;
    float m_width { 1e7F };
    float m_padding { 0 };
    long m_length { 0 };
};

}

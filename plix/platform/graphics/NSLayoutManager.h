#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/NSRange.h>
#include <plix/platform/base/Ref.h>
#include <plix/platform/base/Weak.h>
#include <plix/platform/graphics/geometry.h>

#include <memory>
#include <vector>

namespace plix {

class NSFont;
class NSTextContainer;
class NSTextStorage;
class TextLayout;

/// Which rules lines are laid out by. All are laid out by the latest.
enum NSTypesetterBehavior : int {
    NSTypesetterLatestBehavior = -1,
    NSTypesetterOriginalBehavior = 0,
    NSTypesetterBehavior_10_2_WithCompatibility = 1,
    NSTypesetterBehavior_10_2 = 2,
    NSTypesetterBehavior_10_3 = 3,
    NSTypesetterBehavior_10_4 = 4,
};

/// Lays the text of its storage out in its container, when asked and only what has changed. Glyphs are counted as the characters
/// they come from, in UTF-16 units. Rectangles and points are in the container's coordinates, y downwards. Text is laid out in
/// the first container only.
class PLIX_EXPORT NSLayoutManager : public NSObject {
    PLIX_CLASS(NSLayoutManager, NSObject);

public:
    NSLayoutManager();
    ~NSLayoutManager() override;

    NSTextStorage* textStorage() const { return m_storage.get(); }
    /// For the storage that takes it in.
    void setTextStorage(NSTextStorage*);

    // What text is laid out into, one after another.
    void addTextContainer(Ref<NSTextContainer> const&);
    void removeTextContainerAtIndex(long index);
    std::vector<Ref<NSTextContainer>> const& textContainers() const { return m_containers; }

    /// Kept; there is one way of setting text.
    NSTypesetterBehavior typesetterBehavior() const { return m_typesetterBehavior; }
    void setTypesetterBehavior(NSTypesetterBehavior behavior) { m_typesetterBehavior = behavior; }

    /// Lays out; the characters whose lines begin within the container's height.
    NSRange glyphRangeForTextContainer(NSTextContainer const&);
    /// What the laid out lines cover, the padding included; nothing for no text.
    Rect usedRectForTextContainer(NSTextContainer const&);
    long numberOfGlyphs();
    NSRange glyphRangeForBoundingRect(Rect, NSTextContainer const&);
    Rect boundingRectForGlyphRange(NSRange, NSTextContainer const&);
    Rect lineFragmentRectForGlyphAtIndex(long index, NSRange& effectiveRange);
    Rect lineFragmentUsedRectForGlyphAtIndex(long index, NSRange& effectiveRange);
    /// The empty line behind a final line end, or in a text without characters.
    Rect extraLineFragmentRect();
    Point locationForGlyphAtIndex(long index);
    long glyphIndexForPoint(Point, NSTextContainer const&, float& fractionOfDistanceThroughGlyph);
    long glyphIndexForPoint(Point, NSTextContainer const&);
    std::vector<Rect> rectArrayForCharacterRange(NSRange, NSTextContainer const&);

    /// The point is the container's upper left corner in a flipped context, the lower left of the used rectangle otherwise.
    void drawBackgroundForGlyphRange(NSRange, Point);
    void drawGlyphsForGlyphRange(NSRange, Point);

    /// In points.
    float defaultLineHeightForFont(NSFont const&) const;

    /// Told by the storage and the container.
    virtual void textStorageEdited(NSRange range, long changeInLength);
    void textContainerChangedGeometry(NSTextContainer const&);

    /// The layout itself, for carets and selections.
    TextLayout& layout() { return *m_layout; }

private:
    enum class Part : unsigned char { backgrounds, text };
    void drawLinesOf(NSRange, Point, Part);
    bool laysOutIn(NSTextContainer const&) const;

    Weak<NSTextStorage> m_storage;
    std::vector<Ref<NSTextContainer>> m_containers;
    NSTypesetterBehavior m_typesetterBehavior { NSTypesetterBehavior_10_4 };
    std::unique_ptr<TextLayout> m_layout;
};

}

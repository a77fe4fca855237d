#pragma once

#include <plix/platform/base/Class.h>

#include <cstdint>
#include <vector>

namespace plix {

class NSMutableParagraphStyle;

enum NSTextAlignment : int {
    NSLeftTextAlignment = 0,
    NSRightTextAlignment = 1,
    NSCenterTextAlignment = 2,
    NSJustifiedTextAlignment = 3,
    NSNaturalTextAlignment = 4, ///< left, or right where the paragraph runs from right to left
};

/// The truncating modes and clipping keep a paragraph on one line.
enum NSLineBreakMode : int {
    NSLineBreakByWordWrapping = 0, ///< a word that is too long for a line breaks between characters
    NSLineBreakByCharWrapping = 1,
    NSLineBreakByClipping = 2,
    NSLineBreakByTruncatingHead = 3,
    NSLineBreakByTruncatingTail = 4,
    NSLineBreakByTruncatingMiddle = 5,
};

enum NSWritingDirection : int {
    NSWritingDirectionNatural = -1, ///< that of the first character which has one
    NSWritingDirectionLeftToRight = 0,
    NSWritingDirectionRightToLeft = 1,
};

enum NSTextTabType : int {
    NSLeftTabStopType = 0,
    NSRightTabStopType = 1,
    NSCenterTabStopType = 2,
    NSDecimalTabStopType = 3,
};

/// Where a tab character leads: points from the container's leading margin.
struct NSTextTab {
    float location { 0 };
    NSTextTabType type { NSLeftTabStopType };
    friend bool operator==(NSTextTab const&, NSTextTab const&) = default;
};

/// How a paragraph is laid out, as plain values. Lengths are in points.
struct ParagraphLayout {
    NSTextAlignment alignment { NSNaturalTextAlignment };
    NSLineBreakMode lineBreakMode { NSLineBreakByWordWrapping };
    NSWritingDirection baseWritingDirection { NSWritingDirectionNatural };
    float lineSpacing { 0 };
    float paragraphSpacing { 0 };
    float paragraphSpacingBefore { 0 };
    float headIndent { 0 };
    float firstLineHeadIndent { 0 };
    float tailIndent { 0 };
    float minimumLineHeight { 0 };
    float maximumLineHeight { 0 };
    float lineHeightMultiple { 0 };
    float defaultTabInterval { 0 };
    std::vector<NSTextTab> tabStops;
    friend bool operator==(ParagraphLayout const&, ParagraphLayout const&) = default;
};

/// How a paragraph is laid out. Never changes; see NSMutableParagraphStyle.
class NSParagraphStyle : public NSObject {
    PLIX_CLASS(NSParagraphStyle, NSObject);

public:
    /// Natural alignment, wrapping by words, left tab stops every 28 points up to 336.
    static Ref<NSParagraphStyle> defaultParagraphStyle();

    bool init();
    bool init(NSParagraphStyle const& other);

    Ref<NSMutableParagraphStyle> mutableCopy() const;

    NSTextAlignment alignment() const { return m_layout.alignment; }
    NSLineBreakMode lineBreakMode() const { return m_layout.lineBreakMode; }
    NSWritingDirection baseWritingDirection() const { return m_layout.baseWritingDirection; }
    /// Between the lines of the paragraph.
    float lineSpacing() const { return m_layout.lineSpacing; }
    /// Behind the paragraph.
    float paragraphSpacing() const { return m_layout.paragraphSpacing; }
    float paragraphSpacingBefore() const { return m_layout.paragraphSpacingBefore; }
    /// From the leading margin to the first line, and to the others.
    float firstLineHeadIndent() const { return m_layout.firstLineHeadIndent; }
    float headIndent() const { return m_layout.headIndent; }
    /// Above 0 the distance from the leading margin to the lines' end, else from the trailing margin.
    float tailIndent() const { return m_layout.tailIndent; }
    float minimumLineHeight() const { return m_layout.minimumLineHeight; }
    /// 0: no limit.
    float maximumLineHeight() const { return m_layout.maximumLineHeight; }
    /// 0: as the fonts have it.
    float lineHeightMultiple() const { return m_layout.lineHeightMultiple; }
    std::vector<NSTextTab> const& tabStops() const { return m_layout.tabStops; }
    /// Beyond the last tab stop; 0 goes on at the stops' own interval.
    float defaultTabInterval() const { return m_layout.defaultTabInterval; }

    ParagraphLayout const& layout() const { return m_layout; }

    // NSObject:
    bool isEqual(NSObject const* other) const override;
    std::size_t hash() const override;

protected:
    void copyStateTo(NSObject& fresh) const override;

    ParagraphLayout m_layout;
};

}

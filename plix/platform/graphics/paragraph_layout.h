#pragma once

#include <vector>

namespace plix {

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

}

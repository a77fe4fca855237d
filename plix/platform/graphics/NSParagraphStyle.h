#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/paragraph_layout.h>

#include <cstdint>
#include <vector>

namespace plix {

class NSMutableParagraphStyle;

/// How a paragraph is laid out. Never changes; see NSMutableParagraphStyle.
class PLIX_EXPORT NSParagraphStyle : public NSObject {
    PLIX_CLASS(NSParagraphStyle, NSObject);

public:
    /// Natural alignment, wrapping by words, left tab stops every 28 points up to 336.
    static Ref<NSParagraphStyle> defaultParagraphStyle();

    bool init();
    bool init(NSParagraphStyle const& other);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    /// One that can be changed.
    Ref<NSMutableParagraphStyle> mutableCopy() const;

    // How lines are laid out; distances in points.
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

    /// All of it.
    ParagraphLayout const& layout() const { return m_layout; }

    // NSObject:
    bool isEqual(NSObject const* other) const override;
    std::size_t hash() const override;

protected:
    void copyStateTo(NSObject& fresh) const override;

    ParagraphLayout m_layout;
};

}

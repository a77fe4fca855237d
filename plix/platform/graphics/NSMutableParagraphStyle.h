#pragma once

#include <plix/platform/graphics/NSParagraphStyle.h>

namespace plix {

/// A paragraph style that can be changed before it is used. What a string already holds must not be changed any more.
class PLIX_EXPORT NSMutableParagraphStyle : public NSParagraphStyle {
    PLIX_CLASS(NSMutableParagraphStyle, NSParagraphStyle);

public:
    using NSParagraphStyle::init;

    // See NSParagraphStyle.
    void setAlignment(NSTextAlignment alignment) { m_layout.alignment = alignment; }
    void setLineBreakMode(NSLineBreakMode mode) { m_layout.lineBreakMode = mode; }
    void setBaseWritingDirection(NSWritingDirection direction) { m_layout.baseWritingDirection = direction; }
    void setLineSpacing(float spacing) { m_layout.lineSpacing = spacing; }
    void setParagraphSpacing(float spacing) { m_layout.paragraphSpacing = spacing; }
    void setParagraphSpacingBefore(float spacing) { m_layout.paragraphSpacingBefore = spacing; }
    void setHeadIndent(float indent) { m_layout.headIndent = indent; }
    void setFirstLineHeadIndent(float indent) { m_layout.firstLineHeadIndent = indent; }
    void setTailIndent(float indent) { m_layout.tailIndent = indent; }
    void setMinimumLineHeight(float height) { m_layout.minimumLineHeight = height; }
    void setMaximumLineHeight(float height) { m_layout.maximumLineHeight = height; }
    void setLineHeightMultiple(float multiple) { m_layout.lineHeightMultiple = multiple; }
    void setDefaultTabInterval(float interval) { m_layout.defaultTabInterval = interval; }
    /// Keeps them ordered by location.
    void setTabStops(std::vector<NSTextTab>);
    void addTabStop(NSTextTab);
    void removeTabStop(NSTextTab);
    void setParagraphStyle(NSParagraphStyle const& other) { m_layout = other.layout(); }
};

}

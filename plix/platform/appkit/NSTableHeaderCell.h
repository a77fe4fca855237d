#pragma once

#include <plix/platform/appkit/NSTextFieldCell.h>

namespace plix {

/// How the header of a column is shaded.
enum class HeaderShade { plain, chosen, pressed };

/// Draws a column's header: its title, and at the right end an image that says how the column is sorted.
class PLIX_EXPORT NSTableHeaderCell : public NSTextFieldCell {
    PLIX_CLASS(NSTableHeaderCell, NSTextFieldCell);

public:
    using NSTextFieldCell::init;
    NSTableHeaderCell();
    ~NSTableHeaderCell() override;
    bool init();
    bool init(std::string_view title);
    bool init(NSCoder&);

    /// What is drawn at the right end; null for nothing. Set by the header view before it draws.
    NSImage* indicatorImage() const { return m_indicatorImage.get(); }
    void setIndicatorImage(Ref<NSImage> const&);
    /// Whether the column is the one that is sorted by, or selected.
    bool isChosen() const { return m_isChosen; }
    void setChosen(bool isChosen) { m_isChosen = isChosen; }
    /// The part of a header's bounds for the indicator.
    Rect indicatorRectForBounds(Rect bounds) const;

    // NSCell:
    Size cellSizeForBounds(Rect bounds) const override;
    Rect titleRectForBounds(Rect bounds) const override;
    void drawWithFrame(Rect frame, NSView& controlView) override;

protected:
    // NSTextFieldCell:
    Ref<NSColor> colorForText() const override;
    void copyStateTo(NSObject& fresh) const override;

private:
    Ref<NSImage> m_indicatorImage;
    bool m_isChosen { false };
};

}

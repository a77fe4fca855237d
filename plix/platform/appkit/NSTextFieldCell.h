#pragma once

#include <plix/platform/appkit/NSActionCell.h>

namespace plix {

enum class FieldShape;

/// Text on a background, in a border or bezel, or bare as a label.
class PLIX_EXPORT NSTextFieldCell : public NSActionCell {
    PLIX_CLASS(NSTextFieldCell, NSActionCell);

public:
    using NSActionCell::init;
    NSTextFieldCell();
    ~NSTextFieldCell() override;

    bool init();
    /// A static label: neither editable nor selectable, without border and background.
    bool init(std::string_view text);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    /// The named colour for control text at first. While the cell is disabled, a named colour gives way to the disabled one; a
    /// colour that the host mixed itself is drawn as it is.
    NSColor* textColor() const { return m_textColor.get(); }
    virtual void setTextColor(Ref<NSColor> const&);
    bool drawsBackground() const { return m_drawsBackground; }
    virtual void setDrawsBackground(bool);
    NSColor* backgroundColor() const { return m_backgroundColor.get(); }
    virtual void setBackgroundColor(Ref<NSColor> const&);
    NSTextFieldBezelStyle bezelStyle() const { return m_bezelStyle; }
    void setBezelStyle(NSTextFieldBezelStyle);
    /// Shown paler where the value is empty.
    std::string const& placeholderString() const { return m_placeholder; }
    void setPlaceholderString(std::string);

    // NSCell:
    bool isOpaque() const override;
    void drawWithFrame(Rect frame, NSView& controlView) override;
    /// A cell that draws a background gives it to the editor; one that does not leaves the editor's own.
    NSText& setUpFieldEditorAttributes(NSText& editor) override;

protected:
    // NSCell:
    Ref<NSColor> colorForText() const override;
    CellInsets frameInsets() const override;
    void drawText(Rect) const override;
    void copyStateTo(NSObject& fresh) const override;

private:
    FieldShape shape() const;

    Ref<NSColor> m_textColor;
    Ref<NSColor> m_backgroundColor;
    std::string m_placeholder;
    NSTextFieldBezelStyle m_bezelStyle { NSTextFieldSquareBezel };
    bool m_drawsBackground { false };
};

}

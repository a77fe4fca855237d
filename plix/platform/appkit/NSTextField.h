#pragma once

#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/cell_constants.h>

namespace plix {

class NSTextFieldCell;

/// Text in a control: a label, or a field to type in. A new one is a field: bezeled, with a background, editable.
class NSTextField : public NSControl {
    PLIX_CLASS(NSTextField, NSControl);

public:
    bool init();
    bool init(Rect frame);
    /// A label: no bezel, no background, neither editable nor selectable, on one line, as large as its text.
    static Ref<NSTextField> labelWithString(std::string_view text);

    static Class const* cellClass();
    /// For text fields made from now on; a class of text field cells.
    static void setCellClass(Class const&);
    Class const* ownCellClass() const override { return cellClass(); }

    // Those of the cell:
    NSColor* textColor() const;
    virtual void setTextColor(Ref<NSColor> const&);
    NSColor* backgroundColor() const;
    virtual void setBackgroundColor(Ref<NSColor> const&);
    bool drawsBackground() const;
    virtual void setDrawsBackground(bool);
    bool isBordered() const;
    virtual void setBordered(bool);
    bool isBezeled() const;
    virtual void setBezeled(bool);
    NSTextFieldBezelStyle bezelStyle() const;
    void setBezelStyle(NSTextFieldBezelStyle);
    bool isEditable() const;
    virtual void setEditable(bool);
    bool isSelectable() const;
    virtual void setSelectable(bool);

    // NSView:
    bool acceptsFirstResponder() const override;
    void mouseDown(NSEvent&) override;
    bool mouseDownCanMoveWindow() const override;

private:
    NSTextFieldCell* fieldCell() const;
};

}

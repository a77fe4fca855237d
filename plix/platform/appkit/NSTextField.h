#pragma once

#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/NSControlTextEditingDelegate.h>
#include <plix/platform/appkit/cell_constants.h>

namespace plix {

class FieldEditing;
class NSTextFieldCell;

/// Text in a control: a label, or a field to type in. A new one is a field: bezeled, with a background, editable.
class PLIX_EXPORT NSTextField : public NSControl {
    PLIX_CLASS(NSTextField, NSControl);

public:
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
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

    // Editing. Return sends the action and leaves everything selected; without an action the key goes to the window's buttons.
    // Tab goes to the next field. Escape restores what was there; where nothing was changed it goes to the window's buttons.
    /// Begins editing with everything selected; nothing where the field can't be selected or another keeps the keyboard.
    void selectText(NSObject* sender);
    template <typename T> void setDelegate(Ref<T> const& delegate)
    {
        takeHooks(HookSource::pack<NSControlTextEditingDelegate>(delegate));
    }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    virtual void takeHooks(HookSource const&);
    NSObject* delegate() const { return m_delegate.object(); }
    NSControlTextEditingDelegate const& delegateHooks() const { return m_hooks; }

    // As the editor's delegate.
    virtual bool textShouldBeginEditing(NSText&);
    virtual bool textShouldEndEditing(NSText&);
    virtual void textDidBeginEditing(NSNotification const&);
    virtual void textDidEndEditing(NSNotification const&);
    virtual void textDidChange(NSNotification const&);
    virtual bool shouldChangeTextInRange(NSTextView&, NSRange, std::string_view replacement);
    virtual bool textViewDoCommandBySelector(NSTextView&, Selector);
    void cancelOperation(NSObject* sender);

    // NSView:
    bool acceptsFirstResponder() const override;
    bool becomeFirstResponder() override;
    bool resignFirstResponder() override;
    bool canBecomeKeyView() const override;
    bool needsPanelToBecomeKey() const override { return isEditable(); }
    void setFrameSize(Size) override;
    void mouseDown(NSEvent&) override;
    bool mouseDownCanMoveWindow() const override;

private:
    NSTextFieldCell* fieldCell() const;
    FieldEditing editing();
    void goOnAfter(int movement);
    bool offersKeyToWindow();

    HookSource m_delegate;
    NSControlTextEditingDelegate m_hooks;
};

}

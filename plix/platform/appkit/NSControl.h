#pragma once

#include <plix/platform/appkit/HoverArea.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSText.h>
#include <plix/platform/appkit/NSView.h>

namespace plix {

class NSActionCell;

/// A view that lets a cell do its work: draw a value, follow the mouse, send an action. Setters reach the cell, which says when
/// something is to be drawn anew. A control without a cell reads as 0, "" and nil, and takes no events.
class PLIX_EXPORT NSControl : public NSView {
    PLIX_CLASS(NSControl, NSView);

public:
    NSControl();
    ~NSControl() override;
    bool init();
    /// With a new cell of the class that ownCellClass() answers.
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    /// The class of cells that new controls get; null for a control without a cell.
    static Class const* cellClass() { return nullptr; }
    virtual Class const* ownCellClass() const { return cellClass(); }
    NSCell* cell() const { return m_cell.get(); }
    virtual void setCell(Ref<NSCell> const&);
    /// The cell that was clicked last; of a control with one cell that one.
    virtual NSCell* selectedCell() const { return m_cell.get(); }
    virtual long selectedTag() const;

    // Value: that of the selected cell, an edit in progress taken in first.
    virtual ObjectValue const& objectValue() const;
    virtual void setObjectValue(ObjectValue);
    virtual std::string const& stringValue() const;
    virtual void setStringValue(std::string_view);
    virtual Ref<NSAttributedString> attributedStringValue() const;
    /// Null shows nothing.
    virtual void setAttributedStringValue(Ref<NSAttributedString> const&);
    virtual int intValue() const;
    virtual void setIntValue(int);
    virtual float floatValue() const;
    virtual void setFloatValue(float);
    virtual double doubleValue() const;
    virtual void setDoubleValue(double);
    void takeStringValueFrom(NSObject* sender);
    void takeObjectValueFrom(NSObject* sender);
    void takeIntValueFrom(NSObject* sender);
    void takeFloatValueFrom(NSObject* sender);
    void takeDoubleValueFrom(NSObject* sender);
    NSFormatter* formatter() const;
    virtual void setFormatter(Ref<NSFormatter> const&);

    // Looks and state.
    virtual bool isEnabled() const;
    /// Disabling also ends an edit and gives the keyboard away.
    virtual void setEnabled(bool);
    NSFont* font() const;
    virtual void setFont(Ref<NSFont> const&);
    NSTextAlignment alignment() const;
    virtual void setAlignment(NSTextAlignment);
    long tag() const override;
    virtual void setTag(long);
    bool refusesFirstResponder() const;
    void setRefusesFirstResponder(bool);
    /// Presses after the first of a double click are handed on, not tracked.
    bool ignoresMultiClick() const { return m_ignoresMultiClick; }
    void setIgnoresMultiClick(bool);
    bool isContinuous() const;
    void setContinuous(bool);
    /// See NSCell.
    unsigned sendActionOn(unsigned mask);

    // Target and action.
    NSObject* target() const;
    virtual void setTarget(Ref<NSObject> const&);
    Selector action() const;
    virtual void setAction(Selector);
    /// A member function in the action's place, which takes the sender or nothing.
    template <typename T, typename Operation>
    requires std::is_member_function_pointer_v<Operation>
    void setTarget(T& target, Operation operation)
    {
        if (auto* actionCell = cell())
            actionCell->setTarget(target, operation);
    }
    void setActionFunction(NSCell::ActionFunction);
    /// Through the application, with the control as sender. False where nobody took it, or for no action.
    virtual bool sendAction(Selector, NSObject* target);
    virtual void performClick(NSObject* sender);

    // Size.
    /// Makes the frame as large as the cell needs; the origin stays.
    void sizeToFit() override;
    /// Works out the cell's inner sizes anew, where that is needed before drawing.
    virtual void calcSize();

    // Drawing.
    /// Draws the control's own cell now.
    virtual void drawCell(NSCell&);
    virtual void drawCellInside(NSCell&);
    /// Marks a cell for display where it is the control's own.
    virtual void updateCell(NSCell&);
    virtual void updateCellInside(NSCell&);
    virtual void selectCell(NSCell&);

    // Editing.
    /// The editor that stands in one of the control's cells now, or null.
    NSText* currentEditor() const { return m_editor.get(); }
    /// Ends an edit in progress without taking its text, and gives the keyboard away. False where there is none.
    virtual bool abortEditing();
    /// Takes the text of an edit in progress over as the value, as far as the formatter takes it.
    virtual void validateEditing();
    /// Told by cells.
    void setCurrentEditor(Badge<NSCell>, NSText* editor) { m_editor = editor; }
    void editedCellChanged(Badge<NSActionCell>, NSCell&);

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override;
    void drawRect(Rect) override;
    void resetCursorRects() override;
    bool acceptsFirstResponder() const override;
    bool becomeFirstResponder() override;
    bool resignFirstResponder() override;
    void mouseDown(NSEvent&) override;
    bool acceptsFirstMouse(NSEvent*) override { return false; }
    bool mouseDownCanMoveWindow() const override { return false; }
    NSMenu* menuForEvent(NSEvent&) override;
    void mouseEntered(NSEvent&) override;
    void mouseExited(NSEvent&) override;
    void viewWillMoveToWindow(NSWindow*) override;

private:
    void trackMouse(NSEvent& press);
    NSCell const* upToDateCell() const;

    Ref<NSCell> m_cell;
    Weak<NSText> m_editor;
    HoverArea m_hoverArea;
    bool m_ignoresMultiClick { false };
    bool m_isTakingValue { false };
};

}

#include <plix/platform/appkit/NSTextField.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/appkit/field_editing.h>
#include <plix/platform/foundation/NSNotification.h>

#include <algorithm>

namespace plix {

FieldEditing NSTextField::editing()
{
    return { *this, *cell(), m_hooks };
}

void NSTextField::takeHooks(HookSource const& source)
{
    m_delegate = source;
    m_hooks = source.hooks<NSControlTextEditingDelegate>();
}

void NSTextField::selectText(NSObject*)
{
    Ref<NSTextField> const protector(this);
    if (Ref<NSText> const editor = currentEditor()) {
        editor->selectAll(nullptr);
        return;
    }
    Ref<NSWindow> const ownWindow(window());
    if (!ownWindow || !acceptsFirstResponder())
        return;
    if (auto* const editor = dynamic_cast<NSText*>(ownWindow->fieldEditor(true, this)))
        cell()->selectWithFrame(bounds(), *this, *editor, this, 0, NSNotFound);
}

bool NSTextField::becomeFirstResponder()
{
    selectText(nullptr);
    return true;
}

// The keyboard goes on to the editor.
bool NSTextField::resignFirstResponder()
{
    return true;
}

bool NSTextField::canBecomeKeyView() const
{
    return isEditable() && Base::canBecomeKeyView();
}

void NSTextField::setFrameSize(Size size)
{
    bool const isChange = size != frame().size();
    Base::setFrameSize(size);
    auto* const view = isChange ? dynamic_cast<NSTextView*>(currentEditor()) : nullptr;
    if (!view || !view->superview())
        return;
    Rect const room = cell()->titleRectForBounds(bounds());
    view->superview()->setFrame(room);
    view->setMinSize(room.size());
    view->setFrameSize({ std::max(room.width, view->isHorizontallyResizable() ? view->frame().width : 0), view->frame().height });
}

// MARK: the editor's delegate

bool NSTextField::textShouldBeginEditing(NSText& editor)
{
    return isEditable() && editing().mayBegin(editor);
}

bool NSTextField::textShouldEndEditing(NSText& editor)
{
    return editing().mayEnd(editor);
}

bool NSTextField::shouldChangeTextInRange(NSTextView& editor, NSRange range, std::string_view replacement)
{
    return editing().mayChange(editor, range, replacement);
}

bool NSTextField::textViewDoCommandBySelector(NSTextView& editor, Selector command)
{
    return editing().takesCommand(editor, command);
}

void NSTextField::textDidBeginEditing(NSNotification const&)
{
    if (Ref<NSText> const editor = currentEditor())
        editing().tellBegin(*editor);
}

void NSTextField::textDidChange(NSNotification const&)
{
    if (Ref<NSText> const editor = currentEditor())
        editing().tellChange(*editor);
}

void NSTextField::textDidEndEditing(NSNotification const& notification)
{
    Ref<NSTextField> const protector(this);
    Ref<NSText> const editor(currentEditor());
    if (!editor)
        return;
    auto const found = notification.userInfo.find("NSTextMovement");
    int const movement = found == notification.userInfo.end() ? int { NSOtherTextMovement } : found->second.intValue();
    validateEditing();
    cell()->endEditing(*editor);
    editing().tellEnd(*editor, movement);
    goOnAfter(movement);
}

// MARK: where a key that ends the edit goes

void NSTextField::goOnAfter(int movement)
{
    Ref<NSCell> const ended(cell());
    if (movement == NSReturnTextMovement) {
        if (ended->hasAction())
            ended->sendAction();
        else
            offersKeyToWindow();
    } else if (ended->sendsActionOnEndEditing()) {
        ended->sendAction();
    }
    // The action may have closed the window, or given the keyboard to somebody.
    Ref<NSWindow> const ownWindow(window());
    if (!ownWindow || ownWindow->firstResponder() != ownWindow.get() || movement == NSOtherTextMovement)
        return;
    if (ownWindow->autorecalculatesKeyViewLoop())
        ownWindow->recalculateKeyViewLoop();
    if (movement == NSTabTextMovement)
        ownWindow->selectKeyViewFollowingView(*this);
    else if (movement == NSBacktabTextMovement)
        ownWindow->selectKeyViewPrecedingView(*this);
    if (ownWindow->firstResponder() == ownWindow.get())
        selectText(nullptr);
}

/// Return and Escape press the window's buttons from within a field too.
bool NSTextField::offersKeyToWindow()
{
    Ref<NSWindow> const ownWindow(window());
    Ref<NSEvent> const key(NSApp ? NSApp->currentEvent() : nullptr);
    if (!ownWindow || !key || key->type() != NSKeyDown)
        return false;
    return ownWindow->performKeyEquivalent(*key) || ownWindow->internals().pressDefaultButton(*key);
}

void NSTextField::cancelOperation(NSObject*)
{
    Ref<NSTextField> const protector(this);
    Ref<NSText> const editor(currentEditor());
    if (!editor)
        return;
    if (editor->string() == cell()->editingStringValue()) {
        offersKeyToWindow();
        return;
    }
    abortEditing();
    selectText(nullptr);
}

}

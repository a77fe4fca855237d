#include <plix/platform/appkit/NSCell.h>

#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/cell_layout.h>
#include <plix/platform/foundation/NSFormatter.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>
#include <plix/platform/graphics/NSTextStorage.h>

namespace plix {

std::string NSCell::editingStringValue() const
{
    if (m_formatter && m_hasValidObject) {
        if (auto const text = m_formatter->editingStringForObjectValue(m_value))
            return *text;
    }
    return stringValue();
}

NSText& NSCell::setUpFieldEditorAttributes(NSText& editor)
{
    if (auto* view = dynamic_cast<NSTextView*>(&editor)) {
        auto attributes = textAttributes();
        if (!wraps()) {
            // What is cut off or shortened while it is shown scrolls while it is edited.
            auto style = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
            style->setAlignment(alignment());
            style->setLineBreakMode(NSLineBreakByClipping);
            attributes[NSParagraphStyleAttributeName] = style;
        }
        view->setTypingAttributes(std::move(attributes));
    }
    return editor;
}

namespace {

/// Where text scrolls that is longer than its cell.
void place(NSText& editor, Rect rect, NSView& controlView, bool wraps)
{
    auto const clip = make<NSClipView>(rect);
    clip->setDrawsBackground(false);
    editor.setFrame({ 0, 0, rect.width, rect.height });
    if (auto* view = dynamic_cast<NSTextView*>(&editor)) {
        view->textContainer()->setLineFragmentPadding(cellTextPadding);
        view->setMaxSize({ 1e7F, 1e7F });
        view->setMinSize(rect.size());
        view->setVerticallyResizable(true);
        view->setHorizontallyResizable(!wraps);
    }
    controlView.addSubview(*clip);
    clip->setDocumentView(&editor);
}

}

bool NSCell::beginEditing(Rect frame, NSView& controlView, NSText& editor, NSObject* delegate)
{
    Ref<NSWindow> const window(controlView.window());
    if (type() != NSTextCellType || !isSelectable() || !window)
        return false;
    // Whoever is being edited ends that first, or keeps the editor.
    if (editor.window() && window->firstResponder() == &editor && !window->makeFirstResponder(nullptr))
        return false;
    setControlView(&controlView);
    editor.takeHooks({});
    editor.setFieldEditor(true);
    editor.setHidden(false); // it may have been hidden where it was before
    editor.setEditable(isEditable());
    editor.setSelectable(true);
    setUpFieldEditorAttributes(editor);
    place(editor, titleRectForBounds(frame), controlView, wraps());
    auto* view = dynamic_cast<NSTextView*>(&editor);
    if (auto const* attributed = attributedValue(); attributed && view && allowsEditingTextAttributes())
        view->textStorage()->setAttributedString(*attributed);
    else
        editor.setString(editingStringValue());
    if (delegate)
        editor.takeHooks(delegate->describedClass().hookSource(*delegate));
    m_flags.beingEdited = true;
    if (auto* control = dynamic_cast<NSControl*>(&controlView))
        control->setCurrentEditor({}, &editor);
    if (!window->makeFirstResponder(&editor) || window->firstResponder() != &editor) {
        endEditing(editor);
        return false;
    }
    setShowsFirstResponder(true);
    controlView.setNeedsDisplayInRect(frame);
    return true;
}

void NSCell::editWithFrame(Rect frame, NSView& controlView, NSText& editor, NSObject* delegate, NSEvent& event)
{
    Ref<NSCell> const protector(this);
    Ref<NSText> const kept(editor);
    if (beginEditing(frame, controlView, editor, delegate) && event.type() == NSLeftMouseDown)
        editor.mouseDown(event);
}

void NSCell::selectWithFrame(Rect frame, NSView& controlView, NSText& editor, NSObject* delegate, long start, long length)
{
    Ref<NSCell> const protector(this);
    Ref<NSText> const kept(editor);
    if (!beginEditing(frame, controlView, editor, delegate))
        return;
    editor.setSelectedRange({ start, length });
    editor.scrollRangeToVisible({ start, 0 });
}

void NSCell::endEditing(NSText& editor)
{
    Ref<NSCell> const protector(this);
    Ref<NSText> const kept(editor);
    m_flags.beingEdited = false;
    setShowsFirstResponder(false);
    editor.takeHooks({});
    Ref<NSView> const clip(editor.superview());
    Ref<NSView> const view(clip ? clip->superview() : nullptr);
    if (auto* control = dynamic_cast<NSControl*>(view.get()))
        control->setCurrentEditor({}, nullptr);
    if (clip)
        clip->removeFromSuperview();
    editor.removeFromSuperview();
    editor.setString({});
    editor.setDrawsBackground(true);
    editor.setBackgroundColor(NSColor::textBackgroundColor());
    if (view)
        view->setNeedsDisplay(true);
}

}

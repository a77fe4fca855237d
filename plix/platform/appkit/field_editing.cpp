#include <plix/platform/appkit/field_editing.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSFormatter.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSTextStorage.h>

namespace plix {

void takeEditedText(NSCell& cell, NSText& editor)
{
    auto const* view = dynamic_cast<NSTextView*>(&editor);
    if (view && view->hasMarkedText())
        return;
    auto const text = editor.string();
    if (text == cell.editingStringValue() || !cell.isEntryAcceptable(text))
        return;
    if (view && cell.allowsEditingTextAttributes())
        cell.setAttributedStringValue(make<NSAttributedString>(*view->textStorage()));
    else
        cell.setStringValue(text);
}

bool FieldEditing::mayBegin(NSText& editor) const
{
    return !m_hooks.textShouldBeginEditing || m_hooks.textShouldBeginEditing(m_control, editor);
}

bool FieldEditing::refuse(NSText& editor) const
{
    NSBeep();
    editor.selectAll(nullptr);
    return false;
}

bool FieldEditing::mayEnd(NSText& editor) const
{
    auto const text = editor.string();
    bool const isChanged = text != m_cell.editingStringValue();
    ObjectValue object(text);
    bool isTakenAsText = false;
    if (auto const* formatter = isChanged ? m_cell.formatter() : nullptr) {
        std::string error;
        if (!formatter->getObjectValue(object, text, error)) {
            isTakenAsText = m_hooks.didFailToFormatString && m_hooks.didFailToFormatString(m_control, text, error);
            if (!isTakenAsText)
                return refuse(editor);
        }
    } else if (m_cell.formatter()) {
        object = m_cell.objectValue();
    }
    if (!isTakenAsText && m_hooks.isValidObject && !m_hooks.isValidObject(m_control, object))
        return refuse(editor);
    if (m_hooks.textShouldEndEditing && !m_hooks.textShouldEndEditing(m_control, editor))
        return false;
    if (isTakenAsText)
        m_cell.setStringValue(text);
    return true;
}

bool FieldEditing::mayChange(NSTextView& editor, NSRange range, std::string_view replacement) const
{
    auto const* formatter = m_cell.formatter();
    if (!formatter)
        return true;
    auto const& before = editor.string();
    auto const first = byteOffsetOfUnit(before, range.location);
    auto const end = byteOffsetOfUnit(before, range.end());
    auto const wanted = before.substr(0, first) + std::string(replacement) + before.substr(end);
    std::string instead;
    std::string error;
    if (formatter->isPartialStringValid(wanted, instead, error))
        return true;
    if (!instead.empty()) {
        editor.setString(instead);
        editor.didChangeText();
    } else {
        NSBeep();
    }
    m_hooks.didFailToValidatePartialString(m_control, wanted, error);
    return false;
}

bool FieldEditing::takesCommand(NSTextView& editor, Selector command) const
{
    return m_hooks.controlDoCommandBySelector && m_hooks.controlDoCommandBySelector(m_control, editor, command);
}

void FieldEditing::tell(char const* name, Hook<void(NSNotification const&)> const& hook, ObjectValue::Dictionary userInfo) const
{
    NSNotification const notification { name, &m_control, std::move(userInfo) };
    hook(notification);
    NSNotificationCenter::defaultCenter().postNotification(notification);
}

void FieldEditing::tellBegin(NSText& editor) const
{
    tell(NSControlTextDidBeginEditingNotification, m_hooks.controlTextDidBeginEditing,
        { { "NSFieldEditor", Ref<NSObject>(&editor) } });
}

void FieldEditing::tellChange(NSText& editor) const
{
    tell(NSControlTextDidChangeNotification, m_hooks.controlTextDidChange, { { "NSFieldEditor", Ref<NSObject>(&editor) } });
}

void FieldEditing::tellEnd(NSText& editor, int movement) const
{
    tell(NSControlTextDidEndEditingNotification, m_hooks.controlTextDidEndEditing,
        { { "NSFieldEditor", Ref<NSObject>(&editor) }, { "NSTextMovement", movement } });
}

}

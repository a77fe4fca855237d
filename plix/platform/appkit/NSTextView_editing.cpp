#include <plix/platform/appkit/NSTextView_internal.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/key_bindings.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSUndoManager.h>

#include <algorithm>

namespace plix {

namespace {

// The part of a range that a text of that length has; an empty one at its end for what lies behind it.
NSRange rangeWithin(NSRange range, long length)
{
    long const location = std::min(range.location, length);
    return { location, std::min(range.length, length - location) };
}

}

void describeEditing(ClassDescription<NSTextView>& description)
{
    description.action("deleteBackward:", &NSTextView::deleteBackward)
        .action("deleteForward:", &NSTextView::deleteForward)
        .action("deleteWordBackward:", &NSTextView::deleteWordBackward)
        .action("deleteWordForward:", &NSTextView::deleteWordForward)
        .action("deleteToBeginningOfLine:", &NSTextView::deleteToBeginningOfLine)
        .action("deleteToEndOfLine:", &NSTextView::deleteToEndOfLine)
        .action("insertNewline:", &NSTextView::insertNewline)
        .action("insertNewlineIgnoringFieldEditor:", &NSTextView::insertNewlineIgnoringFieldEditor)
        .action("insertLineBreak:", &NSTextView::insertLineBreak)
        .action("insertTab:", &NSTextView::insertTab)
        .action("insertTabIgnoringFieldEditor:", &NSTextView::insertTabIgnoringFieldEditor)
        .action("insertBacktab:", &NSTextView::insertBacktab)
        .action("cancelOperation:", &NSTextView::cancelOperation)
        .action("copy:", static_cast<void (NSTextView::*)(NSObject*)>(&NSTextView::copy))
        .action("cut:", &NSTextView::cut)
        .action("paste:", &NSTextView::paste)
        .action("delete:", &NSTextView::deleteSelection)
        .action("undo:", &NSTextView::undo)
        .action("redo:", &NSTextView::redo);
}

// MARK: asking and telling

bool NSTextView::beginEditingIfNeeded()
{
    if (m_hasBegun)
        return true;
    if (m_hooks.textShouldBeginEditing && !m_hooks.textShouldBeginEditing(*this))
        return false;
    m_hasBegun = true;
    post(NSTextDidBeginEditingNotification, m_hooks.textDidBeginEditing);
    return true;
}

bool NSTextView::shouldChangeTextInRange(NSRange range, std::string_view replacement)
{
    Ref<NSTextView> const protector(this);
    if (!isEditable() || !beginEditingIfNeeded())
        return false;
    return !m_hooks.shouldChangeTextInRange || m_hooks.shouldChangeTextInRange(*this, range, replacement);
}

void NSTextView::didChangeText()
{
    post(NSTextDidChangeNotification, m_hooks.textDidChange);
}

/// What may come in: in a field on one line, line ends become blanks.
std::string NSTextView::acceptedText(std::string_view text) const
{
    bool const isOneLine = isFieldEditor() && m_isHorizontallyResizable;
    std::string accepted;
    std::string const valid = validUTF8(text);
    accepted.reserve(valid.size());
    for (std::size_t i = 0; i < valid.size(); ++i) {
        bool const isReturn = valid[i] == '\r';
        if (isReturn && i + 1 < valid.size() && valid[i + 1] == '\n')
            continue;
        bool const isLineEnd = isReturn || valid[i] == '\n';
        accepted += isLineEnd ? (isOneLine ? ' ' : '\n') : valid[i];
    }
    return accepted;
}

bool NSTextView::change(NSRange range, std::string_view text, Kind kind, char const* actionName)
{
    Ref<NSTextView> const protector(this);
    auto const added = acceptedText(text);
    if ((range.length == 0 && added.empty()) || !shouldChangeTextInRange(range, added))
        return false;
    // Whoever was asked may have edited.
    range = rangeWithin(range, length());
    long const addedLength = utf16Length(added);
    recordUndo(range, addedLength, kind, actionName);
    replace(range, *make<NSAttributedString>(added, m_typingAttributes), { range.location + addedLength, 0 });
    didChangeText();
    return true;
}

void NSTextView::replace(NSRange range, NSAttributedString const& text, NSRange selectionAfter)
{
    auto const kept = m_coalescing;
    m_storage->replaceCharactersInRange(range, text);
    moveSelection(selectionAfter.location, selectionAfter.end());
    m_coalescing = kept;
    scrollRangeToVisible(selectedRange());
}

// MARK: undo

void NSTextView::breakUndoCoalescing()
{
    m_coalescing = nullptr;
}

void NSTextView::forgetUndo()
{
    m_coalescing = nullptr;
    if (Ref<NSUndoManager> const manager = m_observedManager.get())
        manager->removeAllActionsWithTarget(*this);
}

/// Typing on and deleting on grow the change that is recorded already.
bool NSTextView::coalesce(NSRange range, long newLength, Kind kind)
{
    if (!m_coalescing || m_coalescing->kind != kind || kind == Kind::other)
        return false;
    auto& recorded = *m_coalescing;
    if (kind == Kind::typing) {
        if (range.length > 0 || range.location != recorded.range.end())
            return false;
        recorded.range.length += newLength;
        return true;
    }
    bool const isBefore = range.end() == recorded.range.location;
    bool const isBehind = range.location == recorded.range.location;
    if (newLength > 0 || recorded.range.length > 0 || (!isBefore && !isBehind))
        return false;
    auto joined = m_storage->attributedSubstringFromRange(range)->mutableCopy();
    if (isBefore)
        joined->appendAttributedString(*recorded.before);
    else
        joined->insertAttributedString(*recorded.before, 0);
    recorded.before = joined;
    recorded.range.location = range.location;
    return true;
}

void NSTextView::recordUndo(NSRange range, long newLength, Kind kind, char const* actionName)
{
    Ref<NSUndoManager> const manager(m_allowsUndo ? undoManager() : nullptr);
    if (!manager || coalesce(range, newLength, kind))
        return;
    if (m_observedManager != manager.get()) {
        auto& center = NSNotificationCenter::defaultCenter();
        center.removeObserver(*this, NSUndoManagerDidOpenUndoGroupNotification);
        center.addObserver(*this, &NSTextView::breakUndoCoalescing, NSUndoManagerDidOpenUndoGroupNotification, manager.get());
        m_observedManager = manager;
    }
    auto const recorded = std::make_shared<Change>(
        Change { { range.location, newLength }, m_storage->attributedSubstringFromRange(range), selectedRange(), kind });
    manager->registerUndoWithTarget<NSTextView>(*this, [recorded](NSTextView& view) { view.takeBack(*recorded); });
    if (!manager->isUndoing() && !manager->isRedoing())
        manager->setActionName(actionName);
    m_coalescing = manager->isUndoRegistrationEnabled() ? recorded : nullptr;
}

void NSTextView::takeBack(Change const& recorded)
{
    Ref<NSTextView> const protector(this);
    bool const isInside = recorded.range.end() <= length();
    if (!isInside || !shouldChangeTextInRange(recorded.range, recorded.before->string()) || recorded.range.end() > length())
        return;
    auto const selection = recorded.selectionBefore;
    recordUndo(recorded.range, recorded.before->length(), Kind::other, "");
    m_coalescing = nullptr;
    replace(recorded.range, *recorded.before, selection);
    didChangeText();
}

void NSTextView::undo(NSObject*)
{
    Ref<NSTextView> const protector(this);
    unmarkText();
    m_coalescing = nullptr;
    if (Ref<NSUndoManager> const manager = undoManager(); manager && manager->canUndo())
        manager->undo();
    else
        NSBeep();
}

void NSTextView::redo(NSObject*)
{
    Ref<NSTextView> const protector(this);
    unmarkText();
    m_coalescing = nullptr;
    if (Ref<NSUndoManager> const manager = undoManager(); manager && manager->canRedo())
        manager->redo();
    else
        NSBeep();
}

// MARK: commands

void NSTextView::insertText(std::string_view text)
{
    if (!isEditable()) {
        Base::insertText(text);
        return;
    }
    Ref<NSTextView> const protector(this);
    std::string const entered(text);
    removeMarkedText();
    change(selectedRange(), entered, Kind::typing, "Typing");
}

void NSTextView::deleteTo(TextMovement movement)
{
    if (!isEditable()) {
        NSBeep();
        return;
    }
    Ref<NSTextView> const protector(this);
    auto range = selectedRange();
    if (range.length == 0) {
        long const to = target(movement, m_end);
        range = { std::min(to, m_end), std::max(to, m_end) - std::min(to, m_end) };
    }
    change(range, {}, Kind::deleting, "Delete");
}

void NSTextView::deleteSelection(NSObject*)
{
    if (isEditable() && selectedRange().length > 0)
        change(selectedRange(), {}, Kind::other, "Delete");
}

void NSTextView::copy(NSObject*)
{
    auto const range = selectedRange();
    if (range.length == 0)
        return;
    auto& pasteboard = NSPasteboard::generalPasteboard();
    pasteboard.declareTypes({ NSStringPboardType });
    pasteboard.setString(m_storage->attributedSubstringFromRange(range)->string(), NSStringPboardType);
}

void NSTextView::cut(NSObject*)
{
    if (!isEditable()) {
        NSBeep();
        return;
    }
    copy(nullptr);
    if (selectedRange().length > 0)
        change(selectedRange(), {}, Kind::other, "Cut");
}

void NSTextView::paste(NSObject*)
{
    Ref<NSTextView> const protector(this);
    auto const text = isEditable() ? NSPasteboard::generalPasteboard().stringForType(NSStringPboardType) : std::nullopt;
    if (!text) {
        NSBeep();
        return;
    }
    unmarkText();
    change(selectedRange(), *text, Kind::other, "Paste");
}

void NSTextView::insertNewline(NSObject*)
{
    if (isFieldEditor())
        endFieldEditing(NSReturnTextMovement);
    else
        insertNewlineIgnoringFieldEditor(nullptr);
}

void NSTextView::insertNewlineIgnoringFieldEditor(NSObject*)
{
    breakUndoCoalescing();
    insertText("\n");
    breakUndoCoalescing();
}

void NSTextView::insertLineBreak(NSObject*)
{
    insertNewlineIgnoringFieldEditor(nullptr);
}

void NSTextView::insertTab(NSObject*)
{
    if (isFieldEditor())
        endFieldEditing(NSTabTextMovement);
    else if (isEditable())
        insertText("\t");
    else if (Ref<NSWindow> const ownWindow = window())
        ownWindow->selectNextKeyView(this);
}

void NSTextView::insertTabIgnoringFieldEditor(NSObject*)
{
    insertText("\t");
}

void NSTextView::insertBacktab(NSObject*)
{
    if (isFieldEditor())
        endFieldEditing(NSBacktabTextMovement);
    else if (Ref<NSWindow> const ownWindow = window())
        ownWindow->selectPreviousKeyView(this);
}

void NSTextView::endFieldEditing(NSTextMovement movement)
{
    Ref<NSTextView> const protector(this);
    Ref<NSWindow> const ownWindow(window());
    if (!ownWindow)
        return;
    m_movement = movement;
    ownWindow->makeFirstResponder(nullptr);
    m_movement = NSOtherTextMovement;
}

void NSTextView::cancelOperation(NSObject*)
{
    if (hasMarkedText()) {
        removeMarkedText();
        return;
    }
    Ref<NSResponder> const next(nextResponder());
    if (!next)
        return;
    if (isFieldEditor())
        next->doCommandBySelector(Selector("cancelOperation:"));
    else if (auto* key = NSApp ? NSApp->currentEvent() : nullptr; key && key->type() == NSKeyDown)
        next->keyDown(*key);
}

void NSTextView::keyDown(NSEvent& event)
{
    Ref<NSTextView> const protector(this);
    auto const meaning = interpretationOfKey(event.modifierFlags(), event.characterIgnoringModifiers(), event.characters());
    if (meaning.commands.empty() && (meaning.text.empty() || !isEditable())) {
        // A dead key enters nothing by itself.
        bool const isPartOfText = isEditable() && event.characters().empty() && !event.hasShortcutModifier();
        if (!isPartOfText)
            Base::keyDown(event);
        return;
    }
    if (isEditable())
        NSCursor::setHiddenUntilMouseMoves(true);
    interpretKeyEvents({ Ref<NSEvent>(event) });
}

void NSTextView::doCommandBySelector(Selector command)
{
    Ref<NSTextView> const protector(this);
    if (m_hooks.textViewDoCommandBySelector && m_hooks.textViewDoCommandBySelector(*this, command))
        return;
    Base::doCommandBySelector(command);
}

// MARK: input methods

NSRange NSTextView::markedRange() const
{
    // The text may have been edited by anybody.
    return m_marked ? rangeWithin(m_marked->range, length()) : NSRange { NSNotFound, 0 };
}

// Shown, but not entered yet: nobody is asked, and there is nothing to undo.
bool NSTextView::setMarkedText(std::string_view text, NSRange selected)
{
    if (!isEditable())
        return false;
    Ref<NSTextView> const protector(this);
    if (text.empty()) {
        removeMarkedText();
        return true;
    }
    auto const shown = acceptedText(text);
    auto attributes = m_typingAttributes;
    attributes[NSUnderlineStyleAttributeName] = static_cast<int>(NSUnderlineStyleSingle);
    auto const marked = make<NSAttributedString>(shown, attributes);
    auto const range = m_marked ? markedRange() : selectedRange();
    if (!m_marked)
        m_marked = Marked { range, m_storage->attributedSubstringFromRange(range) };
    m_marked->range = { range.location, marked->length() };
    long const caret = range.location + std::clamp(selected.location, 0L, marked->length());
    replace(range, *marked, { caret, std::clamp(selected.length, 0L, range.location + marked->length() - caret) });
    updateTextInput();
    return true;
}

void NSTextView::removeMarkedText()
{
    if (!m_marked)
        return;
    auto const range = markedRange();
    auto const replaced = std::move(m_marked->replaced);
    m_marked.reset();
    replace(range, *replaced, { range.location, replaced->length() });
}

void NSTextView::unmarkText()
{
    if (!m_marked)
        return;
    auto const text = m_storage->attributedSubstringFromRange(markedRange())->string();
    insertText(text);
}

}

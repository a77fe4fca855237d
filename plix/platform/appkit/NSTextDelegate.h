#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/base/NSRange.h>
#include <plix/platform/base/Selector.h>

#include <string_view>

namespace plix {

class NSTextView;

/// What a text asks and tells its delegate.
struct NSTextDelegate {
    /// Asked before the first change after the text got the keyboard; false leaves the text as it is.
    Hook<bool(NSText&)> textShouldBeginEditing;
    /// Asked before the text gives the keyboard away; false keeps it.
    Hook<bool(NSText&)> textShouldEndEditing;
    Hook<void(NSNotification const&)> textDidBeginEditing;
    Hook<void(NSNotification const&)> textDidEndEditing;
    Hook<void(NSNotification const&)> textDidChange;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(textShouldBeginEditing);
        PLIX_FILL_HOOK(textShouldEndEditing);
        PLIX_FILL_HOOK(textDidBeginEditing);
        PLIX_FILL_HOOK(textDidEndEditing);
        PLIX_FILL_HOOK(textDidChange);
    }
};

/// What a text view asks beyond that.
struct NSTextViewDelegate : NSTextDelegate {
    /// Asked before each change, those of undo and redo too: what is replaced, in UTF-16 units, and by what. False refuses.
    Hook<bool(NSTextView&, NSRange, std::string_view replacement)> shouldChangeTextInRange;
    /// Offered each command of the keyboard first; true where that was all.
    Hook<bool(NSTextView&, Selector)> textViewDoCommandBySelector;
    /// Answers the selection to have instead of the wanted one.
    Hook<NSRange(NSTextView&, NSRange before, NSRange wanted)> willChangeSelectionFromCharacterRange;
    Hook<void(NSNotification const&)> textViewDidChangeSelection;
    /// Null for that of the responder chain.
    Hook<NSUndoManager*(NSTextView&)> undoManagerForTextView;

    template <typename Host> void fillFrom(Host& host)
    {
        NSTextDelegate::fillFrom(host);
        PLIX_FILL_HOOK(shouldChangeTextInRange);
        PLIX_FILL_HOOK(textViewDoCommandBySelector);
        PLIX_FILL_HOOK(willChangeSelectionFromCharacterRange);
        PLIX_FILL_HOOK(textViewDidChangeSelection);
        PLIX_FILL_HOOK(undoManagerForTextView);
    }
};

}

#pragma once

#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/graphics/NSLayoutManager.h>
#include <plix/platform/graphics/NSTextStorage.h>
#include <plix/platform/graphics/TextLayout.h>

// Private to the sources of NSTextView.

namespace plix {

/// Tells its view of every edit, whoever makes it.
class NSTextView::Layout final : public NSLayoutManager {
    PLIX_CLASS(Layout, NSLayoutManager);

public:
    void textStorageEdited(NSRange range, long changeInLength) override
    {
        Base::textStorageEdited(range, changeInLength);
        if (auto* const told = view.get())
            told->textEdited(range, changeInLength);
    }
    Weak<NSTextView> view;
};

/// How a change is taken back: what stands there now gives way to what was there before.
struct NSTextView::Change {
    NSRange range;
    Ref<NSAttributedString> before;
    NSRange selectionBefore;
    Kind kind { Kind::other };
};

void describeMovements(ClassDescription<NSTextView>&);
void describeExtensions(ClassDescription<NSTextView>&);
void describeEditing(ClassDescription<NSTextView>&);

}

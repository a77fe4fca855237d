#pragma once

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/base/HookSource.h>
#include <plix/platform/base/NSRange.h>
#include <plix/platform/graphics/NSParagraphStyle.h>

#include <string>
#include <string_view>

namespace plix {

/// What ended an edit, under "NSTextMovement" in the user info of NSTextDidEndEditingNotification.
enum NSTextMovement : int {
    NSOtherTextMovement = 0,
    NSIllegalTextMovement = 0,
    NSReturnTextMovement = 0x10,
    NSTabTextMovement = 0x11,
    NSBacktabTextMovement = 0x12,
    NSLeftTextMovement = 0x13,
    NSRightTextMovement = 0x14,
    NSUpTextMovement = 0x15,
    NSDownTextMovement = 0x16,
    NSCancelTextMovement = 0x17,
};

/// A view of text that can be selected and edited. Abstract: NSTextView is one. Positions and lengths count UTF-16 units.
class PLIX_EXPORT NSText : public NSView {
    PLIX_CLASS(NSText, NSView);

public:
    NSText();
    ~NSText() override;

    /// Valid UTF-8, also what an input method shows and has not entered yet.
    virtual std::string const& string() const = 0;
    /// Replaces everything without asking anybody, in the typing attributes; what was there can't be undone any more. The selection
    /// ends up at the end.
    virtual void setString(std::string_view) = 0;
    /// Likewise without asking. Raises NSRangeException for a range outside the text.
    virtual void replaceCharactersInRange(NSRange, std::string_view) = 0;
    virtual long length() const = 0;

    virtual NSRange selectedRange() const = 0;
    /// Cut to the text, and to whole characters.
    virtual void setSelectedRange(NSRange) = 0;
    virtual void scrollRangeToVisible(NSRange) = 0;
    virtual void selectAll(NSObject* sender) = 0;

    bool isEditable() const { return m_isEditable; }
    /// Editable text is selectable.
    virtual void setEditable(bool);
    bool isSelectable() const { return m_isSelectable; }
    /// Text that is not selectable is not editable either.
    virtual void setSelectable(bool);
    /// Whether Return, Tab and the like end the edit, as in a field, instead of entering characters.
    bool isFieldEditor() const { return m_isFieldEditor; }
    virtual void setFieldEditor(bool);

    // Looks.
    bool drawsBackground() const { return m_drawsBackground; }
    virtual void setDrawsBackground(bool);
    NSColor* backgroundColor() const { return m_backgroundColor.get(); }
    virtual void setBackgroundColor(Ref<NSColor> const&);
    /// Of the whole text, and of what is typed from now on.
    virtual NSFont* font() const = 0;
    virtual void setFont(Ref<NSFont> const&) = 0;
    virtual NSColor* textColor() const = 0;
    virtual void setTextColor(Ref<NSColor> const&) = 0;
    virtual NSTextAlignment alignment() const = 0;
    virtual void setAlignment(NSTextAlignment) = 0;

    /// Takes the set of hooks that fits; NSTextView has the setDelegate() for it.
    virtual void takeHooks(HookSource const&);
    NSObject* delegate() const { return m_delegate.object(); }

private:
    HookSource m_delegate;
    Ref<NSColor> m_backgroundColor;
    bool m_isEditable { true };
    bool m_isSelectable { true };
    bool m_isFieldEditor { false };
    bool m_drawsBackground { true };
};

// Posted with the text as object, after the delegate was told.
inline constexpr char const* NSTextDidBeginEditingNotification = "NSTextDidBeginEditingNotification";
inline constexpr char const* NSTextDidEndEditingNotification = "NSTextDidEndEditingNotification";
inline constexpr char const* NSTextDidChangeNotification = "NSTextDidChangeNotification";

}

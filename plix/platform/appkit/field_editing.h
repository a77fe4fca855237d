#pragma once

#include <plix/platform/appkit/NSControlTextEditingDelegate.h>
#include <plix/platform/base/NSRange.h>

#include <string_view>

namespace plix {

class NSCell;
class NSText;

/// Takes the editor's text over as the cell's value where it differs from what the cell shows for editing; a text that the
/// formatter refuses, or that an input method has not entered yet, stays in the editor.
void takeEditedText(NSCell&, NSText& editor);

/// What controls do about an editor in one of their cells: fields and tables share it.
class FieldEditing {
public:
    FieldEditing(NSControl& control, NSCell& cell, NSControlTextEditingDelegate const& hooks)
        : m_control(control)
        , m_cell(cell)
        , m_hooks(hooks)
    {
    }

    bool mayBegin(NSText&) const;
    /// Asks the formatter, where the text was changed, and the delegate. Beeps and selects everything where the text is refused;
    /// takes a text over that the formatter refuses and the delegate lets pass.
    bool mayEnd(NSText&) const;
    /// Asks the formatter what it makes of the text as it would be; may replace it by what the formatter offers instead.
    bool mayChange(NSTextView&, NSRange, std::string_view replacement) const;
    /// True where the delegate took the command.
    bool takesCommand(NSTextView&, Selector) const;

    // The delegate first, then the observers.
    void tellBegin(NSText&) const;
    void tellChange(NSText&) const;
    void tellEnd(NSText&, int movement) const;

private:
    bool refuse(NSText&) const;
    void tell(char const* name, Hook<void(NSNotification const&)> const&, ObjectValue::Dictionary) const;

    NSControl& m_control;
    NSCell& m_cell;
    NSControlTextEditingDelegate const& m_hooks;
};

}

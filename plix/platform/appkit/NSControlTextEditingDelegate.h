#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Hook.h>
#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/Selector.h>

#include <string_view>

namespace plix {

class NSControl;
class NSTextView;

/// What a control that edits text asks and tells its delegate. The notifications' object is the control; "NSFieldEditor" in their
/// user info is the editor, "NSTextMovement" at the end what ended it.
struct NSControlTextEditingDelegate {
    /// Asked before the first change; false refuses it.
    Hook<bool(NSControl&, NSText&)> textShouldBeginEditing;
    /// Asked where the formatter has nothing against the text.
    Hook<bool(NSControl&, NSText&)> textShouldEndEditing;
    /// The formatter refuses the text. True takes it over as it is, false goes on editing.
    Hook<bool(NSControl&, std::string_view text, std::string_view error)> didFailToFormatString;
    /// The formatter refused what a person was typing.
    Hook<void(NSControl&, std::string_view text, std::string_view error)> didFailToValidatePartialString;
    /// False goes on editing.
    Hook<bool(NSControl&, ObjectValue const&)> isValidObject;
    /// Offered each command of the keyboard first; true where that was all.
    Hook<bool(NSControl&, NSTextView&, Selector)> controlDoCommandBySelector;
    Hook<void(NSNotification const&)> controlTextDidBeginEditing;
    Hook<void(NSNotification const&)> controlTextDidEndEditing;
    Hook<void(NSNotification const&)> controlTextDidChange;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(textShouldBeginEditing);
        PLIX_FILL_HOOK(textShouldEndEditing);
        PLIX_FILL_HOOK(didFailToFormatString);
        PLIX_FILL_HOOK(didFailToValidatePartialString);
        PLIX_FILL_HOOK(isValidObject);
        PLIX_FILL_HOOK(controlDoCommandBySelector);
        PLIX_FILL_HOOK(controlTextDidBeginEditing);
        PLIX_FILL_HOOK(controlTextDidEndEditing);
        PLIX_FILL_HOOK(controlTextDidChange);
    }
};

// Posted with the control as object.
inline constexpr char const* NSControlTextDidBeginEditingNotification = "NSControlTextDidBeginEditingNotification";
inline constexpr char const* NSControlTextDidEndEditingNotification = "NSControlTextDidEndEditingNotification";
inline constexpr char const* NSControlTextDidChangeNotification = "NSControlTextDidChangeNotification";

}

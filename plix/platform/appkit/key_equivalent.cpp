#include <plix/platform/appkit/key_equivalent.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/key_names.h>
#include <plix/platform/base/case_folding.h>

namespace plix {

bool isKeyEquivalent(NSEvent const& event, std::string_view key, unsigned modifierMask)
{
    if (key.empty() || event.type() != NSKeyDown)
        return false;
    unsigned const held = event.modifierFlags();
    if (hasShortcutModifier(modifierMask) != event.hasShortcutModifier()
        || (modifierMask & NSAlternateKeyMask) != (held & NSAlternateKeyMask))
        return false;
    bool const isShifted = (held & NSShiftKeyMask) != 0;
    if ((modifierMask & NSShiftKeyMask) && !isShifted)
        return false;
    auto const& typed = event.charactersIgnoringModifiers();
    auto const& entered = event.characters();
    if (key == "\r" && (typed == "\r" || typed == "\x03" || typed == "\n"))
        return true;
    if (typed == key || entered == key)
        return true;
    // With the shortcut modifier letters are the same in both cases, as far as Shift is held where it is asked for.
    bool const wantsShift = (modifierMask & NSShiftKeyMask) || isUpperCaseLetter(key);
    return wantsShift == isShifted && !typed.empty() && foldedPrefixLength(typed, key) == typed.size();
}

std::string keyEquivalentText(std::string_view key, unsigned modifierMask)
{
    return keyNameWithModifiers(key, modifierMask);
}

}

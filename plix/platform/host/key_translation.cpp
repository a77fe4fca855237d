#include <plix/platform/host/key_translation.h>

#include <plix/platform/base/utf16.h>
#include <plix/platform/host/HostEvent.h>
#include <plix/platform/host/control_character.h>

#include <algorithm>
#include <optional>

namespace plix {

namespace {

/// A key whose meaning does not depend on the layout.
struct FixedKey {
    std::uint16_t usage;
    char32_t character;
    std::uint32_t modifiers { 0 };
};

constexpr std::uint16_t s_tab = 0x2B;
constexpr char32_t s_backTab = 0x19;
constexpr auto s_function = static_cast<std::uint32_t>(HostModifierFunction);
constexpr auto s_pad = static_cast<std::uint32_t>(HostModifierNumericPad);
constexpr auto s_arrow = s_function | s_pad;

constexpr FixedKey s_fixedKeys[] = {
    { 0x28, U'\r' },
    { 0x29, 0x1B },
    { 0x2A, 0x7F },
    { s_tab, U'\t' },
    { 0x46, 0xF72E, s_function },
    { 0x47, 0xF72F, s_function },
    { 0x48, 0xF730, s_function },
    { 0x49, 0xF727, s_function },
    { 0x4A, 0xF729, s_function },
    { 0x4B, 0xF72C, s_function },
    { 0x4C, 0xF728, s_function },
    { 0x4D, 0xF72B, s_function },
    { 0x4E, 0xF72D, s_function },
    { 0x4F, 0xF703, s_arrow },
    { 0x50, 0xF702, s_arrow },
    { 0x51, 0xF701, s_arrow },
    { 0x52, 0xF700, s_arrow },
    { 0x53, 0xF739, s_pad },
    { 0x54, U'/', s_pad },
    { 0x55, U'*', s_pad },
    { 0x56, U'-', s_pad },
    { 0x57, U'+', s_pad },
    { 0x58, 0x03, s_pad },
    { 0x65, 0xF735, s_function },
    { 0x67, U'=', s_pad },
    { 0x74, 0xF742, s_function },
    { 0x75, 0xF746, s_function },
    { 0x76, 0xF735, s_function },
    { 0x77, 0xF741, s_function },
    { 0x78, 0xF734, s_function },
    { 0x79, 0xF744, s_function },
    { 0x7A, 0xF743, s_function },
};

/// The digits of the keypad and what they are while Num Lock is off.
struct PadKey {
    std::uint16_t usage;
    char32_t digit;
    char32_t movement;
};

constexpr PadKey s_padKeys[] = {
    { 0x59, U'1', 0xF72B },
    { 0x5A, U'2', 0xF701 },
    { 0x5B, U'3', 0xF72D },
    { 0x5C, U'4', 0xF702 },
    { 0x5D, U'5', 0xF72A },
    { 0x5E, U'6', 0xF703 },
    { 0x5F, U'7', 0xF729 },
    { 0x60, U'8', 0xF700 },
    { 0x61, U'9', 0xF72C },
    { 0x62, U'0', 0xF727 },
    { 0x63, U'.', 0xF728 },
};

struct ModifierKey {
    std::uint16_t usage;
    HostModifier modifier;
};

constexpr ModifierKey s_modifierKeys[] = {
    { 0x39, HostModifierCapsLock },
    { 0xE0, HostModifierControl },
    { 0xE1, HostModifierShift },
    { 0xE2, HostModifierAlternate },
    { 0xE3, HostModifierCommand },
    { 0xE4, HostModifierControl },
    { 0xE5, HostModifierShift },
    { 0xE6, HostModifierAlternate },
    { 0xE7, HostModifierCommand },
};

struct StateModifier {
    unsigned bit;
    HostModifier modifier;
};

constexpr StateModifier s_stateModifiers[] = {
    { 1U << 0, HostModifierShift },
    { 1U << 1, HostModifierCapsLock },
    { 1U << 2, HostModifierControl },
    { 1U << 3, HostModifierAlternate },
    { 1U << 6, HostModifierCommand },
};

constexpr unsigned s_firstButtonInState = 1U << 8;
constexpr unsigned s_lastButtonInState = 3;

std::optional<FixedKey> functionKey(std::uint16_t usage)
{
    if (usage >= 0x3A && usage <= 0x45)
        return FixedKey { usage, 0xF704U + (usage - 0x3AU), s_function };
    if (usage >= 0x68 && usage <= 0x73)
        return FixedKey { usage, 0xF710U + (usage - 0x68U), s_function };
    return {};
}

std::optional<FixedKey> fixedKey(KeyStroke const& stroke)
{
    auto const isShifted = (stroke.modifiers & HostModifierShift) != 0;
    if (stroke.usage == s_tab && isShifted)
        return FixedKey { s_tab, s_backTab };
    for (auto const& key : s_fixedKeys) {
        if (key.usage == stroke.usage)
            return key;
    }
    for (auto const& key : s_padKeys) {
        if (key.usage != stroke.usage)
            continue;
        if (stroke.isNumLockOn != isShifted)
            return FixedKey { key.usage, key.digit, s_pad };
        return FixedKey { key.usage, key.movement, s_arrow };
    }
    return functionKey(stroke.usage);
}

std::string text(char32_t character)
{
    std::string result;
    if (character != 0)
        appendUTF8(result, character);
    return result;
}

char32_t ownCharacter(KeyStroke const& stroke)
{
    auto const isLetter = (stroke.plain >= U'a' && stroke.plain <= U'z');
    auto const isCapsLocked = isLetter && (stroke.modifiers & HostModifierCapsLock) != 0;
    auto const isShifted = (stroke.modifiers & HostModifierShift) != 0;
    return isCapsLocked != isShifted ? stroke.shifted : stroke.plain;
}

}

KeyText keyText(KeyStroke const& stroke, std::string_view entered, EnteredText completeness)
{
    if (auto const key = fixedKey(stroke)) {
        auto const isPadCharacter = key->modifiers == s_pad && !entered.empty();
        auto const characters = isPadCharacter ? std::string(entered) : text(key->character);
        return { characters, characters, stroke.modifiers | key->modifiers };
    }
    KeyText result { std::string(entered), {}, stroke.modifiers };
    result.charactersIgnoringModifiers = text((stroke.modifiers & HostModifierShift) != 0 ? stroke.shifted : stroke.plain);
    if (!entered.empty())
        return result;
    if ((stroke.modifiers & HostModifierControl) != 0) {
        auto const control = controlCharacter(stroke.plain);
        auto const shiftedControl = control ? control : controlCharacter(stroke.shifted);
        result.characters = shiftedControl ? std::string(1, *shiftedControl) : text(ownCharacter(stroke));
        return result;
    }
    auto const isShortcut = (stroke.modifiers & (HostModifierCommand | HostModifierAlternate)) != 0;
    if (isShortcut || completeness == EnteredText::isMissing)
        result.characters = text(ownCharacter(stroke));
    return result;
}

std::uint32_t modifierOfUsage(std::uint16_t usage)
{
    auto const* const key = std::find_if(std::begin(s_modifierKeys), std::end(s_modifierKeys),
        [usage](ModifierKey const& candidate) { return candidate.usage == usage; });
    return key == std::end(s_modifierKeys) ? 0U : key->modifier;
}

std::uint32_t modifiersFromState(unsigned state)
{
    std::uint32_t modifiers = 0;
    for (auto const& [bit, modifier] : s_stateModifiers)
        modifiers |= (state & bit) != 0 ? static_cast<std::uint32_t>(modifier) : 0U;
    return modifiers;
}

std::uint32_t buttonsFromState(unsigned state)
{
    std::uint32_t buttons = 0;
    for (unsigned number = 1; number <= s_lastButtonInState; ++number) {
        if ((state & (s_firstButtonInState << (number - 1))) != 0)
            buttons |= 1U << buttonFromNumber(number);
    }
    return buttons;
}

int buttonFromNumber(unsigned number)
{
    if (number >= 4 && number <= 7)
        return -1;
    if (number == 2 || number == 3)
        return number == 2 ? 2 : 1;
    return static_cast<int>(number < 4 ? number - 1 : number - 5);
}

}

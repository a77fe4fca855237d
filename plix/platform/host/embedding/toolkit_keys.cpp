#include <plix/platform/host/embedding/toolkit_keys.h>

#include <plix/platform/host/HostEvent.h>
#include <plix/platform/host/key_translation.h>

#include <algorithm>
#include <iterator>

namespace plix {

namespace {

/// A keysym and the place of its key (HUT 1.22, chapter 10).
struct NamedKey {
    std::uint32_t keysym;
    std::uint16_t usage;
};

constexpr NamedKey s_namedKeys[] = {
    { 0xFF08, 0x2A }, // BackSpace
    { 0xFF09, 0x2B }, // Tab
    { 0xFE20, 0x2B }, // ISO_Left_Tab
    { 0xFF0D, 0x28 }, // Return
    { 0xFF13, 0x48 }, // Pause
    { 0xFF14, 0x47 }, // Scroll_Lock
    { 0xFF1B, 0x29 }, // Escape
    { 0xFF50, 0x4A }, // Home
    { 0xFF51, 0x50 },
    { 0xFF52, 0x52 },
    { 0xFF53, 0x4F },
    { 0xFF54, 0x51 },
    { 0xFF55, 0x4B }, // Page_Up
    { 0xFF56, 0x4E },
    { 0xFF57, 0x4D }, // End
    { 0xFF61, 0x46 }, // Print
    { 0xFF63, 0x49 }, // Insert
    { 0xFF65, 0x7A }, // Undo
    { 0xFF67, 0x76 }, // Menu
    { 0xFF6A, 0x75 }, // Help
    { 0xFFFF, 0x4C }, // Delete
    { 0xFF7F, 0x53 }, // Num_Lock
    { 0xFF8D, 0x58 }, // KP_Enter
    { 0xFF95, 0x5F }, // KP_Home
    { 0xFF96, 0x5C },
    { 0xFF97, 0x60 },
    { 0xFF98, 0x5E },
    { 0xFF99, 0x5A },
    { 0xFF9A, 0x61 },
    { 0xFF9B, 0x5B },
    { 0xFF9C, 0x59 },
    { 0xFF9D, 0x5D },
    { 0xFF9E, 0x62 },
    { 0xFF9F, 0x63 }, // KP_Delete
    { 0xFFAA, 0x55 }, // KP_Multiply
    { 0xFFAB, 0x57 },
    { 0xFFAC, 0x63 }, // KP_Separator
    { 0xFFAD, 0x56 },
    { 0xFFAE, 0x63 }, // KP_Decimal
    { 0xFFAF, 0x54 },
    { 0xFFB0, 0x62 }, // KP_0
    { 0xFFBD, 0x67 }, // KP_Equal
    { 0xFFE1, 0xE1 }, // Shift_L
    { 0xFFE2, 0xE5 },
    { 0xFFE3, 0xE0 }, // Control_L
    { 0xFFE4, 0xE4 },
    { 0xFFE5, 0x39 }, // Caps_Lock
    { 0xFFE7, 0xE2 }, // Meta_L, which is Shift-Alt
    { 0xFFE8, 0xE6 },
    { 0xFFE9, 0xE2 }, // Alt_L
    { 0xFFEA, 0xE6 },
    { 0xFFEB, 0xE3 }, // Super_L
    { 0xFFEC, 0xE7 },
};

constexpr std::uint32_t s_padDigit1 = 0xFFB1;
constexpr std::uint32_t s_padDigit9 = 0xFFB9;
constexpr std::uint32_t s_f1 = 0xFFBE;
constexpr std::uint32_t s_f12 = 0xFFC9;
constexpr std::uint32_t s_f24 = 0xFFD5;

std::uint16_t usageOf(std::uint32_t keysym)
{
    auto const from
        = [keysym](std::uint32_t first, std::uint32_t usage) { return static_cast<std::uint16_t>(usage + keysym - first); };
    if (keysym >= s_padDigit1 && keysym <= s_padDigit9)
        return from(s_padDigit1, 0x59);
    if (keysym >= s_f1 && keysym <= s_f12)
        return from(s_f1, 0x3A);
    if (keysym > s_f12 && keysym <= s_f24)
        return from(s_f12 + 1, 0x68);
    auto const* const key = std::ranges::find(s_namedKeys, keysym, &NamedKey::keysym);
    return key == std::end(s_namedKeys) ? std::uint16_t { 0 } : key->usage;
}

/// Digits and the decimal separator, which the keypad has while Num Lock is on.
bool isPadCharacter(std::uint32_t keysym)
{
    return keysym >= 0xFFAC && keysym <= s_padDigit9;
}

bool isText(std::string const& text)
{
    return !text.empty() && static_cast<unsigned char>(text.front()) >= 0x20 && text != "\x7F";
}

std::uint32_t modifiersAfter(ToolkitKey const& key, std::uint32_t modifier, bool isDown)
{
    // A lock is in the state already, or will be when the key is released; which of them the toolkit says with the next key.
    if (modifier == HostModifierCapsLock)
        return isDown ? key.modifiers ^ modifier : key.modifiers;
    return isDown ? key.modifiers | modifier : key.modifiers & ~modifier;
}

}

void applyKey(ToolkitKey const& key, HostEvent& event)
{
    bool const isDown = event.type == HostEvent::Type::keyDown;
    event.keyCode = key.keyCode;
    event.isRepeat = key.isRepeat;
    KeyStroke stroke { usageOf(key.keysym), key.character, key.character, key.modifiers, false };
    if (auto const modifier = modifierOfUsage(stroke.usage)) {
        event.type = HostEvent::Type::modifiersChanged;
        event.modifiers = modifiersAfter(key, modifier, isDown);
        return;
    }
    bool const isShifted = (key.modifiers & HostModifierShift) != 0;
    stroke.isNumLockOn = isPadCharacter(key.keysym) != isShifted;
    bool const hasText = isDown && isText(key.text);
    auto const meaning = keyText(stroke, hasText ? key.text : std::string(), EnteredText::isMissing);
    event.characters = meaning.characters;
    event.charactersIgnoringModifiers = meaning.charactersIgnoringModifiers;
    event.modifiers = meaning.modifiers;
}

std::uint32_t modifiersOfToolkitState(unsigned state)
{
    // GDK's own bits for Super, Hyper and Meta lie above those of the keyboard.
    constexpr unsigned superBit = 1U << 26;
    return modifiersFromState(state) | ((state & superBit) != 0 ? static_cast<std::uint32_t>(HostModifierCommand) : 0U);
}

}

#include <plix/platform/appkit/key_names.h>

#include <plix/platform/appkit/event_constants.h>
#include <plix/platform/base/case_folding.h>
#include <plix/platform/base/utf16.h>

#include <algorithm>
#include <array>

namespace plix {

namespace {

struct KeyName {
    char32_t key;
    std::string_view name;
};

constexpr std::array names {
    KeyName { NSCarriageReturnCharacter, "Return" },
    KeyName { NSEnterCharacter, "Enter" },
    KeyName { NSTabCharacter, "Tab" },
    KeyName { NSEscapeCharacter, "Esc" },
    KeyName { U' ', "Space" },
    KeyName { NSBackspaceCharacter, "Backspace" },
    KeyName { NSDeleteCharacter, "Backspace" },
    KeyName { NSDeleteFunctionKey, "Del" },
    KeyName { NSInsertFunctionKey, "Ins" },
    KeyName { NSHomeFunctionKey, "Home" },
    KeyName { NSEndFunctionKey, "End" },
    KeyName { NSPageUpFunctionKey, "PgUp" },
    KeyName { NSPageDownFunctionKey, "PgDn" },
    KeyName { NSUpArrowFunctionKey, "Up" },
    KeyName { NSDownArrowFunctionKey, "Down" },
    KeyName { NSLeftArrowFunctionKey, "Left" },
    KeyName { NSRightArrowFunctionKey, "Right" },
};

constexpr char32_t firstFunctionKey = 0xF704;
constexpr char32_t lastFunctionKey = firstFunctionKey + 34;

}

bool isUpperCaseLetter(std::string_view key)
{
    std::size_t byte = 0;
    if (key.empty())
        return false;
    char32_t const character = decodeUTF8(key, byte);
    return byte == key.size() && caseFolded(character) != character;
}

std::string keyNameWithModifiers(std::string_view key, unsigned modifierMask)
{
    if (key.empty())
        return {};
    std::string text;
    if (hasShortcutModifier(modifierMask))
        text += "Ctrl+";
    if (modifierMask & NSAlternateKeyMask)
        text += "Alt+";
    if ((modifierMask & NSShiftKeyMask) || isUpperCaseLetter(key))
        text += "Shift+";
    std::size_t byte = 0;
    char32_t const character = decodeUTF8(key, byte);
    auto const named = std::ranges::find(names, character, &KeyName::key);
    if (named != names.end())
        return text.append(named->name);
    if (character >= firstFunctionKey && character <= lastFunctionKey)
        return text + "F" + std::to_string(character - firstFunctionKey + 1);
    if (key.size() == 1 && key[0] >= 'a' && key[0] <= 'z')
        return text + static_cast<char>(key[0] - 'a' + 'A');
    return text.append(key);
}

}

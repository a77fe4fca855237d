#include <plix/platform/host/HostEvent.h>
#include <plix/platform/host/key_translation.h>

#include <plix/platform/base/utf16.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

constexpr std::uint32_t s_pad = HostModifierNumericPad;
constexpr std::uint32_t s_function = HostModifierFunction;
constexpr std::uint32_t s_arrow = s_pad | s_function;

std::string utf8(char32_t character)
{
    std::string text;
    appendUTF8(text, character);
    return text;
}

TEST(KeyTranslation, GivesFunctionKeysTheirPrivateCharacters)
{
    struct Row {
        char const* key;
        std::uint16_t usage;
        char32_t character;
        std::uint32_t modifiers;
    };
    Row const rows[] = {
        { "Return", 0x28, U'\r', 0 },
        { "Escape", 0x29, 0x1B, 0 },
        { "Backspace", 0x2A, 0x7F, 0 },
        { "Tab", 0x2B, U'\t', 0 },
        { "F1", 0x3A, 0xF704, s_function },
        { "F5", 0x3E, 0xF708, s_function },
        { "F12", 0x45, 0xF70F, s_function },
        { "F13", 0x68, 0xF710, s_function },
        { "F24", 0x73, 0xF71B, s_function },
        { "Print", 0x46, 0xF72E, s_function },
        { "Scroll Lock", 0x47, 0xF72F, s_function },
        { "Pause", 0x48, 0xF730, s_function },
        { "Insert", 0x49, 0xF727, s_function },
        { "Home", 0x4A, 0xF729, s_function },
        { "Page Up", 0x4B, 0xF72C, s_function },
        { "Delete", 0x4C, 0xF728, s_function },
        { "End", 0x4D, 0xF72B, s_function },
        { "Page Down", 0x4E, 0xF72D, s_function },
        { "Right", 0x4F, 0xF703, s_arrow },
        { "Left", 0x50, 0xF702, s_arrow },
        { "Down", 0x51, 0xF701, s_arrow },
        { "Up", 0x52, 0xF700, s_arrow },
        { "Num Lock", 0x53, 0xF739, s_pad },
        { "keypad /", 0x54, U'/', s_pad },
        { "keypad *", 0x55, U'*', s_pad },
        { "keypad -", 0x56, U'-', s_pad },
        { "keypad +", 0x57, U'+', s_pad },
        { "keypad Enter", 0x58, 0x03, s_pad },
        { "keypad =", 0x67, U'=', s_pad },
        { "Menu", 0x65, 0xF735, s_function },
        { "Execute", 0x74, 0xF742, s_function },
        { "Help", 0x75, 0xF746, s_function },
        { "Select", 0x77, 0xF741, s_function },
        { "Stop", 0x78, 0xF734, s_function },
        { "Again", 0x79, 0xF744, s_function },
        { "Undo", 0x7A, 0xF743, s_function },
    };
    for (auto const& row : rows) {
        KeyText const expected { utf8(row.character), utf8(row.character), row.modifiers };
        EXPECT_EQ(keyText({ row.usage, 0, 0, 0, false }, {}, EnteredText::isComplete), expected) << row.key;
    }
}

TEST(KeyTranslation, ShiftTabIsAnotherCharacter)
{
    auto const text = keyText({ 0x2B, 0, 0, HostModifierShift, false }, {}, EnteredText::isComplete);
    EXPECT_EQ(text, (KeyText { "\x19", "\x19", HostModifierShift }));
}

TEST(KeyTranslation, TheKeypadFollowsNumLock)
{
    struct Row {
        std::uint16_t usage;
        char digit;
        char32_t movement;
    };
    Row const rows[] = {
        { 0x59, '1', 0xF72B },
        { 0x5A, '2', 0xF701 },
        { 0x5B, '3', 0xF72D },
        { 0x5C, '4', 0xF702 },
        { 0x5D, '5', 0xF72A },
        { 0x5E, '6', 0xF703 },
        { 0x5F, '7', 0xF729 },
        { 0x60, '8', 0xF700 },
        { 0x61, '9', 0xF72C },
        { 0x62, '0', 0xF727 },
        { 0x63, '.', 0xF728 },
    };
    for (auto const& row : rows) {
        auto const digit = std::string(1, row.digit);
        auto const movement = utf8(row.movement);
        auto const shift = HostModifierShift;
        EXPECT_EQ(keyText({ row.usage, 0, 0, 0, true }, digit, EnteredText::isComplete), (KeyText { digit, digit, s_pad }));
        EXPECT_EQ(keyText({ row.usage, 0, 0, 0, false }, {}, EnteredText::isComplete), (KeyText { movement, movement, s_arrow }));
        EXPECT_EQ(keyText({ row.usage, 0, 0, shift, true }, {}, EnteredText::isComplete),
            (KeyText { movement, movement, s_arrow | shift }));
        EXPECT_EQ(
            keyText({ row.usage, 0, 0, shift, false }, digit, EnteredText::isComplete), (KeyText { digit, digit, s_pad | shift }));
    }
}

TEST(KeyTranslation, TheKeypadsPointIsTheLayouts)
{
    EXPECT_EQ(keyText({ 0x63, 0, 0, 0, true }, ",", EnteredText::isComplete).characters, ",");
}

struct LetterRow {
    char const* what;
    std::uint32_t modifiers;
    std::string entered;
    EnteredText completeness;
    std::string characters;
    std::string ignoringModifiers;
};

TEST(KeyTranslation, LettersFollowModifiers)
{
    auto const complete = EnteredText::isComplete;
    auto const missing = EnteredText::isMissing;
    LetterRow const rows[] = {
        { "plain", 0, "q", complete, "q", "q" },
        { "shift", HostModifierShift, "Q", complete, "Q", "Q" },
        { "caps lock", HostModifierCapsLock, "Q", complete, "Q", "q" },
        { "a third level", HostModifierAlternate, "@", complete, "@", "q" },
        { "no text came", 0, "", complete, "", "q" },
        { "control", HostModifierControl, "", complete, "\x11", "q" },
        { "control and shift", HostModifierControl | HostModifierShift, "", complete, "\x11", "Q" },
        { "alternate without text", HostModifierAlternate, "", complete, "q", "q" },
        { "command", HostModifierCommand, "", complete, "q", "q" },
        { "command and shift", HostModifierCommand | HostModifierShift, "", complete, "Q", "Q" },
        { "text is not sent", 0, "", missing, "q", "q" },
        { "text is not sent, shift", HostModifierShift, "", missing, "Q", "Q" },
        { "text is not sent, caps lock", HostModifierCapsLock, "", missing, "Q", "q" },
        { "text is not sent, caps lock and shift", HostModifierCapsLock | HostModifierShift, "", missing, "q", "Q" },
    };
    for (auto const& row : rows) {
        auto const text = keyText({ 0x14, U'q', U'Q', row.modifiers, false }, row.entered, row.completeness);
        EXPECT_EQ(text, (KeyText { row.characters, row.ignoringModifiers, row.modifiers })) << row.what;
    }
}

TEST(KeyTranslation, CapsLockLeavesDigitsAlone)
{
    EXPECT_EQ(keyText({ 0x1E, U'1', U'!', HostModifierCapsLock, false }, {}, EnteredText::isMissing).characters, "1");
}

TEST(KeyTranslation, ControlMakesTheControlCharacters)
{
    struct Row {
        char32_t plain;
        char32_t shifted;
        std::string characters;
    };
    Row const rows[] = {
        { U'a', U'A', "\x01" },
        { U'z', U'Z', "\x1A" },
        { U'[', U'{', "\x1B" },
        { U'\\', U'|', "\x1C" },
        { U']', U'}', "\x1D" },
        { U'6', U'^', "\x1E" },
        { U'-', U'_', "\x1F" },
        { U'2', U'@', std::string(1, '\0') },
        { U' ', U' ', std::string(1, '\0') },
        { U'1', U'!', "1" },
        { 0xE9, 0xC9, utf8(0xE9) },
    };
    for (auto const& row : rows)
        EXPECT_EQ(keyText({ 0x14, row.plain, row.shifted, HostModifierControl, false }, {}, EnteredText::isComplete).characters,
            row.characters);
}

TEST(KeyTranslation, ADeadKeyEntersNothing)
{
    EXPECT_EQ(keyText({ 0x34, 0, 0, 0, false }, {}, EnteredText::isComplete), (KeyText { "", "", 0 }));
    EXPECT_EQ(keyText({ 0x34, 0, 0, 0, false }, {}, EnteredText::isMissing), (KeyText { "", "", 0 }));
}

TEST(KeyTranslation, KnowsTheModifierKeys)
{
    EXPECT_EQ(modifierOfUsage(0x39), HostModifierCapsLock);
    EXPECT_EQ(modifierOfUsage(0xE0), HostModifierControl);
    EXPECT_EQ(modifierOfUsage(0xE1), HostModifierShift);
    EXPECT_EQ(modifierOfUsage(0xE2), HostModifierAlternate);
    EXPECT_EQ(modifierOfUsage(0xE3), HostModifierCommand);
    EXPECT_EQ(modifierOfUsage(0xE4), HostModifierControl);
    EXPECT_EQ(modifierOfUsage(0xE5), HostModifierShift);
    EXPECT_EQ(modifierOfUsage(0xE6), HostModifierAlternate);
    EXPECT_EQ(modifierOfUsage(0xE7), HostModifierCommand);
    EXPECT_EQ(modifierOfUsage(0x04), 0U);
    EXPECT_EQ(modifierOfUsage(0xE8), 0U);
}

TEST(KeyTranslation, ReadsTheStateOfKeysAndButtons)
{
    EXPECT_EQ(modifiersFromState(0), 0U);
    EXPECT_EQ(modifiersFromState(1 << 0), HostModifierShift);
    EXPECT_EQ(modifiersFromState(1 << 1), HostModifierCapsLock);
    EXPECT_EQ(modifiersFromState(1 << 2 | 1 << 3), HostModifierControl | HostModifierAlternate);
    EXPECT_EQ(modifiersFromState(1 << 4), 0U);
    EXPECT_EQ(modifiersFromState(1 << 6), HostModifierCommand);
    EXPECT_EQ(buttonsFromState(0xFF), 0U);
    EXPECT_EQ(buttonsFromState(1 << 8), 1U);
    EXPECT_EQ(buttonsFromState(1 << 9), 4U);
    EXPECT_EQ(buttonsFromState(1 << 10), 2U);
    EXPECT_EQ(buttonsFromState(1 << 11), 0U);
}

TEST(KeyTranslation, NumbersButtonsAsThePlatformDoes)
{
    int const numbers[] = { 0, 2, 1, -1, -1, -1, -1, 3, 4, 5 };
    for (unsigned button = 1; button <= std::size(numbers); ++button)
        EXPECT_EQ(buttonFromNumber(button), numbers[button - 1]) << button;
}

}
}

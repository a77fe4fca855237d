#include <plix/platform/host/embedding/toolkit_keys.h>

#include <plix/platform/base/utf16.h>
#include <plix/platform/host/HostEvent.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

constexpr std::uint32_t s_pad = HostModifierNumericPad;
constexpr std::uint32_t s_function = HostModifierFunction;
constexpr std::uint32_t s_arrow = s_pad | s_function;
constexpr std::uint32_t s_shift = HostModifierShift;
constexpr std::uint32_t s_control = HostModifierControl;

std::string utf8(char32_t character)
{
    std::string text;
    appendUTF8(text, character);
    return text;
}

HostEvent eventOf(ToolkitKey const& key, HostEvent::Type type = HostEvent::Type::keyDown)
{
    HostEvent event;
    event.type = type;
    applyKey(key, event);
    return event;
}

TEST(ToolkitKeys, KeysThatEnterNothingHaveTheirPrivateCharacters)
{
    struct Row {
        char const* key;
        std::uint32_t keysym;
        char32_t character;
        std::uint32_t modifiers;
    };
    Row const rows[] = {
        { "BackSpace", 0xFF08, 0x7F, 0 },
        { "Tab", 0xFF09, U'\t', 0 },
        { "Return", 0xFF0D, U'\r', 0 },
        { "Escape", 0xFF1B, 0x1B, 0 },
        { "Pause", 0xFF13, 0xF730, s_function },
        { "Scroll_Lock", 0xFF14, 0xF72F, s_function },
        { "Home", 0xFF50, 0xF729, s_function },
        { "Left", 0xFF51, 0xF702, s_arrow },
        { "Up", 0xFF52, 0xF700, s_arrow },
        { "Right", 0xFF53, 0xF703, s_arrow },
        { "Down", 0xFF54, 0xF701, s_arrow },
        { "Page_Up", 0xFF55, 0xF72C, s_function },
        { "Page_Down", 0xFF56, 0xF72D, s_function },
        { "End", 0xFF57, 0xF72B, s_function },
        { "Print", 0xFF61, 0xF72E, s_function },
        { "Insert", 0xFF63, 0xF727, s_function },
        { "Undo", 0xFF65, 0xF743, s_function },
        { "Menu", 0xFF67, 0xF735, s_function },
        { "Help", 0xFF6A, 0xF746, s_function },
        { "Delete", 0xFFFF, 0xF728, s_function },
        { "Num_Lock", 0xFF7F, 0xF739, s_pad },
        { "KP_Enter", 0xFF8D, 0x03, s_pad },
        { "KP_Home", 0xFF95, 0xF729, s_arrow },
        { "KP_Left", 0xFF96, 0xF702, s_arrow },
        { "KP_Up", 0xFF97, 0xF700, s_arrow },
        { "KP_Right", 0xFF98, 0xF703, s_arrow },
        { "KP_Down", 0xFF99, 0xF701, s_arrow },
        { "KP_Page_Up", 0xFF9A, 0xF72C, s_arrow },
        { "KP_Page_Down", 0xFF9B, 0xF72D, s_arrow },
        { "KP_End", 0xFF9C, 0xF72B, s_arrow },
        { "KP_Begin", 0xFF9D, 0xF72A, s_arrow },
        { "KP_Insert", 0xFF9E, 0xF727, s_arrow },
        { "KP_Delete", 0xFF9F, 0xF728, s_arrow },
        { "KP_Multiply", 0xFFAA, U'*', s_pad },
        { "KP_Add", 0xFFAB, U'+', s_pad },
        { "KP_Subtract", 0xFFAD, U'-', s_pad },
        { "KP_Decimal", 0xFFAE, U'.', s_pad },
        { "KP_Divide", 0xFFAF, U'/', s_pad },
        { "KP_0", 0xFFB0, U'0', s_pad },
        { "KP_1", 0xFFB1, U'1', s_pad },
        { "KP_5", 0xFFB5, U'5', s_pad },
        { "KP_9", 0xFFB9, U'9', s_pad },
        { "KP_Equal", 0xFFBD, U'=', s_pad },
        { "F1", 0xFFBE, 0xF704, s_function },
        { "F12", 0xFFC9, 0xF70F, s_function },
        { "F13", 0xFFCA, 0xF710, s_function },
        { "F24", 0xFFD5, 0xF71B, s_function },
    };
    for (auto const& [key, keysym, character, modifiers] : rows) {
        auto const event = eventOf({ .keysym = keysym, .keyCode = 7 });
        EXPECT_EQ(event.characters, utf8(character)) << key;
        EXPECT_EQ(event.charactersIgnoringModifiers, utf8(character)) << key;
        EXPECT_EQ(event.modifiers, modifiers) << key;
        EXPECT_EQ(event.keyCode, 7) << key;
    }
}

TEST(ToolkitKeys, TabWithShiftIsItsOwnCharacter)
{
    // Toolkits send ISO_Left_Tab for it, or Tab.
    for (auto const keysym : { 0xFE20U, 0xFF09U })
        EXPECT_EQ(eventOf({ .keysym = keysym, .modifiers = s_shift }).characters, "\x19");
}

TEST(ToolkitKeys, CharactersComeWithAndWithoutModifiers)
{
    struct Row {
        char const* what;
        ToolkitKey key;
        std::string characters;
        std::string ignoringModifiers;
    };
    Row const rows[] = {
        { "a letter", { 'a', U'a', "a" }, "a", "a" },
        { "a capital", { 'A', U'A', "A", s_shift }, "A", "A" },
        { "Control makes a control character, whatever the toolkit says", { 'c', U'c', "\x03", s_control }, "\x03", "c" },
        { "also with Shift", { 'C', U'C', "\x03", s_control | s_shift }, "\x03", "C" },
        { "Control and a digit", { '1', U'1', "", s_control }, "1", "1" },
        { "Alt enters the letter", { 'a', U'a', "a", HostModifierAlternate }, "a", "a" },
        { "a toolkit that says no text", { 'x', U'x', "", 0 }, "x", "x" },
        { "the group of Greek", { 0x7E1, U'α', "α" }, "α", "α" },
        { "what an accent was put on", { 'e', U'e', "é" }, "é", "e" },
        { "a dead key", { 0xFE51, 0, "" }, "", "" },
        { "Escape, which some give as text", { 0xFF1B, 0x1B, "\x1B" }, "\x1B", "\x1B" },
        { "Delete's text is none", { 0xFFFF, 0x7F, "\x7F" }, utf8(0xF728), utf8(0xF728) },
        { "the separator of the layout", { 0xFFAE, U',', "," }, ",", "," },
    };
    for (auto const& [what, key, characters, ignoringModifiers] : rows) {
        auto const event = eventOf(key);
        EXPECT_EQ(event.characters, characters) << what;
        EXPECT_EQ(event.charactersIgnoringModifiers, ignoringModifiers) << what;
    }
}

TEST(ToolkitKeys, AReleaseHasTheKeysOwnCharacter)
{
    auto const event = eventOf({ .keysym = 'a', .character = U'a', .text = "x" }, HostEvent::Type::keyUp);
    EXPECT_EQ(event.type, HostEvent::Type::keyUp);
    EXPECT_EQ(event.characters, "a");
}

TEST(ToolkitKeys, ModifierKeysTellTheModifiersAfterThem)
{
    struct Row {
        std::uint32_t keysym;
        std::uint32_t modifier;
    };
    Row const rows[] = {
        { 0xFFE1, HostModifierShift },
        { 0xFFE2, HostModifierShift },
        { 0xFFE3, HostModifierControl },
        { 0xFFE4, HostModifierControl },
        { 0xFFE7, HostModifierAlternate },
        { 0xFFE8, HostModifierAlternate },
        { 0xFFE9, HostModifierAlternate },
        { 0xFFEA, HostModifierAlternate },
        { 0xFFEB, HostModifierCommand },
        { 0xFFEC, HostModifierCommand },
    };
    constexpr std::uint32_t held = HostModifierCapsLock;
    for (auto const& [keysym, modifier] : rows) {
        auto const pressed = eventOf({ .keysym = keysym, .modifiers = held });
        EXPECT_EQ(pressed.type, HostEvent::Type::modifiersChanged) << keysym;
        EXPECT_EQ(pressed.modifiers, held | modifier) << keysym;
        auto const released = eventOf({ .keysym = keysym, .modifiers = held | modifier }, HostEvent::Type::keyUp);
        EXPECT_EQ(released.type, HostEvent::Type::modifiersChanged) << keysym;
        EXPECT_EQ(released.modifiers, held) << keysym;
    }
}

TEST(ToolkitKeys, CapsLockTurnsOnAndOff)
{
    constexpr std::uint32_t capsLock = 0xFFE5;
    EXPECT_EQ(eventOf({ .keysym = capsLock }).modifiers, HostModifierCapsLock);
    EXPECT_EQ(eventOf({ .keysym = capsLock, .modifiers = HostModifierCapsLock }).modifiers, 0U);
}

TEST(ToolkitKeys, ReadsTheStateOfTheKeyboard)
{
    EXPECT_EQ(modifiersOfToolkitState(1U << 0), HostModifierShift);
    EXPECT_EQ(modifiersOfToolkitState(1U << 1), HostModifierCapsLock);
    EXPECT_EQ(modifiersOfToolkitState(1U << 2), HostModifierControl);
    EXPECT_EQ(modifiersOfToolkitState(1U << 3), HostModifierAlternate);
    EXPECT_EQ(modifiersOfToolkitState(1U << 26), HostModifierCommand);
    EXPECT_EQ(modifiersOfToolkitState(1U << 6 | 1U << 8), HostModifierCommand);
    EXPECT_EQ(modifiersOfToolkitState(1U << 4), 0U);
}

}
}

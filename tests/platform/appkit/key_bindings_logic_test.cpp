#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/key_bindings.h>
#include <plix/platform/base/utf16.h>

#include <gtest/gtest.h>

#include <set>
#include <tuple>

namespace plix {
namespace {

TEST(KeyBindings, KeysStandForCommandsTextOrNothing)
{
    struct Row {
        unsigned modifiers;
        char32_t key;
        char const* characters;
        char const* command;
        char const* text;
    };
    constexpr Row rows[] = {
        { 0, NSLeftArrowFunctionKey, "", "moveLeft:", "" },
        { NSFunctionKeyMask | NSNumericPadKeyMask, NSLeftArrowFunctionKey, "", "moveLeft:", "" },
        { NSShiftKeyMask, NSLeftArrowFunctionKey, "", "moveLeftAndModifySelection:", "" },
        { NSControlKeyMask, NSRightArrowFunctionKey, "", "moveWordRight:", "" },
        { 0, NSCarriageReturnCharacter, "\r", "insertNewline:", "" },
        { 0, NSEnterCharacter, "\x03", "insertNewline:", "" },
        { 0, NSTabCharacter, "\t", "insertTab:", "" },
        { NSShiftKeyMask, NSBackTabCharacter, "\x19", "insertBacktab:", "" },
        { 0, NSEscapeCharacter, "\x1B", "cancelOperation:", "" },
        { 0, NSDeleteCharacter, "\x7F", "deleteBackward:", "" },
        { 0, NSDeleteFunctionKey, "", "deleteForward:", "" },
        { NSControlKeyMask, U'c', "\x03", "copy:", "" },
        { NSCommandKeyMask, U'c', "c", "copy:", "" },
        { NSAlphaShiftKeyMask, U'c', "C", "", "C" },
        { 0, U'c', "c", "", "c" },
        { NSShiftKeyMask, U'C', "C", "", "C" },
        { 0, U'\u00E9', "\u00E9", "", "\u00E9" },
        { 0, U' ', "\u65E5\u672C", "", "\u65E5\u672C" },
        { NSControlKeyMask, U'q', "\x11", "", "" },
        { NSCommandKeyMask, U'q', "q", "", "" },
        { NSControlKeyMask | NSAlternateKeyMask, U'q', "@", "", "@" },
        { 0, NSF12FunctionKey, "\uF70F", "", "" },
        { 0, 0, "", "", "" },
    };
    for (auto const& row : rows) {
        auto const meaning = interpretationOfKey(row.modifiers, row.key, row.characters);
        EXPECT_EQ(meaning.commands.empty() ? "" : meaning.commands[0], std::string_view(row.command)) << row.characters;
        EXPECT_EQ(meaning.text, row.text) << row.command;
    }
}

TEST(KeyBindings, AKeyMayStandForTwoCommands)
{
    auto const meaning = interpretationOfKey(NSAlternateKeyMask, NSUpArrowFunctionKey, "");
    ASSERT_EQ(meaning.commands.size(), 2U);
    EXPECT_STREQ(meaning.commands[0], "moveBackward:");
    EXPECT_STREQ(meaning.commands[1], "moveToBeginningOfParagraph:");
}

TEST(KeyBindings, NoKeyIsBoundTwice)
{
    std::set<std::tuple<char32_t, unsigned>> seen;
    for (auto const& binding : standardKeyBindings())
        EXPECT_TRUE(seen.insert({ binding.key, binding.modifiers }).second) << binding.commands[0];
    EXPECT_GT(seen.size(), 50U);
}

}
}

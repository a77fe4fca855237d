#include <plix/platform/appkit/key_bindings.h>

#include <plix/platform/appkit/event_constants.h>
#include <plix/platform/base/utf16.h>

#include <algorithm>
#include <array>

namespace plix {

namespace {

constexpr unsigned shift = NSShiftKeyMask;
constexpr unsigned control = NSControlKeyMask;
constexpr unsigned alternate = NSAlternateKeyMask;
constexpr unsigned command = NSCommandKeyMask;
constexpr unsigned boundModifiers = shift | control | alternate | command;

constexpr std::array bindings {
    KeyBinding { NSLeftArrowFunctionKey, 0, { "moveLeft:" } },
    KeyBinding { NSLeftArrowFunctionKey, shift, { "moveLeftAndModifySelection:" } },
    KeyBinding { NSLeftArrowFunctionKey, control, { "moveWordLeft:" } },
    KeyBinding { NSLeftArrowFunctionKey, control | shift, { "moveWordLeftAndModifySelection:" } },
    KeyBinding { NSLeftArrowFunctionKey, alternate, { "moveWordLeft:" } },
    KeyBinding { NSLeftArrowFunctionKey, alternate | shift, { "moveWordLeftAndModifySelection:" } },
    KeyBinding { NSLeftArrowFunctionKey, command, { "moveToBeginningOfLine:" } },
    KeyBinding { NSLeftArrowFunctionKey, command | shift, { "moveToBeginningOfLineAndModifySelection:" } },
    KeyBinding { NSRightArrowFunctionKey, 0, { "moveRight:" } },
    KeyBinding { NSRightArrowFunctionKey, shift, { "moveRightAndModifySelection:" } },
    KeyBinding { NSRightArrowFunctionKey, control, { "moveWordRight:" } },
    KeyBinding { NSRightArrowFunctionKey, control | shift, { "moveWordRightAndModifySelection:" } },
    KeyBinding { NSRightArrowFunctionKey, alternate, { "moveWordRight:" } },
    KeyBinding { NSRightArrowFunctionKey, alternate | shift, { "moveWordRightAndModifySelection:" } },
    KeyBinding { NSRightArrowFunctionKey, command, { "moveToEndOfLine:" } },
    KeyBinding { NSRightArrowFunctionKey, command | shift, { "moveToEndOfLineAndModifySelection:" } },
    KeyBinding { NSUpArrowFunctionKey, 0, { "moveUp:" } },
    KeyBinding { NSUpArrowFunctionKey, shift, { "moveUpAndModifySelection:" } },
    KeyBinding { NSUpArrowFunctionKey, alternate, { "moveBackward:", "moveToBeginningOfParagraph:" } },
    KeyBinding { NSUpArrowFunctionKey, control, { "moveBackward:", "moveToBeginningOfParagraph:" } },
    KeyBinding { NSUpArrowFunctionKey, command, { "moveToBeginningOfDocument:" } },
    KeyBinding { NSUpArrowFunctionKey, command | shift, { "moveToBeginningOfDocumentAndModifySelection:" } },
    KeyBinding { NSDownArrowFunctionKey, 0, { "moveDown:" } },
    KeyBinding { NSDownArrowFunctionKey, shift, { "moveDownAndModifySelection:" } },
    KeyBinding { NSDownArrowFunctionKey, alternate, { "moveForward:", "moveToEndOfParagraph:" } },
    KeyBinding { NSDownArrowFunctionKey, control, { "moveForward:", "moveToEndOfParagraph:" } },
    KeyBinding { NSDownArrowFunctionKey, command, { "moveToEndOfDocument:" } },
    KeyBinding { NSDownArrowFunctionKey, command | shift, { "moveToEndOfDocumentAndModifySelection:" } },
    KeyBinding { NSHomeFunctionKey, 0, { "moveToBeginningOfLine:" } },
    KeyBinding { NSHomeFunctionKey, shift, { "moveToBeginningOfLineAndModifySelection:" } },
    KeyBinding { NSHomeFunctionKey, control, { "moveToBeginningOfDocument:" } },
    KeyBinding { NSHomeFunctionKey, control | shift, { "moveToBeginningOfDocumentAndModifySelection:" } },
    KeyBinding { NSEndFunctionKey, 0, { "moveToEndOfLine:" } },
    KeyBinding { NSEndFunctionKey, shift, { "moveToEndOfLineAndModifySelection:" } },
    KeyBinding { NSEndFunctionKey, control, { "moveToEndOfDocument:" } },
    KeyBinding { NSEndFunctionKey, control | shift, { "moveToEndOfDocumentAndModifySelection:" } },
    KeyBinding { NSPageUpFunctionKey, 0, { "pageUp:" } },
    KeyBinding { NSPageUpFunctionKey, shift, { "pageUpAndModifySelection:" } },
    KeyBinding { NSPageUpFunctionKey, control, { "scrollPageUp:" } },
    KeyBinding { NSPageDownFunctionKey, 0, { "pageDown:" } },
    KeyBinding { NSPageDownFunctionKey, shift, { "pageDownAndModifySelection:" } },
    KeyBinding { NSPageDownFunctionKey, control, { "scrollPageDown:" } },

    KeyBinding { NSDeleteCharacter, 0, { "deleteBackward:" } },
    KeyBinding { NSDeleteCharacter, shift, { "deleteBackward:" } },
    KeyBinding { NSDeleteCharacter, control, { "deleteWordBackward:" } },
    KeyBinding { NSDeleteCharacter, alternate, { "deleteWordBackward:" } },
    KeyBinding { NSDeleteCharacter, command, { "deleteToBeginningOfLine:" } },
    KeyBinding { NSBackspaceCharacter, 0, { "deleteBackward:" } },
    KeyBinding { NSBackspaceCharacter, control, { "deleteWordBackward:" } },
    KeyBinding { NSDeleteFunctionKey, 0, { "deleteForward:" } },
    KeyBinding { NSDeleteFunctionKey, control, { "deleteWordForward:" } },
    KeyBinding { NSDeleteFunctionKey, alternate, { "deleteWordForward:" } },
    KeyBinding { NSDeleteFunctionKey, shift, { "cut:" } },
    KeyBinding { NSInsertFunctionKey, control, { "copy:" } },
    KeyBinding { NSInsertFunctionKey, shift, { "paste:" } },

    KeyBinding { NSCarriageReturnCharacter, 0, { "insertNewline:" } },
    KeyBinding { NSCarriageReturnCharacter, shift, { "insertNewline:" } },
    KeyBinding { NSCarriageReturnCharacter, alternate, { "insertNewlineIgnoringFieldEditor:" } },
    KeyBinding { NSCarriageReturnCharacter, control, { "insertLineBreak:" } },
    KeyBinding { NSEnterCharacter, 0, { "insertNewline:" } },
    KeyBinding { NSNewlineCharacter, 0, { "insertNewline:" } },
    KeyBinding { NSTabCharacter, 0, { "insertTab:" } },
    KeyBinding { NSTabCharacter, alternate, { "insertTabIgnoringFieldEditor:" } },
    KeyBinding { NSTabCharacter, control, { "selectNextKeyView:" } },
    KeyBinding { NSTabCharacter, shift, { "insertBacktab:" } },
    KeyBinding { NSBackTabCharacter, 0, { "insertBacktab:" } },
    KeyBinding { NSBackTabCharacter, shift, { "insertBacktab:" } },
    KeyBinding { NSBackTabCharacter, control | shift, { "selectPreviousKeyView:" } },
    KeyBinding { NSEscapeCharacter, 0, { "cancelOperation:" } },
    KeyBinding { NSF5FunctionKey, 0, { "complete:" } },

    KeyBinding { U'a', control, { "selectAll:" } },
    KeyBinding { U'a', command, { "selectAll:" } },
    KeyBinding { U'c', control, { "copy:" } },
    KeyBinding { U'c', command, { "copy:" } },
    KeyBinding { U'x', control, { "cut:" } },
    KeyBinding { U'x', command, { "cut:" } },
    KeyBinding { U'v', control, { "paste:" } },
    KeyBinding { U'v', command, { "paste:" } },
    KeyBinding { U'z', control, { "undo:" } },
    KeyBinding { U'z', command, { "undo:" } },
    KeyBinding { U'y', control, { "redo:" } },
    KeyBinding { U'Z', control | shift, { "redo:" } },
    KeyBinding { U'Z', command | shift, { "redo:" } },
    KeyBinding { U'z', control | shift, { "redo:" } },
    KeyBinding { U'z', command | shift, { "redo:" } },
};

bool isText(char32_t character)
{
    constexpr char32_t firstPrivate = 0xF700;
    constexpr char32_t lastPrivate = 0xF8FF;
    return character >= 0x20 && character != NSDeleteCharacter && !(character >= firstPrivate && character <= lastPrivate);
}

}

std::span<KeyBinding const> standardKeyBindings()
{
    return bindings;
}

KeyInterpretation interpretationOfKey(unsigned modifierFlags, char32_t key, std::string_view characters)
{
    unsigned const modifiers = modifierFlags & boundModifiers;
    auto const bound = std::ranges::find_if(
        bindings, [&](KeyBinding const& binding) { return binding.key == key && binding.modifiers == modifiers; });
    if (bound != bindings.end())
        return { { bound->commands.data(), bound->commands[1] ? 2U : 1U }, {} };
    std::size_t byte = 0;
    if (characters.empty() || !isText(decodeUTF8(characters, byte)))
        return {};
    // AltGr enters characters while Control and Alternate are both reported as held.
    bool const isShortcut = hasShortcutModifier(modifiers) && !(modifiers & alternate);
    return isShortcut ? KeyInterpretation {} : KeyInterpretation { {}, characters };
}

}

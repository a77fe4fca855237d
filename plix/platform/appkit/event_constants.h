#pragma once

namespace plix {

/// What happened.
enum NSEventType : int {
    NSLeftMouseDown = 1,
    NSLeftMouseUp = 2,
    NSRightMouseDown = 3,
    NSRightMouseUp = 4,
    NSMouseMoved = 5,
    NSLeftMouseDragged = 6,
    NSRightMouseDragged = 7,
    NSMouseEntered = 8,
    NSMouseExited = 9,
    NSKeyDown = 10,
    NSKeyUp = 11,
    NSFlagsChanged = 12,
    NSAppKitDefined = 13,
    NSSystemDefined = 14,
    NSApplicationDefined = 15,
    NSPeriodic = 16,
    NSCursorUpdate = 17,
    NSScrollWheel = 22,
    NSTabletPoint = 23,
    NSTabletProximity = 24,
    NSOtherMouseDown = 25,
    NSOtherMouseUp = 26,
    NSOtherMouseDragged = 27,
};

/// The mask that lets events of one type through.
constexpr unsigned NSEventMaskFromType(NSEventType type)
{
    return 1U << static_cast<unsigned>(type);
}

/// Sets of event types; each type has the bit of its number.
enum NSEventMask : unsigned {
    NSLeftMouseDownMask = 1U << NSLeftMouseDown,
    NSLeftMouseUpMask = 1U << NSLeftMouseUp,
    NSRightMouseDownMask = 1U << NSRightMouseDown,
    NSRightMouseUpMask = 1U << NSRightMouseUp,
    NSMouseMovedMask = 1U << NSMouseMoved,
    NSLeftMouseDraggedMask = 1U << NSLeftMouseDragged,
    NSRightMouseDraggedMask = 1U << NSRightMouseDragged,
    NSMouseEnteredMask = 1U << NSMouseEntered,
    NSMouseExitedMask = 1U << NSMouseExited,
    NSKeyDownMask = 1U << NSKeyDown,
    NSKeyUpMask = 1U << NSKeyUp,
    NSFlagsChangedMask = 1U << NSFlagsChanged,
    NSAppKitDefinedMask = 1U << NSAppKitDefined,
    NSSystemDefinedMask = 1U << NSSystemDefined,
    NSApplicationDefinedMask = 1U << NSApplicationDefined,
    NSPeriodicMask = 1U << NSPeriodic,
    NSCursorUpdateMask = 1U << NSCursorUpdate,
    NSScrollWheelMask = 1U << NSScrollWheel,
    NSOtherMouseDownMask = 1U << NSOtherMouseDown,
    NSOtherMouseUpMask = 1U << NSOtherMouseUp,
    NSOtherMouseDraggedMask = 1U << NSOtherMouseDragged,
    NSAnyEventMask = 0xFFFFFFFFU,
};

/// The keys that were held; the bits are joined.
enum NSModifierFlags : unsigned {
    NSAlphaShiftKeyMask = 1U << 16,
    NSShiftKeyMask = 1U << 17,
    NSControlKeyMask = 1U << 18,
    NSAlternateKeyMask = 1U << 19,
    NSCommandKeyMask = 1U << 20, ///< the Super key
    NSNumericPadKeyMask = 1U << 21,
    NSHelpKeyMask = 1U << 22,
    NSFunctionKeyMask = 1U << 23,
    NSDeviceIndependentModifierFlagsMask = 0xFFFF0000U,
};

/// Whether a key press with these modifiers may be a shortcut rather than text.
constexpr bool hasShortcutModifier(unsigned flags)
{
    return (flags & (NSControlKeyMask | NSCommandKeyMask)) != 0;
}

/// What keys without a character of their own enter: code points of Unicode's private area.
enum NSFunctionKey : char32_t {
    NSUpArrowFunctionKey = 0xF700,
    NSDownArrowFunctionKey = 0xF701,
    NSLeftArrowFunctionKey = 0xF702,
    NSRightArrowFunctionKey = 0xF703,
    NSF1FunctionKey = 0xF704,
    NSF2FunctionKey = 0xF705,
    NSF3FunctionKey = 0xF706,
    NSF4FunctionKey = 0xF707,
    NSF5FunctionKey = 0xF708,
    NSF6FunctionKey = 0xF709,
    NSF7FunctionKey = 0xF70A,
    NSF8FunctionKey = 0xF70B,
    NSF9FunctionKey = 0xF70C,
    NSF10FunctionKey = 0xF70D,
    NSF11FunctionKey = 0xF70E,
    NSF12FunctionKey = 0xF70F,
    NSF35FunctionKey = 0xF726,
    NSInsertFunctionKey = 0xF727,
    NSDeleteFunctionKey = 0xF728,
    NSHomeFunctionKey = 0xF729,
    NSEndFunctionKey = 0xF72B,
    NSPageUpFunctionKey = 0xF72C,
    NSPageDownFunctionKey = 0xF72D,
    NSPrintScreenFunctionKey = 0xF72E,
    NSScrollLockFunctionKey = 0xF72F,
    NSPauseFunctionKey = 0xF730,
    NSMenuFunctionKey = 0xF735,
    NSHelpFunctionKey = 0xF746,
};

/// Characters that control keys enter.
enum NSControlCharacter : char32_t {
    NSEnterCharacter = 0x03,
    NSBackspaceCharacter = 0x08,
    NSTabCharacter = 0x09,
    NSNewlineCharacter = 0x0A,
    NSFormFeedCharacter = 0x0C,
    NSCarriageReturnCharacter = 0x0D,
    NSBackTabCharacter = 0x19,
    NSEscapeCharacter = 0x1B,
    NSDeleteCharacter = 0x7F,
};

}

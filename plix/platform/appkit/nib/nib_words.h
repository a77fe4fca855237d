#pragma once

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/cell_constants.h>
#include <plix/platform/appkit/event_constants.h>
#include <plix/platform/appkit/nib/NibReading.h>

namespace plix {

// The words that elements of several kinds use.

inline constexpr NibWord nibControlSizes[]
    = { { "regular", NSRegularControlSize }, { "small", NSSmallControlSize }, { "mini", NSMiniControlSize } };
inline constexpr NibWord nibFocusRingTypes[]
    = { { "default", NSFocusRingTypeDefault }, { "none", NSFocusRingTypeNone }, { "exterior", NSFocusRingTypeExterior } };
inline constexpr NibWord nibStates[] = { { "on", NSOnState }, { "off", NSOffState }, { "mixed", NSMixedState } };
inline constexpr NibWord nibModifiers[] = { { "command", NSCommandKeyMask }, { "shift", NSShiftKeyMask },
    { "option", NSAlternateKeyMask }, { "control", NSControlKeyMask } };

}

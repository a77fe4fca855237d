#pragma once

#include <plix/platform/base/export.h>

#include <cstdint>
#include <string>

namespace plix {

struct HostEvent;

/// A key as another toolkit reports it.
struct ToolkitKey {
    /// The keysym (X protocol, appendix A, and xkbcommon's), which toolkits have on X11 and on Wayland. With Shift and the group
    /// applied, as they come.
    std::uint32_t keysym { 0 };
    /// The character of that keysym, 0 where it has none.
    char32_t character { 0 };
    /// What the key entered, UTF-8, where the toolkit says that; where it says only that for text, empty for other keys. Control
    /// characters count as nothing.
    std::string text {};
    /// HostModifier bits, as they were before the key.
    std::uint32_t modifiers { 0 };
    /// The hardware's code.
    std::uint16_t keyCode { 0 };
    bool isRepeat { false };
};

/// Fills a keyDown or keyUp event in: characters, modifiers and code. That of a modifier key becomes a modifiersChanged event, with
/// the modifiers as they are after it.
PLIX_EXPORT void applyKey(ToolkitKey const&, HostEvent&);

/// The HostModifier bits in the state of X11 and Wayland's keyboards, which GDK has too: Alt is Mod1, Super is Mod4.
PLIX_EXPORT std::uint32_t modifiersOfToolkitState(unsigned state);

}

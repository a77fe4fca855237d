#include <plix/platform/host/desktop/KeyboardLayout.h>

#include <xkbcommon/xkbcommon.h>

namespace plix {

namespace {

char32_t characterAt(x11::Connection* connection, int keyCode, unsigned group, unsigned level)
{
    auto const symbol = XkbKeycodeToKeysym(connection, static_cast<KeyCode>(keyCode), group, level);
    return xkb_keysym_to_utf32(static_cast<xkb_keysym_t>(symbol));
}

}

char32_t shiftedCharacter(x11::Connection* connection, char32_t plain)
{
    if (plain == 0)
        return 0;
    XkbStateRec state {};
    XkbGetState(connection, XkbUseCoreKbd, &state);
    int first = 0;
    int last = 0;
    XDisplayKeycodes(connection, &first, &last);
    for (int keyCode = first; keyCode <= last; ++keyCode) {
        if (characterAt(connection, keyCode, state.group, 0) != plain)
            continue;
        auto const shifted = characterAt(connection, keyCode, state.group, 1);
        return shifted != 0 ? shifted : plain;
    }
    return plain;
}

}

#pragma once

#include <plix/platform/host/desktop/x11.h>

namespace plix {

/// What the active layout gives with Shift for the key that gives `plain` without; `plain` itself where no key does.
char32_t shiftedCharacter(x11::Connection*, char32_t plain);

}

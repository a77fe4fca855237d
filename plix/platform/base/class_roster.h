#pragma once

#include <plix/platform/base/export.h>

namespace plix {

/// Adds a function that makes classes known by their names. It is called once, when a name is first asked for that no known class
/// has. True always, for the initialiser of a constant.
PLIX_EXPORT bool addClassRoster(void (*registerClasses)());

}

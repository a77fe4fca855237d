#pragma once

#include <plix/platform/base/export.h>

#include <cstddef>

namespace plix {

/// How many objects there are in the process now. What should leave nothing behind leaves this as it was.
PLIX_EXPORT std::size_t livingObjects();

}

#pragma once

#include <plix/platform/base/export.h>

#include <cstdint>
#include <string>

namespace plix {

/// "12 bytes", "1.5KB", "5.0MB", "2048.0GB". Units change at powers of 1024; the rounding may still show 1024.0 of the smaller.
PLIX_EXPORT std::string StringForFileSize(std::uint64_t bytes);

}

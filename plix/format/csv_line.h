#pragma once

#include <plix/platform/base/export.h>

#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// The fields of one line of comma-separated values, up to and with the line end. A quoted field begins right behind a comma, never
/// at the line's start, and keeps doubled quotes as they are; outside quotes a doubled quote gives one.
PLIX_EXPORT std::vector<std::string> CSVLineComponents(std::string_view line);

}

#pragma once

#include <plix/platform/base/export.h>

#include <functional>
#include <string_view>

namespace plix {

/// Writes one line to standard error, or to the sink that is installed.
PLIX_EXPORT void NSLog(std::string_view line);

/// Takes the lines of NSLog(), without their ends.
using LogSink = std::function<void(std::string_view line)>;
/// Installs a sink and answers the one before; an empty one writes to standard error.
PLIX_EXPORT LogSink installLogSink(LogSink);

}

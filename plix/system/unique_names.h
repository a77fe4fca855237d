#pragma once

#include <plix/platform/base/export.h>

#include <optional>
#include <string>
#include <string_view>

namespace plix {

/// A path at which there is nothing: the one given, or else the first of "name 1", "name 2", ... in its folder. With keepExtension
/// the number comes before the extension. Nil for nil, for a path of fewer than two components, and where the folder can't be
/// listed.
PLIX_EXPORT std::optional<std::string> PLIXUniqueFilePathAtPath(std::optional<std::string_view> path, bool keepExtension);

/// Hidden names for this machine and process; names, not paths. Those of files count up from 1, main thread only.
PLIX_EXPORT std::string PLIXTempFolderName();
PLIX_EXPORT std::string PLIXTempFileName();

/// A new UUID as 36 characters; each call differs.
PLIX_EXPORT std::string PLIXUniqueString();

}

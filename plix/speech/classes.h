#pragma once

#include <plix/platform/base/export.h>

namespace plix {

/// Makes the folder's classes known by their names to interface files and archives.
PLIX_EXPORT void registerSpeechClasses();

}

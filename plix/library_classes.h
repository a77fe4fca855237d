#pragma once

#include <plix/platform/base/class_roster.h>

namespace plix {

/// Makes the classes of all the library's folders known by their names, to interface files and archives.
PLIX_EXPORT void registerLibraryClasses();

/// Done by itself in programs that include this header, or plix/plix.h, before the first look-up that needs it.
inline bool const libraryClassesAreListed = addClassRoster(&registerLibraryClasses);

}

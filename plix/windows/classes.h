#pragma once

namespace plix {

/// Makes the folder's classes known by their names to interface files and archives.
void registerWindowClasses();

}

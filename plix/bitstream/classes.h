#pragma once

namespace plix {

/// Makes the folder's class known by its name.
void registerBitstreamClasses();

}

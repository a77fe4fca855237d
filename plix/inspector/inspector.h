#pragma once

#include <plix/platform/base/export.h>

namespace plix {

// A panel that looks into the application that runs: the views of the key window, what is to be said of each, where they are, what
// is drawn when, and what a person did last. Until it is opened nothing is done for it.

/// Has Control-Shift-I open the panel in the application, and close it again; a PLIXApplication does so by itself. False where the
/// library was built without it (the option PLIX_INSPECTOR).
PLIX_EXPORT bool installInspector();

/// Shows the panel, as the keys do. Nothing where the library was built without it.
PLIX_EXPORT void openInspector();
/// Takes the panel away, as the keys do.
PLIX_EXPORT void closeInspector();
PLIX_EXPORT bool isInspectorOpen();

}

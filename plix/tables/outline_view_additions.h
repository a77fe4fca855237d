#pragma once

#include <plix/platform/base/export.h>

namespace plix {

class NSOutlineView;

/// Clears the flag of any outline by which it draws disclosure triangles of its own.
PLIX_EXPORT void zapIndentationMarker(NSOutlineView&);

}
